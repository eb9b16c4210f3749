#pragma once

#include "store/SqlDialect.h"

#include <string_view>

namespace rovanta {

/// How PostgreSQL words it, with what PostgresScript has brought.
const SqlDialect& PostgresDialect();

/// A name between quotes, as PostgreSQL keeps its case. Throws DatabaseError for one longer than the server keeps.
std::string PostgresName(const std::string& name);

/// What the dialect has and the server lacks, to be run once in a new database.
std::string_view PostgresScript();

}
