#include "store/OdbcEngine.h"

#include "store/DatabaseError.h"
#include "store/OdbcSession.h"
#include "store/Schema.h"
#include "store/SqlServerText.h"
#include "store/Translator.h"
#include "values/Text.h"

#include <algorithm>
#include <array>
#include <map>

namespace rovanta {

namespace {

/// A statement is one statement on every engine. What follows a semicolon is nothing that the program has written.
void RefuseSecondStatement(std::string_view text)
{
    TokenList list;
    try {
        list = ReadTokens(text);
    } catch (const DatabaseError&) {
        // Whatever it is, the server tells it.
        return;
    }
    for (std::size_t i = 0; i + 2 < list.tokens.size(); ++i)
        if (list.tokens[i].kind == TokenKind::Symbol && list.tokens[i].text == ";")
            throw SyntaxErrorNear(std::string(list.tokens[i + 1].text));
}

/// Nothing is written for the server: the front end tells of a SELECT only what the server does not.
Plan ShapeAlone(const ParsedStatement& statement)
{
    Plan plan;
    if (const auto* query = std::get_if<std::unique_ptr<Query>>(&statement.tree)) {
        plan.kind = PlanKind::Query;
        plan.shape = std::make_shared<ResultShape>((*query)->columns, (*query)->updatable);
    }
    return plan;
}

class OdbcEngine : public Engine {
public:
    explicit OdbcEngine(const OdbcText& text) : session(text) {}

    void Execute(std::string_view statement) override
    {
        RefuseSecondStatement(statement);
        session.Run(statement);
        constexpr std::array<std::string_view, 5> changers{"CREATE", "DROP", "ALTER", "ROLLBACK", "SELECT"};
        const auto begins = [&](std::string_view word) { return StartsWithNoCase(statement, word); };
        catalogueStale |= std::any_of(changers.begin(), changers.end(), begins);
    }

    RowSet Query(std::string_view select) override
    {
        RefuseSecondStatement(select);
        OdbcBatch sent = session.Send(select);
        std::vector<OdbcColumn> columns;
        while ((columns = sent.Columns()).empty())
            if (!sent.NextResult())
                throw DatabaseError(
                    "Operation is not allowed when the object is closed: the statement returns no rows.");
        RowSet rows;
        rows.cells = sent.ReadCells(columns);
        rows.rowCount = rows.cells.size() / columns.size();
        sent.ReadToEnd();
        rows.shape = ShapeOf(select, columns);
        AddRowKeys(rows);
        return rows;
    }

    InsertedRow Insert(const TableInfo& table, const std::vector<ColumnValue>& values) override
    {
        OdbcBatch sent = session.Send(SqlServerInsert(table, values));
        Value number;
        do {
            if (const std::vector<Value> cells = sent.ReadCells(sent.Columns()); !cells.empty())
                number = cells.front();
        } while (sent.NextResult());
        return {NumberOfRow(number), number};
    }

    bool Update(const TableInfo& table, std::int64_t& rowKey, const std::vector<ColumnValue>& changes,
                const std::vector<ColumnValue>& read) override
    {
        return RowsChanged(SqlServerUpdate(table, rowKey, changes, read)) > 0;
    }

    bool Delete(const TableInfo& table, std::int64_t rowKey, const std::vector<ColumnValue>& read) override
    {
        return RowsChanged(SqlServerDelete(table, rowKey, read)) > 0;
    }

    void BeginSnapshot() override { session.Run(sqlServerSnapshot); }

    std::int64_t LastNumber(const TableInfo& table) override
    {
        OdbcBatch sent = session.Send(SqlServerLastNumber(table));
        double last = 0;
        for (const Value& number : sent.ReadCells(sent.Columns()))
            last = std::max(last, number.IsNull() ? 0 : number.Number());
        return static_cast<std::int64_t>(last);
    }

    Catalogue& Tables() override
    {
        if (catalogueStale)
            ReadCatalogue();
        return catalogue;
    }

    std::uint64_t RoundTrips() const override { return session.RoundTrips(); }

    void SetSchemaVersion(int version) override { session.Run(SqlServerSetVersion(version)); }

    /// Settles what holds for the whole connection. Throws DatabaseError for a database of another version of the
    /// schema.
    void Settle(const std::string& database)
    {
        session.Run(sqlServerSettings);
        OdbcBatch sent = session.Send(sqlServerVersion);
        const std::vector<Value> cells = sent.ReadCells(sent.Columns());
        const int version = cells.empty() ? schemaVersion : static_cast<int>(cells.front().Number());
        if (version != schemaVersion)
            throw DatabaseError("The database '" + database + "' holds version " + std::to_string(version) +
                                " of the schema, and this program needs version " + std::to_string(schemaVersion) +
                                ".");
    }

private:
    /// How many rows a change found.
    std::int64_t RowsChanged(const std::string& change)
    {
        OdbcBatch sent = session.Send(change);
        const std::int64_t changed = sent.ChangedCount();
        sent.ReadToEnd();
        return changed;
    }

    /// What the result is made of: the columns as the server delivers them, and behind them those of the one table that
    /// they come from, where the statement shows it.
    std::shared_ptr<const ResultShape> ShapeOf(std::string_view select, const std::vector<OdbcColumn>& columns)
    {
        // A table may have been made or changed by another program since the catalogue was read.
        for (const bool again : {false, true}) {
            if (again || catalogueStale)
                ReadCatalogue();
            try {
                const auto understood = translator.Translate(select, catalogue);
                if (understood.plan->shape && Agree(*understood.plan->shape, columns))
                    return understood.plan->shape;
            } catch (const DatabaseError&) {
                // The server has understood the statement, and that alone counts.
            }
        }
        std::vector<SourceColumn> delivered;
        delivered.reserve(columns.size());
        for (const OdbcColumn& column : columns)
            delivered.push_back({column.name, {column.kind}, nullptr, nullptr});
        return std::make_shared<ResultShape>(std::move(delivered), nullptr);
    }

    static bool Agree(const ResultShape& shape, const std::vector<OdbcColumn>& columns)
    {
        return std::equal(
            shape.Names().begin(), shape.Names().end(), columns.begin(), columns.end(),
            [](const std::string& name, const OdbcColumn& column) { return EqualNoCase(name, column.name); });
    }

    static std::int64_t NumberOfRow(const Value& cell)
    {
        const auto* number = std::get_if<std::int64_t>(&cell.Get());
        return number != nullptr ? *number : noRowNumber;
    }

    /// A row is found again by its number, where the table numbers its rows and the statement reads the number.
    static void AddRowKeys(RowSet& rows)
    {
        if (!rows.shape->Updatable())
            return;
        rows.rowKeys.assign(rows.rowCount, noRowNumber);
        const std::vector<SourceColumn>& columns = rows.shape->Columns();
        const auto number = std::find_if(columns.begin(), columns.end(), [](const SourceColumn& column) {
            return column.column != nullptr && column.column->identity;
        });
        if (number == columns.end())
            return;
        const auto place = static_cast<std::size_t>(number - columns.begin());
        for (std::size_t row = 0; row < rows.rowCount; ++row)
            rows.rowKeys[row] = NumberOfRow(rows.cells[row * columns.size() + place]);
    }

    void ReadCatalogue()
    {
        OdbcBatch sent = session.Send(sqlServerCatalogue);
        const std::vector<OdbcColumn> described = sent.Columns();
        const std::vector<Value> cells = sent.ReadCells(described);
        std::vector<Catalogue::Entry> entries;
        std::map<std::string, std::vector<ColumnInfo>> columns;
        for (std::size_t at = 0; at + described.size() <= cells.size(); at += described.size()) {
            const std::string table = cells[at].Text();
            std::vector<ColumnInfo>& own = columns[table];
            if (own.empty())
                entries.push_back({table, cells[at + 1].Text() == "V" ? TableKind::View : TableKind::Table});
            ColumnInfo& column = own.emplace_back();
            column.name = cells[at + 2].Text();
            column.type = TypeOnSqlServer(cells[at + 3].Text(), static_cast<std::int64_t>(cells[at + 4].Number()));
            column.nullable = cells[at + 5].Flag();
            column.identity = cells[at + 6].Flag();
        }
        catalogue = Catalogue(entries, [columns](const std::string& table) { return columns.at(table); });
        translator.Forget();
        catalogueStale = false;
    }

    OdbcSession session;
    Translator translator{ShapeAlone};
    Catalogue catalogue;
    bool catalogueStale = true;
};

}

std::unique_ptr<Engine> OpenOdbc(const std::string& connectionText)
{
    const OdbcText text(connectionText);
    auto engine = std::make_unique<OdbcEngine>(text);
    engine->Settle(text.Get("Database"));
    return engine;
}

/// The database of every SQL Server in which others are made.
static constexpr const char* homeDatabase = "master";

std::string WithSqlServerDatabase(const std::string& server, const std::string& name)
{
    return OdbcText(server).With("Database", name);
}

void CreateSqlServerDatabase(const std::string& server, const std::string& name, const std::string& like)
{
    const std::string copy = like.empty() ? std::string{} : " AS COPY OF " + SqlServerName(like);
    OpenOdbc(WithSqlServerDatabase(server, homeDatabase))->Execute("CREATE DATABASE " + SqlServerName(name) + copy);
}

void DropSqlServerDatabase(const std::string& server, const std::string& name)
{
    OpenOdbc(WithSqlServerDatabase(server, homeDatabase))->Execute("DROP DATABASE " + SqlServerName(name));
}

}
