#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace rovanta {

class Connection;

/// The version of the schema that this program works with; a database notes which one it holds. The order of texts, by
/// which its indexes are laid out, counts among it.
inline constexpr int schemaVersion = 2;

/// The statements that make every table and index of an empty database.
std::string_view SchemaScript();

/// The statements of a script, parted by semicolons, without those that are empty.
std::vector<std::string> ScriptStatements(std::string_view script);

/// Makes the whole schema in the connected database, within the transaction that is open.
void AddSchema(Connection& connection);

/// Makes the whole schema in the connected database, all of it or, when a statement fails, nothing.
void CreateSchema(Connection& connection);

/// Throws DatabaseError when the connected database is none of an office.
void RequireOffice(Connection& connection);

/// Makes an empty embedded database for that connection text, to be opened and given its schema. Throws DatabaseError
/// when the file exists already.
void CreateDatabaseFile(const std::string& connectionText);

}
