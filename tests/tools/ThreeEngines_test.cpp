#include "support/TestApp.h"
#include "support/TestServer.h"
#include "tests/support/TdsServer.h"
#include "tools/OfficeContent.h"
#include "tools/OfficeCopy.h"

#include <doctest/doctest.h>

using namespace rovanta;
using rovanta::tests::ContentOf;
using rovanta::tests::TestFolder;
using rovanta::tests::TestOffice;

namespace {

std::string Shown(const Value& value)
{
    return value.IsNull() ? "NULL" : value.Text();
}

}

TEST_CASE("An office goes from a file to SQL Server, on to PostgreSQL and back to a file without a change" *
          doctest::skip(!TestServer()))
{
    TestOffice office;
    const std::string file = office.folder.File("rovanta.db");
    {
        Connection connection;
        connection.Open(file);
        for (const char* statement :
             {"INSERT INTO Customer (Name,Notes,Inactive) VALUES ('Gone',NULL,0)",
              "INSERT INTO Customer (Name,Notes,Inactive) VALUES ('Žofie & Sons','They''re early;\r\nso -- 東京 ',1)",
              "DELETE FROM Customer WHERE Name='Gone'", "INSERT INTO Invoice (SubTotal) VALUES (1)",
              "INSERT INTO Invoice (SubTotal) VALUES (2)", "INSERT INTO Invoice (SubTotal) VALUES (3)",
              "DELETE FROM Invoice WHERE ID > 1",
              ("INSERT INTO Tour (CustomerID,TourName,TotalTourBudget,DateEntered) "
               "VALUES (2,'','-1234.5678','3/2/2026 4:05:06 PM')"),
              "INSERT INTO TourItems (ID,TourID,BilledMonths,BusTotal,BusContract) VALUES (7,1,0.1,99.99,1)",
              "INSERT INTO OldTourName (Customer,OldName,NewName) VALUES ('A','B','C')",
              "INSERT INTO OldTourName (Customer,OldName,NewName) VALUES ('A','B','C')"})
            connection.Execute(Statement::Verbatim(statement));
    }
    const auto original = ContentOf(file, Shown);
    REQUIRE(original.at("OldTourName").size() == 2);
    const TdsServer server;
    server.MakeDatabase("office");
    const TestDatabase database("");
    const std::string back = office.folder.File("back.db");
    CopyOffice(file, server.Text("office"));
    CHECK(ContentOf(server.Text("office"), Shown) == original);
    CopyOffice(server.Text("office"), database.Text());
    CHECK(ContentOf(database.Text(), Shown) == original);
    const CopyReport last = CopyOffice(database.Text(), back);
    CHECK(ContentOf(back, Shown) == original);
    CHECK(last.tables.size() == original.size());
    // Each goes on counting where the one before it stood.
    for (const std::string& text : {server.Text("office"), database.Text(), back}) {
        Connection connection;
        connection.Open(text);
        connection.Execute("INSERT INTO Customer (Name) VALUES ('Next')");
        CHECK(Recordset("SELECT ID FROM Customer WHERE Name='NEXT '", connection).FieldAt(0).Text() == "3");
        connection.Execute("INSERT INTO Invoice (SubTotal) VALUES (4)");
        CHECK(Recordset("SELECT ID FROM Invoice WHERE SubTotal = 4", connection).FieldAt(0).Text() == "4");
    }
}
