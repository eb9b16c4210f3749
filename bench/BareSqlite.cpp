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

BareDatabase::BareDatabase(const std::string& path)
{
    Check(handle, sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr));
    // The text columns bear this collation, so nobody can touch their indexes without it.
    sqlite3_create_collation_v2(handle, sqliteTextCollation, SQLITE_UTF8, nullptr, Collate, nullptr);
    Run("PRAGMA journal_mode = WAL");
    Run("PRAGMA synchronous = FULL");
    sqlite3_busy_timeout(handle, 10000);
}

void BareDatabase::Run(const char* text)
{
    Check(handle, sqlite3_exec(handle, text, nullptr, nullptr, nullptr));
}

BareStatement::BareStatement(sqlite3* database, const std::string& text)
{
    Check(database, sqlite3_prepare_v3(database, text.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr));
}

bool BareStatement::Step()
{
    const int code = sqlite3_step(statement);
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE)
        throw std::runtime_error(std::string("SQLite: ") + sqlite3_errmsg(sqlite3_db_handle(statement)));
    return false;
}

void BareStatement::RunOnce()
{
    while (Step()) {
    }
    Reset();
}

std::string BareStatement::Text(int column)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return text == nullptr ? std::string{}
                           : std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
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
