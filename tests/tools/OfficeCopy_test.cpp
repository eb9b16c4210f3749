#include "tools/OfficeCopy.h"

#include "store/Engine.h"
#include "store/Schema.h"
#include "support/TestApp.h"
#include "support/TestServer.h"
#include "tools/BusyDesk.h"
#include "tools/OfficeContent.h"

#include <doctest/doctest.h>

#include <memory>

using namespace rovanta;
using rovanta::tests::BusyDesk;
using rovanta::tests::ContentOf;
using rovanta::tests::TestFolder;
using rovanta::tests::WriteContent;

namespace {

void Run(const std::string& text, const std::vector<std::string>& statements)
{
    Connection connection;
    connection.Open(text);
    for (const std::string& statement : statements)
        connection.Execute(Statement::Verbatim(statement));
}

/// An office with what is hard to carry: gaps in the numbers, every kind of value, letters of the world, line ends,
/// apostrophes, lines without a number, and a table of somebody's own.
void MakeOffice(const std::string& text)
{
    Connection connection;
    connection.Open(text);
    CreateSchema(connection);
    for (const char* statement :
         {"INSERT INTO Company (Name,TaxRate,KeyPressDelay,Tax0,Tax1) VALUES ('Blue Hollow',9.25,0.1,1,0)",
          "INSERT INTO Customer (Name,Notes,Inactive) VALUES ('Gone',NULL,0)",
          "INSERT INTO Customer (Name,Notes,Inactive) VALUES ('Žofie & Sons','They''re early;\r\nso -- are we ',0)",
          "DELETE FROM Customer WHERE Name='Gone'",
          "INSERT INTO Driver (Name) VALUES ('First')",
          "INSERT INTO Driver (Name) VALUES ('Second')",
          "INSERT INTO Driver (Name) VALUES ('Third')",
          "DELETE FROM Driver WHERE Name<>'First'",
          "INSERT INTO Bus (Name) VALUES ('Sold')",
          "DELETE FROM Bus",
          ("INSERT INTO Tour (CustomerID,TourName,TotalTourBudget,DateEntered) "
           "VALUES (2,'Spring',-1234.5678,'3/2/2026 4:05:06 PM')"),
          "INSERT INTO TourItems (ID,TourID,BilledMonths,BusTotal,BusContract) VALUES (1,1,0.1,99.99,1)",
          "INSERT INTO TourItems (ID,TourID,BilledMonths,BusTotal,BusContract) VALUES (2,1,NULL,NULL,NULL)",
          ("CREATE TABLE CoDriverData (ID bigint IDENTITY(1,1) NOT NULL PRIMARY KEY, DriverID bigint NULL, "
           "Notes varchar(500) NULL)"),
          "INSERT INTO CoDriverData (DriverID,Notes) VALUES (5000000000,'')",
          "CREATE TABLE HouseNotes (ID int IDENTITY(1,1) PRIMARY KEY, Words varchar(40) NOT NULL, Worth money)",
          "INSERT INTO HouseNotes (Words,Worth) VALUES ('kept',0.0001)",
          "INSERT INTO HouseNotes (Words,Worth) VALUES ('gone',0)",
          "DELETE FROM HouseNotes WHERE Words='gone'",
          "CREATE VIEW HouseView AS SELECT * FROM HouseNotes"})
        connection.Execute(Statement::Verbatim(statement));
    // A third has more digits than a person writes.
    Recordset line("SELECT * FROM TourItems WHERE ID=1", connection);
    line.Fields("TotalMileage") = 1.0 / 3;
    line.Update();
}

std::string Shown(const Value& value)
{
    if (const auto* number = std::get_if<double>(&value.Get()))
        return std::to_string(*number) + (*number == 1.0 / 3 ? " exactly" : "");
    return std::to_string(value.Get().index()) + ":" + value.TextOrEmpty();
}

/// The number that the database gives the next row.
int NextNumber(const std::string& text, const std::string& table, const std::string& column = "Name")
{
    Connection connection;
    connection.Open(text);
    Recordset row(Statement{"SELECT TOP 1 * FROM "} + Name(table), connection);
    row.AddNew();
    row.Fields(column) = "Next";
    row.Update();
    return static_cast<int>(row.Fields("ID").Number());
}

double Number(const std::string& text, const std::string& select)
{
    Connection connection;
    connection.Open(text);
    return Recordset(Statement::Verbatim(select), connection).FieldAt(0).Number();
}

bool HasTables(const std::string& text)
{
    Connection connection;
    connection.Open(text);
    return !ListTables(connection).empty();
}

/// Two databases without tables, the second on the suite's server where there is one.
class Pair {
public:
    Pair()
    {
        CreateDatabaseFile(from);
        if (TestServer()) {
            server = std::make_unique<TestDatabase>("");
            to = server->Text();
        }
    }

    TestFolder folder;
    std::unique_ptr<TestDatabase> server;
    std::string from = folder.File("from.db");
    std::string to = folder.File("to.db");
};

std::string RefusalOf(const std::string& from, const std::string& to)
{
    try {
        CopyOffice(from, to);
    } catch (const RunTimeError& error) {
        return error.what();
    }
    return "";
}

}

TEST_CASE("a copy holds every row of every table under its own number")
{
    const Pair pair;
    MakeOffice(pair.from);
    const CopyReport report = CopyOffice(pair.from, pair.to);
    const auto original = ContentOf(pair.from, Shown);
    CHECK(report.tables.size() == original.size());
    CHECK(report.viewsLeft == std::vector<std::string>{"HouseView"});
    CHECK(ContentOf(pair.to, Shown) == original);
    CHECK(original.at("HouseNotes").size() == 1);

    SUBCASE("and goes on counting where the office stood, behind rows that are gone as well")
    {
        for (const std::string& text : {pair.from, pair.to}) {
            CHECK(NextNumber(text, "Customer") == 3);
            CHECK(NextNumber(text, "Driver") == 4);
            CHECK(NextNumber(text, "Bus") == 2);
            CHECK(NextNumber(text, "Owner") == 1);
            CHECK(NextNumber(text, "HouseNotes", "Words") == 3);
        }
        CHECK(ContentOf(pair.to, Shown) == ContentOf(pair.from, Shown));
    }
    SUBCASE("and comes back the same")
    {
        const std::string back = pair.folder.File("back.db");
        CopyOffice(pair.to, back);
        CHECK(ContentOf(back, Shown) == original);
        CHECK(NextNumber(back, "Driver") == 4);
    }
}

TEST_CASE("a copy of an office in use is the office of one moment")
{
    const Pair pair;
    if (!TestServer())
        CreateDatabaseFile(pair.to);
    MakeOffice(pair.to);
    // Reports make tables of their own and drop them.
    std::vector<std::string> drops;
    for (int table = 1; table <= 30; ++table) {
        const std::string name = "zzReport" + std::to_string(table);
        Run(pair.to, {"CREATE TABLE " + name + " (ID int)"});
        drops.push_back("DROP TABLE " + name);
    }
    const BusyDesk desk(pair.to, drops);
    double before = 0;
    for (int round = 1; round <= 3; ++round) {
        while (Number(pair.to, "SELECT COUNT(*) FROM Tour WHERE TourName='Left'") <= before)
            usleep(1000);
        const std::string copy = pair.folder.File("copy" + std::to_string(round));
        CHECK(RefusalOf(pair.to, copy) == "");
        const double left = Number(copy, "SELECT COUNT(*) FROM Tour WHERE TourName='Left'");
        CHECK(left > before);
        CHECK(left == Number(copy, "SELECT COUNT(*) FROM Tour WHERE TourName='Right'"));
        before = left;
    }
}

TEST_CASE("a copy goes only where there is no table")
{
    const Pair pair;
    MakeOffice(pair.from);
    Run(pair.from, {"DROP VIEW HouseView"});
    if (!TestServer())
        CreateDatabaseFile(pair.to);
    Run(pair.to, {"CREATE TABLE Words (Word varchar(10))"});
    CHECK(RefusalOf(pair.from, pair.to) == "The database to copy to is not empty: it holds the table Words.");
    CHECK(RefusalOf(pair.from, pair.from) ==
          "The database to copy to is not empty: it holds the table Bus and others.");
    CHECK(HasTables(pair.to));
}

TEST_CASE("what is no office is not copied, and no file is made for it")
{
    const Pair pair;
    Run(pair.from, {"CREATE TABLE Company (Name varchar(10))"});
    const std::string made = pair.folder.File("made.db");
    CHECK(RefusalOf(pair.from, made) == "The database to copy from holds no office: it has no table User.");
    CHECK_FALSE(std::filesystem::exists(made));
    CHECK(RefusalOf(pair.folder.File("nowhere.db"), made).find("does not exist") != std::string::npos);
    CHECK(RefusalOf(pair.from, "ftp://office").find("begins with 'ftp://'") != std::string::npos);
}

TEST_CASE("a copy that fails midway leaves nothing")
{
    const Pair pair;
    MakeOffice(pair.from);
    Run(pair.from, {"DROP TABLE DateRange", "CREATE TABLE DateRange (DateField datetime, Extra int)"});
    CHECK(RefusalOf(pair.from, pair.to) == "The table DateRange could not be copied: it has a column Extra that this "
                                           "program knows nothing of.");
    if (TestServer())
        CHECK_FALSE(HasTables(pair.to));
    else
        CHECK_FALSE(std::filesystem::exists(pair.to));
    const std::string empty = pair.folder.File("empty.db");
    CreateDatabaseFile(empty);
    CHECK(RefusalOf(pair.from, empty).find("Extra") != std::string::npos);
    CHECK_FALSE(HasTables(empty));
}

TEST_CASE("counts and sums that differ are told with the column")
{
    const TableSum original{"Tour", 3, {{"Name", 3}, {"Budget", 1000.25}}};
    CHECK(Differences(original, original).empty());
    CHECK(Differences(original, {"Tour", 3, {{"Name", 3}, {"Budget", 1000.25004}}}).empty());
    CHECK(Differences(original, {"Tour", 2, {{"Name", 3}, {"Budget", 1000.25}}}) ==
          std::vector<std::string>{"it has 3 rows, its copy 2."});
    CHECK(Differences(original, {"Tour", 3, {{"Name", 2}, {"Budget", 1000.24}}}) ==
          std::vector<std::string>{"its column Name comes to 3, in the copy to 2.",
                                   "its column Budget comes to 1000.25, in the copy to 1000.24."});
    CHECK(Differences({"Tour", 3, {}, 1734}, {"Tour", 3, {}, 1700}) ==
          std::vector<std::string>{"its numbers go up to 1734, in the copy up to 1700."});
}
