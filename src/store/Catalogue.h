#pragma once

#include "store/SqlType.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace rovanta {

class Connection;

/// One column of a table, as the connected database holds it.
struct ColumnInfo {
    std::string name;
    SqlType type;
    bool nullable = true;
    /// Whether the database numbers the rows by this column.
    bool identity = false;
};

enum class TableKind { Table, View };

/// One table or view with its columns in their physical order.
struct TableInfo {
    std::string name;
    TableKind kind = TableKind::Table;
    std::vector<ColumnInfo> columns;

    /// The column of that name without regard to case; null when there is none.
    const ColumnInfo* FindColumn(std::string_view name) const;
    /// The column that numbers the rows; null when there is none.
    const ColumnInfo* Identity() const;
};

/// Shared, so that a snapshot keeps its table's columns when the catalogue is read anew.
using TablePointer = std::shared_ptr<const TableInfo>;

/// The tables and views of the connected database, found without regard to case. The columns of a table are read when
/// it is first asked for.
class Catalogue {
public:
    struct Entry {
        std::string name;
        TableKind kind;
    };
    using ColumnReader = std::function<std::vector<ColumnInfo>(const std::string& table)>;

    Catalogue() = default;
    Catalogue(const std::vector<Entry>& entries, ColumnReader readColumns);

    /// The table or view of that name; null when there is none.
    TablePointer Find(std::string_view name);
    /// All tables and views, by name.
    std::vector<TablePointer> All();

private:
    TablePointer Filled(const std::shared_ptr<TableInfo>& table);

    ColumnReader readColumns;
    std::map<std::string, std::shared_ptr<TableInfo>, std::less<>> tables;
};

/// Every table and view of the connected database with its columns, for tools that check and copy.
std::vector<TableInfo> ListTables(Connection& connection);

}
