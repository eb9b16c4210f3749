#pragma once

#include "store/Engine.h"

#include <memory>
#include <string>

namespace rovanta {

/// Connects to SQL Server by an ODBC text such as
/// "Driver={FreeTDS};Server=db;Port=1433;Database=rovanta;UID=office;PWD=secret;TDS_Version=7.4". Throws DatabaseError
/// within 10 seconds, naming the driver, the server, the user or the database that is wrong.
std::unique_ptr<Engine> OpenOdbc(const std::string& connectionText);

}
