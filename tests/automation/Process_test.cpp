#include <doctest/doctest.h>

#include "frame/SecondCopyGuard.h"
#include "store/Engine.h"
#include "store/Schema.h"
#include "support/TestApp.h"
#include "values/Text.h"

#include <nlohmann/json.hpp>

#include <cstdlib>

#include <sys/wait.h>

using namespace rovanta;
using namespace rovanta::tests;
using Json = nlohmann::json;

namespace {

struct Outcome {
    int code = -1;
    std::string errors;
    std::vector<std::string> lines;
};

/// The real program with `options`, fed with `input`.
Outcome Run(const std::string& options, const std::string& input = {})
{
    const TestFolder folder;
    WriteContent(folder.File("in"), input);
    const std::string command = std::string(BINARY_FOLDER) + "/bin/rovanta-automation " + options + " <" +
                                folder.File("in") + " >" + folder.File("out") + " 2>" + folder.File("err");
    Outcome outcome;
    const int status = std::system(command.c_str());
    outcome.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    outcome.errors = ContentOf(folder.File("err"));
    outcome.lines = Split(ContentOf(folder.File("out")), '\n');
    // Every answer ends its line.
    CHECK(outcome.lines.back().empty());
    outcome.lines.pop_back();
    return outcome;
}

std::string OptionsFor(const TestOffice& office)
{
    return "--config " + office.ConfigPath() + " --machine process-" + std::to_string(getpid()) +
           " --clock '2026-03-02 09:00:00'";
}

std::string Request(int id, const std::string& method, const Json& parameters = Json::object())
{
    return Json{{"jsonrpc", "2.0"}, {"id", id}, {"method", method}, {"params", parameters}}.dump() + "\n";
}

std::string SignIn(const std::string& user, const std::string& password)
{
    return Request(1, "control.set", {{"form", "frmLogin"}, {"control", "txtUsername"}, {"value", user}}) +
           Request(2, "control.set", {{"form", "frmLogin"}, {"control", "txtPassword"}, {"value", password}}) +
           Request(3, "control.click", {{"form", "frmLogin"}, {"control", "btnLogin"}});
}

/// The one response of a start that failed, after checking that it is one.
Json FailedStart(const Outcome& outcome)
{
    CHECK(outcome.code == 1);
    REQUIRE(outcome.lines.size() == 1);
    const Json response = Json::parse(outcome.lines[0]);
    CHECK(response["jsonrpc"] == "2.0");
    CHECK(response["id"].is_null());
    CHECK(response["error"]["code"] == -32000);
    return response["error"];
}

std::string FailureText(const Outcome& outcome)
{
    return FailedStart(outcome)["message"];
}

}

TEST_CASE("The program answers in order, one line a request, and ends at the end of input")
{
    const TestOffice office;
    const Outcome outcome =
        Run(OptionsFor(office), SignIn("admin", "word") + Request(4, "app.forms") + "{bad\n" + Request(5, "app.forms"));
    CHECK(outcome.code == 0);
    CHECK(outcome.errors.empty());
    REQUIRE(outcome.lines.size() == 6);
    CHECK(Json::parse(outcome.lines[0])["id"] == 1);
    CHECK(Json::parse(outcome.lines[3])["result"]["forms"][0]["form"] == "MDI");
    CHECK(Json::parse(outcome.lines[4])["error"]["code"] == -32700);
    CHECK(Json::parse(outcome.lines[5])["id"] == 5);
}

TEST_CASE("A line of a million characters and one of broken UTF-8 are answered, and so is the next")
{
    const TestOffice office;
    const std::string million(1'000'000, 'x');
    const std::string broken(100'000, '\xFE');
    const Outcome outcome =
        Run(OptionsFor(office),
            Request(1, million) + million + "\n" + broken + "\n\"\xE2\x28\xA1\"\n" +
                Request(2, "control.set", {{"form", "frmLogin"}, {"control", "txtUsername"}, {"value", million}}) +
                Request(3, "app.forms"));
    CHECK(outcome.code == 0);
    REQUIRE(outcome.lines.size() == 6);
    CHECK(Json::parse(outcome.lines[0])["error"]["code"] == -32601);
    for (const std::size_t line : {1, 2, 3})
        CHECK(Json::parse(outcome.lines[line])["error"]["code"] == -32700);
    CHECK(Json::parse(outcome.lines[4])["result"] == Json::object());
    CHECK(Json::parse(outcome.lines[5])["id"] == 3);
}

TEST_CASE("A program that was left exits with 0, one that failed with 1, both after the end of input")
{
    const TestOffice office;
    const Outcome left =
        Run(OptionsFor(office), Request(1, "app.menu", {{"command", "Exit"}}) + Request(2, "app.forms"));
    CHECK(left.code == 0);
    REQUIRE(left.lines.size() == 2);
    CHECK(Json::parse(left.lines[0])["result"]["ended"]["text"] == "");
    CHECK(Json::parse(left.lines[1])["error"]["code"] == -32000);

    const Outcome failed = Run(OptionsFor(office), SignIn("x' OR 'a'='a", "word") + Request(4, "app.forms"));
    CHECK(failed.code == 1);
    REQUIRE(failed.lines.size() == 4);
    const std::string text = Json::parse(failed.lines[2])["result"]["ended"]["text"];
    CHECK(text.find("Incorrect syntax near") == 0);
    CHECK(Json::parse(failed.lines[3])["error"]["code"] == -32000);
}

TEST_CASE("A start without config.txt fails and names the file")
{
    const TestFolder folder;
    const std::string path = folder.File("config.txt");
    CHECK(FailureText(Run("--config " + path)) == "File not found: " + path);
    CHECK(FailureText(Run("--config " + folder.path.string())) == "File not found: " + folder.path.string());
}

TEST_CASE("A start with a short config.txt fails and names the file")
{
    const TestOffice office;
    const std::string content = ContentOf(office.ConfigPath());
    for (const std::size_t length : {content.rfind(','), content.size() / 2, std::size_t{5}, std::size_t{0}}) {
        CAPTURE(length);
        WriteContent(office.ConfigPath(), content.substr(0, length));
        CHECK(FailureText(Run(OptionsFor(office))) == "Input past end of file: " + office.ConfigPath());
    }
}

TEST_CASE("A start without its database fails and makes none")
{
    const TestOffice office;
    std::filesystem::remove(office.folder.File("rovanta.db"));
    const std::string text = FailureText(Run(OptionsFor(office)));
    CHECK(text.find("rovanta.db") != std::string::npos);
    CHECK_FALSE(std::filesystem::exists(office.folder.File("rovanta.db")));
    WriteContent(office.folder.File("rovanta.db"), "This is no database, only a text that lies in its place.");
    CHECK(FailureText(Run(OptionsFor(office))).find("rovanta.db") != std::string::npos);
}

TEST_CASE("A start with a database of another version fails and tells both versions")
{
    const TestOffice office;
    {
        Connection connection;
        connection.Open(ReadConfigFile(office.ConfigPath()).ConnectionString);
        connection.GetEngine().SetSchemaVersion(99);
    }
    const std::string text = FailureText(Run(OptionsFor(office)));
    CHECK(text.find("99") != std::string::npos);
    CHECK(text.find("version " + std::to_string(schemaVersion)) != std::string::npos);
}

TEST_CASE("A start with a company row that misses a value fails and names the column")
{
    const TestOffice office;
    TestApp(office).Execute("UPDATE Company SET KeyPressDelay = NULL");
    CHECK(FailureText(Run(OptionsFor(office))) == "Invalid use of Null: KeyPressDelay");
}

TEST_CASE("A second copy on one machine says so and does not start; the first stays as it was")
{
    const TestOffice office;
    const SecondCopyGuard first("process-" + std::to_string(getpid()));
    REQUIRE(first.IsFirst());
    const Json error = FailedStart(Run(OptionsFor(office), Request(1, "app.forms")));
    CHECK(error["message"] == "This application is already running.");
    CHECK(error["data"]["messages"] ==
          Json::parse(R"([{"title":"Application Already Running","text":"This application is already running.",
                           "icon":"none","buttons":"ok","answer":"ok"}])"));
    const Outcome other = Run("--config " + office.ConfigPath() + " --machine other-" + std::to_string(getpid()),
                              Request(1, "app.forms"));
    CHECK(other.code == 0);
}

TEST_CASE("Options that make no sense end the program with 2 and a text on the standard error")
{
    for (const char* options : {"", "--fast", "--config", "--config c --clock soon", "--run"}) {
        CAPTURE(options);
        const Outcome outcome = Run(options);
        CHECK(outcome.code == 2);
        CHECK(outcome.lines.empty());
        CHECK(outcome.errors.find("--help") != std::string::npos);
    }
    const Outcome help = Run("--help");
    CHECK(help.code == 0);
    CHECK(help.lines.size() > 20);
}

TEST_CASE("Stories that hold exit with 0, one that differs with 1")
{
    const TestFolder folder;
    std::filesystem::create_directory(folder.path / "fixtures");
    WriteContent(folder.File("fixtures/one.sql"), "");
    WriteContent(folder.File("good.test"), "office one\nshown frmLogin\n");
    WriteContent(folder.File("bad.test"), "office one\ngone frmLogin\n");
    CHECK(Run("--run " + folder.File("good.test")).code == 0);
    const Outcome bad = Run("--run " + folder.File("good.test") + " " + folder.File("bad.test"));
    CHECK(bad.code == 1);
    CHECK(bad.lines[0] == folder.File("bad.test") + ":2: differs");
}
