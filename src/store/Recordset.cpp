#include "store/Recordset.h"

#include "store/Connection.h"
#include "store/Conversion.h"
#include "store/DatabaseError.h"
#include "store/Engine.h"
#include "values/Errors.h"
#include "values/Numbers.h"

#include <cmath>

namespace rovanta {

struct Recordset::Rows {
    RowSet set;
    Engine* engine = nullptr;
    std::size_t current = 0;
    bool adding = false;
    /// Whether the row that was current has been deleted; `current` is then the one behind it.
    bool deleted = false;
    /// The current row as the screen has written it, and which of its columns it wrote; empty while it wrote none.
    std::vector<rovanta::Value> buffer;
    std::vector<bool> written;

    bool Editing() const { return !buffer.empty(); }
    bool AtRow() const { return adding || (!deleted && current < set.rowCount); }
    const rovanta::Value& Stored(std::size_t column) const { return set.cells[current * set.ColumnCount() + column]; }
    const rovanta::Value& Shown(std::size_t column) const { return Editing() ? buffer[column] : Stored(column); }

    void NeedRow() const;
    const TableInfo& NeedTable() const;
    const ColumnInfo* OwnColumn(std::size_t column) const;
    std::vector<ColumnValue> ColumnsRead() const;
    std::vector<ColumnValue> Changes(const TableInfo& table);
    void BeginEdit();
    void EndEdit();
    void InsertRow(const TableInfo& table);
    void UpdateRow(const TableInfo& table);
};

namespace {

const char* const rowLost =
    "Row cannot be located for updating. Some values may have been changed since it was last read.";

/// A value on its way into a column, as the database takes it. A number loses its fraction in a column of whole numbers
/// by the language's rounding, half to even.
Value ForColumn(const Value& value, const SqlType& type)
{
    if (const auto* number = std::get_if<double>(&value.Get()); number != nullptr && IsWhole(type.kind))
        return Convert(type.kind == TypeKind::Bit ? *number : std::nearbyint(*number), TypeKind::Float, type);
    if (const auto* flag = std::get_if<bool>(&value.Get()); flag != nullptr && type.kind != TypeKind::Bit)
        return Convert(Value(std::int64_t{*flag ? -1 : 0}), TypeKind::Int, {type.kind});
    // A date or number written into a text is the language's text of it, not the database's.
    if (type.kind == TypeKind::Varchar && !value.IsNull())
        return value.Text();
    return Convert(value, KindOf(value), {type.kind});
}

}

void Recordset::Rows::NeedRow() const
{
    if (!AtRow())
        throw DatabaseError(
            "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires "
            "a current record.");
}

const TableInfo& Recordset::Rows::NeedTable() const
{
    if (!set.shape->Updatable())
        throw DatabaseError(
            "Current Recordset does not support updating. This may be a limitation of the provider, or of "
            "the selected locktype.");
    return *set.shape->Updatable();
}

/// The table's column behind a column of the result; null for a computed one.
const ColumnInfo* Recordset::Rows::OwnColumn(std::size_t column) const
{
    return set.shape->Columns()[column].column;
}

/// The row as it was read, by which an optimistic change finds out whether it still stands so.
std::vector<ColumnValue> Recordset::Rows::ColumnsRead() const
{
    std::vector<ColumnValue> read;
    for (std::size_t i = 0; i < set.ColumnCount(); ++i)
        if (const ColumnInfo* column = OwnColumn(i); column != nullptr && !column->identity)
            read.push_back({column, &Stored(i)});
    return read;
}

/// The columns that the screen wrote; of a row that exists those alone whose value is another now.
std::vector<ColumnValue> Recordset::Rows::Changes(const TableInfo& table)
{
    std::vector<ColumnValue> changes;
    for (std::size_t i = 0; i < buffer.size(); ++i) {
        const ColumnInfo* column = OwnColumn(i);
        if (!written[i] || (!adding && buffer[i] == Stored(i)))
            continue;
        if (column->type.kind == TypeKind::Varchar && buffer[i].IsText())
            buffer[i] = FittedText(buffer[i].Text(), column->type.length, ColumnPlace(table.name, column->name));
        changes.push_back({column, &buffer[i]});
    }
    return changes;
}

void Recordset::Rows::BeginEdit()
{
    if (Editing())
        return;
    const auto first = set.cells.begin() + static_cast<std::ptrdiff_t>(current * set.ColumnCount());
    buffer.assign(first, first + static_cast<std::ptrdiff_t>(set.ColumnCount()));
    written.assign(buffer.size(), false);
}

void Recordset::Rows::EndEdit()
{
    buffer.clear();
    written.clear();
    adding = false;
}

void Recordset::Rows::InsertRow(const TableInfo& table)
{
    const InsertedRow row = engine->Insert(table, Changes(table));
    for (std::size_t i = 0; i < buffer.size(); ++i)
        if (const ColumnInfo* column = OwnColumn(i); column != nullptr && column->identity)
            buffer[i] = row.identity;
    current = set.rowCount;
    set.cells.insert(set.cells.end(), buffer.begin(), buffer.end());
    set.rowKeys.push_back(row.rowKey);
    ++set.rowCount;
}

void Recordset::Rows::UpdateRow(const TableInfo& table)
{
    const std::vector<ColumnValue> changes = Changes(table);
    if (changes.empty())
        return;
    if (!engine->Update(table, set.rowKeys[current], changes, ColumnsRead()))
        throw DatabaseError(rowLost);
    for (std::size_t i = 0; i < buffer.size(); ++i)
        set.cells[current * set.ColumnCount() + i] = buffer[i];
}

const Value& Field::Value() const
{
    owner.rows->NeedRow();
    return owner.rows->Shown(column);
}

std::string Field::Text() const
{
    if (IsNull())
        throw InvalidUseOfNull(Name());
    return Value().Text();
}

double Field::Number() const
{
    if (IsNull())
        throw InvalidUseOfNull(Name());
    return Value().Number();
}

bool Field::Flag() const
{
    if (IsNull())
        throw InvalidUseOfNull(Name());
    return Value().Flag();
}

DateTime Field::Date() const
{
    if (IsNull())
        throw InvalidUseOfNull(Name());
    return Value().Date();
}

const std::string& Field::Name() const
{
    return owner.rows->set.shape->Names()[column];
}

void Field::operator=(const rovanta::Value& value)
{
    Recordset::Rows& rows = *owner.rows;
    rows.NeedRow();
    rows.NeedTable();
    const ColumnInfo* target = rows.OwnColumn(column);
    if (target == nullptr || target->identity)
        throw DatabaseError("Field '" + Name() + "' cannot be updated.");
    rovanta::Value converted = ForColumn(value, target->type);
    rows.BeginEdit();
    rows.buffer[column] = std::move(converted);
    rows.written[column] = true;
}

Recordset::Recordset() = default;

Recordset::Recordset(const Statement& select, Connection& connection)
{
    Open(select, connection);
}

Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

void Recordset::Open(const Statement& select, Connection& connection)
{
    rows.reset();
    auto opened = std::make_unique<Rows>();
    opened->engine = &connection.GetEngine();
    opened->set = opened->engine->Query(select.Get());
    rows = std::move(opened);
}

void Recordset::Close()
{
    rows.reset();
}

Recordset::Rows& Recordset::Opened() const
{
    if (!rows)
        throw DatabaseError("Operation is not allowed when the object is closed.");
    return *rows;
}

bool Recordset::Eof() const
{
    return !Opened().deleted && !Opened().AtRow();
}

bool Recordset::Bof() const
{
    return !Opened().adding && !Opened().deleted && Opened().set.rowCount == 0;
}

void Recordset::MoveNext()
{
    Rows& open = Opened();
    if (open.deleted) {
        open.deleted = false;
        return;
    }
    open.NeedRow();
    // A row that was written to and not yet carried to the table is carried there by the move.
    if (open.adding || open.Editing())
        Update();
    ++open.current;
}

Field Recordset::Fields(std::string_view name)
{
    if (const auto column = Opened().set.shape->Find(name))
        return Field(*this, *column);
    throw DatabaseError("Item cannot be found in the collection corresponding to the requested name or ordinal: " +
                        std::string(name) + ".");
}

Field Recordset::FieldAt(std::size_t column)
{
    if (column < Opened().set.ColumnCount())
        return Field(*this, column);
    throw DatabaseError("Item cannot be found in the collection corresponding to the requested name or ordinal: " +
                        ToText(static_cast<std::int64_t>(column)) + ".");
}

void Recordset::AddNew()
{
    Rows& open = Opened();
    open.NeedTable();
    if (open.adding || open.Editing())
        Update();
    open.adding = true;
    open.deleted = false;
    open.buffer.assign(open.set.ColumnCount(), Value());
    open.written.assign(open.set.ColumnCount(), false);
}

void Recordset::Update()
{
    Rows& open = Opened();
    open.NeedRow();
    const TableInfo& table = open.NeedTable();
    if (open.adding)
        open.InsertRow(table);
    else if (open.Editing())
        open.UpdateRow(table);
    open.EndEdit();
}

void Recordset::Delete()
{
    Rows& open = Opened();
    open.NeedRow();
    const TableInfo& table = open.NeedTable();
    open.EndEdit();
    open.NeedRow();
    if (!open.engine->Delete(table, open.set.rowKeys[open.current], open.ColumnsRead()))
        throw DatabaseError(rowLost);
    const auto at = static_cast<std::ptrdiff_t>(open.current);
    const auto width = static_cast<std::ptrdiff_t>(open.set.ColumnCount());
    open.set.cells.erase(open.set.cells.begin() + at * width, open.set.cells.begin() + (at + 1) * width);
    open.set.rowKeys.erase(open.set.rowKeys.begin() + at);
    --open.set.rowCount;
    open.deleted = true;
}

const std::vector<std::string>& Recordset::ColumnNames() const
{
    return Opened().set.shape->Names();
}

std::size_t Recordset::RowCount() const
{
    return Opened().set.rowCount;
}

}
