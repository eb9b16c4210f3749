#include <doctest/doctest.h>

#include "store/Catalogue.h"
#include "store/DatabaseError.h"
#include "store/Engine.h"
#include "tests/store/TestOffice.h"

using namespace rovanta;

TEST_CASE("The schema makes every table of the office, and the catalogue reads it back")
{
    TestOffice office;
    std::vector<std::string> names;
    for (const TableInfo& table : ListTables(office.connection))
        names.push_back(table.name);
    CHECK(names == std::vector<std::string>{"Bus",
                                            "BusExpense",
                                            "BusExpenses",
                                            "BusFleetTracker",
                                            "BusFleetTrackerFields",
                                            "BusImages",
                                            "BusType",
                                            "Company",
                                            "Customer",
                                            "DateRange",
                                            "DocumentCategory",
                                            "DocumentMap",
                                            "Documents",
                                            "Driver",
                                            "ExpenseCategory",
                                            "FleetTrackerAction",
                                            "FleetTrackerTicket",
                                            "Invoice",
                                            "InvoiceItems",
                                            "InvoicePayments",
                                            "LeaseTemplate",
                                            "OldTourName",
                                            "Owner",
                                            "Permission",
                                            "QBInvoicesToBeDeleted",
                                            "QBPaymentsToBeDeleted",
                                            "State",
                                            "Tasks",
                                            "TaskType",
                                            "tmpCustomerStatement",
                                            "tmpInvoiceList",
                                            "Tour",
                                            "TourContacts",
                                            "TourContactType",
                                            "TourDropEmails",
                                            "TourItems",
                                            "TourRoute",
                                            "TourStatus",
                                            "User",
                                            "UserPermission",
                                            "UserType",
                                            "WebUserCustomers"});
}

TEST_CASE("The catalogue tells the columns as the schema made them")
{
    TestOffice office;
    const TablePointer items = office.connection.GetEngine().Tables().Find("INVOICEITEMS");
    REQUIRE(items);
    std::string columns;
    for (const ColumnInfo& column : items->columns)
        columns += column.name + " " + TypeDeclaration(column.type) + ",";
    CHECK(columns == "InvoiceID int,Row int,TourID int,Qty1 float,Qty2 float,UoM varchar(20),Description varchar(1000),"
                     "Rate money,PriceExt money,BusID int,Other varchar(250),BusType varchar(50),Acct varchar(50),"
                     "OrderField int,Type varchar(50),Taxable bit,StartDate datetime,EndDate datetime,");
    const TablePointer tour = office.connection.GetEngine().Tables().Find("Tour");
    CHECK(tour->Identity() == &tour->columns[0]);
    CHECK(tour->columns[0].name == "ID");
    CHECK_FALSE(tour->columns[0].nullable);
    CHECK(tour->columns[1].nullable);
    CHECK(items->Identity() == nullptr);
    CHECK(office.connection.GetEngine().Tables().Find("BusExpenses")->kind == TableKind::View);
    CHECK(office.connection.GetEngine().Tables().Find("ReceivePayment") == nullptr);
}

TEST_CASE("Tables that another desk makes, changes and drops are seen")
{
    TestOffice office;
    Connection other;
    other.Open(office.Text());
    CHECK_THROWS_AS(office.Open("SELECT * FROM tmpCustomerInvoices"), DatabaseError);
    other.Execute("CREATE TABLE tmpCustomerInvoices (CustomerName varchar(100), Invoiced money)");
    other.Execute("INSERT INTO tmpCustomerInvoices VALUES ('Gold Pine',5)");
    CHECK(RowsOf(office, "SELECT * FROM tmpCustomerInvoices") == std::vector<std::string>{"'Gold Pine' | 5"});
    other.Execute("DROP TABLE tmpCustomerInvoices");
    CHECK_THROWS_WITH_AS(office.Open("SELECT * FROM tmpCustomerInvoices"), "Invalid object name 'tmpCustomerInvoices'.",
                         DatabaseError);
    other.Execute("CREATE TABLE tmpCustomerInvoices (CustomerName varchar(100), Invoiced money, Extra int)");
    other.Execute("INSERT INTO tmpCustomerInvoices VALUES ('Gold Pine',5,7)");
    CHECK(RowsOf(office, "SELECT * FROM tmpCustomerInvoices") == std::vector<std::string>{"'Gold Pine' | 5 | 7"});
    other.Execute("DROP TABLE tmpCustomerInvoices");
    CHECK_THROWS_WITH_AS(office.Open("SELECT * FROM tmpCustomerInvoices"), "Invalid object name 'tmpCustomerInvoices'.",
                         DatabaseError);
}
