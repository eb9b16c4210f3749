#include "store/Connection.h"

#include "store/DatabaseError.h"
#include "store/Engine.h"
#include "store/OdbcEngine.h"
#include "store/OdbcText.h"
#include "store/SqliteEngine.h"

namespace rovanta {

std::string DatabaseFile(const std::string& connectionText)
{
    constexpr std::string_view prefix = "sqlite:";
    return connectionText.starts_with(prefix) ? connectionText.substr(prefix.size()) : connectionText;
}

Connection::Connection() = default;
Connection::~Connection() = default;

void Connection::Open(const std::string& connectionText)
{
    Close();
    if (IsOdbcText(connectionText)) {
        engine = OpenOdbc(connectionText);
        return;
    }
    const std::string file = DatabaseFile(connectionText);
    if (file.empty())
        throw DatabaseError("The connection text names no database.");
    engine = OpenSqlite(file);
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
