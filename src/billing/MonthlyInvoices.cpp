#include "billing/MonthlyInvoices.h"

#include "frame/SharedRoutines.h"
#include "values/Numbers.h"

namespace rovanta {

namespace {

struct MonthLine {
    BilledCharge charge;
    const char* text;
    const char* other;
    const char* acct;
    int orderField;
    Taxable::Index taxable;
};

/// Kept on purpose: the internet charge is billed under the wording "Driver Services".
constexpr MonthLine feeLines[] = {
    {BilledCharge::DOT, "DOT/IFTA Fee", " - DOT/IFTA Fees", "DOT Fee", 5, Taxable::DOT},
    {BilledCharge::Satellite, "Satellite/Internet", " - Satellite/Internet", "Satellite", 6, Taxable::Satellite},
    {BilledCharge::Internet, "Driver Services", " - Driver Services", "Driver Services", 7, Taxable::Internet},
};

DateTime LastOfMonth(DateTime date)
{
    return DateTime::Of(date.Year(), date.Month(), DaysInMonth(date));
}

/// One item's lines in the month from `from` to `to`.
void AddItemLines(std::vector<InvoiceLine>& lines, const BilledItem& item, DateTime from, DateTime to,
                  const TaxRules& rules)
{
    const auto overlap = static_cast<double>(OverlapDays(from, to, item.start, item.end));
    const double share = overlap / DaysInMonth(to);
    const auto add = [&](InvoiceLine line, BilledCharge charge, Taxable::Index taxable) {
        line.rate = item[charge].rate;
        if (!item[charge].byContract || line.qty2 == 0 || line.rate == 0)
            return;
        line.uom = "Months";
        line.busID = item.busID;
        line.periodStart = from;
        line.periodEnd = to;
        line.itemStart = item.start;
        line.itemEnd = item.end;
        line.taxable = rules.taxable[taxable];
        lines.push_back(std::move(line));
    };
    InvoiceLine bus;
    // The bus quantity alone is rounded, so its price can differ in the last cent from a fee of the same rate.
    bus.qty2 = Round(share, 5);
    bus.description = item.busName + " (" + ToText(from) + " - " + ToText(to) + ")";
    bus.other = item.busName;
    bus.busType = item.busType;
    bus.acct = "Truck and Trailer Lease";
    bus.orderField = 1;
    add(std::move(bus), BilledCharge::Bus, Taxable::Bus);
    for (const MonthLine& fee : feeLines) {
        InvoiceLine line;
        line.qty2 = share;
        line.description = std::string(fee.text) + " (" + item.busName + ")";
        line.other = item.busName + fee.other;
        line.acct = fee.acct;
        line.orderField = fee.orderField;
        add(std::move(line), fee.charge, fee.taxable);
    }
}

}

int MonthlyPeriods(const MonthlyBilling& billing)
{
    return static_cast<int>(DateDiff("m", billing.firstDay, billing.lastDay) + 1);
}

std::vector<PlannedInvoice> PlanMonthlyInvoices(const MonthlyBilling& billing, const std::vector<BilledItem>& items,
                                                const TaxRules& rules)
{
    std::vector<PlannedInvoice> invoices;
    const int count = MonthlyPeriods(billing);
    DateTime from = billing.firstDay;
    DateTime due = billing.firstDueDate;
    for (int number = 1; number <= count; ++number) {
        const DateTime to = number == count ? billing.lastDay : LastOfMonth(from);
        PlannedInvoice invoice;
        invoice.due = due;
        invoice.periodStart = from;
        invoice.periodEnd = to;
        for (const BilledItem& item : items) {
            if (item.rateType == "Per Month")
                AddItemLines(invoice.lines, item, from, to, rules);
        }
        invoice.totals = TotalsOf(invoice.lines, rules.taxRate);
        if (!invoice.lines.empty())
            invoices.push_back(std::move(invoice));
        from = AddDays(to, 1);
        due = DateAdd("m", 1, due);
    }
    return invoices;
}

}
