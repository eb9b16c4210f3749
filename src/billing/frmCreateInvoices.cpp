#include "billing/frmCreateInvoices.h"

#include "billing/DailyInvoices.h"
#include "billing/InvoicePreview.h"
#include "billing/InvoiceWriter.h"
#include "billing/MonthlyInvoices.h"
#include "frame/App.h"
#include "frame/SharedRoutines.h"
#include "tours/frmRentalEntry.h"
#include "values/Format.h"
#include "values/Numbers.h"

#include <algorithm>
#include <iterator>

namespace rovanta {

frmCreateInvoices::frmCreateInvoices(App& app) : Screen(app, screenName, "Create Invoices")
{
    for (TextBox* box : {&txtClient, &txtTourName, &txtTourID, &txtFirstDay, &txtLastDay, &txtClient2, &txtTourName2,
                         &txtTourID2, &txtFirstDay2, &txtLastDay2})
        box->SetReadOnly(true);
    optSplit = true;
    dtFirstBillDate = app.clock.Today();
    dtFirstDueDate = app.clock.Today();
    dtFirstDueDate2 = app.clock.Today();
    vsfgInvoiceItems.SetCols(17);
    btnCalculate.SetEnabled(false);
    btnCalculate2.SetEnabled(false);
    SetCancelButton(btnCancel);
    btnCalculate.Click = [this] { btnCalculate_Click(); };
    btnCalculate2.Click = [this] { btnCalculate2_Click(); };
    btnPreview.SetEnabled(false);
    btnPreview2.SetEnabled(false);
    btnPreview.Click = [this] { Preview("Daily", &frmCreateInvoices::PlanDaily); };
    btnPreview2.Click = [this] { Preview("Monthly", &frmCreateInvoices::PlanMonthly); };
    btnCancel.Click = [this] { Leave(); };
    btnCancel2.Click = [this] { Leave(); };
    Unload = [this] { Leave(); };
    ClearPreview();
}

void frmCreateInvoices::BillableSpan::Include(DateTime start, DateTime end)
{
    first = first ? std::min(*first, start) : start;
    last = last ? std::max(*last, end) : end;
}

frmCreateInvoices::TourToBill frmCreateInvoices::ReadTour(const std::string& tourID)
{
    Recordset row(
        Statement{"SELECT Tour.ID AS TourID,Tour.CustomerID AS CustomerID,Customer.Name AS CustomerName,"
                  "Tour.TourName AS TourName,Bus.Name AS BusName,Bus.Type AS BusType,Bus.Model AS BusModel,"
                  "Bus.Bunks AS BusBunks,TourItems.StartDate AS StartDate,TourItems.EndDate AS EndDate,"
                  "TourItems.DiscountedDays AS DiscountedDays,TourItems.TravelDaysIn AS TravelDaysIn,"
                  "TourItems.TravelDaysOut AS TravelDaysOut,TourItems.TourDays AS TourDays,"
                  "TourItems.BilledDays AS BilledDays,TourItems.BusRate AS BusRate,"
                  "TourItems.BusRateType AS BusRateType,Invoice.ID AS InvoiceNo FROM ((((Tour LEFT JOIN Customer ON "
                  "Tour.CustomerID = Customer.ID) LEFT JOIN TourItems ON Tour.ID = TourItems.TourID) LEFT JOIN Bus ON "
                  "TourItems.BusID = Bus.ID) LEFT JOIN Invoice ON Tour.ID = Invoice.TourID) WHERE Tour.ID = "} +
            Key(tourID),
        Database());
    TourToBill tour;
    for (; !row.Eof(); row.MoveNext()) {
        tour.client = row.Fields("CustomerName").TextOrEmpty();
        tour.tourName = row.Fields("TourName").TextOrEmpty();
        tour.customerID = row.Fields("CustomerID").TextOrEmpty();
        tour.invoicesExist = tour.invoicesExist || !row.Fields("InvoiceNo").IsNull();
        if (row.Fields("StartDate").IsNull())
            continue;
        const bool daily = row.Fields("BusRateType").TextOrEmpty() == "Per Day";
        (daily ? tour.daily : tour.monthly)
            .Include(DateAdd("d", -row.Fields("TravelDaysIn").NumberOrZero(), row.Fields("StartDate").Date()),
                     DateAdd("d", row.Fields("TravelDaysOut").NumberOrZero(), row.Fields("EndDate").Date()));
    }
    return tour;
}

void frmCreateInvoices::PrepareInvoiceDialog(const std::string& tourID)
{
    txtTourID = tourID;
    txtTourID2 = tourID;
    if (tourID == "0")
        return;
    ClearPreview();
    const TourToBill tour = ReadTour(tourID);
    ShowPageOne(tour);
    ShowPageTwo(tour);
}

static std::string DayText(const std::optional<DateTime>& day)
{
    return day ? ToText(*day) : std::string{};
}

void frmCreateInvoices::ShowPageOne(const TourToBill& tour)
{
    txtClient = tour.client;
    txtTourName = tour.tourName;
    txtCustomerID = tour.customerID;
    txtFirstDay = DayText(tour.daily.first);
    txtLastDay = DayText(tour.daily.last);
    chkInvoicesExist = tour.invoicesExist;
    txtDays = "7";
    if (tour.daily.first) {
        dtFirstBillDate = *tour.daily.first;
        // The first week is due a week before the coach rolls.
        dtFirstDueDate = DateAdd("d", -txtDays.Val(), *tour.daily.first);
    }
    btnCalculate.SetEnabled(!txtFirstDay.IsEmpty() && !txtLastDay.IsEmpty());
    btnPreview.SetEnabled(btnCalculate.Enabled());
}

void frmCreateInvoices::ShowPageTwo(const TourToBill& tour)
{
    txtClient2 = tour.client;
    txtTourName2 = tour.tourName;
    txtCustomerID2 = tour.customerID;
    txtFirstDay2 = DayText(tour.monthly.first);
    txtLastDay2 = DayText(tour.monthly.last);
    chkInvoicesExist2 = tour.invoicesExist;
    if (tour.monthly.first)
        dtFirstDueDate2 = *tour.monthly.first;
    btnCalculate2.SetEnabled(!txtFirstDay2.IsEmpty() && !txtLastDay2.IsEmpty());
    btnPreview2.SetEnabled(btnCalculate2.Enabled());
}

void frmCreateInvoices::Recalculate()
{
    if (btnCalculate.Enabled())
        btnCalculate_Click();
    if (btnCalculate2.Enabled())
        btnCalculate2_Click();
}

bool frmCreateInvoices::MayReplaceInvoices(const CheckBox& invoicesExist)
{
    return !invoicesExist.IsChecked() ||
           app.Ask("Invoices already exist for this tour. If you continue, all 'auto-invoices' will be edited or "
                   "deleted, are you sure you want to continue?",
                   "Delete Confirmation");
}

TaxRules frmCreateInvoices::Rules() const
{
    return {app.company.CompanyTaxRate, app.company.DefaultTaxable};
}

/// Which charge of the tour's grid is which billed charge, and where its words stand; -1 for a charge without any.
struct ChargeOfGrid {
    BilledCharge billed;
    Line line;
    int descriptionCol;
};

static constexpr ChargeOfGrid chargesOfGrid[] = {
    {BilledCharge::Bus, Line::Bus, -1},
    {BilledCharge::Driver, Line::Driver, -1},
    {BilledCharge::AddDriver, Line::AddDriver, -1},
    {BilledCharge::DOT, Line::DOT, -1},
    {BilledCharge::Satellite, Line::Satellite, -1},
    {BilledCharge::Internet, Line::Internet, -1},
    {BilledCharge::HotelBuyOut, Line::HotelBuyOut, -1},
    {BilledCharge::Fuel, Line::Fuel, -1},
    {BilledCharge::Engine, Line::Engine, -1},
    {BilledCharge::Carpet, Line::Carpet, ItemCol::Misc2Desc},
    {BilledCharge::Permit, Line::Permit, -1},
    {BilledCharge::Misc, Line::Misc, ItemCol::MiscDesc},
    {BilledCharge::PayrollFee, Line::PayrollFee, ItemCol::Misc3Desc},
    {BilledCharge::Admin, Line::Admin, ItemCol::Misc4Desc},
};
static_assert(std::size(chargesOfGrid) == billedChargeCount);

static BilledItem ReadItem(const Grid& grid, int row)
{
    const auto text = [&](int col) -> const std::string& { return grid.TextMatrix(row, col); };
    BilledItem item;
    item.busName = text(ItemCol::BusName);
    item.busID = text(ItemCol::BusID);
    item.driverName = text(ItemCol::DriverName);
    item.addDriverName = text(ItemCol::AddDriverName);
    item.start = ToDate(text(ItemCol::StartDate));
    item.end = ToDate(text(ItemCol::EndDate));
    item.travelIn = Val(text(ItemCol::TravelDaysIn));
    item.billedDays = Val(text(ItemCol::BilledDays));
    item.rateType = text(ItemCol::BusRateType);
    for (const ChargeOfGrid& charge : chargesOfGrid) {
        const LineColumns& columns = ItemLines()[static_cast<std::size_t>(charge.line)];
        ChargeFigures& figures = item[charge.billed];
        figures.rate = columns.rate >= 0 ? Val(text(columns.rate)) : 0;
        figures.total = Val(text(columns.total));
        figures.byContract = PaidByWord(text(columns.payer)) == PaidBy::Contract;
        if (charge.descriptionCol >= 0)
            figures.description = text(charge.descriptionCol);
    }
    return item;
}

std::vector<BilledItem> frmCreateInvoices::ReadItems()
{
    std::vector<BilledItem> items;
    const auto* tour = app.Find<frmRentalEntry>();
    if (!tour)
        return items;
    for (int row = 1; row < tour->vsfgItems.Rows(); ++row) {
        items.push_back(ReadItem(tour->vsfgItems, row));
        items.back().busType = GetBusType(app, items.back().busID);
    }
    return items;
}

std::vector<PlannedInvoice> frmCreateInvoices::PlanDaily()
{
    DailyBilling billing;
    billing.firstBillDate = dtFirstBillDate.Value();
    billing.firstDueDate = dtFirstDueDate.Value();
    billing.lastDay = ToDate(txtLastDay.Text());
    billing.daysPerBill = txtDays.Val();
    billing.otherCharges = optSplit.Value() ? OtherCharges::SplitEqually : OtherCharges::OnFinalBill;
    return PlanDailyInvoices(billing, ReadItems(), Rules());
}

std::vector<PlannedInvoice> frmCreateInvoices::PlanMonthly()
{
    MonthlyBilling billing;
    billing.firstDay = ToDate(txtFirstDay2.Text());
    billing.lastDay = ToDate(txtLastDay2.Text());
    billing.firstDueDate = dtFirstDueDate2.Value();
    return PlanMonthlyInvoices(billing, ReadItems(), Rules());
}

void frmCreateInvoices::btnCalculate_Click()
{
    if (MayReplaceInvoices(chkInvoicesExist))
        RunPass("Daily", txtCustomerID, &frmCreateInvoices::PlanDaily);
}

void frmCreateInvoices::btnCalculate2_Click()
{
    if (MayReplaceInvoices(chkInvoicesExist2))
        RunPass("Monthly", txtCustomerID2, &frmCreateInvoices::PlanMonthly);
}

void frmCreateInvoices::RunPass(const std::string& type, const TextBox& customerID, Planner plan)
{
    Hourglass wait(app);
    InvoiceWriter writer(app, {txtTourID.Text(), customerID.Text(), type});
    writer.SetUpPool();
    for (const PlannedInvoice& invoice : (this->*plan)()) {
        ShowInWorkGrid(invoice.lines);
        writer.Write(invoice);
    }
    writer.RemoveLeftoverInvoices();
    if (auto* tour = app.Find<frmRentalEntry>()) {
        tour->LoadTourInvoices();
        tour->LoadTourPayments();
    }
    Leave();
}

/// Lists what the page's pass would do, from the same plan, and writes nothing.
void frmCreateInvoices::Preview(const std::string& type, Planner plan)
{
    Hourglass wait(app);
    std::vector<FormerInvoice> former;
    Recordset invoice(Statement{"SELECT ID,DueDate,InvoiceTotal FROM Invoice WHERE TourID = "} + Key(txtTourID.Text()) +
                          " AND Type = '" + Text(type) + "' ORDER BY ID",
                      Database());
    for (; !invoice.Eof(); invoice.MoveNext())
        former.push_back({invoice.Fields("ID").Text(), invoice.Fields("DueDate").Date(),
                          invoice.Fields("InvoiceTotal").NumberOrZero()});
    ClearPreview();
    const auto money = [](const std::optional<double>& total) { return total ? ToText(*total) : std::string{}; };
    for (const PreviewRow& row : PreviewPass((this->*plan)(), former)) {
        const std::string period =
            row.periodStart ? ToText(*row.periodStart) + " - " + ToText(*row.periodEnd) : std::string{};
        vsfgPreview.AddCells({NameOf(row.effect), row.number.empty() ? "New" : row.number, period, ToText(row.due),
                              money(row.oldTotal), money(row.newTotal)});
    }
}

void frmCreateInvoices::ClearPreview()
{
    vsfgPreview.SetRows(0);
    vsfgPreview.SetCols(6);
    vsfgPreview.AddItem("Action\tInvoice\tPeriod\tDue Date\tOld Total\tNew Total");
    vsfgPreview.SetFixedRows(1);
    vsfgPreview.SetColFormat(3, datePicture);
    for (const int col : {4, 5}) {
        vsfgPreview.SetColFormat(col, moneyCellPicture);
        vsfgPreview.SetColAlignment(col, CellAlignment::Right);
    }
}

/// The hidden grid holds the lines of the period in hand.
void frmCreateInvoices::ShowInWorkGrid(const std::vector<InvoiceLine>& lines)
{
    vsfgInvoiceItems.SetRows(0);
    for (const InvoiceLine& line : lines)
        vsfgInvoiceItems.AddCells({"", ToText(line.qty1), ToText(line.qty2), line.uom, line.description,
                                   ToText(line.rate), ToText(line.Extended()), line.busID, line.other, line.busType,
                                   line.acct, std::to_string(line.orderField), ToText(line.periodStart),
                                   ToText(line.periodEnd), ToText(line.itemStart), ToText(line.itemEnd),
                                   line.taxable ? "TRUE" : "FALSE"});
}

void frmCreateInvoices::Leave()
{
    if (auto* tour = app.Find<frmRentalEntry>())
        tour->SetEnabled(true);
    SetVisible(false);
}

}
