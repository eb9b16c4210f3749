#pragma once

#include "billing/InvoicePlan.h"

namespace rovanta {

/// How the other charges are spread: a share on each bill, or the whole on the last.
enum class OtherCharges { SplitEqually, OnFinalBill };

/// The choices of a daily pass.
struct DailyBilling {
    DateTime firstBillDate;
    DateTime firstDueDate;
    DateTime lastDay;
    double daysPerBill = 7;
    OtherCharges otherCharges = OtherCharges::SplitEqually;
};

/// The number of periods of a daily pass. Throws DivisionByZero for no days per bill, Overflow beyond a 16-bit integer.
int DailyPeriods(const DailyBilling& billing);

/// The invoices of a daily pass, in the order of their periods; a period without lines makes none.
std::vector<PlannedInvoice> PlanDailyInvoices(const DailyBilling& billing, const std::vector<BilledItem>& items,
                                              const TaxRules& rules);

}
