#include "bench/BareSqlite.h"

#include "store/SqliteDialect.h"
#include "store/TextRules.h"

#include <stdexcept>

namespace rovanta::bench {

namespace {

int begun = 0;
bool counting = false;
sqlite3* newest = nullptr;

void Check(sqlite3* database, int code)
{
    if (code != SQLITE_OK)
        throw std::runtime_error(std::string("SQLite: ") + sqlite3_errmsg(database));
}

int CountStatement(unsigned, void*, void*, void* text)
{
    // What a trigger or the engine itself does bears a comment and is no statement of the program.
    if (counting && static_cast<const char*>(text)[0] != '-')
        ++begun;
    return 0;
}

int WatchConnection(sqlite3* database, char**, const sqlite3_api_routines*)
{
    newest = database;
    sqlite3_trace_v2(database, SQLITE_TRACE_STMT, CountStatement, nullptr);
    return SQLITE_OK;
}

int Collate(void*, int leftLength, const void* left, int rightLength, const void* right)
{
    return CompareText({static_cast<const char*>(left), static_cast<std::size_t>(leftLength)},
                       {static_cast<const char*>(right), static_cast<std::size_t>(rightLength)});
}

}

BareSqlite::BareSqlite(const std::string& path)
{
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    handle.reset(opened);
    Check(opened, code);
    // The text columns bear this collation, so nobody can touch their indexes without it.
    sqlite3_create_collation_v2(opened, sqliteTextCollation, SQLITE_UTF8, nullptr, Collate, nullptr);
    Run("PRAGMA journal_mode = WAL");
    Run("PRAGMA synchronous = FULL");
    sqlite3_busy_timeout(opened, 10000);
}

void BareSqlite::Run(const std::string& text)
{
    Check(Handle(), sqlite3_exec(Handle(), text.c_str(), nullptr, nullptr, nullptr));
}

BareSqliteStatement::BareSqliteStatement(sqlite3* database, const std::string& text)
{
    sqlite3_stmt* prepared = nullptr;
    Check(database, sqlite3_prepare_v3(database, text.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &prepared, nullptr));
    statement.reset(prepared);
}

bool BareSqliteStatement::Step()
{
    const int code = sqlite3_step(statement.get());
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE)
        throw std::runtime_error(std::string("SQLite: ") + sqlite3_errmsg(sqlite3_db_handle(statement.get())));
    return false;
}

std::string BareSqliteStatement::Text(int column)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column));
    return text == nullptr ? std::string{}
                           : std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement.get(), column)));
}

BareValue BareSqliteStatement::Value(int column)
{
    switch (sqlite3_column_type(statement.get(), column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return Whole(column);
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement.get(), column);
    default:
        return Text(column);
    }
}

StatementCounter::StatementCounter()
{
    begun = 0;
    counting = true;
}

StatementCounter::~StatementCounter()
{
    counting = false;
}

int StatementCounter::Count() const
{
    return begun;
}

sqlite3* StatementCounter::NewestConnection()
{
    return newest;
}

void StatementCounter::WatchNewConnections()
{
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(WatchConnection));
}

}
