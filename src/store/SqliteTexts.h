#pragma once

#include "store/Engine.h"

namespace rovanta {

// The texts of SQLite that are put together by the engine itself and not translated.

/// Adds a row with these columns set, one parameter each.
std::string InsertRowText(const TableInfo& table, const std::vector<ColumnValue>& values);
/// Changes the row of a key if it still holds what was read; the parameters are the changes, the key and what was read.
std::string UpdateRowText(const TableInfo& table, const std::vector<ColumnValue>& changes,
                          const std::vector<ColumnValue>& read);
/// Deletes the row of a key if it still holds what was read; the parameters are the key and what was read.
std::string DeleteRowText(const TableInfo& table, const std::vector<ColumnValue>& read);

/// What the dialect says where SQLite says "NOT NULL constraint failed: Bus.Name" or "UNIQUE constraint failed: ...".
/// Any other text stands as it is.
std::string ErrorTextOfDialect(const std::string& text);

}
