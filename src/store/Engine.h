#pragma once

#include "store/Catalogue.h"
#include "store/RowSet.h"

#include <string_view>
#include <vector>

namespace rovanta {

/// A column with the value it has or is to have.
struct ColumnValue {
    const ColumnInfo* column;
    const Value* value;
};

/// A new row as the database took it.
struct InsertedRow {
    std::int64_t rowKey;
    /// The number that the database gave it; NULL where the table has no such column.
    Value identity;
};

/// A connected database. Statements come in the program's T-SQL; whatever else the database speaks is the engine's own
/// affair. Every failure is a DatabaseError with the database's text.
class Engine {
public:
    Engine() = default;
    virtual ~Engine() = default;
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    /// Runs a statement, whatever rows it may return.
    virtual void Execute(std::string_view statement) = 0;
    /// Runs a SELECT and reads all its rows.
    virtual RowSet Query(std::string_view select) = 0;

    /// Adds a row with these columns set and the others NULL.
    virtual InsertedRow Insert(const TableInfo& table, const std::vector<ColumnValue>& values) = 0;
    /// Writes `changes` to the row of that key if it still holds `read`, and makes the key that of the row as it stands
    /// then. False when there is no such row any more.
    virtual bool Update(const TableInfo& table, std::int64_t& rowKey, const std::vector<ColumnValue>& changes,
                        const std::vector<ColumnValue>& read) = 0;
    /// Deletes the row of that key if it still holds `read`. False when there is no such row any more.
    virtual bool Delete(const TableInfo& table, std::int64_t rowKey, const std::vector<ColumnValue>& read) = 0;

    /// Begins a transaction that only reads, and sees the database as it stands at its first statement, whatever others
    /// save meanwhile. It ends as any other.
    virtual void BeginSnapshot() = 0;
    /// The highest number that a row of the table has had, rows that are deleted by now included; 0 where it had none.
    /// The table must number its rows.
    virtual std::int64_t LastNumber(const TableInfo& table) = 0;

    virtual Catalogue& Tables() = 0;
    /// Notes in the database which version of the schema it now holds.
    virtual void SetSchemaVersion(int version) = 0;

    /// How often the program has waited for a server's answer; 0 where the database is a file.
    virtual std::uint64_t RoundTrips() const { return 0; }
};

}
