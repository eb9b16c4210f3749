#include "billing/DailyInvoices.h"

#include "values/Errors.h"
#include "values/Numbers.h"

#include <algorithm>
#include <cmath>

namespace rovanta {

namespace {

/// One period of the pass: n of N, with its first and last day.
struct Period {
    int number;
    int count;
    DateTime start;
    DateTime end;
};

enum class Words { Fixed, WithDescription };

/// What the line of a shared charge bears.
struct ShareLine {
    BilledCharge charge;
    const char* text;
    Words words;
    const char* other;
    const char* acct;
    int orderField;
    Taxable::Index taxable;
};

/// The lines of one period, gathered in the order in which they are written.
class PeriodLines {
public:
    PeriodLines(const Period& period, const TaxRules& rules) : period(period), rules(rules) {}

    void AddBus(const BilledItem& item, DateTime first);
    void AddDriver(const BilledItem& item, DateTime first, BilledCharge charge, const std::string& driver,
                   int orderField);
    void AddShare(const BilledItem& item, const ShareLine& share);
    void AddLump(const BilledItem& item, const ShareLine& lump, OtherCharges otherCharges);

    std::vector<InvoiceLine> lines;

private:
    std::string Span(DateTime first, DateTime last) const;
    bool HasDays(double rate, DateTime first, DateTime last) const;
    void AddDays(InvoiceLine line, DateTime first, DateTime last);
    void AddEach(const BilledItem& item, const ShareLine& share, const std::string& description, double rate);

    const Period& period;
    const TaxRules& rules;
};

std::string PeriodLines::Span(DateTime first, DateTime last) const
{
    return " (" + ToText(std::max(first, period.start)) + " - " + ToText(std::min(last, period.end)) + ")";
}

/// Whether days of a span are billed in the period. Most lines of a long tour have none in most periods, and no words
/// are put together for those.
bool PeriodLines::HasDays(double rate, DateTime first, DateTime last) const
{
    return rate != 0 && OverlapDays(period.start, period.end, first, last) != 0;
}

void PeriodLines::AddDays(InvoiceLine line, DateTime first, DateTime last)
{
    line.qty2 = static_cast<double>(OverlapDays(period.start, period.end, first, last));
    line.uom = "Days";
    line.periodStart = period.start;
    line.periodEnd = period.end;
    line.itemStart = first;
    line.itemEnd = last;
    lines.push_back(std::move(line));
}

/// The whole days in a quotient that may miss a whole number by a hair.
std::int64_t WholeDays(double days)
{
    return static_cast<std::int64_t>(std::floor(days + 1e-6));
}

void PeriodLines::AddBus(const BilledItem& item, DateTime first)
{
    const ChargeFigures& bus = item[BilledCharge::Bus];
    if (!bus.byContract || bus.rate == 0)
        return;
    // The span rests on the total and not on the days, so a total changed by hand shifts the day count.
    const DateTime last = rovanta::AddDays(first, WholeDays(bus.total / bus.rate) - 1);
    if (!HasDays(bus.rate, first, last))
        return;
    InvoiceLine line;
    line.description = item.busName + Span(first, last);
    line.rate = bus.rate;
    line.busID = item.busID;
    line.other = item.busName;
    line.busType = item.busType;
    line.acct = "Truck and Trailer Lease";
    line.orderField = 1;
    line.taxable = rules.taxable[Taxable::Bus];
    AddDays(std::move(line), first, last);
}

void PeriodLines::AddDriver(const BilledItem& item, DateTime first, BilledCharge charge, const std::string& driver,
                            int orderField)
{
    if (!item[charge].byContract)
        return;
    const DateTime last = rovanta::AddDays(first, WholeDays(item.billedDays) - 1);
    if (!HasDays(item[charge].rate, first, last))
        return;
    InvoiceLine line;
    line.description = driver + Span(first, last);
    line.rate = item[charge].rate;
    line.busID = item.busID;
    line.other = item.busName + " - " + driver;
    // Kept on purpose: the drivers' days are filed under the hotel's account word.
    line.acct = "Hotel Buyout";
    line.orderField = orderField;
    line.taxable = rules.taxable[Taxable::Driver];
    AddDays(std::move(line), first, last);
}

void PeriodLines::AddEach(const BilledItem& item, const ShareLine& share, const std::string& description, double rate)
{
    if (rate == 0)
        return;
    InvoiceLine line;
    line.uom = "Each";
    line.description = description;
    line.rate = rate;
    line.busID = item.busID;
    line.other = item.busName + share.other;
    line.acct = share.acct;
    line.orderField = share.orderField;
    line.periodStart = period.start;
    line.periodEnd = period.end;
    line.taxable = rules.taxable[share.taxable];
    lines.push_back(std::move(line));
}

std::string TextOf(const BilledItem& item, const ShareLine& share)
{
    if (share.words == Words::Fixed)
        return share.text;
    return std::string(share.text) + " - (" + item[share.charge].description + ") (" + item.busName + ")";
}

void PeriodLines::AddShare(const BilledItem& item, const ShareLine& share)
{
    const ChargeFigures& charge = item[share.charge];
    if (!charge.byContract || charge.total == 0)
        return;
    const std::string fraction = std::to_string(period.number) + "/" + std::to_string(period.count) + " of ";
    AddEach(item, share, fraction + TextOf(item, share), charge.total / period.count);
}

void PeriodLines::AddLump(const BilledItem& item, const ShareLine& lump, OtherCharges otherCharges)
{
    if (otherCharges == OtherCharges::SplitEqually) {
        AddShare(item, lump);
        return;
    }
    const ChargeFigures& charge = item[lump.charge];
    if (period.number == period.count && charge.byContract && charge.total != 0)
        AddEach(item, lump, TextOf(item, lump), charge.total);
}

constexpr ShareLine shareLines[] = {
    {BilledCharge::Fuel, "Fuel", Words::Fixed, " - Fuel", "Fuel Surcharge.", 14, Taxable::Fuel},
    {BilledCharge::Engine, "Engine Service", Words::Fixed, " - Fuel Surcharge", "Fuel Surcharge.", 15, Taxable::Engine},
};

constexpr ShareLine lumpLines[] = {
    {BilledCharge::HotelBuyOut, "Hotel Buy Out", Words::Fixed, " - Hotel Buy Out", "Hotel Buyout", 9,
     Taxable::HotelBuyOut},
    {BilledCharge::Carpet, "Other", Words::WithDescription, " - Other", "Other", 16, Taxable::Carpet},
    {BilledCharge::Permit, "Permits/Tolls/Parking", Words::Fixed, " - Permits/Tolls/Parking", "Tolls", 18,
     Taxable::Permit},
    {BilledCharge::Misc, "Overdrives", Words::WithDescription, " - Gratuities", "Gratuities", 19, Taxable::Misc},
    {BilledCharge::PayrollFee, "Other", Words::WithDescription, " - Other", "Other", 20, Taxable::PayrollFee},
    {BilledCharge::Admin, "Other", Words::WithDescription, " - Other", "Other", 21, Taxable::Admin},
};

std::vector<InvoiceLine> LinesOfPeriod(const Period& period, const std::vector<BilledItem>& items,
                                       const TaxRules& rules, OtherCharges otherCharges)
{
    PeriodLines gathered(period, rules);
    for (const BilledItem& item : items) {
        const DateTime first = DateAdd("d", -item.travelIn, item.start);
        gathered.AddBus(item, first);
        gathered.AddDriver(item, first, BilledCharge::Driver, item.driverName, 4);
        gathered.AddDriver(item, first, BilledCharge::AddDriver, item.addDriverName, 5);
        for (const ShareLine& share : shareLines)
            gathered.AddShare(item, share);
        for (const ShareLine& lump : lumpLines)
            gathered.AddLump(item, lump, otherCharges);
    }
    return std::move(gathered.lines);
}

}

int DailyPeriods(const DailyBilling& billing)
{
    const std::int32_t days = CLng(billing.daysPerBill);
    if (days == 0)
        throw DivisionByZero();
    const std::int64_t span = DateDiff("d", billing.firstBillDate, billing.lastDay);
    const std::int64_t periods = span / days + 1;
    return CInt(static_cast<double>(periods));
}

std::vector<PlannedInvoice> PlanDailyInvoices(const DailyBilling& billing, const std::vector<BilledItem>& items,
                                              const TaxRules& rules)
{
    std::vector<PlannedInvoice> invoices;
    const int count = DailyPeriods(billing);
    DateTime start = billing.firstBillDate;
    DateTime due = billing.firstDueDate;
    for (int number = 1; number <= count; ++number) {
        const DateTime end = DateAdd("d", billing.daysPerBill - 1, start);
        PlannedInvoice invoice;
        invoice.due = due;
        invoice.periodStart = start;
        invoice.periodEnd = end;
        invoice.lines = LinesOfPeriod({number, count, start, end}, items, rules, billing.otherCharges);
        invoice.totals = TotalsOf(invoice.lines, rules.taxRate);
        if (!invoice.lines.empty())
            invoices.push_back(std::move(invoice));
        start = AddDays(end, 1);
        due = DateAdd("d", billing.daysPerBill, due);
    }
    return invoices;
}

}
