#pragma once

#include "store/Engine.h"

#include <memory>
#include <string>

namespace rovanta {

/// Connects to SQL Server by an ODBC text such as
/// "Driver={FreeTDS};Server=db;Port=1433;Database=rovanta;UID=office;PWD=secret;TDS_Version=7.4". Throws DatabaseError
/// within 10 seconds, naming the driver, the server, the user or the database that is wrong.
std::unique_ptr<Engine> OpenOdbc(const std::string& connectionText);

/// The server's text with another database in it.
std::string WithSqlServerDatabase(const std::string& server, const std::string& name);

/// Makes a database on the server, a copy of `like` where that is given: a server in the cloud can copy, as the suite's
/// can, and one of one's own refuses. Drops one. Throws DatabaseError.
void CreateSqlServerDatabase(const std::string& server, const std::string& name, const std::string& like);
void DropSqlServerDatabase(const std::string& server, const std::string& name);

}
