#include "store/SqliteTexts.h"

#include "store/SqliteDialect.h"

namespace rovanta {

static std::string RowCondition(const std::vector<ColumnValue>& read)
{
    std::string text = " WHERE rowid = ?";
    for (const ColumnValue& value : read)
        text += " AND " + SqliteName(value.column->name) + " IS ?";
    return text;
}

std::string InsertRowText(const TableInfo& table, const std::vector<ColumnValue>& values)
{
    std::string text = "INSERT INTO " + SqliteName(table.name);
    if (values.empty())
        return text + " DEFAULT VALUES";
    std::string marks;
    for (const ColumnValue& value : values) {
        text += (marks.empty() ? " (" : ", ") + SqliteName(value.column->name);
        marks += marks.empty() ? "?" : ", ?";
    }
    return text + ") VALUES (" + marks + ")";
}

std::string UpdateRowText(const TableInfo& table, const std::vector<ColumnValue>& changes,
                          const std::vector<ColumnValue>& read)
{
    std::string text = "UPDATE " + SqliteName(table.name);
    const char* before = " SET ";
    for (const ColumnValue& change : changes) {
        text += before + SqliteName(change.column->name) + " = ?";
        before = ", ";
    }
    return text + RowCondition(read);
}

std::string DeleteRowText(const TableInfo& table, const std::vector<ColumnValue>& read)
{
    return "DELETE FROM " + SqliteName(table.name) + RowCondition(read);
}

std::string ErrorTextOfDialect(const std::string& text)
{
    if (text == "cannot commit - no transaction is active")
        return "The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION.";
    if (text == "cannot rollback - no transaction is active")
        return "The ROLLBACK TRANSACTION request has no corresponding BEGIN TRANSACTION.";
    const auto colon = text.find(" constraint failed: ");
    if (colon == std::string::npos)
        return text;
    const std::string place = text.substr(text.find(": ") + 2);
    const auto point = place.find('.');
    const std::string table = place.substr(0, point);
    if (text.starts_with("NOT NULL"))
        return "Cannot insert the value NULL into column '" + place.substr(point + 1) + "', table '" + table +
               "'; column does not allow nulls.";
    return "Violation of PRIMARY KEY constraint. Cannot insert duplicate key in object '" + table + "'.";
}

}
