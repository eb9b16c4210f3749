#pragma once

#include "billing/InvoicePlan.h"
#include "tools/demo/Tours.h"

namespace rovanta::demo {

/// The tour's lines as the passes read them from the working grid.
std::vector<BilledItem> BilledItems(const Tour& tour);

/// Invoices, lines and payments of the contracts that are firm.
std::vector<TableRows> MakeBillingRows(const Plan& plan, const std::vector<Tour>& tours);

}
