#pragma once

#include "store/Engine.h"

#include <memory>
#include <string>

namespace rovanta {

/// Opens the PostgreSQL database that a "postgresql://" text names. Throws DatabaseError that tells what was wrong, or
/// that the database holds another version of the schema.
std::unique_ptr<Engine> OpenPostgres(const std::string& connectionText);

/// Makes a database on the server of that connection text: a copy of another, or an empty one where `like` is empty.
/// Throws DatabaseError when there is one of that name already.
void CreatePostgresDatabase(const std::string& connectionText, const std::string& name, const std::string& like);

/// Drops a database, whoever may still be connected to it; nothing happens when there is none.
void DropPostgresDatabase(const std::string& connectionText, const std::string& name);

/// The connection text with another database in it.
std::string WithPostgresDatabase(const std::string& connectionText, const std::string& name);

}
