#pragma once

#include "store/DatabaseError.h"
#include "store/RecentlyUsed.h"
#include "store/SqlType.h"
#include "values/Value.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace rovanta {

/// An error that SQLite itself has told.
class SqliteError : public DatabaseError {
public:
    SqliteError(int code, const std::string& text) : DatabaseError(text), code(code) {}

    /// Whether another program has the file or a part of it just now.
    bool MeansInUse() const;
    /// Whether the file is no database or a damaged one.
    bool MeansUnreadable() const;

private:
    int code;
};

/// A prepared statement as the session keeps it.
struct KeptStatement {
    std::shared_ptr<sqlite3_stmt> handle;
    /// How much it read when it last ran, which is what it will read about the next time.
    std::size_t cellsRead = 0;
};

/// One use of a prepared statement. Its end puts the statement back to its start, so that no read lock outlives it.
class SqliteStatement {
public:
    explicit SqliteStatement(KeptStatement& kept) : kept(kept), handle(kept.handle.get()) {}
    ~SqliteStatement();
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;

    /// Sets a parameter; places count from 1.
    void Bind(int place, const Value& value);
    /// True while there is a row. Throws SqliteError.
    bool Step();
    /// Runs to the end, whatever rows come.
    void Run();

    /// A column of the current row as a value of its type; an expression without one has the type that SQLite gives it.
    Value Content(int column, TypeKind kind) const;
    std::int64_t Whole(int column) const;
    /// Valid until the next step.
    std::string_view Text(int column) const;

    std::size_t& CellsRead() { return kept.cellsRead; }
    /// Whether it had to be prepared anew since this was last asked, as when a table has changed.
    bool WasPreparedAnew();

private:
    KeptStatement& kept;
    sqlite3_stmt* handle;
};

/// A connection to an SQLite database in a file.
class SqliteSession {
public:
    /// Opens a file that is there. Throws DatabaseError that names it.
    explicit SqliteSession(const std::string& path);

    /// How long a statement waits for another program's.
    void WaitFor(std::chrono::milliseconds time);
    /// Brings the collation and the functions that statements written for SQLite use.
    void AddDialect();

    /// A statement out of those used last, whose one use must have ended before the next begins. Throws SqliteError.
    SqliteStatement Prepared(const std::string& text);
    void Run(const std::string& text) { Prepared(text).Run(); }
    /// Runs several statements that regard the file as a whole. Throws SqliteError that names it.
    void RunOnFile(const char* text);
    /// What the first row of the answer begins with. Throws SqliteError that names the file.
    std::string AnswerOfFile(const char* text);

    std::int64_t LastRow() const;
    int ChangedCount() const;

    /// Copies all pages in one step, so that they are those of one moment. Throws DatabaseError that names both files.
    void CopyTo(SqliteSession& target);

private:
    SqliteError CannotBeUsed() const;

    std::string path;
    std::shared_ptr<sqlite3> database;
    static constexpr std::size_t mostKept = 100;
    RecentlyUsed<KeptStatement> statements{mostKept};
};

}
