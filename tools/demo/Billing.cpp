#include "tools/demo/Billing.h"

#include "billing/DailyInvoices.h"
#include "billing/MonthlyInvoices.h"
#include "tools/demo/Company.h"
#include "tools/demo/Dice.h"
#include "tours/TourItemGrid.h"
#include "values/Numbers.h"

#include <algorithm>
#include <array>

namespace rovanta::demo {

namespace {

/// One invoice of the demo as the passes plan it, with what came after.
struct DemoInvoice {
    int id = 0;
    const Tour* tour = nullptr;
    std::string type;
    PlannedInvoice planned;
    DateTime entered;
    double paid = 0;
};

struct Payment {
    int invoice = 0;
    DateTime date;
    double amount = 0;
};

TaxRules Rules()
{
    TaxRules rules;
    rules.taxRate = taxRate;
    for (std::size_t i = 0; i < rules.taxable.size(); ++i)
        rules.taxable[i] = IsTaxable(static_cast<int>(i));
    return rules;
}

constexpr std::pair<BilledCharge, Line> chargesOfLine[] = {{BilledCharge::Bus, Line::Bus},
                                                           {BilledCharge::Driver, Line::Driver},
                                                           {BilledCharge::AddDriver, Line::AddDriver},
                                                           {BilledCharge::DOT, Line::DOT},
                                                           {BilledCharge::Satellite, Line::Satellite},
                                                           {BilledCharge::Internet, Line::Internet},
                                                           {BilledCharge::HotelBuyOut, Line::HotelBuyOut},
                                                           {BilledCharge::Fuel, Line::Fuel},
                                                           {BilledCharge::Engine, Line::Engine},
                                                           {BilledCharge::Carpet, Line::Carpet},
                                                           {BilledCharge::Permit, Line::Permit},
                                                           {BilledCharge::Misc, Line::Misc},
                                                           {BilledCharge::PayrollFee, Line::PayrollFee},
                                                           {BilledCharge::Admin, Line::Admin}};
static_assert(std::size(chargesOfLine) == billedChargeCount);

BilledItem ItemOf(const TourLine& line)
{
    BilledItem item;
    item.busName = line.vehicle->name;
    item.busID = std::to_string(line.vehicle->id);
    item.busType = line.vehicle->type;
    item.driverName = line.driver ? line.driver->name : "";
    item.addDriverName = line.addDriver ? line.addDriver->name : "";
    item.start = line.span.start;
    item.end = line.span.end;
    item.travelIn = line.span.travelIn;
    item.billedDays = line.billed.billedDays;
    item.rateType = line.PerMonth() ? "Per Month" : "Per Day";
    for (const auto& [billed, charge] : chargesOfLine) {
        item[billed].rate = line.figures.rate[charge];
        item[billed].total = line.price.total[charge];
        item[billed].byContract = line.figures.payer[charge] == PaidBy::Contract;
    }
    item[BilledCharge::Misc].description = line.overdrives;
    item[BilledCharge::Carpet].description = line.flights;
    item[BilledCharge::PayrollFee].description = line.wraps;
    item[BilledCharge::Admin].description = line.coDriver;
    return item;
}

class Biller {
public:
    Biller(const Plan& plan, const std::vector<Tour>& tours) : plan(plan), tours(tours), dice(plan.seed, "billing") {}

    std::vector<TableRows> Rows();

private:
    bool IsFirm(const Tour& tour);
    void Bill(const Tour& tour);
    void BillDaily(const Tour& tour);
    void BillMonthly(const Tour& tour);
    void BillByHand(const Tour& tour);
    void Add(const Tour& tour, const char* type, PlannedInvoice planned);
    void Pay(DemoInvoice& invoice);
    void AddInvoiceRows(TableRows& heads, TableRows& lines);
    TableRows PaymentRows();
    Value AccountingId(DateTime when, const char* head, DateTime counted);

    const Plan& plan;
    const std::vector<Tour>& tours;
    Dice dice;
    std::vector<DemoInvoice> invoices;
    std::vector<Payment> payments;
};

bool Biller::IsFirm(const Tour& tour)
{
    return tour.status == Status::signedContract || tour.status == Status::dispatched ||
           (tour.status == Status::committed && dice.Chance(40));
}

void Biller::Add(const Tour& tour, const char* type, PlannedInvoice planned)
{
    DemoInvoice invoice;
    invoice.id = static_cast<int>(invoices.size()) + 1;
    invoice.tour = &tour;
    invoice.type = type;
    invoice.planned = std::move(planned);
    invoice.entered = tour.edited.value_or(DateAdd("n", 30, tour.entered));
    invoices.push_back(std::move(invoice));
}

void Biller::BillDaily(const Tour& tour)
{
    DateTime first = tour.lines.front().FirstDay();
    DateTime last = tour.lines.front().LastDay();
    for (const TourLine& line : tour.lines) {
        first = std::min(first, line.FirstDay());
        last = std::max(last, line.LastDay());
    }
    DailyBilling billing;
    billing.firstBillDate = first;
    billing.lastDay = last;
    billing.daysPerBill = dice.Chance(80) ? 7 : 14;
    billing.firstDueDate = DateAdd("d", -billing.daysPerBill, first);
    billing.otherCharges = dice.Chance(70) ? OtherCharges::OnFinalBill : OtherCharges::SplitEqually;
    for (PlannedInvoice& planned : PlanDailyInvoices(billing, BilledItems(tour), Rules()))
        Add(tour, "Daily", std::move(planned));
}

void Biller::BillMonthly(const Tour& tour)
{
    MonthlyBilling billing;
    billing.firstDay = tour.start;
    billing.lastDay = tour.LatestEnd();
    billing.firstDueDate = tour.start;
    for (PlannedInvoice& planned : PlanMonthlyInvoices(billing, BilledItems(tour), Rules()))
        Add(tour, "Monthly", std::move(planned));
}

/// An invoice written by hand after the tour, for what came up on the road.
void Biller::BillByHand(const Tour& tour)
{
    const TourLine& line = tour.lines.front();
    PlannedInvoice planned;
    planned.due = AddDays(tour.LatestEnd(), 10);
    InvoiceLine extra;
    extra.qty1 = dice.Between(1, 3);
    extra.uom = "Each";
    extra.busID = std::to_string(line.vehicle->id);
    const bool overdrive = dice.Chance(60);
    extra.description = overdrive ? "Overdrive" : "End of tour cleaning";
    extra.acct = overdrive ? "Overdrives" : "End of Tour Cleaning";
    extra.rate = overdrive ? 150 : 225;
    extra.orderField = overdrive ? 19 : 17;
    planned.lines.push_back(extra);
    if (dice.Chance(40)) {
        InvoiceLine days;
        days.qty1 = dice.Between(1, 2);
        days.uom = "Day";
        days.busID = extra.busID;
        days.description = line.vehicle->name + " kept longer";
        days.acct = line.vehicle->type.starts_with("Sub-Lease") ? "Sub-Lease Truck" : "Truck";
        days.busType = days.acct;
        days.rate = line.vehicle->dayRate;
        days.orderField = 1;
        days.periodStart = days.itemStart = AddDays(tour.LatestEnd(), 1);
        days.periodEnd = days.itemEnd = AddDays(days.itemStart, static_cast<int>(days.qty1) - 1);
        planned.lines.insert(planned.lines.begin(), days);
    }
    planned.totals = TotalsOf(planned.lines, taxRate);
    Add(tour, "Manual", std::move(planned));
    invoices.back().entered = DateAdd("h", 9, AddDays(tour.LatestEnd(), 3));
}

void Biller::Bill(const Tour& tour)
{
    if (!IsFirm(tour))
        return;
    if (tour.lines.front().PerMonth())
        BillMonthly(tour);
    else
        BillDaily(tour);
    if (tour.LatestEnd() < AddDays(plan.today, -5) && dice.Chance(8))
        BillByHand(tour);
}

/// Most invoices are paid around their day, some in two parts or in part, and a few not at all.
void Biller::Pay(DemoInvoice& invoice)
{
    const InvoiceTotals& totals = invoice.planned.totals;
    const bool due = invoice.planned.due < plan.today;
    if (totals.total <= 0 || !dice.Chance(due ? 93 : 8))
        return;
    const auto pay = [&](DateTime date, double amount) {
        if (date >= plan.today)
            return;
        payments.push_back({invoice.id, date, amount});
        invoice.paid = Round(invoice.paid + amount, 2);
    };
    const DateTime earliest = invoice.entered.DateOnly();
    const int lateness = dice.Between(-4, 16);
    const DateTime date = std::max(due ? AddDays(invoice.planned.due, lateness) : AddDays(plan.today, -3), earliest);
    switch (dice.Weighted({84, 12, 4})) {
    case 0:
        pay(date, totals.total);
        break;
    case 1: {
        const double half = Round(totals.total / 2, 2);
        pay(date, half);
        pay(AddDays(date, dice.Between(5, 20)), Round(totals.total - half, 2));
        break;
    }
    default:
        pay(date, Round(totals.total * dice.Between(2, 8) / 10, 2));
    }
}

/// What the accounting file gave the record when it was sent; NULL for what still waits.
Value Biller::AccountingId(DateTime when, const char* head, DateTime counted)
{
    constexpr int waitingDays = 10;
    if (when > AddDays(plan.today, -waitingDays))
        return Null{};
    if (when < AddMonths(plan.FirstDay(), 1))
        return "Pre-Import";
    return std::string(head) + std::to_string(dice.Between(0x1000, 0xffff)) + "-" + std::to_string(counted.Seconds());
}

void Biller::AddInvoiceRows(TableRows& heads, TableRows& lines)
{
    for (const DemoInvoice& invoice : invoices) {
        const PlannedInvoice& planned = invoice.planned;
        const Value sent = AccountingId(std::max(planned.due, invoice.entered), "", invoice.entered);
        const bool hasJournal = !sent.IsNull() && sent.Text() != "Pre-Import" && !planned.lines.front().busType.empty();
        heads.rows.push_back({{"TourID", invoice.tour->id},
                              {"CustomerID", invoice.tour->customer->id},
                              {"InvoiceDate", planned.due},
                              {"DueDate", planned.due},
                              {"SubTotal", planned.totals.subTotal},
                              {"Tax", planned.totals.tax},
                              {"InvoiceTotal", planned.totals.total},
                              {"Paid", invoice.paid},
                              {"Type", invoice.type},
                              {"Notes", ""},
                              {"EnteredBy", invoice.tour->enteredBy},
                              {"EnteredDate", invoice.entered},
                              {"QBID", sent},
                              {"GJQBID", hasJournal ? Value("J" + sent.Text()) : Value(Null{})},
                              {"NeedsUpdated", hasJournal && dice.Chance(1) ? Value("YES") : Value(Null{})}});
        int row = 0;
        for (const InvoiceLine& line : planned.lines) {
            const bool dated = !line.busType.empty();
            lines.rows.push_back(
                {{"InvoiceID", invoice.id},
                 {"Row", ++row},
                 {"TourID", invoice.tour->id},
                 {"Qty1", line.qty1},
                 {"Qty2", line.qty2},
                 {"UoM", line.uom},
                 {"Description", line.description},
                 {"Rate", Round(line.rate, 2)},
                 {"PriceExt", Round(line.Extended(), 2)},
                 {"BusID", line.busID},
                 {"Other", line.other},
                 {"BusType", line.busType},
                 {"Acct", line.acct},
                 {"OrderField", line.orderField},
                 {"Type", invoice.type},
                 {"Taxable", line.taxable},
                 {"StartDate", dated ? Value(std::max(line.periodStart, line.itemStart)) : Value(Null{})},
                 {"EndDate", dated ? Value(std::min(line.periodEnd, line.itemEnd)) : Value(Null{})}});
        }
    }
}

TableRows Biller::PaymentRows()
{
    constexpr std::array methods = {"Check", "Visa", "MC", "AmEx", "Cash", "Disc", "Other"};
    std::stable_sort(payments.begin(), payments.end(),
                     [](const Payment& a, const Payment& b) { return a.date < b.date; });
    TableRows rows{"InvoicePayments", {}};
    for (const Payment& payment : payments) {
        const auto method = dice.Weighted({62, 10, 8, 10, 2, 2, 6});
        const DateTime entered = DateAdd("n", dice.Between(8 * 60, 17 * 60), payment.date);
        rows.rows.push_back({{"InvoiceID", payment.invoice},
                             {"PaymentDate", payment.date},
                             {"Amount", payment.amount},
                             {"PaymentMethod", methods[method]},
                             {"Note", method == 0 ? std::to_string(dice.Between(1001, 9999)) : ""},
                             {"EnteredBy", "office"},
                             {"EnteredDate", entered},
                             {"QBID", AccountingId(payment.date, "P", entered)}});
    }
    return rows;
}

std::vector<TableRows> Biller::Rows()
{
    for (const Tour& tour : tours)
        Bill(tour);
    for (DemoInvoice& invoice : invoices)
        Pay(invoice);
    TableRows heads{"Invoice", {}};
    TableRows lines{"InvoiceItems", {}};
    AddInvoiceRows(heads, lines);
    std::vector<TableRows> tables;
    tables.push_back(std::move(heads));
    tables.push_back(std::move(lines));
    tables.push_back(PaymentRows());
    return tables;
}

}

std::vector<BilledItem> BilledItems(const Tour& tour)
{
    std::vector<BilledItem> items;
    for (const TourLine& line : tour.lines)
        items.push_back(ItemOf(line));
    return items;
}

std::vector<TableRows> MakeBillingRows(const Plan& plan, const std::vector<Tour>& tours)
{
    return Biller(plan, tours).Rows();
}

}
