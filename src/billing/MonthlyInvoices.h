#pragma once

#include "billing/InvoicePlan.h"

namespace rovanta {

/// The choices of a monthly pass.
struct MonthlyBilling {
    DateTime firstDay;
    DateTime lastDay;
    DateTime firstDueDate;
};

/// The number of calendar months that the span touches.
int MonthlyPeriods(const MonthlyBilling& billing);

/// The invoices of a monthly pass over the items priced "Per Month"; a month without lines makes none.
std::vector<PlannedInvoice> PlanMonthlyInvoices(const MonthlyBilling& billing, const std::vector<BilledItem>& items,
                                                const TaxRules& rules);

}
