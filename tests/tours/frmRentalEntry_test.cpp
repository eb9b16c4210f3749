#include "tests/support/TestApp.h"
#include "tours/frmRentalEntry.h"

#include <doctest/doctest.h>

using namespace rovanta;
using namespace rovanta::tests;

namespace {

constexpr const char* recalculate = "Recalculate Invoices: Would you like to recalculate the invoices for this tour?";

/// A contract with `vehicles` lines, each on a vehicle of its own, and one vehicle more.
void AddTour(TestApp& desk, int vehicles)
{
    desk.Execute("INSERT INTO Customer (Name) VALUES ('Ember Lights')");
    desk.Execute("INSERT INTO Tour (CustomerID,TourName,Status) VALUES (1,'Winter Run','Contract - Signed')");
    for (int i = 1; i <= vehicles + 1; ++i) {
        const std::string number = std::to_string(i);
        desk.Execute("INSERT INTO Bus (Name,Type,Lease,CommAmount,CommPercent,Inactive) VALUES ('Coach " + number +
                     "','Bus',0,0,0,0)");
        if (i <= vehicles)
            desk.Execute("INSERT INTO TourItems (ID,TourID,BusID,StartDate,EndDate) VALUES (" + number + ",1," +
                         number + ",'3/2/2026','3/11/2026')");
    }
}

/// Puts the spare vehicle on the line in `row` and saves.
void ChangeVehicle(frmRentalEntry& tour, int row, const std::string& vehicle)
{
    tour.vsfgItems.SetMouse(row, 1);
    tour.vsfgItems.Click.Fire();
    tour.cmbBus = vehicle;
    tour.btnUpdate.Click.Fire();
    tour.btnSave.Click.Fire();
}

}

TEST_CASE("Twenty vehicles are compared for the question of recalculation, the twenty-first is not")
{
    const TestOffice office;
    TestApp desk(office);
    desk.SignIn();
    AddTour(desk, 21);
    auto& tour = desk.app.Open<frmRentalEntry>();
    tour.LoadTour("1");
    ChangeVehicle(tour, 21, "Coach 22");
    CHECK(desk.host.TakeMessages().empty());
    ChangeVehicle(tour, 20, "Coach 21");
    CHECK(desk.host.TakeMessages() == recalculate);
    CHECK(desk.Rows("SELECT BusID FROM TourItems WHERE ID > 19 ORDER BY ID") == "21\n22");
}

TEST_CASE("The grid of lines hides its keys and holds headings and names in place")
{
    const TestOffice office;
    TestApp desk(office);
    auto& tour = desk.app.Open<frmRentalEntry>();
    CHECK(tour.Caption() == "Tour Entry/Edit");
    const Grid& grid = tour.vsfgItems;
    CHECK(grid.Cols() == 102);
    CHECK(grid.FixedRows() == 1);
    CHECK(grid.FixedCols() == 2);
    for (const int col : {2, 6, 8})
        CHECK(grid.ColHidden(col));
    for (const int col : {9, 10, 11, 12, 21, 23, 75})
        CHECK(grid.ColFormat(col) == "$#,###.##");
    for (const int col : {17, 22, 24, 97})
        CHECK(grid.ColFormat(col).empty());
    CHECK_THROWS(grid.TextMatrix(0, 102));
}

TEST_CASE("The rows of totals stand grey above what they sum, and payments are centred")
{
    const TestOffice office;
    TestApp desk(office);
    AddTour(desk, 1);
    desk.Execute("INSERT INTO Invoice (TourID,CustomerID,InvoiceTotal,Paid,Type) VALUES (1,1,10,4,'Manual')");
    desk.Execute("INSERT INTO InvoicePayments (InvoiceID,Amount) VALUES (1,4)");
    auto& tour = desk.app.Open<frmRentalEntry>();
    tour.LoadTour("1");
    for (const Grid* grid : {&tour.vsfgInvoices, &tour.vsfgPayments}) {
        CAPTURE(grid->Name());
        REQUIRE(grid->Rows() == 3);
        CHECK(grid->IsSubtotal(1));
        CHECK(grid->BackColor(1, 0) == 0xE0E0E0);
        CHECK_FALSE(grid->BackColor(2, 0));
        CHECK(grid->FixedRows() == 1);
        CHECK(grid->FixedCols() == 0);
    }
    CHECK(tour.vsfgInvoices.Cols() == 11);
    CHECK(tour.vsfgPayments.Cols() == 7);
    for (int col = 0; col < 7; ++col)
        CHECK(tour.vsfgPayments.ColAlignment(col) == CellAlignment::Center);
    CHECK(tour.vsfgPayments.ColFormat(4) == "$#,###.##");
    CHECK(tour.vsfgInvoices.ColFormat(3) == "$#,##0.00");
    CHECK(tour.vsfgInvoices.ColFormat(8).empty());
}

TEST_CASE("The Tour screen tells that it is open, and takes that back")
{
    const TestOffice office;
    TestApp desk(office);
    CHECK_FALSE(desk.app.openFlags.RentalEntryOpen);
    auto& tour = desk.app.Open<frmRentalEntry>();
    CHECK(desk.app.openFlags.RentalEntryOpen);
    tour.btnExit.Click.Fire();
    desk.app.DropClosed();
    CHECK_FALSE(desk.app.openFlags.RentalEntryOpen);
}
