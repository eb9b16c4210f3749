#include "store/Catalogue.h"

#include "values/Text.h"

namespace rovanta {

const ColumnInfo* TableInfo::FindColumn(std::string_view wanted) const
{
    for (const ColumnInfo& column : columns)
        if (EqualNoCase(column.name, wanted))
            return &column;
    return nullptr;
}

const ColumnInfo* TableInfo::Identity() const
{
    for (const ColumnInfo& column : columns)
        if (column.identity)
            return &column;
    return nullptr;
}

Catalogue::Catalogue(const std::vector<Entry>& entries, ColumnReader readColumns) : readColumns(std::move(readColumns))
{
    for (const Entry& entry : entries) {
        auto table = std::make_shared<TableInfo>();
        table->name = entry.name;
        table->kind = entry.kind;
        tables.emplace(LowerCase(entry.name), std::move(table));
    }
}

TablePointer Catalogue::Filled(const std::shared_ptr<TableInfo>& table)
{
    if (table->columns.empty())
        table->columns = readColumns(table->name);
    return table;
}

TablePointer Catalogue::Find(std::string_view name)
{
    const auto found = tables.find(LowerCase(name));
    return found == tables.end() ? nullptr : Filled(found->second);
}

std::vector<TablePointer> Catalogue::All()
{
    std::vector<TablePointer> all;
    for (const auto& [name, table] : tables)
        all.push_back(Filled(table));
    return all;
}

}
