#pragma once

#include "store/SqlDialect.h"

namespace rovanta {

/// The collation that every text column of an SQLite database bears: no case, no trailing blanks.
inline constexpr const char* sqliteTextCollation = "NOCASE_RTRIM";

/// How SQLite words it, with the collation and the functions that the program brings.
const SqlDialect& SqliteDialect();

/// A name in brackets, as SQLite takes any name.
std::string SqliteName(const std::string& name);

}
