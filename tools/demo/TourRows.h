#pragma once

#include "store/Connection.h"
#include "tools/demo/Tours.h"

namespace rovanta::demo {

/// The rows of the tours and of what hangs on them: lines, routes, contacts, the mail queue, renames, co-drivers.
/// The co-drivers' table must be there.
std::vector<TableRows> MakeTourRows(const Plan& plan, const Fleet& fleet, const std::vector<Tour>& tours);

/// Makes the table of co-drivers, which a new office has only after its Update DB, with the tour's column that the
/// drivers' board writes.
void MakeCoDriverTable(Connection& connection);

}
