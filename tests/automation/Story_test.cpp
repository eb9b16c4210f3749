#include <doctest/doctest.h>

#include "automation/Stories.h"
#include "automation/StoryFile.h"
#include "support/TestApp.h"
#include "values/Errors.h"

#include <sstream>

using namespace rovanta;
using namespace rovanta::tests;

namespace {

/// Stories in a folder with one fixture, and what their playing wrote.
struct Playhouse {
    Playhouse()
    {
        std::filesystem::create_directory(folder.path / "fixtures");
        WriteContent(folder.File("fixtures/one.sql"),
                     "INSERT INTO Customer (Name,City) VALUES ('Gold Pine','Nashville');\n"
                     "INSERT INTO Customer (Name) VALUES ('Oak');\n");
    }

    bool Play(const std::string& steps, StoryOptions options = {})
    {
        WriteContent(folder.File("a.test"), steps);
        std::ostringstream out;
        const int differing = PlayStories({folder.File("a.test")}, options, out);
        told = out.str();
        return differing == 0;
    }

    /// A story that signs in first and must differ on its last line; `what` must stand in what it says of it.
    bool Differs(const std::string& steps, const std::string& what)
    {
        const std::string whole = "office one\nsign in office coach2026\n" + steps;
        const int line = ParseStory(whole).back().line;
        if (Play(whole))
            return false;
        INFO(told);
        const bool rightLine = told.find(".test:" + std::to_string(line) + ":") != std::string::npos;
        CHECK(rightLine);
        CHECK(told.find(what) != std::string::npos);
        return rightLine;
    }

    TestFolder folder;
    std::string told;
};

std::string Join(const std::vector<StoryWord>& words)
{
    std::string text;
    for (const StoryWord& word : words)
        text += (word.quoted ? "'" : "<") + word.text + (word.quoted ? "'" : ">");
    return text;
}

}

TEST_CASE("Words are parted by blanks, texts stand in quotes")
{
    CHECK(Join(Words("a  b\t3")) == "<a><b><3>");
    CHECK(Join(Words("")) == "");
    CHECK(Join(Words(R"(set "Spring Run" "")")) == "<set>'Spring Run'''");
    CHECK(Join(Words(R"("a\"b" "c\\d" "e\nf" "g\th")")) == "'a\"b''c\\d''e\r\nf''g\th'");
    CHECK_THROWS_AS(Words("\"open"), StoryDifference);
    CHECK(Words("12")[0].Number() == 12);
    CHECK(Words("-1")[0].Number() == -1);
    CHECK_FALSE(Words("012")[0].Number());
    CHECK_FALSE(Words("\"12\"")[0].Number());
    CHECK_FALSE(Words("1.5")[0].Number());
}

TEST_CASE("Steps have numbers of lines and rows below them")
{
    const auto steps = ParseStory("# remark\n\nquery SELECT 1\n  a | \"b | c\" |\n  null\r\nsay \"x\"\n");
    REQUIRE(steps.size() == 2);
    CHECK(steps[0].line == 3);
    CHECK(steps[0].verb == "query");
    CHECK(steps[0].rest == "SELECT 1");
    REQUIRE(steps[0].rows.size() == 2);
    CHECK(Join(steps[0].rows[0]) == "<a>'b | c'<>");
    CHECK(Join(steps[0].rows[1]) == "<null>");
    CHECK(steps[1].line == 6);
    CHECK(steps[1].Behind().verb == "\"x\"");
    CHECK_THROWS_AS(ParseStory("  row\n"), StoryDifference);
    CHECK_THROWS_AS(ReadStory("no/such.test"), RunTimeError);
}

TEST_CASE("A story whose every line holds is as written")
{
    Playhouse house;
    const bool asWritten = house.Play(R"(office one
clock 2026-03-02 09:00:00
on frmLogin
click btnLogin
message "Invalid Username" "You must enter a username" exclamation
expect txtUsername empty
expect btnLogin "Login"
expect btnLogin enabled
set txtUsername office
expect txtUsername text office
wrong set txtNone x
wrong open frmNone
refused menu About
sign in office coach2026
gone frmLogin
menu About
shown frmAbout
close frmAbout
gone frmAbout
query SELECT ID,Name,City,NULL AS Nothing FROM Customer ORDER BY Name
  * | Gold Pine | Nashville | null
  * | Oak       | null      | null
execute UPDATE Customer SET City = 'Ash' WHERE Name = 'Oak'
query SELECT City FROM Customer WHERE City = 'None'
call db.query {"sql":"SELECT City FROM Customer WHERE Name = 'Oak'"}
result {"rows":[["Ash"]]}
exists {office}/config.txt
absent {office}/nothing.txt
exists {story}/a.test
menu Exit
ended
start
shown frmLogin
desk B
shown frmLogin
on frmLogin
key txtUsername ab
expect txtUsername ab
desk A
expect frmLogin txtUsername ""
)");
    INFO(house.told);
    CHECK(asWritten);
    CHECK(house.told == "1 story, all as written\n");
}

TEST_CASE("A line that does not hold is told with its number, with what was expected and what was found")
{
    Playhouse house;
    CHECK(house.Differs("gone MDI", "gone MDI"));
    CHECK(house.Differs("shown frmLogin", "shown frmLogin"));
    CHECK(house.Differs("expect frmLogin txtUsername \"\"", "The form \"frmLogin\" is not open."));
    CHECK(house.Differs("menu About\nexpect frmAbout lblTitle \"Other\"", "found:    \"Rovanta\""));
    CHECK(house.Differs("menu About\nexpect frmAbout cmdOK disabled", "expected: disabled"));
    CHECK(house.Differs("menu About\nexpect frmAbout cmdOK hidden", "expected: hidden"));
    CHECK(house.Differs("menu About\nexpect frmAbout cmdOK listIndex 0", "a control with \"listIndex\""));
    CHECK(house.Differs("menu About\nrefused click frmAbout cmdOK", "it went through"));
    CHECK(house.Differs("menu About\nwrong click frmAbout cmdOK", "it went through"));
    CHECK(house.Differs("menu NoCommand", "There is no menu command"));
    CHECK(house.Differs("refused menu NoCommand", "There is no menu command"));
    CHECK(house.Differs("query SELECT Name FROM Customer ORDER BY Name\n  Gold Pine", "    Oak"));
    CHECK(house.Differs("query SELECT Name FROM Customer WHERE Name = 'Oak'\n  Elm", "    Oak"));
    CHECK(house.Differs("query SELECT City FROM Customer WHERE Name = 'Oak'\n  \"null\"", "    null"));
    CHECK(house.Differs("query SELECT City FROM Customer WHERE Name = 'Oak'\n  null | x", "    null"));
    CHECK(house.Differs("query SELECT Name FROM Nothing", "something to be read"));
    CHECK(house.Differs("call app.forms\nresult {\"forms\":[]}", "\"form\":\"MDI\""));
    CHECK(house.Differs("call app.forms\nresult {\"forms\":1}", "MDI"));
    CHECK(house.Differs("call app.forms {", "a JSON value"));
    CHECK(house.Differs("message \"A\" \"B\"", "no message box"));
    CHECK(house.Differs("ended", "it runs on"));
    CHECK(house.Differs("popup Popup", "\"none\""));
    CHECK(house.Differs("exists {office}/nothing.txt", "not there"));
    CHECK(house.Differs("absent {office}/config.txt", "it is there"));
    CHECK(house.Differs("dance", "a step"));
    CHECK(house.Differs("expect frmAbout", "a control"));
    CHECK(house.Differs("click cmdOK", "\"on FORM\""));
    CHECK(house.Differs("menu About more", "nothing more"));
    CHECK(house.Differs("clock soon", "a date and time"));
    CHECK(house.Differs("start", "one that runs"));
    CHECK(house.Differs("menu Exit\nended \"Something\"", "an end with \"Something\""));
}

TEST_CASE("A message box or an end that no line asks for is a difference")
{
    Playhouse house;
    CHECK_FALSE(house.Play("office one\nclick frmLogin btnLogin\nset frmLogin txtUsername x\n"));
    CHECK(house.told.find(".test:3: differs") != std::string::npos);
    CHECK(house.told.find("the message box \"Invalid Username\" \"You must enter a username\"") != std::string::npos);
    CHECK_FALSE(house.Play("office one\nclick frmLogin btnLogin\n"));
    CHECK_FALSE(house.Play("office one\nclick frmLogin btnLogin\nmessage \"Invalid Username\" \"Other\"\n"));
    CHECK_FALSE(house.Play("office one\nclick frmLogin btnLogin\nmessage \"Invalid Username\" "
                           "\"You must enter a username\" critical\n"));
    CHECK_FALSE(house.Play("office one\nsign in office coach2026\nmenu Exit\n"));
    CHECK(house.told.find("it ended: \"\"") != std::string::npos);
    CHECK_FALSE(house.Play("office one\nanswer yes\n"));
    CHECK(house.told.find("one is left over") != std::string::npos);
    CHECK_FALSE(house.Play("shown frmLogin\n"));
    CHECK_FALSE(house.Play("office none\n"));
    CHECK(house.told.find("There is no office \"none\"") != std::string::npos);
}

TEST_CASE("Several stories are counted, each in an office of its own")
{
    Playhouse house;
    WriteContent(house.folder.File("good.test"),
                 "office one\nquery SELECT COUNT(ID) AS N FROM Customer\n  2\nexecute DELETE FROM Customer\n");
    WriteContent(house.folder.File("bad.test"), "office one\ngone MDI\n");
    std::ostringstream out;
    const std::string good = house.folder.File("good.test");
    CHECK(PlayStories({good, house.folder.File("bad.test"), good}, {}, out) == 1);
    CHECK(out.str().find("3 stories, 1 differs\n") != std::string::npos);
}

TEST_CASE("An office to keep stays, and a story can be played in one that exists")
{
    Playhouse house;
    const std::string kept = house.folder.File("kept");
    CHECK(house.Play("office one\nexecute DELETE FROM Customer WHERE Name = 'Oak'\n", {{}, kept, false}));
    CHECK(std::filesystem::exists(kept + "/config.txt"));
    CHECK(
        house.Play("office other\nquery SELECT Name FROM Customer\n  Gold Pine\n", {kept + "/config.txt", {}, false}));
}

TEST_CASE("Telling a story says each step in the words of its screens")
{
    Playhouse house;
    CHECK(
        house.Play("office one\nclock 2026-03-02 09:00:00\nsay \"The desk opens.\"\nclick frmLogin btnLogin\n"
                   "message \"Invalid Username\" \"You must enter a username\"\nset frmLogin txtUsername ada\n"
                   "sign in office coach2026\nmenu About\nexpect frmAbout lblTitle \"Rovanta\"\nclick frmAbout cmdOK\n",
                   {{}, {}, true}));
    CHECK(house.told == "    It is Monday, March 2, 2026, 9:00 AM.\n"
                        "\nThe desk opens.\n"
                        "    Press \"Login\".\n"
                        "    The program says: \"You must enter a username\"\n"
                        "    Username: ada\n"
                        "    Sign in as office.\n"
                        "    Choose \"About\" from the menu.\n"
                        "    Rovanta shows: Rovanta\n"
                        "    Press \"OK\".\n"
                        "1 story, all as written\n");
}
