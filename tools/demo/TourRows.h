#pragma once

#include "tools/demo/Tours.h"

namespace rovanta::demo {

/// The rows of the tours and of what hangs on them: lines, routes, contacts, the mail queue, renames, co-drivers.
std::vector<TableRows> MakeTourRows(const Plan& plan, const Fleet& fleet, const std::vector<Tour>& tours);

}
