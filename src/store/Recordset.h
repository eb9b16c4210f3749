#pragma once

#include "store/Statement.h"
#include "values/Value.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace rovanta {

class Connection;
class Recordset;

/// One column of a recordset's current row. Reads throw with the column's name where the value does not fit.
class Field {
public:
    const rovanta::Value& Value() const;
    bool IsNull() const { return Value().IsNull(); }
    /// The value as text; a NULL throws "Invalid use of Null: <column>".
    std::string Text() const;
    /// The value as text; a NULL gives the empty text.
    std::string TextOrEmpty() const { return Value().TextOrEmpty(); }
    double Number() const;
    /// The value as a number; a NULL gives 0.
    double NumberOrZero() const { return IsNull() ? 0 : Number(); }
    /// True when the column is true; NULL and false give false, as a comparison with true does.
    bool IsTrue() const { return !IsNull() && Value().Flag(); }
    bool Flag() const;
    DateTime Date() const;
    const std::string& Name() const;

    /// Writes into the current row's buffer; `Update` carries it to the table. The value is converted to the column's
    /// type at once, and throws the database's conversion error when it cannot be.
    void operator=(const rovanta::Value& value);

private:
    friend class Recordset;
    Field(Recordset& owner, std::size_t column) : owner(owner), column(column) {}
    Recordset& owner;
    std::size_t column;
};

/// A client-side snapshot of a SELECT, written back row by row with `Update`.
/// `Eof` and `Bof` bear these names because EOF is a macro of the C library.
class Recordset {
public:
    Recordset();
    /// Opens at once.
    Recordset(const Statement& select, Connection& connection);
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    /// Reads all rows and stands on the first. Throws DatabaseError.
    void Open(const Statement& select, Connection& connection);
    void Close();

    /// Both true when the query found no row; Eof also when MoveNext has passed the last row. A row that was just
    /// deleted stays the current one, unreadable, until MoveNext.
    bool Eof() const;
    bool Bof() const;
    void MoveNext();

    /// The column of that name or alias, without regard to case; of two equal names the first.
    /// An unknown name throws DatabaseError.
    Field Fields(std::string_view name);
    /// The column at a place counted from 0: for whoever reads all of them, the second of two equal names included.
    Field FieldAt(std::size_t column);

    /// Starts a new row in the buffer.
    void AddNew();
    /// Writes the buffer to the table: an INSERT for a new row (its identity can be read afterwards), else an
    /// optimistic UPDATE of the changed columns that throws DatabaseError when the row changed or vanished since it was
    /// read.
    void Update();
    /// Deletes the current row, under the same optimistic test.
    void Delete();

    const std::vector<std::string>& ColumnNames() const;
    std::size_t RowCount() const;

private:
    friend class Field;
    struct Rows;
    Rows& Opened() const;

    std::unique_ptr<Rows> rows;
};

}
