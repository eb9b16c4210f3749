#pragma once

#include "store/Plan.h"

namespace rovanta {

/// The collation that every text column of an SQLite database bears: no case, no trailing blanks.
inline constexpr const char* sqliteTextCollation = "NOCASE_RTRIM";

/// Writes a bound statement as SQLite takes it.
Plan EmitForSqlite(const ParsedStatement& statement);

/// A name in brackets, as SQLite takes any name.
std::string SqliteName(const std::string& name);

}
