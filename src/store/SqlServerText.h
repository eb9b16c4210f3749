#pragma once

#include "store/Engine.h"

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace rovanta {

// What the store itself has to say to SQL Server, in T-SQL. The program's own statements are not among it: they go
// through as they stand.

/// Reads every table and view of the login's schema with its columns: table, kind ("U" or "V"), column, type, length in
/// bytes, nullable, identity.
extern const char* const sqlServerCatalogue;

/// Reads the version of the schema that the database notes; no row when it notes none.
extern const char* const sqlServerVersion;

/// What holds for the whole connection: the program writes m/d/yyyy, whatever the login's language is, and a change
/// must tell how many rows it found.
extern const char* const sqlServerSettings;

/// Begins a transaction that reads one moment: of the versions that the server keeps, where the database has it keep
/// them, and else under locks for which the desks wait with their saves. Where it and a desk wait for one another, the
/// desk goes on.
extern const char* const sqlServerSnapshot;

/// Reads two cells: the highest number among the table's rows, and the last one that the server gave.
std::string SqlServerLastNumber(const TableInfo& table);

/// Notes the version of the schema in the database.
std::string SqlServerSetVersion(int version);

/// The dialect's type for a column that the server declares so; other types of the server count as the nearest one.
SqlType TypeOnSqlServer(std::string_view declared, std::int64_t lengthInBytes);

/// A name in brackets.
std::string SqlServerName(std::string_view name);

/// A value as T-SQL writes it, for a column of that kind.
std::string SqlServerLiteral(const Value& value, TypeKind kind);

/// Adds a row; where the table numbers its rows, the number comes back as a row of its own.
std::string SqlServerInsert(const TableInfo& table, const std::vector<ColumnValue>& values);

/// The key of a row whose number was not read, or that has none.
inline constexpr std::int64_t noRowNumber = std::numeric_limits<std::int64_t>::min();

/// Changes, or deletes, the row of that number if it still holds what was read. A row without a number is found by what
/// was read alone, and of several equal ones it is one. Throws DatabaseError when the table numbers its rows and the
/// number was not read: then what was read may stand for another row as well.
std::string SqlServerUpdate(const TableInfo& table, std::int64_t rowKey, const std::vector<ColumnValue>& changes,
                            const std::vector<ColumnValue>& read);
std::string SqlServerDelete(const TableInfo& table, std::int64_t rowKey, const std::vector<ColumnValue>& read);

}
