#pragma once

#include "tools/demo/Fleet.h"

namespace rovanta::demo {

/// What the workshop and the desk keep beside the bookings: field values, tickets, actions, expenses, tasks.
std::vector<TableRows> MakeShopRows(const Plan& plan, const Fleet& fleet);

}
