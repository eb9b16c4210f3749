#include "store/SqliteEngine.h"

#include "store/Schema.h"
#include "store/SqliteDialect.h"
#include "store/SqliteFile.h"
#include "store/SqliteSession.h"
#include "store/SqliteTexts.h"
#include "store/TranslatingEngine.h"
#include "values/Text.h"

#include <algorithm>
#include <utility>

namespace rovanta {

namespace {

void BindLiterals(SqliteStatement& statement, const Plan& plan, const std::vector<Literal>& literals)
{
    int place = 0;
    for (const Parameter& parameter : plan.parameters)
        statement.Bind(++place, ParameterValue(parameter, literals));
}

/// Binds the values from that place on; the place behind the last.
int BindAll(SqliteStatement& statement, int place, const std::vector<ColumnValue>& values)
{
    for (const ColumnValue& value : values)
        statement.Bind(place++, *value.value);
    return place;
}

class SqliteEngine : public TranslatingEngine {
public:
    explicit SqliteEngine(SqliteSession opened) : TranslatingEngine(SqliteDialect()), session(std::move(opened))
    {
        ReadCatalogue();
    }

    InsertedRow Insert(const TableInfo& table, const std::vector<ColumnValue>& values) override
    {
        SqliteStatement statement = session.Prepared(InsertRowText(table, values));
        BindAll(statement, 1, values);
        statement.Run();
        const std::int64_t row = session.LastRow();
        return {row, table.Identity() != nullptr ? Value(row) : Value()};
    }

    bool Update(const TableInfo& table, std::int64_t& rowKey, const std::vector<ColumnValue>& changes,
                const std::vector<ColumnValue>& read) override
    {
        SqliteStatement statement = session.Prepared(UpdateRowText(table, changes, read));
        const int next = BindAll(statement, 1, changes);
        statement.Bind(next, rowKey);
        BindAll(statement, next + 1, read);
        statement.Run();
        return session.ChangedCount() > 0;
    }

    bool Delete(const TableInfo& table, std::int64_t rowKey, const std::vector<ColumnValue>& read) override
    {
        SqliteStatement statement = session.Prepared(DeleteRowText(table, read));
        statement.Bind(1, rowKey);
        BindAll(statement, 2, read);
        statement.Run();
        return session.ChangedCount() > 0;
    }

    void BeginSnapshot() override
    {
        // The log beside the file keeps what a reader still sees, so nobody waits.
        session.Run("BEGIN");
    }

    std::int64_t LastNumber(const TableInfo& table) override
    {
        const std::string identity = SqliteName(table.Identity()->name);
        const std::string name = SqliteName(table.name);
        const std::int64_t highest = Number("SELECT max(" + identity + ") FROM " + name);
        // The list of last numbers is there from the first table on that keeps them.
        if (Number("SELECT count(*) FROM sqlite_schema WHERE name = 'sqlite_sequence'") == 0)
            return highest;
        return std::max(highest,
                        Number("SELECT max(seq) FROM sqlite_sequence WHERE name = " + SqlDialect::Quoted(table.name)));
    }

    void SetSchemaVersion(int version) override { session.Run("PRAGMA user_version = " + std::to_string(version)); }

private:
    void Change(const Plan& plan, const std::vector<Literal>& literals) override
    {
        SqliteStatement statement = session.Prepared(plan.statements.back());
        BindLiterals(statement, plan, literals);
        statement.Run();
    }

    void Define(const Plan& plan, const std::vector<Literal>& literals) override
    {
        if (plan.statements.size() == 1)
            Change(plan, literals);
        else
            DefineAndFill(plan, literals);
        ReadCatalogue();
    }

    void DefineAndFill(const Plan& plan, const std::vector<Literal>& literals)
    {
        session.Run("SAVEPOINT definition");
        try {
            session.Run(plan.statements.front());
            Change(plan, literals);
            session.Run("RELEASE definition");
        } catch (const DatabaseError&) {
            session.Run("ROLLBACK TO definition");
            session.Run("RELEASE definition");
            throw;
        }
    }

    void Step(TransactionStep step) override
    {
        // Taking the write lock at once, a transaction cannot meet another's on its way from reading to writing.
        session.Run(step == TransactionStep::Begin    ? "BEGIN IMMEDIATE"
                    : step == TransactionStep::Commit ? "COMMIT"
                                                      : "ROLLBACK");
        if (step == TransactionStep::Rollback)
            ReadCatalogue();
    }

    RowSet ReadRows(const Plan& plan, const std::vector<Literal>& literals) override
    {
        SqliteStatement statement = session.Prepared(plan.statements[0]);
        BindLiterals(statement, plan, literals);
        RowSet rows;
        rows.shape = plan.shape;
        rows.cells.reserve(statement.CellsRead());
        const std::vector<SourceColumn>& columns = plan.shape->Columns();
        const bool keyed = plan.shape->Updatable() != nullptr;
        while (statement.Step()) {
            int index = 0;
            for (const SourceColumn& column : columns)
                rows.cells.push_back(statement.Content(index++, column.type.kind));
            if (keyed)
                rows.rowKeys.push_back(statement.Whole(index));
            ++rows.rowCount;
        }
        statement.CellsRead() = rows.cells.size();
        preparedAnew = statement.WasPreparedAnew();
        return rows;
    }

    /// The one cell of a SELECT; 0 where it is NULL.
    std::int64_t Number(const std::string& select)
    {
        SqliteStatement statement = session.Prepared(select);
        statement.Step();
        return statement.Whole(0);
    }

    std::int64_t SchemaNumber() { return Number("PRAGMA schema_version"); }

    bool TakeNews() override { return std::exchange(preparedAnew, false) && SchemaNumber() != schemaNumber; }

    bool CatalogueWasOld() override
    {
        if (SchemaNumber() == schemaNumber)
            return false;
        ReadCatalogue();
        return true;
    }

    void ReadCatalogue() override
    {
        schemaNumber = SchemaNumber();
        std::vector<Catalogue::Entry> entries;
        SqliteStatement statement = session.Prepared(
            "SELECT name, type FROM sqlite_schema WHERE type IN ('table', 'view') AND name NOT LIKE 'sqlite_%'");
        while (statement.Step())
            entries.push_back(
                {std::string(statement.Text(0)), statement.Text(1) == "view" ? TableKind::View : TableKind::Table});
        TakeCatalogue(Catalogue(entries, [this](const std::string& table) { return ReadColumns(table); }));
    }

    std::vector<ColumnInfo> ReadColumns(const std::string& table)
    {
        std::vector<ColumnInfo> columns;
        SqliteStatement statement = session.Prepared("SELECT name, type, \"notnull\", pk FROM pragma_table_xinfo(?)");
        statement.Bind(1, table);
        while (statement.Step()) {
            ColumnInfo& column = columns.emplace_back();
            column.name = statement.Text(0);
            const std::string_view declared = statement.Text(1);
            column.type = ReadTypeDeclaration(declared).value_or(SqlType{TypeKind::Varchar});
            column.nullable = statement.Whole(2) == 0;
            column.identity = statement.Whole(3) != 0 && EqualNoCase(declared, "INTEGER");
        }
        return columns;
    }

    SqliteSession session;
    /// Of the tables in the catalogue; SQLite counts it up with each change of one.
    std::int64_t schemaNumber = 0;
    bool preparedAnew = false;
};

}

std::unique_ptr<Engine> OpenSqlite(const std::string& path)
{
    using namespace std::chrono_literals;
    RefuseWhatIsNoFile(path);
    RefuseWhatCannotBeWritten(path);
    SqliteSession session(path);
    session.WaitFor(9500ms);
    const int version = std::atoi(session.AnswerOfFile("PRAGMA user_version").c_str());
    if (version != 0 && version != schemaVersion)
        throw DatabaseError("The database file '" + path + "' holds version " + std::to_string(version) +
                            " of the schema, and this program needs version " + std::to_string(schemaVersion) + ".");
    // What a save has reported done is on the disk, even if the power fails.
    session.RunOnFile("PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL; PRAGMA temp_store = MEMORY");
    session.WaitFor(60s);
    session.AddDialect();
    return std::make_unique<SqliteEngine>(std::move(session));
}

}
