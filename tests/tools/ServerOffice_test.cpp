#include "frame/Configuration.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "support/TestApp.h"
#include "support/TestServer.h"
#include "tools/Run.h"

#include <doctest/doctest.h>

using namespace rovanta;
using rovanta::tests::RunTool;
using rovanta::tests::TestFolder;
using rovanta::tests::ToolOutcome;

// The commands of whoever looks after an office, on the database server of this run.
TEST_SUITE_BEGIN("server" * doctest::skip(!TestServer()));

static std::string Quoted(const std::string& text)
{
    return "'" + text + "'";
}

static std::string Cell(const std::string& text, const std::string& select)
{
    Connection connection;
    connection.Open(text);
    return Recordset(Statement::Verbatim(select), connection).FieldAt(0).TextOrEmpty();
}

static void Change(const std::string& text, const std::string& statement)
{
    Connection connection;
    connection.Open(text);
    connection.Execute(Statement::Verbatim(statement));
}

TEST_CASE("an office is made on a server, checked and not made twice")
{
    const TestFolder test;
    const TestDatabase database("");
    const std::string folder = test.File("office");
    const std::string options = " --user dana --password word --connection " + Quoted(database.Text());
    const ToolOutcome made = RunTool("create " + folder + options);
    CHECK(made.output == "Made an empty office in " + folder + ". Its first user is dana.\n");
    CHECK(Cell(database.Text(), "SELECT Username FROM [User]") == "dana");
    CHECK(RunTool("check " + folder).output == "Nothing found.\n");
    const ToolOutcome again = RunTool("create " + test.File("second") + options);
    CHECK(again.code == 1);
    CHECK(again.output == "rovanta-db: The database holds an office already. For one more desk of it copy that "
                          "office's config.txt, and let its folders be the same ones.\n");
    CHECK_FALSE(std::filesystem::exists(test.File("second")));

    Change(database.Text(), "INSERT INTO InvoicePayments (InvoiceID,PaymentDate,Amount) VALUES (9,'4/1/2026',70)");
    const ToolOutcome found = RunTool("check " + folder);
    CHECK(found.code == 1);
    CHECK(found.output == "Payments without an invoice: 1\n  payment 1: invoice 9, 4/1/2026, $70.00\n"
                          "Found 1 thing. Nothing was changed.\n");
}

TEST_CASE("a config.txt with a password is for its owner and its group alone")
{
    const TestFolder test;
    const TestDatabase open("");
    const TestDatabase keyed("");
    const bool postgres = ChooseEngine(open.Text()) == EngineKind::Postgres;
    std::string text = keyed.Text();
    if (postgres)
        text.replace(text.find("app@"), 4, "app:secret@");
    const std::string options = " --user dana --password word --connection ";
    REQUIRE(RunTool("create " + test.File("keyed") + options + Quoted(text)).code == 0);
    REQUIRE(RunTool("create " + test.File("open") + options + Quoted(open.Text())).code == 0);
    const auto rights = [&](const char* office) {
        return std::filesystem::status(test.path / office / "config.txt").permissions();
    };
    CHECK(rights("keyed") == std::filesystem::perms(0640));
    CHECK(rights("open") == std::filesystem::perms(postgres ? 0644 : 0640));
}

TEST_CASE("for an office on a server backup and restore name the server's own tool and do nothing")
{
    const TestFolder test;
    const TestDatabase database("");
    const std::string folder = test.File("office");
    REQUIRE(RunTool("create " + folder + " --user dana --password word --connection " + Quoted(database.Text())).code ==
            0);
    const bool postgres = ChooseEngine(database.Text()) == EngineKind::Postgres;
    const ToolOutcome backup = RunTool("backup " + folder + " --to " + test.File("saved"));
    const ToolOutcome restore = RunTool("restore " + folder + " --from " + test.File("saved"));
    for (const ToolOutcome& outcome : {backup, restore}) {
        CHECK(outcome.code == 1);
        CHECK(outcome.output.find(database.Name()) != std::string::npos);
        CHECK(outcome.output.find("coach") == std::string::npos);
    }
    CHECK(backup.output.find(postgres ? "pg_dump " : "BACKUP DATABASE [") != std::string::npos);
    CHECK(restore.output.find(postgres ? "pg_restore " : "RESTORE DATABASE [") != std::string::npos);
    CHECK_FALSE(std::filesystem::exists(test.File("saved")));
}

TEST_CASE("the demo office is made on a server, passes the check and is copied to a file")
{
    const TestFolder test;
    const TestDatabase database("");
    const std::string folder = test.File("demo");
    const ToolOutcome made = RunTool("demo " + folder + " --connection " + Quoted(database.Text()));
    CHECK(made.code == 0);
    CHECK(made.output.starts_with("Made the demo office in " + folder + ".\n"));
    CHECK(RunTool("check " + folder).output == "Nothing found.\n");
    const std::string file = test.File("copy.db");
    const ToolOutcome copied = RunTool("copy --from " + Quoted(database.Text()) + " --to " + file);
    CHECK(copied.code == 0);
    CHECK(copied.output.ends_with("tables; counts and sums agree on both sides.\n"));
    for (const char* sum : {"SELECT COUNT(*) FROM TourItems", "SELECT MAX(ID) FROM Invoice", "SELECT MAX(ID) FROM Tour",
                            "SELECT CAST(SUM(Amount) * 100 AS bigint) FROM InvoicePayments"}) {
        CAPTURE(sum);
        CHECK(Cell(file, sum) == Cell(database.Text(), sum));
    }
    CHECK(RunTool("copy --from " + file + " --to " + Quoted(database.Text())).code == 1);
}

TEST_SUITE_END();
