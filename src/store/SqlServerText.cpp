#include "store/SqlServerText.h"

#include "store/Conversion.h"
#include "store/DatabaseError.h"
#include "values/Text.h"

#include <array>
#include <cstdio>

namespace rovanta {

const char* const sqlServerCatalogue =
    "SELECT o.name AS TableName, RTRIM(o.type) AS Kind, c.name AS ColumnName, y.name AS TypeName, "
    "CAST(c.max_length AS int) AS Length, c.is_nullable AS Nullable, c.is_identity AS IsIdentity "
    "FROM sys.objects AS o INNER JOIN sys.columns AS c ON c.object_id = o.object_id "
    "INNER JOIN sys.types AS y ON y.user_type_id = c.system_type_id "
    "WHERE o.type IN ('U', 'V') AND o.schema_id = SCHEMA_ID() ORDER BY o.name, c.column_id";

const char* const sqlServerVersion = "SELECT CAST(value AS int) AS Version FROM sys.extended_properties "
                                     "WHERE class = 0 AND name = 'RovantaSchemaVersion'";

const char* const sqlServerSettings = "SET DATEFORMAT mdy; SET NOCOUNT OFF";

const char* const sqlServerSnapshot =
    "IF EXISTS (SELECT 1 FROM sys.databases WHERE database_id = DB_ID() AND snapshot_isolation_state = 1) "
    "SET TRANSACTION ISOLATION LEVEL SNAPSHOT ELSE SET TRANSACTION ISOLATION LEVEL SERIALIZABLE; "
    "SET DEADLOCK_PRIORITY LOW; BEGIN TRANSACTION";

std::string SqlServerSetVersion(int version)
{
    return "IF EXISTS (SELECT 1 FROM sys.extended_properties WHERE class = 0 AND name = 'RovantaSchemaVersion') "
           "EXEC sp_dropextendedproperty 'RovantaSchemaVersion'; EXEC sp_addextendedproperty 'RovantaSchemaVersion', " +
           std::to_string(version);
}

namespace {

struct ServerType {
    std::string_view name;
    TypeKind kind;
    /// How many bytes a character takes; 0 where the length says nothing.
    int characterBytes = 0;
};

constexpr std::array<ServerType, 23> serverTypes{{
    {"varchar", TypeKind::Varchar, 1},
    {"char", TypeKind::Varchar, 1},
    {"nvarchar", TypeKind::Varchar, 2},
    {"nchar", TypeKind::Varchar, 2},
    {"text", TypeKind::Varchar},
    {"ntext", TypeKind::Varchar},
    {"bit", TypeKind::Bit},
    {"int", TypeKind::Int},
    {"smallint", TypeKind::Int},
    {"tinyint", TypeKind::Int},
    {"bigint", TypeKind::BigInt},
    {"money", TypeKind::Money},
    {"smallmoney", TypeKind::Money},
    {"float", TypeKind::Float},
    {"real", TypeKind::Float},
    {"decimal", TypeKind::Float},
    {"numeric", TypeKind::Float},
    {"datetime", TypeKind::DateTime},
    {"datetime2", TypeKind::DateTime},
    {"smalldatetime", TypeKind::DateTime},
    {"date", TypeKind::DateTime},
    {"uniqueidentifier", TypeKind::Varchar},
    {"sysname", TypeKind::Varchar, 2},
}};

std::string Printed(const char* format, double number)
{
    std::array<char, 400> buffer{};
    std::snprintf(buffer.data(), buffer.size(), format, number);
    return buffer.data();
}

/// With an exponent it is a float and no decimal, which would be rounded.
std::string FloatLiteral(double number)
{
    const std::string digits = Printed("%.17g", number);
    return digits.find('e') == std::string::npos ? digits + "E0" : digits;
}

std::string TextLiteral(const std::string& text)
{
    // The server takes a backslash before a line end for a line that goes on, and would leave both out.
    std::string quoted = Replace(text, "'", "''");
    quoted = Replace(std::move(quoted), "\\\r\n", "\\' + '\r\n");
    return "'" + Replace(std::move(quoted), "\\\n", "\\' + '\n") + "'";
}

std::string AsItWasRead(const ColumnValue& read)
{
    const std::string name = SqlServerName(read.column->name);
    if (read.value->IsNull())
        return name + " IS NULL";
    // The server keeps parts of a second, which were left out where the row was read.
    if (const auto* date = std::get_if<DateTime>(&read.value->Get())) {
        const DateTime next = DateTime::FromSeconds(date->Seconds() + 1);
        return name + " >= '" + ToText(*date) + "' AND " + name + " < '" + ToText(next) + "'";
    }
    return name + " = " + SqlServerLiteral(*read.value, read.column->type.kind);
}

/// What stands before the change of a row, how the change calls the table, and what stands behind.
struct RowPlace {
    std::string head;
    std::string table;
    std::string tail;
};

RowPlace PlaceOf(const TableInfo& table, std::int64_t rowKey, const std::vector<ColumnValue>& read)
{
    const ColumnInfo* identity = table.Identity();
    if (identity != nullptr ? rowKey == noRowNumber : read.empty())
        throw DatabaseError("Insufficient key column information for updating or refreshing.");
    const std::string name = SqlServerName(table.name);
    std::string condition =
        identity == nullptr ? std::string{} : SqlServerName(identity->name) + " = " + std::to_string(rowKey);
    for (const ColumnValue& value : read)
        condition += (condition.empty() ? "" : " AND ") + AsItWasRead(value);
    if (identity != nullptr)
        return {"", name, " WHERE " + condition};
    return {"WITH FoundRow AS (SELECT TOP 1 * FROM " + name + " WHERE " + condition + ") ", "FoundRow", ""};
}

}

SqlType TypeOnSqlServer(std::string_view declared, std::int64_t lengthInBytes)
{
    for (const ServerType& type : serverTypes) {
        if (!EqualNoCase(type.name, declared))
            continue;
        SqlType found{type.kind};
        if (type.characterBytes > 0 && lengthInBytes > 0)
            found.length = static_cast<int>(lengthInBytes / type.characterBytes);
        return found;
    }
    return {TypeKind::Varchar};
}

std::string SqlServerName(std::string_view name)
{
    return "[" + Replace(std::string(name), "]", "]]") + "]";
}

std::string SqlServerLiteral(const Value& value, TypeKind kind)
{
    const auto& content = value.Get();
    if (value.IsNull())
        return "NULL";
    if (const auto* flag = std::get_if<bool>(&content))
        return *flag ? "1" : "0";
    if (const auto* whole = std::get_if<std::int64_t>(&content))
        return std::to_string(*whole);
    if (const auto* number = std::get_if<double>(&content))
        return kind == TypeKind::Money ? Printed("%.4f", *number) : FloatLiteral(*number);
    if (const auto* date = std::get_if<DateTime>(&content))
        return "'" + ToText(*date) + "'";
    return TextLiteral(std::get<std::string>(content));
}

std::string SqlServerInsert(const TableInfo& table, const std::vector<ColumnValue>& values)
{
    std::string columns;
    std::string contents;
    for (const ColumnValue& value : values) {
        columns += (columns.empty() ? "" : ", ") + SqlServerName(value.column->name);
        contents += (contents.empty() ? "" : ", ") + SqlServerLiteral(*value.value, value.column->type.kind);
    }
    std::string text = "INSERT INTO " + SqlServerName(table.name);
    text += values.empty() ? " DEFAULT VALUES" : " (" + columns + ") VALUES (" + contents + ")";
    if (table.Identity() != nullptr)
        text += "; SELECT CAST(SCOPE_IDENTITY() AS bigint) AS NewNumber";
    return text;
}

std::string SqlServerLastNumber(const TableInfo& table)
{
    const std::string name = SqlServerName(table.name);
    return "SELECT (SELECT MAX(CAST(" + SqlServerName(table.Identity()->name) + " AS bigint)) FROM " + name +
           ") AS Highest, (SELECT CAST(last_value AS bigint) FROM sys.identity_columns WHERE object_id = OBJECT_ID(" +
           TextLiteral(name) + ")) AS LastGiven";
}

std::string SqlServerUpdate(const TableInfo& table, std::int64_t rowKey, const std::vector<ColumnValue>& changes,
                            const std::vector<ColumnValue>& read)
{
    const RowPlace place = PlaceOf(table, rowKey, read);
    std::string assignments;
    for (const ColumnValue& change : changes)
        assignments += (assignments.empty() ? "" : ", ") + SqlServerName(change.column->name) + " = " +
                       SqlServerLiteral(*change.value, change.column->type.kind);
    return place.head + "UPDATE " + place.table + " SET " + assignments + place.tail;
}

std::string SqlServerDelete(const TableInfo& table, std::int64_t rowKey, const std::vector<ColumnValue>& read)
{
    const RowPlace place = PlaceOf(table, rowKey, read);
    return place.head + "DELETE FROM " + place.table + place.tail;
}

}
