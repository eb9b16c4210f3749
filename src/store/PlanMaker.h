#pragma once

#include "store/Plan.h"
#include "store/SqlDialect.h"

namespace rovanta {

/// What an engine of that dialect runs for a bound statement. Throws DatabaseError for tables that cannot be.
Plan MakePlan(const ParsedStatement& statement, const SqlDialect& dialect);

}
