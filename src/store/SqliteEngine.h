#pragma once

#include "store/Engine.h"

#include <memory>
#include <string>

namespace rovanta {

/// Opens the SQLite database in the file `path`. Throws DatabaseError naming the file when it does not exist, is no
/// database, cannot be written or holds another version of the schema.
std::unique_ptr<Engine> OpenSqlite(const std::string& path);

}
