#pragma once

#include "store/Catalogue.h"
#include "store/Connection.h"
#include "store/Recordset.h"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace rovanta::tests {

/// Every row of every table as one text, each value as `shown` tells it, in an order that does not rest on the engine.
inline std::map<std::string, std::vector<std::string>> ContentOf(const std::string& connectionText,
                                                                 std::string (*shown)(const Value&))
{
    Connection connection;
    connection.Open(connectionText);
    std::map<std::string, std::vector<std::string>> content;
    for (const TableInfo& table : ListTables(connection)) {
        if (table.kind == TableKind::View)
            continue;
        std::vector<std::string>& lines = content[table.name];
        Recordset rows(Statement{"SELECT * FROM ["} + Name(table.name) + "]", connection);
        for (; !rows.Eof(); rows.MoveNext()) {
            std::string line;
            for (std::size_t column = 0; column < table.columns.size(); ++column)
                line += shown(rows.FieldAt(column).Value()) + "|";
            lines.push_back(line);
        }
        std::sort(lines.begin(), lines.end());
    }
    return content;
}

}
