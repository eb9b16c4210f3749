#pragma once

#include "store/Connection.h"
#include "store/Recordset.h"
#include "tools/demo/Rows.h"

namespace rovanta::demo {

/// Writes the values of a row into the current row's buffer.
void SetFields(Recordset& record, const Row& row);
/// Adds rows to their tables, in their order. Throws DatabaseError.
void AddRows(Connection& connection, const TableRows& table);
void AddTables(Connection& connection, const std::vector<TableRows>& tables);

}
