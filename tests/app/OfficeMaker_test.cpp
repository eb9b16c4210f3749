#include "app/OfficeMaker.h"

#include "frame/Company.h"
#include "store/Recordset.h"
#include "support/TestApp.h"
#include "values/Errors.h"

#include <doctest/doctest.h>

#include <set>

using namespace rovanta;
using rovanta::tests::ContentOf;
using rovanta::tests::TestFolder;
using rovanta::tests::WriteContent;

namespace fs = std::filesystem;

namespace {

OfficePlan PlanFor(const fs::path& folder)
{
    OfficePlan plan;
    plan.folder = folder;
    plan.user = "admin";
    plan.password = "word";
    plan.today = DateTime::Of(2026, 3, 2, 9, 30);
    return plan;
}

/// An office that was made in a folder, with its connection.
struct MadeOffice {
    explicit MadeOffice(const fs::path& folder) : configuration(ReadConfigFile((folder / "config.txt").string()))
    {
        connection.Open(configuration.ConnectionString);
    }

    double Number(const std::string& select)
    {
        return Recordset(Statement::Verbatim(select), connection).FieldAt(0).Number();
    }
    std::string Text(const std::string& select)
    {
        return Recordset(Statement::Verbatim(select), connection).FieldAt(0).Text();
    }
    /// The first column of all rows, joined by a line feed.
    std::string List(const std::string& select)
    {
        std::string list;
        for (Recordset row(Statement::Verbatim(select), connection); !row.Eof(); row.MoveNext())
            list += (list.empty() ? "" : "\n") + row.FieldAt(0).Text();
        return list;
    }

    Configuration configuration;
    Connection connection;
};

std::string FailureOf(const OfficePlan& plan)
{
    try {
        CreateOffice(plan);
    } catch (const RunTimeError& error) {
        return error.what();
    }
    return "made";
}

std::set<std::string> NamesIn(const fs::path& folder)
{
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.insert(entry.path().filename().string());
    return names;
}

}

TEST_CASE("an office is a config.txt, a database and the three folders it names")
{
    const TestFolder test;
    const fs::path folder = test.path / "a=b" / "office";
    CreateOffice(PlanFor(folder));

    CHECK(NamesIn(folder) == std::set<std::string>{"config.txt", "rovanta.db", "pictures", "leases", "documents"});
    const Configuration configuration = ReadConfigFile((folder / "config.txt").string());
    CHECK(configuration.BusImagePath == (folder / "pictures/").string());
    CHECK(configuration.LeaseTemplatePath == (folder / "leases/").string());
    CHECK(configuration.DocumentPath == (folder / "documents/").string());
    CHECK(configuration.OwnerAccountPrefix == "Owner Payable - ");
    CHECK(configuration.AddDriverExpenseAccount == "Additional Driver Expense");
}

TEST_CASE("an office can be moved with its folder")
{
    const TestFolder test;
    CreateOffice(PlanFor(test.path / "here"));
    fs::rename(test.path / "here", test.path / "there");
    MadeOffice office(test.path / "there");
    CHECK(office.Text("SELECT Username FROM [User]") == "admin");
    CHECK(office.configuration.DocumentPath == test.File("there/documents/"));
}

TEST_CASE("the look-up tables hold the words that the program knows")
{
    const TestFolder test;
    CreateOffice(PlanFor(test.path));
    MadeOffice office(test.path);
    CHECK(office.Number("SELECT COUNT(State) FROM State") == 64);
    CHECK(office.Text("SELECT State FROM State WHERE State = 'DC'") == "DC");
    CHECK(office.Text("SELECT State FROM State WHERE State = 'ON'") == "ON");
    CHECK(office.List("SELECT Name FROM BusType ORDER BY OrderBy") ==
          "Bus\nSub-Lease Bus\nTruck\nSub-Lease Truck\nTrailer");
    CHECK(office.List("SELECT Status FROM TourStatus ORDER BY Status") ==
          "Contract - Committed\nContract - Dispatched\nContract - Signed\nContract - Verbal\nOther\nQuote - Active\n"
          "Quote - Closed");
    CHECK(office.List("SELECT Name FROM UserType ORDER BY Name") == "Admin\nUser");
    CHECK(office.Number("SELECT COUNT(ID) FROM TourContactType WHERE Name IN ('Business Manager','Personal Manager',"
                        "'Tour Manager','Production Manager','Other')") == 5);
    CHECK(office.Number("SELECT COUNT(ID) FROM DocumentCategory") == 0);
}

TEST_CASE("every right that the program asks for has a row")
{
    const TestFolder test;
    CreateOffice(PlanFor(test.path));
    MadeOffice office(test.path);
    CHECK(office.Number("SELECT COUNT(ID) FROM Permission") == 51);
    for (const char* name : {"Bus Expense Entry/Edit", "Fleet Tracker Field Entry/Edit", "FleetTracker Ticket Entry",
                             "FleetTracker Ticket Entry/Edit", "Owner Income/Expense Report", "Receive Payment",
                             "Receive Payments", "Task Type Entry", "Tour View"})
        CHECK_MESSAGE(office.Number(std::string("SELECT COUNT(ID) FROM Permission WHERE Name = '") + name + "'") == 1,
                      name);
}

TEST_CASE("the fixed fields bear the numbers 9 to 30, and the office's own follow")
{
    const TestFolder test;
    CreateOffice(PlanFor(test.path));
    MadeOffice office(test.path);
    CHECK(office.Number("SELECT COUNT(ID) FROM BusFleetTrackerFields") == 22);
    CHECK(office.Number("SELECT MIN(ID) FROM BusFleetTrackerFields") == 9);
    CHECK(office.Text("SELECT Name FROM BusFleetTrackerFields WHERE ID = 30") == "Current Miles");
    CHECK(office.List("SELECT ID FROM BusFleetTrackerFields WHERE FieldType = 'Number' ORDER BY ID") ==
          "9\n10\n11\n12\n13\n14\n18\n19\n20\n24\n26\n28\n30");
    CHECK(office.List("SELECT ID FROM BusFleetTrackerFields WHERE FieldType = 'Date' ORDER BY ID") ==
          "15\n16\n17\n21\n22\n23\n25\n27\n29");
    Recordset field("SELECT TOP 1 * FROM BusFleetTrackerFields", office.connection);
    field.AddNew();
    field.Fields("Name") = "Tire Size";
    field.Update();
    CHECK(field.Fields("ID").Number() == 31);
}

TEST_CASE("start-up finds no NULL in the company's row")
{
    const TestFolder test;
    CreateOffice(PlanFor(test.path));
    MadeOffice office(test.path);
    Recordset row("SELECT * FROM Company", office.connection);
    CHECK(row.RowCount() == 1);
    for (std::size_t column = 0; column < row.ColumnNames().size(); ++column)
        CHECK_MESSAGE(!row.FieldAt(column).IsNull(), row.ColumnNames()[column]);
    Company company;
    REQUIRE(ReadCompany(office.connection, company));
    CHECK(company.KeyPressDelay == 1);
    CHECK(company.CompanyTaxRate == 0);
    CHECK(company.DefaultRates[Charge::Fuel] == 0);
    CHECK(company.DefaultPayers[Charge::Driver] == "Contract");
    CHECK_FALSE(company.DefaultTaxable[Taxable::Admin]);
}

TEST_CASE("the dates of the reports reach from 1990 to 2079")
{
    const TestFolder test;
    CreateOffice(PlanFor(test.path));
    MadeOffice office(test.path);
    CHECK(office.Number("SELECT COUNT(DateField) FROM DateRange") == 32768);
    CHECK(office.Text("SELECT MIN(DateField) FROM DateRange") == "1/1/1990");
    CHECK(office.Text("SELECT MAX(DateField) FROM DateRange") == "9/18/2079");
}

TEST_CASE("the first user may do everything and is entered under the day")
{
    const TestFolder test;
    OfficePlan plan = PlanFor(test.path);
    plan.user = " Dana ";
    CreateOffice(plan);
    MadeOffice office(test.path);
    Recordset user("SELECT * FROM [User]", office.connection);
    CHECK(user.RowCount() == 1);
    CHECK(user.Fields("Username").Text() == "Dana");
    CHECK(user.Fields("Password").Text() == "word");
    CHECK(user.Fields("Type").Text() == "Admin");
    CHECK_FALSE(user.Fields("Inactive").Flag());
    CHECK(user.Fields("DateEntered").Text() == "3/2/2026");
    CHECK(user.Fields("Territory").IsNull());
}

TEST_CASE("a database beside the office goes where the connection text says")
{
    const TestFolder test;
    fs::create_directory(test.path / "data");
    OfficePlan plan = PlanFor(test.path / "office");
    plan.connection = "sqlite:../data/shared, all.db";
    CreateOffice(plan);
    CHECK(fs::exists(test.path / "data" / "shared, all.db"));
    CHECK_FALSE(fs::exists(test.path / "office" / "rovanta.db"));
    MadeOffice office(test.path / "office");
    CHECK(office.Number("SELECT COUNT(ID) FROM [User]") == 1);
}

TEST_CASE("an office that exists already is refused by name and stays as it is")
{
    const TestFolder test;
    WriteContent(test.File("config.txt"), "mine");
    CHECK(FailureOf(PlanFor(test.path)) == "There is an office already: " + test.File("config.txt"));
    CHECK(ContentOf(test.File("config.txt")) == "mine");
    CHECK(NamesIn(test.path) == std::set<std::string>{"config.txt"});
}

TEST_CASE("a database that exists already is refused by name and stays as it is")
{
    const TestFolder test;
    WriteContent(test.File("rovanta.db"), "mine");
    WriteContent(test.File("letter.txt"), "also mine");
    CHECK(FailureOf(PlanFor(test.path)) == "There is a database already: " + test.File("rovanta.db"));
    CHECK(ContentOf(test.File("rovanta.db")) == "mine");
    CHECK(NamesIn(test.path) == std::set<std::string>{"rovanta.db", "letter.txt"});
}

TEST_CASE("a file that lies where a part of the office would go is refused and stays as it is")
{
    struct Case {
        const char* name;
        const char* refusal;
    };
    for (const Case& one : {Case{"config.txt.new", "Another office is being made here, or was left half-made: "},
                            Case{"rovanta.db-wal", "exists already"}, Case{"rovanta.db-journal", "exists already"}}) {
        CAPTURE(one.name);
        const TestFolder test;
        WriteContent(test.File(one.name), "mine");
        const std::string failure = FailureOf(PlanFor(test.path));
        CHECK(failure.find(one.refusal) != std::string::npos);
        CHECK(failure.find(test.File(one.name)) != std::string::npos);
        CHECK(ContentOf(test.File(one.name)) == "mine");
        CHECK(NamesIn(test.path) == std::set<std::string>{one.name});
    }
}

TEST_CASE("of two that make an office in one folder at once, one comes to stand")
{
    const TestFolder test;
    const fs::path folder = test.path / "office";
    OfficePlan first = PlanFor(folder);
    first.furnish = [&](Connection&, const Configuration& configuration) {
        WriteContent(configuration.DocumentPath + "1.txt", "first");
        CHECK(FailureOf(PlanFor(folder)) ==
              "Another office is being made here, or was left half-made: " + (folder / "config.txt.new").string());
        OfficePlan elsewhere = PlanFor(test.path / "second");
        elsewhere.connection = "../office/rovanta.db";
        CHECK(FailureOf(elsewhere) == "There is a database already: " + (folder / "rovanta.db").string());
    };
    CHECK(FailureOf(first) == "made");
    CHECK(NamesIn(folder) == std::set<std::string>{"config.txt", "rovanta.db", "pictures", "leases", "documents"});
    CHECK(ContentOf((folder / "documents" / "1.txt").string()) == "first");
    CHECK(NamesIn(test.path) == std::set<std::string>{"office"});
}

TEST_CASE("what others put into the folder stays when the office does not come to stand")
{
    const TestFolder test;
    OfficePlan plan = PlanFor(test.path / "office");
    plan.furnish = [&](Connection& connection, const Configuration&) {
        WriteContent(test.File("office/letter.txt"), "mine");
        connection.Execute("INSERT INTO Customer (NoSuchColumn) VALUES (1)");
    };
    CHECK(FailureOf(plan).find("NoSuchColumn") != std::string::npos);
    CHECK(NamesIn(test.path / "office") == std::set<std::string>{"letter.txt"});
}

TEST_CASE("a user who could not sign in is refused before anything is made")
{
    const TestFolder test;
    OfficePlan plan = PlanFor(test.path / "office");
    plan.password = "it's";
    CHECK(FailureOf(plan) == "The password of the first user cannot hold an apostrophe.");
    plan.password = "  ";
    CHECK(FailureOf(plan) == "The first user needs a password.");
    plan.password = "word";
    plan.user = "";
    CHECK(FailureOf(plan) == "The first user needs a name.");
    CHECK_FALSE(fs::exists(test.path / "office"));
}

TEST_CASE("a connection text that config.txt cannot hold is refused")
{
    const TestFolder test;
    OfficePlan plan = PlanFor(test.path / "office");
    plan.connection = "a\"b.db";
    CHECK(FailureOf(plan) == "The connection text cannot hold a double quote or a line end.");
    CHECK_FALSE(fs::exists(test.path / "office"));
}

TEST_CASE("what fails half way takes everything away that was made")
{
    const TestFolder test;
    fs::create_directory(test.path / "pictures");
    WriteContent(test.File("pictures/old.bmp"), "mine");
    OfficePlan plan = PlanFor(test.path);
    plan.furnish = [](Connection& connection, const Configuration& configuration) {
        WriteContent(configuration.DocumentPath + "1.txt", "half");
        connection.Execute("INSERT INTO Customer (NoSuchColumn) VALUES (1)");
    };
    CHECK(FailureOf(plan) ==
          "The database " + test.File("rovanta.db") + " could not be filled: Invalid column name 'NoSuchColumn'.");
    CHECK(NamesIn(test.path) == std::set<std::string>{"pictures"});
    CHECK(ContentOf(test.File("pictures/old.bmp")) == "mine");

    plan.furnish = {};
    CHECK(FailureOf(plan) == "made");
}

TEST_CASE("a folder that cannot be made is named")
{
    const TestFolder test;
    WriteContent(test.File("office"), "a file");
    const std::string failure = FailureOf(PlanFor(test.path / "office"));
    CHECK(failure.starts_with("Cannot make the folder " + test.File("office") + ": "));
}

TEST_CASE("the first user signs in at the login box")
{
    const tests::TestOffice office;
    tests::TestApp desk(office);
    desk.SignIn("admin");
    CHECK(desk.app.session.CurrentUserType == "Admin");
    CHECK(desk.app.HasPermission("Tour Entry/Edit"));
}
