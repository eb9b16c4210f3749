#include "store/Connection.h"
#include "support/TestApp.h"
#include "tools/Run.h"

#include <doctest/doctest.h>

using rovanta::tests::RunTool;
using rovanta::tests::TestFolder;
using rovanta::tests::ToolOutcome;

TEST_CASE("the program makes an office and refuses to make it twice")
{
    const TestFolder test;
    const std::string folder = test.File("office");
    const ToolOutcome made = RunTool("create " + folder + " --user dana --password word");
    CHECK(made.code == 0);
    CHECK(made.output == "Made an empty office in " + folder + ". Its first user is dana.\n");
    const ToolOutcome again = RunTool("create " + folder + " --user dana --password word");
    CHECK(again.code == 1);
    CHECK(again.output == "rovanta-db: There is an office already: " + folder + "/config.txt\n");
}

TEST_CASE("without a terminal the program does not wait for a password")
{
    const TestFolder test;
    const ToolOutcome refused = RunTool("create " + test.File("office"));
    CHECK(refused.code == 2);
    CHECK(refused.output.starts_with("rovanta-db: There is no terminal to ask for the password of admin"));
    CHECK_FALSE(std::filesystem::exists(test.File("office")));
}

TEST_CASE("the program takes the password from a line of its input")
{
    const TestFolder test;
    const std::string folder = test.File("office");
    rovanta::tests::WriteContent(test.File("password"), "from a file\nand no more\n");
    CHECK(RunTool("create " + folder + " --password -", test.File("password")).code == 0);
    rovanta::Connection connection;
    connection.Open(folder + "/rovanta.db");
    CHECK(rovanta::Recordset("SELECT Password FROM [User]", connection).FieldAt(0).Text() == "from a file");

    const ToolOutcome refused = RunTool("create " + test.File("second") + " --password -");
    CHECK(refused.code == 1);
    CHECK(refused.output == "rovanta-db: The input ended before the password.\n");
    CHECK_FALSE(std::filesystem::exists(test.File("second")));
}

TEST_CASE("the exit code tells a wrong command line from a failure")
{
    CHECK(RunTool("--help").code == 0);
    CHECK(RunTool("").code == 2);
    CHECK(RunTool("create /dev/null/office --password word").code == 1);
}

TEST_CASE("the program checks, copies, saves and restores an office")
{
    const TestFolder test;
    const std::string folder = test.File("office");
    const std::string database = folder + "/rovanta.db";
    REQUIRE(RunTool("create " + folder + " --user dana --password word").code == 0);
    const ToolOutcome clean = RunTool("check " + folder);
    CHECK(clean.code == 0);
    CHECK(clean.output == "Nothing found.\n");

    const ToolOutcome copied = RunTool("copy --from " + database + " --to " + test.File("copy.db"));
    CHECK(copied.code == 0);
    CHECK(copied.output.find("\nUser: 1\n") != std::string::npos);
    CHECK(copied.output.ends_with("tables; counts and sums agree on both sides.\n"));
    CHECK(RunTool("copy --from " + database + " --to " + test.File("copy.db")).code == 1);

    const ToolOutcome saved = RunTool("backup " + folder + " --to " + test.File("saved.db"));
    CHECK(saved.code == 0);
    CHECK(saved.output.starts_with("Saved the database of " + folder + " in " + test.File("saved.db") + ", "));
    const ToolOutcome restored = RunTool("restore " + folder + " --from " + test.File("saved.db"));
    CHECK(restored.code == 0);
    CHECK(restored.output.ends_with("\nThe one before is kept in " + database + ".replaced\n"));
    CHECK(RunTool("restore " + folder + " --from " + test.File("nowhere.db")).code == 1);
}

TEST_CASE("a check that finds something ends with 1")
{
    const TestFolder test;
    const std::string folder = test.File("office");
    REQUIRE(RunTool("create " + folder + " --user dana --password word").code == 0);
    {
        rovanta::Connection connection;
        connection.Open(folder + "/rovanta.db");
        connection.Execute("INSERT INTO TourItems (ID,TourID) VALUES (1,7)");
    }
    const ToolOutcome found = RunTool("check " + folder);
    CHECK(found.code == 1);
    CHECK(found.output.starts_with("Tour lines without a tour: 1\n  tour 7, line 1: "));
    CHECK(RunTool("check " + test.File("nowhere")).code == 1);
    CHECK(RunTool("check").code == 2);
}
