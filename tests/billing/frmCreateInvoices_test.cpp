#include "billing/frmCreateInvoices.h"
#include "tests/support/TestApp.h"
#include "tours/frmRentalEntry.h"

#include <doctest/doctest.h>

using namespace rovanta;
using namespace rovanta::tests;

namespace {

/// A tour of `vehicles` vehicles of one customer, ten days in March at 100 a day.
void AddTour(TestApp& desk, int vehicles)
{
    desk.Execute("INSERT INTO Customer (Name) VALUES ('Ember Lights')");
    desk.Execute("INSERT INTO Tour (CustomerID,TourName,Status) VALUES (1,'Winter Run','Contract - Signed')");
    for (int i = 1; i <= vehicles; ++i) {
        const std::string number = std::to_string(i);
        desk.Execute("INSERT INTO Bus (Name,Type,Lease,CommAmount,CommPercent,Inactive) VALUES ('Coach " + number +
                     "','Bus',0,0,0,0)");
        desk.Execute("INSERT INTO TourItems (ID,TourID,BusID,StartDate,EndDate,BilledDays,BusRate,BusRateType,"
                     "BusTotal,BusContract) VALUES (" +
                     number + ",1," + number + ",'3/2/2026','3/11/2026',10,100,'Per Day',1000,1)");
    }
}

}

TEST_CASE("The dialog's boxes stand under their captions")
{
    const TestOffice office;
    TestApp desk(office);
    auto& dialog = desk.app.Open<frmCreateInvoices>();
    CHECK(dialog.Caption() == "Create Invoices");
    CHECK(dialog.SSTab1.Captions() == std::vector<std::string>{"No. Of Days", "Monthly"});
    const std::vector<std::pair<const Control*, const char*>> captions = {
        {&dialog.txtClient, "Client Name"},
        {&dialog.txtTourName, "Tour Name"},
        {&dialog.txtTourID, "Tour ID"},
        {&dialog.txtFirstDay, "First Day of Lease"},
        {&dialog.txtLastDay, "Last Day of Lease"},
        {&dialog.txtDays, "Number of Days Per Bill"},
        {&dialog.dtFirstBillDate, "First Bill Date"},
        {&dialog.dtFirstDueDate, "Due Date of First Bill"},
        {&dialog.optSplit, "Split Other Charges Equally Per Bill"},
        {&dialog.optEnd, "Generate Final Bill for Other Charges"},
        {&dialog.chkInvoicesExist, "Invoices Already Exist"},
        {&dialog.btnCalculate, "Calculate"},
        {&dialog.btnCancel, "Cancel"},
        {&dialog.txtClient2, "Client Name"},
        {&dialog.txtTourName2, "Tour Name"},
        {&dialog.txtTourID2, "Tour ID"},
        {&dialog.txtFirstDay2, "First Day of Lease"},
        {&dialog.txtLastDay2, "Last Day of Lease"},
        {&dialog.dtFirstDueDate2, "Due Date of First Bill"},
        {&dialog.chkInvoicesExist2, "Invoices Already Exist"},
        {&dialog.btnCalculate2, "Calculate"},
        {&dialog.btnCancel2, "Cancel"}};
    for (const auto& [control, caption] : captions) {
        CAPTURE(control->Name());
        CHECK(control->Caption() == caption);
    }
    CHECK(dialog.txtFirstDay.ReadOnly());
    CHECK(dialog.txtLastDay2.ReadOnly());
    CHECK_FALSE(dialog.txtCustomerID.Visible());
    CHECK_FALSE(dialog.vsfgInvoiceItems.Visible());
}

TEST_CASE("A tour of no number leaves the dialog as it stands, and a text that is none breaks it")
{
    const TestOffice office;
    TestApp desk(office);
    AddTour(desk, 1);
    auto& dialog = desk.app.Open<frmCreateInvoices>();
    dialog.PrepareInvoiceDialog("1");
    dialog.txtDays = "3";
    dialog.PrepareInvoiceDialog("0");
    CHECK(dialog.txtTourID.Text() == "0");
    CHECK(dialog.txtClient.Text() == "Ember Lights");
    CHECK(dialog.txtDays.Text() == "3");
    CHECK(dialog.btnCalculate.Enabled());
    CHECK_THROWS(dialog.PrepareInvoiceDialog(""));
    dialog.PrepareInvoiceDialog("1");
    CHECK(dialog.txtDays.Text() == "7");
}

TEST_CASE("A pass without the Tour screen finds no lines")
{
    const TestOffice office;
    TestApp desk(office);
    AddTour(desk, 1);
    auto& dialog = desk.app.Open<frmCreateInvoices>();
    CHECK(dialog.ReadItems().empty());
    desk.app.Open<frmRentalEntry>().LoadTour("1");
    CHECK(dialog.ReadItems().size() == 1);
}

TEST_CASE("The hidden grid holds the lines of the last period in seventeen columns")
{
    const TestOffice office;
    TestApp desk(office);
    AddTour(desk, 1);
    desk.Execute("UPDATE TourItems SET FuelTotal = 50, FuelContract = 1");
    desk.app.Open<frmRentalEntry>().LoadTour("1");
    auto& dialog = desk.app.Open<frmCreateInvoices>();
    dialog.PrepareInvoiceDialog("1");
    dialog.btnCalculate.Click.Fire();
    const Grid& grid = dialog.vsfgInvoiceItems;
    REQUIRE(grid.Cols() == 17);
    REQUIRE(grid.Rows() == 2);
    const std::vector<std::string> bus = {"",
                                          "1",
                                          "3",
                                          "Days",
                                          "Coach 1 (3/9/2026 - 3/11/2026)",
                                          "100",
                                          "300",
                                          "1",
                                          "Coach 1",
                                          "Bus",
                                          "Truck and Trailer Lease",
                                          "1",
                                          "3/9/2026",
                                          "3/15/2026",
                                          "3/2/2026",
                                          "3/11/2026",
                                          "FALSE"};
    for (int col = 0; col < 17; ++col) {
        CAPTURE(col);
        CHECK(grid.TextMatrix(0, col) == bus[static_cast<std::size_t>(col)]);
    }
    CHECK(grid.TextMatrix(1, 3) == "Each");
    CHECK(grid.TextMatrix(1, 9).empty());
}
