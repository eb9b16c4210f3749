#include "store/PostgresEngine.h"

#include "store/DatabaseError.h"
#include "store/PostgresDialect.h"
#include "store/PostgresSession.h"
#include "store/PostgresText.h"
#include "store/PostgresValues.h"
#include "store/Schema.h"
#include "store/TranslatingEngine.h"
#include "values/Text.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace rovanta {

namespace {

using Commands = std::vector<PostgresCommand>;

/// The tables and views of the office with their columns, row by row.
const char* const catalogueText =
    "SELECT c.relname, c.relkind, a.attname, t.typname, a.attnotnull, a.attidentity <> '' FROM pg_class c "
    "JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum > 0 AND NOT a.attisdropped "
    "JOIN pg_type t ON t.oid = a.atttypid "
    "WHERE c.relnamespace = 'public'::regnamespace AND c.relkind IN ('r', 'p', 'v') "
    "ORDER BY c.relname COLLATE \"C\", a.attnum";

/// How a desk tells the others that the tables are not what they were.
const char* const newsText = "NOTIFY rovanta_tables";

class PostgresEngine : public TranslatingEngine {
public:
    explicit PostgresEngine(const std::string& connectionText)
        : TranslatingEngine(PostgresDialect()), session(connectionText)
    {
        const PostgresRows found =
            session.RunScript("SET search_path = public; SET DateStyle = ISO; SET standard_conforming_strings = on; "
                              "SET extra_float_digits = 1; SET lock_timeout = '60s'; SET client_min_messages = error; "
                              "LISTEN rovanta_tables; SELECT to_regclass('rovanta.version') IS NOT NULL");
        equipped = found.Text(0, 0) == "t";
        Commands commands{Bare(catalogueText)};
        if (equipped)
            commands.push_back(Bare("SELECT number FROM rovanta.version"));
        const std::vector<PostgresRows> answers = session.Run(commands);
        TakeRows(answers[0]);
        if (equipped)
            CheckVersion(answers[1]);
    }

    InsertedRow Insert(const TableInfo& table, const std::vector<ColumnValue>& values) override
    {
        PostgresCommand command{"INSERT INTO " + PostgresName(table.name), {}, true};
        std::string marks;
        for (const ColumnValue& value : values) {
            command.text += (marks.empty() ? " (" : ", ") + PostgresName(value.column->name);
            Add(command, value);
            marks += (marks.empty() ? "$" : ", $") + std::to_string(command.arguments.size());
        }
        command.text += values.empty() ? " DEFAULT VALUES" : ") VALUES (" + marks + ")";
        const ColumnInfo* identity = table.Identity();
        command.text += " RETURNING " + (identity != nullptr ? PostgresName(identity->name) : "ctid");
        const PostgresRows inserted = RunOne(std::move(command));
        const std::int64_t rowKey = RowKeyFromPostgres(inserted.Text(0, 0));
        return {rowKey, identity != nullptr ? Value(rowKey) : Value()};
    }

    bool Update(const TableInfo& table, std::int64_t& rowKey, const std::vector<ColumnValue>& changes,
                const std::vector<ColumnValue>& read) override
    {
        PostgresCommand command{"UPDATE " + PostgresName(table.name), {}, true};
        for (const ColumnValue& change : changes) {
            command.text += (command.arguments.empty() ? " SET " : ", ") + PostgresName(change.column->name);
            Add(command, change);
            command.text += " = $" + std::to_string(command.arguments.size());
        }
        AddRowCondition(command, table, rowKey, read);
        command.text += " RETURNING ctid";
        const PostgresRows changed = RunOne(std::move(command));
        if (changed.RowCount() == 0)
            return false;
        // The new version of the row lies elsewhere.
        if (table.Identity() == nullptr)
            rowKey = RowKeyFromPostgres(changed.Text(0, 0));
        return true;
    }

    bool Delete(const TableInfo& table, std::int64_t rowKey, const std::vector<ColumnValue>& read) override
    {
        PostgresCommand command{"DELETE FROM " + PostgresName(table.name), {}, true};
        AddRowCondition(command, table, rowKey, read);
        return RunOne(std::move(command)).ChangedCount() > 0;
    }

    void BeginSnapshot() override
    {
        Step(TransactionStep::Begin);
        beginning = "BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY";
    }

    std::int64_t LastNumber(const TableInfo& table) override
    {
        const PostgresRows answer =
            RunOne(Bare("SELECT greatest(pg_sequence_last_value(" + SequenceOf(table) + "::regclass), (SELECT max(" +
                        PostgresName(table.Identity()->name) + ") FROM " + PostgresName(table.name) + "))"));
        return answer.IsNull(0, 0) ? 0 : std::stoll(std::string(answer.Text(0, 0)));
    }

    void SetSchemaVersion(int version) override
    {
        Equip();
        RunOne(Bare("UPDATE rovanta.version SET number = " + std::to_string(version)));
    }

    std::uint64_t RoundTrips() const override { return session.RoundTrips(); }

private:
    enum class TransactionState { None, Wanted, Begun };

    static PostgresCommand Bare(std::string text) { return {std::move(text), {}, false}; }

    /// The expression that names the table's numbering.
    static std::string SequenceOf(const TableInfo& table)
    {
        return "pg_get_serial_sequence(" + SqlDialect::Quoted(PostgresName(table.name)) + ", " +
               SqlDialect::Quoted(table.Identity()->name) + ")";
    }

    static void Add(PostgresCommand& command, const ColumnValue& value)
    {
        command.arguments.push_back(ToPostgres(*value.value, value.column->type.kind));
    }

    static void AddRowCondition(PostgresCommand& command, const TableInfo& table, std::int64_t rowKey,
                                const std::vector<ColumnValue>& read)
    {
        const ColumnInfo* identity = table.Identity();
        command.arguments.push_back(identity != nullptr ? ToPostgres(rowKey, identity->type.kind) : PlaceOfRow(rowKey));
        command.text += " WHERE " + (identity != nullptr ? PostgresName(identity->name) : "ctid") + " = $" +
                        std::to_string(command.arguments.size());
        for (const ColumnValue& value : read) {
            Add(command, value);
            command.text += " AND " + PostgresName(value.column->name) + " IS NOT DISTINCT FROM $" +
                            std::to_string(command.arguments.size());
        }
    }

    void CheckVersion(const PostgresRows& answer) const
    {
        const int version = answer.RowCount() == 0 ? 0 : std::stoi(std::string(answer.Text(0, 0)));
        if (version != 0 && version != schemaVersion)
            throw DatabaseError("The PostgreSQL database '" + session.Database() + "' holds version " +
                                std::to_string(version) + " of the schema, and this program needs version " +
                                std::to_string(schemaVersion) + ".");
    }

    bool TakeNews() override { return session.TakeNews(); }

    bool MayComeOfOldCatalogue(const DatabaseError& error) const override
    {
        const auto* told = dynamic_cast<const PostgresError*>(&error);
        // A table or column that is not there, one that is, and rows of another shape than was prepared for.
        constexpr std::array<std::string_view, 5> signsOfChange{"42P01", "42703", "42P07", "42704", "0A000"};
        return told == nullptr ||
               std::find(signsOfChange.begin(), signsOfChange.end(), told->State()) != signsOfChange.end();
    }

    bool CatalogueWasOld() override
    {
        const std::string before = catalogueSeen;
        ReadCatalogue();
        return catalogueSeen != before;
    }

    void ReadCatalogue() override { TakeRows(RunOne(Bare(catalogueText))); }

    /// Makes the catalogue of what catalogueText brings.
    void TakeRows(const PostgresRows& rows)
    {
        catalogueSeen.clear();
        auto columns = std::make_shared<std::map<std::string, std::vector<ColumnInfo>>>();
        std::vector<Catalogue::Entry> entries;
        for (int row = 0; row < rows.RowCount(); ++row) {
            for (int column = 0; column < 6; ++column)
                catalogueSeen.append(rows.Text(row, column)).push_back('\n');
            const std::string table(rows.Text(row, 0));
            if (entries.empty() || entries.back().name != table)
                entries.push_back({table, rows.Text(row, 1) == "v" ? TableKind::View : TableKind::Table});
            ColumnInfo& column = (*columns)[table].emplace_back();
            column.name = rows.Text(row, 2);
            column.type = TypeOfPostgresName(rows.Text(row, 3));
            column.nullable = rows.Text(row, 4) == "f";
            column.identity = rows.Text(row, 5) == "t";
        }
        TakeCatalogue(Catalogue(entries, [columns](const std::string& table) { return (*columns)[table]; }));
    }

    /// Brings what the dialect needs into a new database.
    void Equip()
    {
        if (equipped)
            return;
        BeginIfWanted();
        session.RunScript(std::string(PostgresScript()));
        equipped = true;
        equippedHere = transaction != TransactionState::None;
    }

    PostgresRows RunOne(PostgresCommand command)
    {
        Commands commands;
        commands.push_back(std::move(command));
        return Run(std::move(commands)).front();
    }

    /// Runs commands, all or nothing. Within a transaction those that fail end themselves alone; what that takes
    /// travels in the same round trip.
    std::vector<PostgresRows> Run(Commands commands)
    {
        if (transaction == TransactionState::None)
            return session.Run(commands);
        Commands guarded;
        if (transaction == TransactionState::Wanted)
            guarded.push_back(Bare(beginning));
        transaction = TransactionState::Begun;
        guarded.push_back({"SAVEPOINT statement", {}, true});
        const auto before = static_cast<std::ptrdiff_t>(guarded.size());
        std::move(commands.begin(), commands.end(), std::back_inserter(guarded));
        guarded.push_back({"RELEASE SAVEPOINT statement", {}, true});
        try {
            std::vector<PostgresRows> rows = session.Run(guarded);
            rows.erase(rows.begin(), rows.begin() + before);
            rows.pop_back();
            return rows;
        } catch (const PostgresError& error) {
            if (!error.State().empty())
                session.Run({Bare("ROLLBACK TO SAVEPOINT statement"), Bare("RELEASE SAVEPOINT statement")});
            throw;
        }
    }

    void BeginIfWanted()
    {
        if (transaction != TransactionState::Wanted)
            return;
        session.Run({Bare(beginning)});
        transaction = TransactionState::Begun;
    }

    static PostgresCommand Bound(const Plan& plan, const std::vector<Literal>& literals)
    {
        PostgresCommand command{plan.statements.back(), {}, true};
        for (const Parameter& parameter : plan.parameters)
            command.arguments.push_back(ToPostgres(ParameterValue(parameter, literals), parameter.to.kind));
        return command;
    }

    void Change(const Plan& plan, const std::vector<Literal>& literals) override
    {
        Commands commands;
        commands.push_back(Bound(plan, literals));
        // Rows that brought their own number push the table's numbering behind them.
        if (plan.numbered) {
            const std::string name = PostgresName(plan.numbered->name);
            const std::string identity = PostgresName(plan.numbered->Identity()->name);
            const std::string sequence = SequenceOf(*plan.numbered);
            commands.push_back({"SELECT setval(" + sequence + ", greatest((SELECT max(" + identity + ") FROM " + name +
                                    "), nextval(" + sequence + ") - 1, 1))",
                                {},
                                true});
        }
        Run(std::move(commands));
    }

    /// Changes the tables and tells the other desks.
    void Define(const Plan& plan, const std::vector<Literal>& literals) override
    {
        Equip();
        Commands commands;
        for (const std::string& text : plan.statements)
            commands.push_back(Bare(text));
        // The parameters are those of the last.
        commands.back() = Bound(plan, literals);
        commands.back().repeated = false;
        commands.push_back(Bare(newsText));
        commands.push_back(Bare(catalogueText));
        TakeRows(Run(std::move(commands)).back());
    }

    void Step(TransactionStep step) override
    {
        if (step == TransactionStep::Begin) {
            if (transaction != TransactionState::None)
                throw DatabaseError("cannot start a transaction within a transaction");
            // It travels with the first statement.
            transaction = TransactionState::Wanted;
            beginning = "BEGIN";
            return;
        }
        if (transaction == TransactionState::None)
            throw DatabaseError(step == TransactionStep::Commit
                                    ? "The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION."
                                    : "The ROLLBACK TRANSACTION request has no corresponding BEGIN TRANSACTION.");
        const bool begun = transaction == TransactionState::Begun;
        transaction = TransactionState::None;
        if (begun && step == TransactionStep::Commit)
            session.Run({Bare("COMMIT")});
        if (begun && step == TransactionStep::Rollback) {
            TakeRows(session.Run({Bare("ROLLBACK"), Bare(catalogueText)}).back());
            equipped = equipped && !equippedHere;
        }
        equippedHere = false;
    }

    RowSet ReadRows(const Plan& plan, const std::vector<Literal>& literals) override
    {
        const PostgresRows answer = RunOne(Bound(plan, literals));
        RowSet rows;
        rows.shape = plan.shape;
        const std::vector<SourceColumn>& columns = plan.shape->Columns();
        const bool keyed = plan.shape->Updatable() != nullptr;
        rows.rowCount = static_cast<std::size_t>(answer.RowCount());
        rows.cells.reserve(rows.rowCount * columns.size());
        for (int row = 0; row < answer.RowCount(); ++row) {
            int index = 0;
            for (const SourceColumn& column : columns) {
                rows.cells.push_back(
                    answer.IsNull(row, index) ? Value() : FromPostgres(answer.Text(row, index), column.type.kind));
                ++index;
            }
            if (keyed)
                rows.rowKeys.push_back(RowKeyFromPostgres(answer.Text(row, index)));
        }
        return rows;
    }

    PostgresSession session;
    /// The catalogue's rows in one text, to see whether they have changed.
    std::string catalogueSeen;
    TransactionState transaction = TransactionState::None;
    /// The statement that begins it.
    std::string beginning;
    /// Whether the database has what the dialect needs, and whether it came in the transaction that is open.
    bool equipped = false;
    bool equippedHere = false;
};

}

std::unique_ptr<Engine> OpenPostgres(const std::string& connectionText)
{
    return std::make_unique<PostgresEngine>(connectionText);
}

void CreatePostgresDatabase(const std::string& connectionText, const std::string& name, const std::string& like)
{
    PostgresSession session(connectionText);
    std::string text = "CREATE DATABASE " + PostgresName(name);
    text += " TEMPLATE " + (like.empty() ? std::string("template0 ENCODING 'UTF8'") : PostgresName(like));
    session.RunScript(text);
}

void DropPostgresDatabase(const std::string& connectionText, const std::string& name)
{
    PostgresSession session(connectionText);
    session.RunScript("DROP DATABASE IF EXISTS " + PostgresName(name) + " WITH (FORCE)");
}

std::string WithPostgresDatabase(const std::string& connectionText, const std::string& name)
{
    return PostgresText(connectionText).WithDatabase(name);
}

}
