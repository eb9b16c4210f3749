#pragma once

#include <string>

namespace rovanta {

/// What kind of database a connection text names.
enum class EngineKind { Sqlite, Postgres, SqlServer };

/// Chooses by the text: "postgresql://" or "postgres://" names a PostgreSQL server, "Driver=...;" or "DSN=...;" one by
/// ODBC, "sqlite:" and a path, or a path alone, a file. Throws DatabaseError that tells what it is not for any other.
EngineKind ChooseEngine(const std::string& connectionText);

/// Whether the text names a file, by "sqlite:" or by a path alone, and no server.
bool NamesFile(const std::string& connectionText);

/// Whether the text tells a password. One that cannot be read may tell one anywhere, so it counts as if it did.
bool HoldsPassword(const std::string& connectionText);

/// The file that a connection text of the embedded engine names: "sqlite:" and a path, or the path alone. A relative
/// path counts from the current folder.
std::string DatabaseFile(const std::string& connectionText);

}
