#include "tools/CommandLine.h"

#include <doctest/doctest.h>

using namespace rovanta;

static std::string ComplaintOf(const std::vector<std::string>& arguments)
{
    try {
        ReadCommandLine(arguments);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "understood";
}

TEST_CASE("create takes a folder, a connection, a user and a password")
{
    const CommandLine line =
        ReadCommandLine({"create", "--user", "dana", "office", "--password", "word", "--connection", "sqlite:a.db"});
    CHECK(line.command == Command::Create);
    CHECK(line.folder == "office");
    CHECK(line.user == "dana");
    CHECK(line.password == "word");
    CHECK(line.connection == "sqlite:a.db");
}

TEST_CASE("create without options leaves the password to be asked for")
{
    const CommandLine line = ReadCommandLine({"create", "office"});
    CHECK(line.user == "admin");
    CHECK_FALSE(line.password.has_value());
    CHECK(line.connection.empty());
}

TEST_CASE("demo takes a seed, a scale and a day")
{
    const CommandLine line =
        ReadCommandLine({"demo", "office", "--seed", "18446744073709551615", "--scale", "3", "--today", "2/28/2027"});
    CHECK(line.command == Command::Demo);
    CHECK(line.seed == UINT64_MAX);
    CHECK(line.scale == 3);
    CHECK(line.today == DateTime::Of(2027, 2, 28));
    CHECK(ReadCommandLine({"demo", "office"}).seed == 1);
}

TEST_CASE("help is understood anywhere")
{
    CHECK(ReadCommandLine({"--help"}).command == Command::Help);
    CHECK(ReadCommandLine({"create", "office", "-h"}).command == Command::Help);
    CHECK(std::string(UsageText()).find("rovanta-db COMMAND FOLDER") != std::string::npos);
}

TEST_CASE("a command line that makes no sense says what is wrong")
{
    CHECK(ComplaintOf({}) == "Tell what to do: create, demo, check, copy, backup or restore.");
    CHECK(ComplaintOf({"destroy", "office"}) == "There is no command \"destroy\".");
    CHECK(ComplaintOf({"create"}) == "\"create\" needs the folder of the office.");
    CHECK(ComplaintOf({"create", ""}) == "\"create\" needs the folder of the office.");
    CHECK(ComplaintOf({"create", "one", "two"}) == "There is one folder too many: two");
    CHECK(ComplaintOf({"create", "office", "--seed", "1"}) == "\"create\" knows no option --seed.");
    CHECK(ComplaintOf({"demo", "office", "--user", "dana"}) == "\"demo\" knows no option --user.");
    CHECK(ComplaintOf({"create", "office", "--user"}) == "The option --user needs a value behind it.");
}

TEST_CASE("numbers and dates of options are whole and within bounds")
{
    CHECK(ComplaintOf({"demo", "office", "--scale", "0"}) ==
          "The option --scale takes a whole number from 1 to 100, not \"0\".");
    CHECK(ComplaintOf({"demo", "office", "--scale", "101"}).starts_with("The option --scale takes"));
    CHECK(ComplaintOf({"demo", "office", "--scale", "2x"}).starts_with("The option --scale takes"));
    CHECK(ComplaintOf({"demo", "office", "--seed", "-1"}).starts_with("The option --seed takes"));
    CHECK(ComplaintOf({"demo", "office", "--seed", ""}).starts_with("The option --seed takes"));
    CHECK(ComplaintOf({"demo", "office", "--today", "2/30/2027"}) ==
          "The option --today takes a date from 1/1/1993 to 12/31/2078, such as 11/16/2026, not \"2/30/2027\".");
    for (const char* day : {"1/1/1800", "12/31/1992", "1/1/2079", "soon"})
        CHECK(ComplaintOf({"demo", "office", "--today", day}).starts_with("The option --today takes a date from"));
    CHECK(ReadCommandLine({"demo", "office", "--today", "1/1/1993"}).today == DateTime::Of(1993, 1, 1));
    CHECK(ReadCommandLine({"demo", "office", "--today", "12/31/2078"}).today == DateTime::Of(2078, 12, 31));
}

TEST_CASE("check, copy, backup and restore take what they need")
{
    CHECK(ReadCommandLine({"check", "office"}).command == Command::Check);
    CHECK(ReadCommandLine({"check", "office"}).folder == "office");
    const CommandLine copy = ReadCommandLine({"copy", "--to", "b.db", "--from", "a.db"});
    CHECK(copy.command == Command::Copy);
    CHECK(copy.from == "a.db");
    CHECK(copy.to == "b.db");
    const CommandLine backup = ReadCommandLine({"backup", "office", "--to", "saved.db"});
    CHECK(backup.command == Command::Backup);
    CHECK(backup.folder == "office");
    CHECK(backup.to == "saved.db");
    const CommandLine restore = ReadCommandLine({"restore", "office", "--from", "saved.db"});
    CHECK(restore.command == Command::Restore);
    CHECK(restore.from == "saved.db");

    CHECK(ComplaintOf({"check"}) == "\"check\" needs the folder of the office.");
    CHECK(ComplaintOf({"check", "office", "--repair", "1"}) == "\"check\" knows no option --repair.");
    CHECK(ComplaintOf({"copy", "office", "--from", "a", "--to", "b"}) == "\"copy\" takes no folder: office");
    CHECK(ComplaintOf({"copy", "--from", "a"}) == "\"copy\" needs the option --to.");
    CHECK(ComplaintOf({"backup", "office"}) == "\"backup\" needs the option --to.");
    CHECK(ComplaintOf({"backup", "office", "--from", "a"}) == "\"backup\" knows no option --from.");
    CHECK(ComplaintOf({"restore", "office", "--from", ""}) == "\"restore\" needs the option --from.");
}
