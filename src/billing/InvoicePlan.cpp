#include "billing/InvoicePlan.h"

#include "frame/SharedRoutines.h"
#include "values/Numbers.h"

#include <algorithm>

namespace rovanta {

InvoiceTotals TotalsOf(const std::vector<InvoiceLine>& lines, double taxRate)
{
    InvoiceTotals totals;
    for (const InvoiceLine& line : lines) {
        totals.subTotal += Round(line.Extended(), 2);
        totals.tax += Round(line.taxable ? taxRate / 100 * line.Extended() : 0, 2);
    }
    totals.total = totals.subTotal + totals.tax;
    return totals;
}

std::int64_t OverlapDays(DateTime periodStart, DateTime periodEnd, DateTime itemStart, DateTime itemEnd)
{
    if (CompareDates(itemStart, periodEnd) > 0 || CompareDates(itemEnd, periodStart) < 0)
        return 0;
    const DateTime from = CompareDates(itemStart, periodStart) > 0 ? itemStart : periodStart;
    const DateTime to = CompareDates(itemEnd, periodEnd) < 0 ? itemEnd : periodEnd;
    return DateDiff("d", from, to) + 1;
}

}
