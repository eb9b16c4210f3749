#include "store/Schema.h"

#include "store/Connection.h"
#include "store/DatabaseError.h"
#include "store/Engine.h"
#include "store/Lexer.h"
#include "store/NewSqliteFile.h"
#include "store/Transaction.h"

namespace rovanta {

std::vector<std::string> ScriptStatements(std::string_view script)
{
    return SplitScript(script);
}

void AddSchema(Connection& connection)
{
    Engine& engine = connection.GetEngine();
    for (const std::string& statement : ScriptStatements(SchemaScript()))
        engine.Execute(statement);
    engine.SetSchemaVersion(schemaVersion);
}

void CreateSchema(Connection& connection)
{
    Transaction transaction(connection);
    AddSchema(connection);
    transaction.Commit();
}

void RequireOffice(Connection& connection)
{
    for (const char* table : {"Company", "User"})
        if (connection.GetEngine().Tables().Find(table) == nullptr)
            throw DatabaseError(std::string("The database holds no office: it has no table ") + table + ".");
}

void CreateDatabaseFile(const std::string& connectionText)
{
    NewSqliteFile(DatabaseFile(connectionText)).Keep();
}

}
