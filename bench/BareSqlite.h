#pragma once

#include "bench/BareValue.h"

#include <sqlite3.h>

#include <memory>
#include <string_view>

namespace rovanta::bench {

/// SQLite's C API as a plain C program uses it: what is done often is prepared once, values are bound, nothing is kept
/// back. Failures throw std::runtime_error.
class BareSqlite {
public:
    /// Opens the office's database file with the office's own settings: WAL, every commit on the disk.
    explicit BareSqlite(const std::string& path);

    void Run(const std::string& text);
    sqlite3* Handle() { return handle.get(); }

    /// By what a row of a table without an identity is found again.
    static constexpr const char* rowKey = "rowid";
    /// What an INSERT ends with whose new key is to be read: nothing, the library tells it unasked.
    static constexpr const char* returningKey = "";

private:
    std::unique_ptr<sqlite3, decltype(&sqlite3_close)> handle{nullptr, sqlite3_close};
};

/// One prepared statement.
class BareSqliteStatement {
public:
    BareSqliteStatement(BareSqlite& database, const std::string& text) : BareSqliteStatement(database.Handle(), text) {}
    BareSqliteStatement(sqlite3* database, const std::string& text);

    void Bind(int place, std::int64_t number) { sqlite3_bind_int64(statement.get(), place, number); }
    void Bind(int place, double number) { sqlite3_bind_double(statement.get(), place, number); }
    void Bind(int place, std::string_view text)
    {
        sqlite3_bind_text(statement.get(), place, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    }
    void BindNull(int place) { sqlite3_bind_null(statement.get(), place); }

    /// True when there is a row.
    bool Step();
    void Reset() { sqlite3_reset(statement.get()); }
    /// The key of the row that was inserted.
    std::int64_t NewKey() { return sqlite3_last_insert_rowid(sqlite3_db_handle(statement.get())); }

    int Columns() const { return sqlite3_column_count(statement.get()); }
    const char* Name(int column) const { return sqlite3_column_name(statement.get(), column); }
    std::int64_t Whole(int column) { return sqlite3_column_int64(statement.get(), column); }
    std::string Text(int column);
    BareValue Value(int column);

private:
    std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement{nullptr, sqlite3_finalize};
};

/// How many statements all SQLite connections of this process have begun while the counter lives.
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
