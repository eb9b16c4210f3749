#pragma once

#include "tools/demo/Rows.h"
#include "tours/TourItemPricing.h"

namespace rovanta::demo {

/// The company's default rate of a charge, or its default amount where the charge has no rate.
double DefaultRate(Line line);
PaidBy DefaultPayer(Line line);
/// Whether the charge is taxed, by the order of the company's eighteen flags.
bool IsTaxable(int flag);
inline constexpr double taxRate = 9.25;

/// The whole row of `Company`.
Row CompanyRow();

}
