#pragma once

#include <string>

namespace rovanta {

// Whole databases on a server, for whoever makes and drops them: the suite's offices.

/// The server's connection text with this database in it.
std::string WithDatabase(const std::string& server, const std::string& name);

/// Makes a database on the server: a copy of the database `like`, or one without tables where that is empty. Throws
/// DatabaseError.
void CreateServerDatabase(const std::string& server, const std::string& name, const std::string& like);

/// Drops a database. A PostgreSQL server ends the connections that it still has, and does nothing where there is none
/// of that name; SQL Server refuses both. Throws DatabaseError.
void DropServerDatabase(const std::string& server, const std::string& name);

}
