#pragma once

#include <sqlite3.h>

#include <string>
#include <string_view>

namespace rovanta::bench {

/// SQLite's C API as a plain C program uses it: what is done often is prepared once, values are bound, nothing is kept
/// back. Failures throw std::runtime_error.
class BareDatabase {
public:
    /// Opens the office's database file with the office's own settings: WAL, every commit on the disk.
    explicit BareDatabase(const std::string& path);
    ~BareDatabase() { sqlite3_close(handle); }
    BareDatabase(const BareDatabase&) = delete;
    BareDatabase& operator=(const BareDatabase&) = delete;

    void Run(const char* text);
    sqlite3* Handle() { return handle; }

private:
    sqlite3* handle = nullptr;
};

/// One prepared statement.
class BareStatement {
public:
    BareStatement(BareDatabase& database, const std::string& text) : BareStatement(database.Handle(), text) {}
    BareStatement(sqlite3* database, const std::string& text);
    ~BareStatement() { sqlite3_finalize(statement); }
    BareStatement(const BareStatement&) = delete;
    BareStatement& operator=(const BareStatement&) = delete;

    void Bind(int place, sqlite3_int64 number) { sqlite3_bind_int64(statement, place, number); }
    void Bind(int place, double number) { sqlite3_bind_double(statement, place, number); }
    void Bind(int place, std::string_view text)
    {
        sqlite3_bind_text(statement, place, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    }
    void BindNull(int place) { sqlite3_bind_null(statement, place); }

    /// True when there is a row.
    bool Step();
    /// Runs to the end and makes ready for the next use.
    void RunOnce();
    void Reset() { sqlite3_reset(statement); }

    int Columns() const { return sqlite3_column_count(statement); }
    sqlite3_int64 Whole(int column) { return sqlite3_column_int64(statement, column); }
    double Number(int column) { return sqlite3_column_double(statement, column); }
    int Type(int column) { return sqlite3_column_type(statement, column); }
    const char* Name(int column) const { return sqlite3_column_name(statement, column); }
    std::string Text(int column);
    sqlite3_int64 LastRow() const { return sqlite3_last_insert_rowid(sqlite3_db_handle(statement)); }

private:
    sqlite3_stmt* statement = nullptr;
};

/// How many statements all connections of this process have begun while the counter lives.
class StatementCounter {
public:
    StatementCounter();
    ~StatementCounter();
    StatementCounter(const StatementCounter&) = delete;
    StatementCounter& operator=(const StatementCounter&) = delete;

    int Count() const;
    /// To be called before any connection is opened that is to be counted.
    static void WatchNewConnections();
    /// The connection that was opened last, the program's own included.
    static sqlite3* NewestConnection();
};

}
