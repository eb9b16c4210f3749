#include "tools/OfficeCopy.h"

#include "store/Connection.h"
#include "store/DatabaseError.h"
#include "store/Engine.h"
#include "store/NewSqliteFile.h"
#include "store/Schema.h"
#include "store/Transaction.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>

namespace rovanta {

namespace {

Statement Bracketed(const std::string& name)
{
    return Statement{"["} + Name(name) + "]";
}

Statement ColumnList(const TableInfo& table)
{
    Statement list;
    for (const ColumnInfo& column : table.columns)
        list += (list.Get().empty() ? Statement{} : Statement{","}) + Bracketed(column.name);
    return list;
}

/// The number with all its digits, so that it comes out on the other side as it was.
Statement AllDigits(double number)
{
    std::array<char, 512> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::fixed);
    return Statement::Verbatim(std::string(buffer.data(), written.ptr));
}

Statement Literal(const Value& value)
{
    if (value.IsNull())
        return Statement{"NULL"};
    const auto& content = value.Get();
    if (const auto* flag = std::get_if<bool>(&content))
        return Statement{} + Flag(*flag);
    if (const auto* whole = std::get_if<std::int64_t>(&content))
        return Statement{} + Key(*whole);
    if (const auto* number = std::get_if<double>(&content))
        return AllDigits(*number);
    if (value.IsDate())
        return Statement{"'"} + DateText(value.Date()) + "'";
    return Statement{"'"} + QuotedText(value.Text()) + "'";
}

void RefuseNoOffice(const std::vector<TableInfo>& tables)
{
    for (const char* needed : {"Company", "User"})
        if (std::none_of(tables.begin(), tables.end(), [&](const TableInfo& table) { return table.name == needed; }))
            throw RunTimeError("The database to copy from holds no office: it has no table " + std::string(needed) +
                               ".");
}

void RefuseFilled(Connection& target)
{
    const std::vector<TableInfo> tables = ListTables(target);
    if (!tables.empty())
        throw RunTimeError("The database to copy to is not empty: it holds the table " + tables.front().name +
                           (tables.size() == 1 ? "." : " and others."));
}

/// Makes a table that an office does not have by itself.
void MakeTable(Connection& target, const TableInfo& table)
{
    Statement columns;
    for (const ColumnInfo& column : table.columns) {
        columns += (columns.Get().empty() ? Statement{} : Statement{","}) + Bracketed(column.name) + " " +
                   Statement::Verbatim(TypeDeclaration(column.type));
        columns += column.identity   ? Statement{" IDENTITY(1,1) PRIMARY KEY"}
                   : column.nullable ? Statement{}
                                     : Statement{" NOT NULL"};
    }
    target.Execute(Statement{"CREATE TABLE "} + Bracketed(table.name) + " (" + columns + ")");
}

void RefuseMissingColumns(const TableInfo& table, const TableInfo& target)
{
    for (const ColumnInfo& column : table.columns)
        if (target.FindColumn(column.name) == nullptr)
            throw DatabaseError("it has a column " + column.name + " that this program knows nothing of.");
}

void CopyRows(Connection& source, Connection& target, const TableInfo& table)
{
    const Statement columns = ColumnList(table);
    const RowSet rows =
        source.GetEngine().Query((Statement{"SELECT "} + columns + " FROM " + Bracketed(table.name)).Get());
    // As many rows travel together as make a statement of moderate length.
    constexpr std::size_t cellsAtOnce = 2000;
    const std::size_t width = rows.ColumnCount();
    const std::size_t rowsAtOnce = std::clamp<std::size_t>(cellsAtOnce / width, 1, 200);
    const Statement head = Statement{"INSERT INTO "} + Bracketed(table.name) + " (" + columns + ") VALUES ";
    for (std::size_t first = 0; first < rows.rowCount; first += rowsAtOnce) {
        const std::size_t end = std::min(rows.rowCount, first + rowsAtOnce);
        Statement insert = head;
        for (std::size_t row = first; row < end; ++row) {
            insert += row == first ? Statement{"("} : Statement{",("};
            for (std::size_t column = 0; column < width; ++column) {
                if (column > 0)
                    insert += Statement{","};
                insert += Literal(rows.cells[row * width + column]);
            }
            insert += Statement{")"};
        }
        target.Execute(insert);
    }
}

/// A value that a column takes which must have one.
Statement Filler(const ColumnInfo& column)
{
    if (column.type.kind == TypeKind::Varchar)
        return "''";
    return column.type.kind == TypeKind::DateTime ? Statement{"'1/1/1990'"} : Statement{"0"};
}

/// A row that had this number and is gone makes the table go on numbering behind it, on every engine.
void UseUpNumber(Connection& target, const TableInfo& table, std::int64_t number)
{
    const Statement identity = Bracketed(table.Identity()->name);
    Statement columns = identity;
    Statement contents = Statement{} + Key(number);
    for (const ColumnInfo& column : table.columns) {
        if (column.nullable || column.identity)
            continue;
        columns += Statement{","} + Bracketed(column.name);
        contents += Statement{","} + Filler(column);
    }
    const Statement name = Bracketed(table.name);
    target.Execute(Statement{"INSERT INTO "} + name + " (" + columns + ") VALUES (" + contents + ")");
    target.Execute(Statement{"DELETE FROM "} + name + " WHERE " + identity + "=" + Key(number));
}

void CopyTable(Connection& source, Connection& target, const TableInfo& table,
               const std::optional<std::int64_t>& lastNumber)
{
    TablePointer made = target.GetEngine().Tables().Find(table.name);
    if (!made) {
        MakeTable(target, table);
        made = target.GetEngine().Tables().Find(table.name);
    }
    RefuseMissingColumns(table, *made);
    const bool numbered = made->Identity() != nullptr;
    if (numbered)
        target.Execute(Statement{"SET IDENTITY_INSERT "} + Bracketed(table.name) + " ON");
    CopyRows(source, target, table);
    if (numbered && lastNumber && target.GetEngine().LastNumber(*made) < *lastNumber)
        UseUpNumber(target, *made, *lastNumber);
    if (numbered)
        target.Execute(Statement{"SET IDENTITY_INSERT "} + Bracketed(table.name) + " OFF");
}

TableSum SumOf(Connection& connection, const TableInfo& table)
{
    Statement select = "SELECT COUNT(*)";
    for (const ColumnInfo& column : table.columns) {
        const bool number = IsNumber(column.type.kind);
        select += (number ? Statement{",SUM(CAST("} : Statement{",COUNT("}) + Bracketed(column.name) +
                  (number ? Statement{" AS float))"} : Statement{")"});
    }
    const RowSet answer = connection.GetEngine().Query((select + " FROM " + Bracketed(table.name)).Get());
    TableSum sum{table.name, static_cast<std::int64_t>(answer.cells[0].Number()), {}};
    const TablePointer own = connection.GetEngine().Tables().Find(table.name);
    if (own && own->Identity() != nullptr)
        sum.lastNumber = connection.GetEngine().LastNumber(*own);
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const Value& value = answer.cells[i + 1];
        sum.columns.emplace_back(table.columns[i].name, value.IsNull() ? 0 : value.Number());
    }
    return sum;
}

/// A server shows a table that has been dropped to nobody, not even to who looks at an earlier moment.
bool IsGone(const std::string& from, const std::string& table)
{
    Connection now;
    now.Open(from);
    return !now.GetEngine().Tables().Find(table);
}

TableSum CopyAndCompare(Connection& source, Connection& target, const TableInfo& table)
{
    try {
        const TableSum original = SumOf(source, table);
        CopyTable(source, target, table, original.lastNumber);
        TableSum copied = SumOf(target, table);
        const std::vector<std::string> differences = Differences(original, copied);
        if (!differences.empty())
            throw RunTimeError(differences.front());
        return copied;
    } catch (const RunTimeError& error) {
        throw RunTimeError("The table " + table.name + " could not be copied: " + error.what());
    }
}

}

std::vector<std::string> Differences(const TableSum& original, const TableSum& copy)
{
    std::vector<std::string> found;
    if (original.rows != copy.rows)
        found.push_back("it has " + std::to_string(original.rows) + " rows, its copy " + std::to_string(copy.rows) +
                        ".");
    if (original.lastNumber && copy.lastNumber && *original.lastNumber != *copy.lastNumber)
        found.push_back("its numbers go up to " + std::to_string(*original.lastNumber) + ", in the copy up to " +
                        std::to_string(*copy.lastNumber) + ".");
    for (std::size_t i = 0; i < original.columns.size(); ++i) {
        const auto& [column, sum] = original.columns[i];
        const double copied = copy.columns[i].second;
        constexpr double tenThousandth = 1e-4;
        constexpr double lastDigits = 1e-12;
        if (std::abs(sum - copied) > tenThousandth + std::abs(sum) * lastDigits)
            found.push_back("its column " + column + " comes to " + AllDigits(sum).Get() + ", in the copy to " +
                            AllDigits(copied).Get() + ".");
    }
    return found;
}

CopyReport CopyOffice(const std::string& from, const std::string& to)
{
    ChooseEngine(to);
    Connection source;
    source.Open(from);
    const Transaction oneMoment(source, Transaction::Sees::OneMoment);
    const std::vector<TableInfo> tables = ListTables(source);
    RefuseNoOffice(tables);

    std::optional<NewSqliteFile> made;
    if (ChooseEngine(to) == EngineKind::Sqlite && !std::filesystem::exists(DatabaseFile(to)))
        made.emplace(DatabaseFile(to));
    Connection target;
    target.Open(to);
    RefuseFilled(target);

    CopyReport report;
    // Nothing stays in the target before all of it is right.
    Transaction whole(target);
    AddSchema(target);
    for (const TableInfo& table : tables) {
        const bool own = target.GetEngine().Tables().Find(table.name) != nullptr;
        if (table.kind == TableKind::View && !own)
            report.viewsLeft.push_back(table.name);
        if (table.kind == TableKind::View)
            continue;
        try {
            report.tables.push_back(CopyAndCompare(source, target, table));
        } catch (const RunTimeError&) {
            if (own || target.GetEngine().Tables().Find(table.name) || !IsGone(from, table.name))
                throw;
            report.tablesGone.push_back(table.name);
        }
    }
    whole.Commit();
    if (made)
        made->Keep();
    return report;
}

}
