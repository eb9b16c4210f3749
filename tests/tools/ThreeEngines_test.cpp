#include "store/Catalogue.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "support/TestApp.h"
#include "support/TestServer.h"
#include "tests/support/TdsServer.h"
#include "tools/OfficeCopy.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <map>

using namespace rovanta;
using rovanta::tests::TestFolder;
using rovanta::tests::TestOffice;

namespace {

/// Every row of every table as texts, in an order of its own.
std::map<std::string, std::vector<std::string>> RowsOf(const std::string& text)
{
    Connection connection;
    connection.Open(text);
    std::map<std::string, std::vector<std::string>> content;
    for (const TableInfo& table : ListTables(connection)) {
        if (table.kind == TableKind::View)
            continue;
        std::vector<std::string>& lines = content[table.name];
        Recordset rows(Statement{"SELECT * FROM ["} + Name(table.name) + "]", connection);
        for (; !rows.Eof(); rows.MoveNext()) {
            std::string line;
            for (std::size_t column = 0; column < table.columns.size(); ++column)
                line += rows.FieldAt(column).IsNull() ? "NULL|" : rows.FieldAt(column).Text() + "|";
            lines.push_back(line);
        }
        std::sort(lines.begin(), lines.end());
    }
    return content;
}

}

TEST_CASE("an office goes from a file to SQL Server, on to PostgreSQL and back to a file without a change" *
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
    const auto original = RowsOf(file);
    REQUIRE(original.at("OldTourName").size() == 2);
    const TdsServer server;
    server.MakeDatabase("office");
    const TestDatabase database("");
    const std::string back = office.folder.File("back.db");
    CopyOffice(file, server.Text("office"));
    CHECK(RowsOf(server.Text("office")) == original);
    CopyOffice(server.Text("office"), database.Text());
    CHECK(RowsOf(database.Text()) == original);
    const CopyReport last = CopyOffice(database.Text(), back);
    CHECK(RowsOf(back) == original);
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
