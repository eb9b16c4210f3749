#include "store/Connection.h"

#include "store/ConnectionText.h"
#include "store/DatabaseError.h"
#include "store/Engine.h"
#include "store/OdbcEngine.h"
#include "store/PostgresEngine.h"
#include "store/SqliteEngine.h"

namespace rovanta {

Connection::Connection() = default;
Connection::~Connection() = default;

void Connection::Open(const std::string& connectionText)
{
    Close();
    switch (ChooseEngine(connectionText)) {
    case EngineKind::Sqlite:
        engine = OpenSqlite(DatabaseFile(connectionText));
        break;
    case EngineKind::Postgres:
        engine = OpenPostgres(connectionText);
        break;
    case EngineKind::SqlServer:
        engine = OpenOdbc(connectionText);
        break;
    }
}

void Connection::Close()
{
    engine.reset();
}

void Connection::Execute(const Statement& statement)
{
    GetEngine().Execute(statement.Get());
}

Engine& Connection::GetEngine()
{
    if (!engine)
        throw DatabaseError("Operation is not allowed when the object is closed.");
    return *engine;
}

std::vector<TableInfo> ListTables(Connection& connection)
{
    std::vector<TableInfo> tables;
    for (const TablePointer& table : connection.GetEngine().Tables().All())
        tables.push_back(*table);
    return tables;
}

}
