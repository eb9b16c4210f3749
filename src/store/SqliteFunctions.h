#pragma once

#include "values/Value.h"

#include <array>
#include <optional>
#include <string_view>

namespace rovanta {

/// A function of the dialect that SQLite lacks. It sees values as SQLite holds them: whole numbers, numbers, texts and
/// NULL, a date being a text.
struct SqliteFunction {
    const char* name;
    int arguments;
    Value (*call)(const Value* arguments);
};

/// The functions that statements written for SQLite call.
extern const std::array<SqliteFunction, 9> sqliteFunctions;

/// Reads a date as the tables hold it, "yyyy-mm-dd hh:mm:ss"; nothing when it is none.
std::optional<DateTime> ReadStoredDate(std::string_view text);

}
