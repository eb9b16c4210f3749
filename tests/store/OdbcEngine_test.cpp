#include <doctest/doctest.h>

#include "store/DatabaseError.h"
#include "tests/store/ServerOffice.h"

#include <chrono>

using namespace rovanta;

namespace {

/// What opening a connection fails with; empty when it does not. It may take no longer than a person waits.
std::string FailureToOpen(const std::string& text)
{
    const auto start = std::chrono::steady_clock::now();
    std::string said;
    try {
        Connection connection;
        connection.Open(text);
    } catch (const DatabaseError& error) {
        said = error.what();
    }
    CHECK(std::chrono::steady_clock::now() - start < std::chrono::seconds(10));
    return said;
}

std::string FailureOf(ServerOffice& office, const std::string& statement)
{
    try {
        office.Execute(statement);
    } catch (const DatabaseError& error) {
        return error.what();
    }
    return {};
}

bool Holds(const std::string& text, const std::string& what)
{
    const bool holds = text.find(what) != std::string::npos;
    if (!holds)
        MESSAGE("it says: " << text);
    return holds;
}

}

TEST_CASE("A wrong connection text is told within ten seconds, by what is wrong in it")
{
    const TdsServer server;
    server.MakeDatabase("office");
    CHECK(FailureToOpen(server.Text("office")) == "");
    CHECK(FailureToOpen(server.Text("office", "", "wrong")) == "Login failed for user 'office'.");
    CHECK(FailureToOpen(server.Text("elsewhere")) ==
          "Cannot open database \"elsewhere\" requested by the login. The login failed.");
    CHECK(Holds(FailureToOpen("Driver={NoSuchDriver};Server=127.0.0.1;Port=1"), "The ODBC driver 'NoSuchDriver'"));
    CHECK(Holds(FailureToOpen("DSN=no_such_source;UID=a;PWD=b"), "'no_such_source'"));
    CHECK(Holds(FailureToOpen("Driver={FreeTDS};Server=127.0.0.1;Port=1;Database=office;UID=a;PWD=b;TDS_Version=7.4"),
                "The database server '127.0.0.1, port 1' does not answer"));
    CHECK(Holds(FailureToOpen("Driver={FreeTDS};Server=no-such-host.invalid;Port=1433;UID=a;PWD=b;TDS_Version=7.4"),
                "no-such-host.invalid"));
    CHECK(FailureToOpen("Driver={};Server=127.0.0.1;Port=1433") == "The connection text names no ODBC driver.");
    CHECK(FailureToOpen("Driver={FreeTDS};LoginTimeout=soon") ==
          "The connection text's LoginTimeout is a number of seconds from 1 to 8, and not \"soon\".");
}

TEST_CASE("A server that never answers is given up")
{
    const TdsServer server({"--silent"});
    CHECK(Holds(FailureToOpen(server.Text("office", "LoginTimeout=1")), "does not answer"));
}

TEST_CASE("Every type comes through the wire as it was written, NULL too")
{
    ServerOffice office;
    office.Execute(
        "CREATE TABLE Kinds (ID int IDENTITY(1,1) PRIMARY KEY, Big bigint, Whole int, Done bit, Share float, "
        "Paid money, Seen datetime, Name varchar(8000), Notes varchar(8000))");
    Recordset kinds = office.Open("SELECT TOP 1 * FROM Kinds");
    const std::string japanese = "\xE6\x9D\xB1\xE4\xBA\xAC \xF0\x9F\x9A\x8C";
    std::string longText;
    for (int i = 0; i < 8000 / 6; ++i)
        longText += "Zo\xC3\xAB's ";
    kinds.AddNew();
    kinds.Fields("Big") = std::int64_t{5'000'000'000};
    kinds.Fields("Whole") = -7;
    kinds.Fields("Done") = true;
    kinds.Fields("Share") = 0.1 + 0.2;
    kinds.Fields("Paid") = -1234.5678;
    kinds.Fields("Seen") = DateTime::Of(2026, 3, 2, 23, 59, 58);
    kinds.Fields("Name") = japanese;
    kinds.Fields("Notes") = longText;
    kinds.Update();
    CHECK(kinds.Fields("ID").Text() == "1");
    kinds.AddNew();
    kinds.Fields("Name") = "O'Neil \\\r\nback";
    kinds.Fields("Seen") = DateTime::Of(1901, 12, 31);
    kinds.Fields("Notes") = "";
    kinds.Update();

    Recordset read = office.Open("SELECT * FROM Kinds ORDER BY ID");
    CHECK(read.Fields("Big").Value() == Value(std::int64_t{5'000'000'000}));
    CHECK(read.Fields("Whole").Value() == Value(-7));
    CHECK(read.Fields("Done").Value() == Value(true));
    CHECK(read.Fields("Share").Value() == Value(0.1 + 0.2));
    CHECK(read.Fields("Paid").Value() == Value(-1234.5678));
    CHECK(read.Fields("Seen").Value() == Value(DateTime::Of(2026, 3, 2, 23, 59, 58)));
    CHECK(read.Fields("Name").Text() == japanese);
    CHECK(read.Fields("Notes").Text() == longText);
    // Texts without a bound, in the code page and beyond it.
    CHECK(office.Rows("SELECT Notes + Notes + Notes AS Whole FROM Kinds WHERE ID = 1") ==
          std::vector<std::string>{"'" + longText + longText + longText + "'"});
    CHECK(office.Rows("SELECT Notes + Name + Notes AS Whole FROM Kinds WHERE ID = 1") ==
          std::vector<std::string>{"'" + longText + japanese + longText + "'"});
    read.MoveNext();
    for (const char* column : {"Big", "Whole", "Done", "Share", "Paid"})
        CHECK(read.Fields(column).IsNull());
    CHECK(read.Fields("Name").Text() == "O'Neil \\\r\nback");
    CHECK(read.Fields("Seen").Value() == Value(DateTime::Of(1901, 12, 31)));
    CHECK(read.Fields("Notes").Value() == Value(""));
    CHECK(office.Rows("SELECT ID FROM Kinds WHERE Name LIKE '%\xE4\xBA\xAC%'") == std::vector<std::string>{"1"});
}

TEST_CASE("A row is written back only while it stands as it was read")
{
    ServerOffice office;
    Recordset mine = office.Open("SELECT * FROM Bus");
    mine.AddNew();
    mine.Fields("Name") = "Caf\xC3\xA9";
    mine.Fields("CommPercent") = 0.15;
    mine.Fields("Lease") = 900.25;
    mine.Update();
    Connection desk;
    desk.Open(office.server.Text("office"));
    Recordset theirs("SELECT * FROM Bus", desk);
    mine.Fields("Model") = "H3-45";
    mine.Update();
    theirs.Fields("Model") = "XLII";
    CHECK_THROWS_WITH_AS(
        theirs.Update(),
        "Row cannot be located for updating. Some values may have been changed since it was last read.", DatabaseError);
    CHECK_THROWS_AS(theirs.Delete(), DatabaseError);
    mine.Fields("Model") = "H3";
    mine.Update();
    CHECK(office.Rows("SELECT Name, Model FROM Bus") == std::vector<std::string>{"'Caf\xC3\xA9' | 'H3'"});
    mine.Delete();
    CHECK(office.Rows("SELECT COUNT(*) AS Found FROM Bus") == std::vector<std::string>{"0"});
}

TEST_CASE("Of equal rows without a number one alone is changed")
{
    ServerOffice office;
    office.Execute("CREATE TABLE Plain (Name varchar(20), Since datetime, Amount float)");
    office.Execute("INSERT INTO Plain VALUES ('a', '3/2/2026', 0.1), ('a', '3/2/2026', 0.1), ('b', NULL, NULL)");
    Recordset plain = office.Open("SELECT * FROM Plain WHERE Name = 'a'");
    plain.Fields("Amount") = -2.5;
    plain.Update();
    CHECK(office.Rows("SELECT Amount FROM Plain ORDER BY Amount") == std::vector<std::string>{"NULL", "-2.5", "0.1"});
    plain.MoveNext();
    plain.Delete();
    CHECK(office.Rows("SELECT Name, Amount FROM Plain ORDER BY Name") ==
          std::vector<std::string>{"'a' | -2.5", "'b' | NULL"});
}

TEST_CASE("A numbered row whose number was not read is not written back")
{
    ServerOffice office;
    office.Execute("INSERT INTO State (State) VALUES ('TN')");
    office.Execute("INSERT INTO Customer (Name) VALUES ('Gold Pine')");
    Recordset customer = office.Open("SELECT Name FROM Customer");
    customer.Fields("Name") = "Other";
    CHECK_THROWS_WITH_AS(customer.Update(), "Insufficient key column information for updating or refreshing.",
                         DatabaseError);
}

TEST_CASE("The server's own words come back for a statement that it refuses")
{
    ServerOffice office;
    CHECK(FailureOf(office, "SELECT * FROM Tuor") == "Invalid object name 'Tuor'.");
    CHECK(FailureOf(office, "SELECT FROM WHERE") == "Incorrect syntax near 'FROM'.");
    CHECK(FailureOf(office, "INSERT INTO Tour (DateEntered) VALUES ('no date')") ==
          "Conversion failed when converting date and/or time from character string.");
    CHECK(FailureOf(office, "DELETE FROM Tour WHERE ID = 'x'") ==
          "Conversion failed when converting the varchar value 'x' to data type int.");
    CHECK_THROWS_WITH_AS(office.Open("DELETE FROM Tour"),
                         "Operation is not allowed when the object is closed: the statement returns no rows.",
                         DatabaseError);
    CHECK(office.Rows("SELECT COUNT(*) AS Found FROM Tour") == std::vector<std::string>{"0"});
}

TEST_CASE("A table that another program has made meanwhile can be read and written")
{
    ServerOffice office;
    Connection desk;
    desk.Open(office.server.Text("office"));
    CHECK(Recordset("SELECT * FROM Tour", desk).Eof());
    office.Execute("CREATE TABLE Later (ID int IDENTITY(1,1) PRIMARY KEY, Name varchar(20))");
    Recordset later("SELECT * FROM Later", desk);
    later.AddNew();
    later.Fields("Name") = "new";
    later.Update();
    CHECK(later.Fields("ID").Text() == "1");
}

TEST_CASE("A database of another version of the schema is refused")
{
    ServerOffice office;
    office.Execute("EXEC sp_addextendedproperty 'RovantaSchemaVersion', 99");
    CHECK(FailureToOpen(office.server.Text("office")) ==
          "The database 'office' holds version 99 of the schema, and this program needs version 2.");
}

TEST_CASE("A statement that is never answered is given up")
{
    ServerOffice office({"--hang", "FROM Tasks"}, "QueryTimeout=1");
    const auto start = std::chrono::steady_clock::now();
    CHECK(FailureOf(office, "SELECT * FROM Tasks") != "");
    CHECK(std::chrono::steady_clock::now() - start < std::chrono::seconds(10));
}

TEST_CASE("A line that is cut in the middle of a save leaves the rows before it and no more")
{
    ServerOffice office({"--cut", "INSERT INTO [TourItems]", "3"});
    Recordset items = office.Open("SELECT TOP 1 * FROM TourItems");
    int written = 0;
    std::string said;
    try {
        for (int i = 1; i <= 5; ++i) {
            items.AddNew();
            items.Fields("ID") = i;
            items.Fields("TourID") = 1;
            items.Update();
            ++written;
        }
    } catch (const DatabaseError& error) {
        said = error.what();
    }
    CHECK(said != "");
    CHECK(written == 2);
    CHECK_THROWS_AS(office.Execute("DELETE FROM TourItems"), DatabaseError);
    office.connection.Open(office.server.Text("office"));
    CHECK(office.Rows("SELECT ID FROM TourItems ORDER BY ID") == std::vector<std::string>{"1", "2"});
}
