#include "tools/demo/RowWriter.h"

namespace rovanta::demo {

void SetFields(Recordset& record, const Row& row)
{
    for (const auto& [column, value] : row)
        record.Fields(column) = value;
}

void AddRows(Connection& connection, const TableRows& table)
{
    // A recordset keeps the rows that were added to it, so a long table gets a fresh one now and then.
    constexpr std::size_t rowsAtOnce = 1000;
    Recordset record;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        if (i % rowsAtOnce == 0)
            record.Open(Statement{"SELECT TOP 1 * FROM "} + Name(table.table), connection);
        record.AddNew();
        SetFields(record, table.rows[i]);
        record.Update();
    }
}

void AddTables(Connection& connection, const std::vector<TableRows>& tables)
{
    for (const TableRows& table : tables)
        AddRows(connection, table);
}

}
