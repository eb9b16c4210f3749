#include <doctest/doctest.h>

#include "store/DatabaseError.h"
#include "tests/store/TestOffice.h"

using namespace rovanta;

TEST_CASE("A recordset stands on its first row and walks to its end")
{
    TestOffice office;
    office.Execute("INSERT INTO Customer (Name) VALUES ('Gold Pine')");
    office.Execute("INSERT INTO Customer (Name) VALUES ('Arden Vale')");
    Recordset customers = office.Open("SELECT ID,Name FROM Customer ORDER BY Name");
    CHECK_FALSE(customers.Eof());
    CHECK_FALSE(customers.Bof());
    CHECK(customers.RowCount() == 2);
    CHECK(customers.Fields("name").Text() == "Arden Vale");
    CHECK(customers.Fields("ID").Text() == "2");
    customers.MoveNext();
    CHECK(customers.Fields("NAME").Text() == "Gold Pine");
    customers.MoveNext();
    CHECK(customers.Eof());
    CHECK_FALSE(customers.Bof());
    CHECK(customers.ColumnNames() == std::vector<std::string>{"ID", "Name"});
}

TEST_CASE("A query without rows is at both ends, and nothing can be read or written there")
{
    TestOffice office;
    Recordset none = office.Open("SELECT * FROM Customer WHERE ID = 5");
    CHECK(none.Eof());
    CHECK(none.Bof());
    const char* noRow =
        "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a "
        "current record.";
    CHECK_THROWS_WITH_AS(none.Fields("Name").Text(), noRow, DatabaseError);
    CHECK_THROWS_WITH_AS(none.Fields("Name") = "x", noRow, DatabaseError);
    CHECK_THROWS_WITH_AS(none.MoveNext(), noRow, DatabaseError);
    CHECK_THROWS_WITH_AS(none.Update(), noRow, DatabaseError);
    CHECK_THROWS_WITH_AS(none.Delete(), noRow, DatabaseError);
    CHECK_THROWS_WITH_AS(none.Fields("Nmae"),
                         "Item cannot be found in the collection corresponding to the requested name or ordinal: Nmae.",
                         DatabaseError);
}

TEST_CASE("A closed recordset refuses everything")
{
    TestOffice office;
    Recordset records = office.Open("SELECT * FROM Customer");
    records.Close();
    CHECK_THROWS_AS(records.Eof(), DatabaseError);
    CHECK_THROWS_AS(records.Fields("ID"), DatabaseError);
    CHECK_THROWS_AS(office.Open("DELETE FROM Customer"), DatabaseError);
    CHECK_THROWS_AS(office.Open("SELECT Name INTO Other FROM Customer"), DatabaseError);
    Connection closed;
    CHECK_THROWS_AS(Recordset("SELECT * FROM Customer", closed), DatabaseError);
}

TEST_CASE("A new row has its identity after Update, and may be the first of its table")
{
    TestOffice office;
    Recordset customers = office.Open("SELECT TOP 1 * FROM Customer");
    customers.AddNew();
    CHECK(customers.Fields("ID").IsNull());
    customers.Fields("NAME") = "Gold Pine";
    customers.Fields("Inactive") = 0;
    customers.Fields("DateEntered") = DateTime::Of(2026, 3, 2, 9, 30);
    customers.Update();
    CHECK(customers.Fields("ID").Text() == "1");
    CHECK(customers.Fields("City").IsNull());
    customers.AddNew();
    customers.Fields("Name") = "Arden Vale";
    customers.Update();
    CHECK(customers.Fields("ID").Text() == "2");
    CHECK(RowsOf(office, "SELECT ID,Name,Inactive,DateEntered FROM Customer ORDER BY ID") ==
          std::vector<std::string>{"1 | 'Gold Pine' | false | 2026-03-02 09:30:00", "2 | 'Arden Vale' | NULL | NULL"});
}

TEST_CASE("The row that a TOP 1 finds stays as it is when another is added")
{
    TestOffice office;
    office.Execute("INSERT INTO Owner (Name) VALUES ('Harlan')");
    Recordset owners = office.Open("SELECT TOP 1 * FROM Owner");
    owners.AddNew();
    owners.Fields("Name") = "Delacroix";
    owners.Update();
    CHECK(RowsOf(office, "SELECT Name FROM Owner ORDER BY ID") == std::vector<std::string>{"'Harlan'", "'Delacroix'"});
}

TEST_CASE("A new row without a value is a row of NULLs")
{
    TestOffice office;
    Recordset owners = office.Open("SELECT * FROM Owner");
    owners.AddNew();
    owners.Update();
    CHECK(owners.Fields("ID").Number() == 1);
    CHECK(RowsOf(office, "SELECT ID,Name FROM Owner") == std::vector<std::string>{"1 | NULL"});
}

TEST_CASE("A row is edited in place, and only what changed is written")
{
    TestOffice office;
    office.Execute("INSERT INTO Tour (TourName,Status,TotalTourBudget) VALUES ('Fall Run','Quote - Active',1400)");
    Recordset tour = office.Open("SELECT * FROM Tour WHERE ID = 1");
    tour.Fields("TourName") = "Winter Run";
    tour.Fields("Status") = "Quote - Active";
    CHECK(tour.Fields("TourName").Text() == "Winter Run");
    tour.Update();
    CHECK(tour.Fields("ID").Text() == "1");
    CHECK(RowsOf(office, "SELECT TourName,Status,TotalTourBudget FROM Tour") ==
          std::vector<std::string>{"'Winter Run' | 'Quote - Active' | 1400"});
    tour.Update();
    tour.Fields("TourName") = "Spring Run";
    tour.Update();
    CHECK(RowsOf(office, "SELECT TourName FROM Tour") == std::vector<std::string>{"'Spring Run'"});
}

TEST_CASE("An edit that is not carried to the table is lost, and a move carries it")
{
    TestOffice office;
    office.Execute("INSERT INTO Owner (Name) VALUES ('A')");
    office.Execute("INSERT INTO Owner (Name) VALUES ('B')");
    {
        Recordset owners = office.Open("SELECT * FROM Owner ORDER BY Name");
        owners.Fields("Name") = "lost";
        owners.Close();
    }
    CHECK(RowsOf(office, "SELECT Name FROM Owner ORDER BY ID") == std::vector<std::string>{"'A'", "'B'"});
    Recordset owners = office.Open("SELECT * FROM Owner ORDER BY Name");
    owners.Fields("Name") = "A2";
    owners.MoveNext();
    CHECK(owners.Fields("Name").Text() == "B");
    CHECK(RowsOf(office, "SELECT Name FROM Owner ORDER BY ID") == std::vector<std::string>{"'A2'", "'B'"});
}

TEST_CASE("Update fails when another desk has changed or deleted the row since it was read")
{
    const char* lost = "Row cannot be located for updating. Some values may have been changed since it was last read.";
    TestOffice office;
    Connection other;
    other.Open(office.Text());
    office.Execute("INSERT INTO Invoice (InvoiceTotal,Paid,Notes) VALUES (100,0,NULL)");
    Recordset invoice = office.Open("SELECT * FROM Invoice WHERE ID = 1");
    other.Execute("UPDATE Invoice SET Paid = Paid + 40 WHERE ID = 1");
    invoice.Fields("Notes") = "checked";
    CHECK_THROWS_WITH_AS(invoice.Update(), lost, DatabaseError);
    CHECK_THROWS_WITH_AS(invoice.Delete(), lost, DatabaseError);
    CHECK(RowsOf(office, "SELECT Paid,Notes FROM Invoice") == std::vector<std::string>{"40 | NULL"});

    Recordset again = office.Open("SELECT * FROM Invoice WHERE ID = 1");
    other.Execute("DELETE FROM Invoice WHERE ID = 1");
    again.Fields("Notes") = "checked";
    CHECK_THROWS_WITH_AS(again.Update(), lost, DatabaseError);
}

TEST_CASE("Update looks only at the columns that were read")
{
    TestOffice office;
    office.Execute("INSERT INTO Invoice (InvoiceTotal,Paid,Notes) VALUES (100,0,'old')");
    Recordset invoice = office.Open("SELECT ID,Notes FROM Invoice WHERE ID = 1");
    office.Execute("UPDATE Invoice SET Paid = Paid + 40");
    invoice.Fields("Notes") = "new";
    invoice.Update();
    CHECK(RowsOf(office, "SELECT Paid,Notes FROM Invoice") == std::vector<std::string>{"40 | 'new'"});
    // By ODBC a numbered row is found again by its number alone.
    if (ChooseEngine(office.Text()) == EngineKind::SqlServer)
        return;
    invoice.Open("SELECT Notes FROM Invoice WHERE ID = 1", office.connection);
    office.Execute("UPDATE Invoice SET Paid = Paid + 5");
    invoice.Fields("Notes") = "newer";
    invoice.Update();
    CHECK(RowsOf(office, "SELECT Paid,Notes FROM Invoice") == std::vector<std::string>{"45 | 'newer'"});
}

TEST_CASE("Every type of column comes back as it was written, so that an unchanged row is found again")
{
    TestOffice office;
    Recordset items = office.Open("SELECT TOP 1 * FROM TourItems");
    items.AddNew();
    items.Fields("ID") = 1;
    items.Fields("StartDate") = DateTime::Of(2026, 1, 31, 23, 59, 59);
    items.Fields("BilledMonths") = 1.0 / 3;
    items.Fields("BusTotal") = 12345.67891;
    items.Fields("BusContract") = -1;
    items.Fields("PriceNotes") = "O'Brien said \"50 %\"\r\nand more  ";
    items.Update();
    CHECK(RowsOf(office, "SELECT StartDate,BilledMonths,BusTotal,BusContract FROM TourItems") ==
          std::vector<std::string>{"2026-01-31 23:59:59 | 0.333333333333333 | 12345.6789 | true"});
    Recordset again = office.Open("SELECT * FROM TourItems");
    CHECK(again.Fields("BilledMonths").Number() == 1.0 / 3);
    CHECK(again.Fields("PriceNotes").Text() == "O'Brien said \"50 %\"\r\nand more  ");
    CHECK(again.Fields("BusContract").Value() == Value(true));
    CHECK(again.Fields("ID").Value() == Value(1));
    CHECK(again.Fields("StartDate").Date() == DateTime::Of(2026, 1, 31, 23, 59, 59));
    again.Fields("Passengers") = 11;
    again.Update();
    CHECK(RowsOf(office, "SELECT Passengers FROM TourItems") == std::vector<std::string>{"11"});
}

TEST_CASE("A table without an identity is edited row by row all the same")
{
    TestOffice office;
    for (int i = 0; i < 2; ++i)
        office.Execute("INSERT INTO OldTourName (Customer,OldName,NewName) VALUES ('Gold Pine','A','B')");
    Recordset names = office.Open("SELECT * FROM OldTourName WHERE Customer='Gold Pine' AND NewName='B'");
    names.Fields("NewName") = "C";
    names.Update();
    names.MoveNext();
    names.Delete();
    CHECK(RowsOf(office, "SELECT * FROM OldTourName") == std::vector<std::string>{"'Gold Pine' | 'A' | 'C'"});
}

TEST_CASE("A deleted row stays current, unreadable, until the move behind it")
{
    TestOffice office;
    for (const char* id : {"1", "2", "3"})
        office.Execute(std::string("INSERT INTO tmpInvoiceList VALUES (") + id + ",7,'Daily')");
    Recordset list = office.Open("SELECT * FROM tmpInvoiceList ORDER BY InvoiceID");
    std::string walked;
    for (; !list.Eof(); list.MoveNext()) {
        walked += list.Fields("InvoiceID").Text();
        if (list.Fields("InvoiceID").Number() != 2)
            list.Delete();
    }
    CHECK(walked == "123");
    CHECK(RowsOf(office, "SELECT InvoiceID FROM tmpInvoiceList") == std::vector<std::string>{"2"});
    Recordset last = office.Open("SELECT * FROM tmpInvoiceList");
    last.Delete();
    CHECK_FALSE(last.Eof());
    CHECK_THROWS_AS(last.Fields("InvoiceID").Text(), DatabaseError);
    CHECK_THROWS_AS(last.Delete(), DatabaseError);
    last.MoveNext();
    CHECK(last.Eof());
    CHECK(last.Bof());
}

TEST_CASE("Of two equal names the first is read and written")
{
    TestOffice office;
    office.Execute("INSERT INTO Permission (Name) VALUES ('Security')");
    office.Execute("INSERT INTO UserPermission (UserID,PermissionID) VALUES (4,1)");
    Recordset rights =
        office.Open("SELECT UserPermission.*,Permission.*,Permission.ID AS PermissionID FROM UserPermission "
                    "LEFT JOIN Permission ON UserPermission.PermissionID = Permission.ID");
    CHECK(rights.Fields("PermissionID").Number() == 1);
    CHECK(rights.ColumnNames() == std::vector<std::string>{"UserID", "PermissionID", "ID", "Name", "PermissionID"});
    CHECK(rights.FieldAt(4).Number() == 1);
    CHECK_THROWS_AS(rights.FieldAt(5), DatabaseError);
}

TEST_CASE("The rows of a join, a group or a view cannot be written")
{
    const char* readOnly =
        "Current Recordset does not support updating. This may be a limitation of the provider, or of the "
        "selected locktype.";
    TestOffice office;
    office.Execute("INSERT INTO Tour (CustomerID,TourName) VALUES (1,'Fall Run')");
    for (const char* select : {"SELECT Tour.* FROM Tour LEFT JOIN Customer ON Tour.CustomerID = Customer.ID",
                               "SELECT DISTINCT TourName FROM Tour", "SELECT TourName FROM Tour GROUP BY TourName",
                               "SELECT COUNT(*) AS TourName FROM Tour", "SELECT 'x' AS TourName"}) {
        Recordset records = office.Open(select);
        CHECK_THROWS_WITH_AS(records.FieldAt(0) = 1, readOnly, DatabaseError);
        CHECK_THROWS_WITH_AS(records.AddNew(), readOnly, DatabaseError);
        CHECK_THROWS_WITH_AS(records.Delete(), readOnly, DatabaseError);
    }
    CHECK_THROWS_WITH_AS(office.Open("SELECT * FROM BusExpenses").AddNew(), readOnly, DatabaseError);
    Recordset computed = office.Open("SELECT ID,TourName + '!' AS Loud FROM Tour");
    CHECK_THROWS_WITH_AS(computed.Fields("Loud") = "x", "Field 'Loud' cannot be updated.", DatabaseError);
    CHECK_THROWS_WITH_AS(computed.Fields("ID") = 2, "Field 'ID' cannot be updated.", DatabaseError);
}

TEST_CASE("A value is converted to its column's type as it is written")
{
    TestOffice office;
    Recordset bus = office.Open("SELECT TOP 1 * FROM Bus");
    bus.AddNew();
    bus.Fields("Bunks") = "12";
    CHECK(bus.Fields("Bunks").Value() == Value(12));
    bus.Fields("Bunks") = "";
    CHECK(bus.Fields("Bunks").Value() == Value(0));
    bus.Fields("Bunks") = 2.5;
    CHECK(bus.Fields("Bunks").Value() == Value(2));
    bus.Fields("Bunks") = 3.5;
    CHECK(bus.Fields("Bunks").Value() == Value(4));
    bus.Fields("Lease") = "$1,400.50";
    CHECK(bus.Fields("Lease").Number() == 1400.5);
    bus.Fields("Lease") = 0.1 + 0.2;
    CHECK(bus.Fields("Lease").Number() == 0.3);
    bus.Fields("Inactive") = "True";
    CHECK(bus.Fields("Inactive").IsTrue());
    bus.Fields("Inactive") = 0.4;
    CHECK(bus.Fields("Inactive").IsTrue());
    bus.Fields("DateEntered") = "3/2/2026 9:05:00 AM";
    CHECK(bus.Fields("DateEntered").Date() == DateTime::Of(2026, 3, 2, 9, 5));
    bus.Fields("Notes") = 12.5;
    CHECK(bus.Fields("Notes").Text() == "12.5");
    bus.Fields("Notes") = DateTime::Of(2026, 3, 2);
    CHECK(bus.Fields("Notes").Text() == "3/2/2026");
    bus.Fields("Notes") = Null();
    CHECK(bus.Fields("Notes").IsNull());
    CHECK_THROWS_WITH_AS(bus.Fields("Notes").Text(), "Invalid use of Null: Notes", RunTimeError);
    CHECK_THROWS_WITH_AS(bus.Fields("Bunks") = "many",
                         "Conversion failed when converting the varchar value 'many' to data type int.", DatabaseError);
    CHECK_THROWS_AS(bus.Fields("Bunks") = 3e10, DatabaseError);
    CHECK_THROWS_WITH_AS(bus.Fields("CommPercent") = "ten", "Error converting data type varchar to float.",
                         DatabaseError);
    CHECK_THROWS_WITH_AS(bus.Fields("DateEntered") = "soon",
                         "Conversion failed when converting date and/or time from character string.", DatabaseError);
    CHECK_THROWS_AS(bus.Fields("Inactive") = "perhaps", DatabaseError);
    CHECK_THROWS_AS(bus.Fields("Bunks") = DateTime::Of(2026, 3, 2), DatabaseError);
}

TEST_CASE("A text too long for its column fails the Update and writes nothing")
{
    TestOffice office;
    Recordset tour = office.Open("SELECT * FROM Tour");
    tour.AddNew();
    tour.Fields("Status") = "Other";
    tour.Fields("TourName") = std::string(101, 'x');
    CHECK_THROWS_WITH_AS(tour.Update(), "String or binary data would be truncated in table 'Tour', column 'TourName'.",
                         DatabaseError);
    CHECK(RowsOf(office, "SELECT COUNT(*) AS Tours FROM Tour") == std::vector<std::string>{"0"});
    tour.Fields("TourName") = std::string(100, 'x');
    tour.Update();
    CHECK(tour.Fields("ID").Number() == 1);
    tour.Fields("TourName") = std::string(101, 'y');
    CHECK_THROWS_AS(tour.Update(), DatabaseError);
    CHECK(RowsOf(office, "SELECT COUNT(*) AS Tours FROM Tour WHERE TourName LIKE 'x%'") ==
          std::vector<std::string>{"1"});
}

TEST_CASE("A NULL where none may stand fails the Update and names the column")
{
    TestOffice office;
    Recordset types = office.Open("SELECT * FROM TaskType");
    types.AddNew();
    CHECK_THROWS_WITH_AS(
        types.Update(),
        "Cannot insert the value NULL into column 'TaskType', table 'TaskType'; column does not allow nulls.",
        DatabaseError);
}

TEST_CASE("A snapshot does not see what is written behind it")
{
    TestOffice office;
    office.Execute("INSERT INTO Owner (Name) VALUES ('A')");
    Recordset owners = office.Open("SELECT * FROM Owner");
    office.Execute("DELETE FROM Owner");
    CHECK(owners.Fields("Name").Text() == "A");
    owners.MoveNext();
    CHECK(owners.Eof());
}
