#include "store/ServerDatabase.h"

#include "store/ConnectionText.h"
#include "store/DatabaseError.h"
#include "store/OdbcEngine.h"
#include "store/PostgresEngine.h"

namespace rovanta {

static DatabaseError NoServer(const std::string& text)
{
    return DatabaseError("The connection text '" + text.substr(0, text.find("://")) + "' names no database server.");
}

std::string WithDatabase(const std::string& server, const std::string& name)
{
    switch (ChooseEngine(server)) {
    case EngineKind::Postgres:
        return WithPostgresDatabase(server, name);
    case EngineKind::SqlServer:
        return WithSqlServerDatabase(server, name);
    default:
        throw NoServer(server);
    }
}

void CreateServerDatabase(const std::string& server, const std::string& name, const std::string& like)
{
    switch (ChooseEngine(server)) {
    case EngineKind::Postgres:
        return CreatePostgresDatabase(server, name, like);
    case EngineKind::SqlServer:
        return CreateSqlServerDatabase(server, name, like);
    default:
        throw NoServer(server);
    }
}

void DropServerDatabase(const std::string& server, const std::string& name)
{
    switch (ChooseEngine(server)) {
    case EngineKind::Postgres:
        return DropPostgresDatabase(server, name);
    case EngineKind::SqlServer:
        return DropSqlServerDatabase(server, name);
    default:
        throw NoServer(server);
    }
}

}
