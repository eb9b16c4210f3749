#pragma once

#include "store/Plan.h"

#include <string_view>

namespace rovanta {

/// Writes a bound statement as PostgreSQL takes it.
Plan EmitForPostgres(const ParsedStatement& statement);

/// A name between quotes, as PostgreSQL keeps its case. Throws DatabaseError for one longer than the server keeps.
std::string PostgresName(const std::string& name);

/// The type of a column: the dialect's own word where the server has none of that meaning.
std::string PostgresColumnType(const SqlType& type);

/// The type that an expression of that kind has.
const char* PostgresType(TypeKind kind);

/// The condition that a column holds the parameter of that number, a NULL being equal to a NULL.
std::string PostgresStillHolds(const std::string& column, std::size_t parameter);

/// What the dialect has and the server lacks, to be run once in a new database.
std::string_view PostgresScript();

}
