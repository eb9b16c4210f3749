#include <doctest/doctest.h>

#include "automation/SampleDesk.h"

#include <algorithm>
#include <sstream>

using namespace rovanta;
using namespace rovanta::tests;

static Json Answered(SampleDesk& at, std::string_view line)
{
    return Json::parse(at.dispatcher.Answer(line).value());
}

static int CodeOf(SampleDesk& at, std::string_view line)
{
    return Answered(at, line)["error"]["code"];
}

TEST_CASE("A response carries the request's own id")
{
    SampleDesk at;
    for (const char* id : {"1", "\"one\"", "null", "-2.5"}) {
        const Json response = Answered(at, R"({"jsonrpc":"2.0","method":"app.forms","id":)" + std::string(id) + "}");
        CHECK(response["id"] == Json::parse(id));
        CHECK(response["jsonrpc"] == "2.0");
        CHECK(response["result"].is_object());
        CHECK_FALSE(response.contains("error"));
    }
    const Json wrong = Answered(at, R"({"jsonrpc":"2.0","method":"app.none","id":"x"})");
    CHECK(wrong["id"] == "x");
    CHECK(wrong["error"]["code"] == -32601);
    CHECK(wrong["error"]["message"] == "There is no method \"app.none\".");
    CHECK_FALSE(wrong.contains("result"));
}

TEST_CASE("A line that is no JSON text is a parse error")
{
    SampleDesk at;
    for (const std::string& line :
         {std::string("{"), std::string("nonsense"), std::string("{\"jsonrpc\":\"2.0\"}}"), std::string("1e999"),
          std::string("{\"a\":\"\xFF\"}"), std::string("\xC3"), std::string("{\"a\":\"\xED\xA0\x80\"}"),
          std::string("{\"a\":\"\\ud800\"}"), std::string("{'a':1}"), std::string("{} // remark"),
          std::string("{\"a\":\"b\n\"}"), std::string("\0", 1),
          std::string("{\"jsonrpc\":\"2.0\",\"method\":\"app.forms\",\"id\":1}") + '\0' + "x"}) {
        CAPTURE(line);
        CHECK(Answered(at, line)["id"].is_null());
        CHECK(CodeOf(at, line) == -32700);
    }
}

TEST_CASE("JSON that is no request is an invalid request")
{
    SampleDesk at;
    for (const char* line :
         {"[]", "1", "null", "\"text\"", "{}", R"({"method":"app.forms","id":1})",
          R"({"jsonrpc":"1.0","method":"app.forms","id":1})", R"({"jsonrpc":2.0,"method":"app.forms","id":1})",
          R"({"jsonrpc":"2.0","id":1})", R"({"jsonrpc":"2.0","method":5,"id":1})",
          R"({"jsonrpc":"2.0","method":"app.forms","id":{}})", R"({"jsonrpc":"2.0","method":"app.forms","id":true})",
          R"({"jsonrpc":"2.0","method":"app.forms","params":"x","id":1})", R"({"jsonrpc":"2.0","method":1})",
          R"([{"jsonrpc":"2.0","method":"app.forms","id":1}])"}) {
        CAPTURE(line);
        CHECK(CodeOf(at, line) == -32600);
    }
    CHECK(Answered(at, R"({"jsonrpc":"2.0","id":9})")["id"] == 9);
    CHECK(Answered(at, R"({"jsonrpc":"2.0","method":"app.forms","id":[1]})")["id"].is_null());
}

TEST_CASE("A notification is done and not answered, also when it fails")
{
    SampleDesk at;
    CHECK_FALSE(at.dispatcher.Answer(
        R"({"jsonrpc":"2.0","method":"control.click","params":{"form":"frmSample","control":"btnPress"}})"));
    CHECK(at.Log() == "click btnPress");
    CHECK_FALSE(at.dispatcher.Answer(R"({"jsonrpc":"2.0","method":"app.none"})"));
    CHECK_FALSE(at.dispatcher.Answer(R"({"jsonrpc":"2.0","method":"app.open","params":{"form":"frmNone"}})"));
    // The boxes of a notification are not those of the next call.
    at.dispatcher.Answer(
        R"({"jsonrpc":"2.0","method":"control.click","params":{"form":"frmSample","control":"btnAsk"}})");
    CHECK_FALSE(at.Call("app.forms").contains("messages"));
}

TEST_CASE("A blank line is passed over, a line end of another system is no part of a line")
{
    SampleDesk at;
    CHECK_FALSE(at.dispatcher.Answer(""));
    CHECK_FALSE(at.dispatcher.Answer(" \t\r"));
    CHECK(Answered(at, "{\"jsonrpc\":\"2.0\",\"method\":\"app.forms\",\"id\":1}\r").contains("result"));
}

TEST_CASE("Parameters go by name")
{
    SampleDesk at;
    CHECK(CodeOf(at, R"({"jsonrpc":"2.0","method":"app.open","params":["frmAbout"],"id":1})") == -32602);
    CHECK(Answered(at, R"({"jsonrpc":"2.0","method":"app.forms","params":[],"id":1})").contains("result"));
    CHECK(Answered(at, R"({"jsonrpc":"2.0","method":"app.forms","params":null,"id":1})").contains("result"));
}

TEST_CASE("A million characters and a deep nesting do no harm")
{
    SampleDesk at;
    const std::string million(1'000'000, 'x');
    at.On("control.set", "txtName", {{"value", million}});
    CHECK(at.Form().txtName.Text() == million);
    CHECK(at.On("control.get", "txtName")["text"] == million);
    CHECK(at.Error(million) == -32601);
    CHECK(at.Error("app.open", {{"form", million}}) == -32602);

    const std::string open(200'000, '[');
    const std::string nested = open + std::string(200'000, ']');
    CHECK(CodeOf(at, open) == -32700);
    CHECK(CodeOf(at, nested) == -32600);
    CHECK(CodeOf(at, R"({"jsonrpc":)" + nested + "}") == -32600);
    CHECK(CodeOf(at, R"({"jsonrpc":"2.0","method":"app.forms","id":)" + nested + "}") == -32600);
    CHECK(CodeOf(at, R"({"jsonrpc":"2.0","method":"app.open","id":1,"params":{"form":)" + nested + "}}") == -32602);
    CHECK(CodeOf(at, R"({"jsonrpc":"2.0","method":"ui.answer","id":1,"params":{"answers":)" + nested + "}}") == -32602);
    CHECK(at.Call("app.forms")["forms"].size() == 3);
}

TEST_CASE("Texts of an old database that are no UTF-8 come out as readable ones")
{
    SampleDesk at;
    at.Form().txtName = "Caf\xE9";
    CHECK(at.On("control.get", "txtName")["text"] == "Caf\xEF\xBF\xBD");
}

TEST_CASE("Message boxes come in order, questions take the queued answers")
{
    SampleDesk at;
    at.Call("ui.answer", {{"answers", {"yes", "no"}}});
    Json result = at.On("control.click", "btnAsk");
    CHECK(result["messages"] == Json::parse(R"([
        {"title":"Question","text":"Go on?","icon":"question","buttons":"yesno","answer":"yes"},
        {"title":"Answer","text":"Done.","icon":"exclamation","buttons":"ok","answer":"ok"}])"));
    CHECK(at.On("control.click", "btnAsk")["messages"][0]["answer"] == "no");
    result = at.On("control.click", "btnAsk");
    CHECK(result["messages"][0]["answer"] == "no");
    CHECK(result["messages"][0]["unanswered"] == true);
    CHECK_FALSE(result["messages"][1].contains("unanswered"));
    CHECK(at.Log() == "yes; no; no");
    CHECK_FALSE(at.On("control.click", "btnPress").contains("messages"));
}

TEST_CASE("Answers that are neither yes nor no queue nothing")
{
    SampleDesk at;
    CHECK(at.Error("ui.answer", {{"answers", {"yes", "maybe"}}}) == -32602);
    CHECK(at.Error("ui.answer", {{"answers", "yes"}}) == -32602);
    CHECK(at.Error("ui.answer", {{"answers", {true}}}) == -32602);
    CHECK(at.Error("ui.answer") == -32602);
    CHECK(at.desk.host.QueuedAnswers() == 0);
}

TEST_CASE("A file dialog returns the queued path; an empty one is a cancel")
{
    SampleDesk at;
    at.Call("ui.file", {{"path", "one.jpg"}});
    at.Call("ui.file", {{"path", ""}});
    at.On("control.click", "btnFile");
    at.On("control.click", "btnFile");
    at.On("control.click", "btnFile");
    CHECK(at.Log() == "file one.jpg; file none; file none");
    CHECK(at.Error("ui.file", {{"path", 5}}) == -32602);
}

TEST_CASE("A failure ends the program with its text; later calls are told so")
{
    SampleDesk at;
    const Json result = at.On("control.click", "btnFail");
    CHECK(result["ended"] == Json::parse(R"({"text":"Something unexpected"})"));
    CHECK(at.Error("app.forms") == -32000);
    CHECK(at.Error("app.none") == -32000);
    CHECK(CodeOf(at, "{") == -32700);
    CHECK(at.desk.Ended()->failed);
}

TEST_CASE("Leaving the program ends it with an empty text")
{
    SampleDesk at;
    CHECK(at.On("control.click", "btnLeave")["ended"]["text"] == "");
    CHECK(at.Error("app.forms") == -32000);
    CHECK_FALSE(at.desk.Ended()->failed);
}

TEST_CASE("Serving answers line by line until the end of input and tells how the program ended")
{
    const TestOffice office;
    const auto serve = [&](const std::string& lines, std::string& answers) {
        Desk desk(SampleScreens(), {office.ConfigPath(), "serve-" + std::to_string(getpid()), {}});
        std::istringstream input(lines);
        std::ostringstream output;
        const int code = Serve(desk, input, output);
        answers = output.str();
        return code;
    };
    const std::string open = R"({"jsonrpc":"2.0","id":1,"method":"app.open","params":{"form":"frmSample"}})";
    const auto click = [](const std::string& button) {
        return "\n"
               R"({"jsonrpc":"2.0","id":2,"method":"control.click","params":{"form":"frmSample","control":")" +
               button + "\"}}";
    };
    std::string answers;
    CHECK(serve("", answers) == 0);
    CHECK(answers == "");
    CHECK(serve(open + "\n", answers) == 0);
    CHECK(Json::parse(answers) == Json::parse(R"({"jsonrpc":"2.0","id":1,"result":{}})"));
    CHECK(serve(open + click("btnLeave"), answers) == 0);
    CHECK(serve(open + click("btnFail") + click("btnPress"), answers) == 1);
    CHECK(std::count(answers.begin(), answers.end(), '\n') == 3);
    CHECK(answers.find("-32000") != std::string::npos);
}
