#include "store/ServerDatabase.h"

#include "store/ConnectionText.h"
#include "store/DatabaseError.h"
#include "store/PostgresEngine.h"

namespace rovanta {

static DatabaseError NoServer(const std::string& text)
{
    return DatabaseError("The connection text '" + text.substr(0, text.find("://")) + "' names no database server.");
}

std::string WithDatabase(const std::string& server, const std::string& name)
{
    if (ChooseEngine(server) == EngineKind::Postgres)
        return WithPostgresDatabase(server, name);
    throw NoServer(server);
}

void CreateServerDatabase(const std::string& server, const std::string& name, const std::string& like)
{
    if (ChooseEngine(server) != EngineKind::Postgres)
        throw NoServer(server);
    CreatePostgresDatabase(server, name, like);
}

void DropServerDatabase(const std::string& server, const std::string& name)
{
    if (ChooseEngine(server) != EngineKind::Postgres)
        throw NoServer(server);
    DropPostgresDatabase(server, name);
}

}
