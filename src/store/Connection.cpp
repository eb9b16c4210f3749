#include "store/Connection.h"

#include "store/ConnectionText.h"
#include "store/DatabaseError.h"
#include "store/Engine.h"
#include "store/OdbcEngine.h"
#include "store/OdbcText.h"
#include "store/PostgresEngine.h"
#include "store/PostgresText.h"
#include "store/SqliteEngine.h"

#include <chrono>
#include <future>
#include <thread>

namespace rovanta {

using EnginePointer = std::unique_ptr<Engine>;

/// Opens a server's database, or gives it up when the time is over in which a program must have started. The libraries
/// give up a silent server by themselves, but look up names without a limit and wait long for a first answer. So they
/// work aside, and what takes too long is left alone there: the program ends now.
static EnginePointer OpenInTime(EnginePointer (*open)(const std::string&), const std::string& text,
                                const std::string& server)
{
    constexpr auto patience = std::chrono::milliseconds(9'700);
    std::packaged_task<EnginePointer()> task([open, text] { return open(text); });
    std::future<EnginePointer> opened = task.get_future();
    std::thread aside(std::move(task));
    if (opened.wait_for(patience) != std::future_status::ready) {
        aside.detach();
        throw DatabaseError("The database server '" + server + "' did not answer within 10 seconds.");
    }
    // What the libraries keep for each thread is gone with it.
    aside.join();
    return opened.get();
}

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
        engine = OpenInTime(OpenPostgres, connectionText, PostgresText(connectionText).Server());
        break;
    case EngineKind::SqlServer:
        engine = OpenInTime(OpenOdbc, connectionText, OdbcText(connectionText).Server());
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
