#include <doctest/doctest.h>

#include "SampleDesk.h"

#include <random>

using namespace rovanta;
using namespace rovanta::tests;

/// Sound requests of every kind, to be spoiled.
static const std::vector<std::string>& SoundLines()
{
    static const std::vector<std::string> lines = {
        R"({"jsonrpc":"2.0","id":1,"method":"app.forms"})",
        R"({"jsonrpc":"2.0","id":2,"method":"form.state","params":{"form":"frmSample"}})",
        R"({"jsonrpc":"2.0","id":3,"method":"control.set","params":{"form":"frmSample","control":"txtName","value":"a"}})",
        R"({"jsonrpc":"2.0","id":4,"method":"control.set","params":{"form":"frmSample","control":"dtDate","value":"2026-03-02"}})",
        R"({"jsonrpc":"2.0","id":5,"method":"control.pick","params":{"form":"frmSample","control":"lstMany","index":1,"selected":true}})",
        R"({"jsonrpc":"2.0","id":6,"method":"control.key","params":{"form":"frmSample","control":"cmbName","key":"b"}})",
        R"({"jsonrpc":"2.0","id":7,"method":"grid.cells","params":{"form":"frmSample","grid":"grid","rows":[0,2],"colors":true}})",
        R"({"jsonrpc":"2.0","id":8,"method":"grid.set","params":{"form":"frmSample","grid":"grid","row":1,"col":2,"value":"5"}})",
        R"({"jsonrpc":"2.0","id":9,"method":"grid.select","params":{"form":"frmSample","grid":"grid","row":1,"col":2,"rowTo":2}})",
        R"({"jsonrpc":"2.0","id":10,"method":"grid.doubleClick","params":{"form":"frmSample","grid":"grid","row":1,"col":1}})",
        R"({"jsonrpc":"2.0","id":11,"method":"ui.answer","params":{"answers":["yes","no"]}})",
        R"({"jsonrpc":"2.0","id":12,"method":"clock.set","params":{"now":"2026-03-02 09:00:00"}})",
        R"({"jsonrpc":"2.0","id":13,"method":"db.query","params":{"sql":"SELECT TOP 2 Name FROM Permission ORDER BY Name"}})",
        R"({"jsonrpc":"2.0","id":14,"method":"accounting.documents"})",
    };
    return lines;
}

static std::string Spoiled(std::mt19937& dice)
{
    const auto& lines = SoundLines();
    const auto below = [&](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(dice);
    };
    std::string line = lines[below(lines.size())];
    for (std::size_t change = below(4) + 1; change > 0 && !line.empty(); --change) {
        const std::size_t at = below(line.size());
        switch (below(4)) {
        case 0:
            line[at] = static_cast<char>(below(256));
            break;
        case 1:
            line.erase(at, below(8) + 1);
            break;
        case 2:
            line.insert(at, 1, "{}[]\",:0-9e\\"[below(12)]);
            break;
        default:
            line.insert(at, lines[below(lines.size())].substr(0, below(40)));
        }
    }
    return line;
}

TEST_CASE("Spoiled lines are answered by one whole response each and end nothing")
{
    SampleDesk at;
    std::mt19937 dice(20260302);
    int errors = 0;
    for (int count = 0; count < 4000; ++count) {
        const std::string line = Spoiled(dice);
        CAPTURE(line);
        const std::optional<std::string> answer = at.dispatcher.Answer(line);
        REQUIRE_FALSE(at.desk.Ended());
        if (!answer)
            continue;
        REQUIRE(answer->find('\n') == std::string::npos);
        const Json response = Json::parse(*answer);
        REQUIRE(response["jsonrpc"] == "2.0");
        REQUIRE(response.contains("id"));
        REQUIRE(response.contains("result") != response.contains("error"));
        errors += response.contains("error") ? 1 : 0;
    }
    CHECK(errors > 2000);
    CHECK(errors < 4000);
    CHECK(at.Call("app.forms")["forms"].size() == 3);
}
