#include "store/SqliteEngine.h"

#include "store/Conversion.h"
#include "store/DatabaseError.h"
#include "store/Schema.h"
#include "store/SqliteEmitter.h"
#include "store/SqliteFunctions.h"
#include "store/SqliteTexts.h"
#include "store/TextRules.h"
#include "store/Translator.h"
#include "values/Text.h"

#include <sqlite3.h>

#include <filesystem>
#include <list>
#include <unordered_map>

#include <fcntl.h>
#include <unistd.h>

namespace rovanta {

namespace {

struct CloseDatabase {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
struct FinishBackup {
    void operator()(sqlite3_backup* backup) const { sqlite3_backup_finish(backup); }
};
using DatabasePointer = std::unique_ptr<sqlite3, CloseDatabase>;
using StatementPointer = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

DatabaseError LastError(sqlite3* database)
{
    return DatabaseError(ErrorTextOfDialect(sqlite3_errmsg(database)));
}

int Collate(void*, int leftLength, const void* left, int rightLength, const void* right)
{
    return CompareText({static_cast<const char*>(left), static_cast<std::size_t>(leftLength)},
                       {static_cast<const char*>(right), static_cast<std::size_t>(rightLength)});
}

Value ArgumentValue(sqlite3_value* value)
{
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        return static_cast<std::int64_t>(sqlite3_value_int64(value));
    case SQLITE_FLOAT:
        return sqlite3_value_double(value);
    case SQLITE_NULL:
        return {};
    default: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
        return std::string(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
    }
    }
}

void SetResult(sqlite3_context* context, const Value& value)
{
    const auto& content = value.Get();
    if (const auto* flag = std::get_if<bool>(&content))
        sqlite3_result_int(context, *flag ? 1 : 0);
    else if (const auto* whole = std::get_if<std::int64_t>(&content))
        sqlite3_result_int64(context, *whole);
    else if (const auto* number = std::get_if<double>(&content))
        sqlite3_result_double(context, *number);
    else if (value.IsNull())
        sqlite3_result_null(context);
    else {
        const std::string text = value.IsDate() ? ToLongIsoText(value.Date()) : value.Text();
        sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    }
}

void CallFunction(sqlite3_context* context, int count, sqlite3_value** arguments)
{
    const auto* function = static_cast<const SqliteFunction*>(sqlite3_user_data(context));
    try {
        std::array<Value, 4> values;
        for (int i = 0; i < count; ++i)
            values.at(static_cast<std::size_t>(i)) = ArgumentValue(arguments[i]);
        SetResult(context, function->call(values.data()));
    } catch (const std::exception& error) {
        sqlite3_result_error(context, error.what(), -1);
    }
}

void AddDialect(sqlite3* database)
{
    sqlite3_create_collation_v2(database, sqliteTextCollation, SQLITE_UTF8, nullptr, Collate, nullptr);
    for (const SqliteFunction& function : sqliteFunctions)
        sqlite3_create_function_v2(database, function.name, function.arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                   const_cast<SqliteFunction*>(&function), CallFunction, nullptr, nullptr, nullptr);
}

void BindValue(sqlite3_stmt* statement, int index, const Value& value)
{
    const auto& content = value.Get();
    if (const auto* text = std::get_if<std::string>(&content))
        sqlite3_bind_text(statement, index, text->data(), static_cast<int>(text->size()), SQLITE_TRANSIENT);
    else if (const auto* whole = std::get_if<std::int64_t>(&content))
        sqlite3_bind_int64(statement, index, *whole);
    else if (const auto* number = std::get_if<double>(&content))
        sqlite3_bind_double(statement, index, *number);
    else if (const auto* flag = std::get_if<bool>(&content))
        sqlite3_bind_int(statement, index, *flag ? 1 : 0);
    else if (const auto* date = std::get_if<DateTime>(&content)) {
        const std::string text = ToLongIsoText(*date);
        sqlite3_bind_text(statement, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    } else
        sqlite3_bind_null(statement, index);
}

std::string_view ColumnText(sqlite3_stmt* statement, int index)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, index));
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, index))};
}

/// A column of the current row as a value of its type; an expression without one has the type that SQLite gives it.
Value ColumnContent(sqlite3_stmt* statement, int index, TypeKind kind)
{
    const int stored = sqlite3_column_type(statement, index);
    if (stored == SQLITE_NULL)
        return {};
    switch (kind) {
    case TypeKind::Bit:
        return sqlite3_column_int64(statement, index) != 0;
    case TypeKind::Int:
    case TypeKind::BigInt:
        return static_cast<std::int64_t>(sqlite3_column_int64(statement, index));
    case TypeKind::Money:
    case TypeKind::Decimal:
    case TypeKind::Float:
        return sqlite3_column_double(statement, index);
    case TypeKind::DateTime:
        if (const auto date = ReadStoredDate(ColumnText(statement, index)))
            return *date;
        break;
    default:
        break;
    }
    return std::string(ColumnText(statement, index));
}

/// Puts a statement back to its start when its use ends, so that no read lock outlives it.
class Use {
public:
    explicit Use(sqlite3_stmt* statement) : statement(statement) {}
    ~Use()
    {
        sqlite3_reset(statement);
        sqlite3_clear_bindings(statement);
    }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;

private:
    sqlite3_stmt* statement;
};

class SqliteEngine : public Engine {
public:
    explicit SqliteEngine(DatabasePointer opened) : database(std::move(opened)) { ReadCatalogue(); }

    void Execute(std::string_view statement) override
    {
        WithFreshCatalogue([&] {
            const auto translated = translator.Translate(statement, catalogue);
            Run(*translated.plan, translated.literals);
        });
    }

    RowSet Query(std::string_view select) override
    {
        RowSet rows;
        WithFreshCatalogue([&] {
            const auto translated = translator.Translate(select, catalogue);
            if (translated.plan->kind != PlanKind::Query)
                throw DatabaseError(
                    "Operation is not allowed when the object is closed: the statement returns no rows.");
            rows = ReadRows(*translated.plan, translated.literals);
            // Another program has changed a table meanwhile: what the star stood for may be another list of columns
            // now.
            if (!SchemaChanged())
                return;
            ReadCatalogue();
            const auto again = translator.Translate(select, catalogue);
            rows = ReadRows(*again.plan, again.literals);
        });
        return rows;
    }

    InsertedRow Insert(const TableInfo& table, const std::vector<ColumnValue>& values) override
    {
        sqlite3_stmt* statement = Prepared(InsertRowText(table, values));
        const Use use(statement);
        BindAll(statement, 1, values);
        StepToEnd(statement);
        const std::int64_t row = sqlite3_last_insert_rowid(database.get());
        return {row, table.Identity() != nullptr ? Value(row) : Value()};
    }

    bool Update(const TableInfo& table, std::int64_t& rowKey, const std::vector<ColumnValue>& changes,
                const std::vector<ColumnValue>& read) override
    {
        sqlite3_stmt* statement = Prepared(UpdateRowText(table, changes, read));
        const Use use(statement);
        const int next = BindAll(statement, 1, changes);
        BindValue(statement, next, rowKey);
        BindAll(statement, next + 1, read);
        StepToEnd(statement);
        return sqlite3_changes(database.get()) > 0;
    }

    bool Delete(const TableInfo& table, std::int64_t rowKey, const std::vector<ColumnValue>& read) override
    {
        sqlite3_stmt* statement = Prepared(DeleteRowText(table, read));
        const Use use(statement);
        BindValue(statement, 1, rowKey);
        BindAll(statement, 2, read);
        StepToEnd(statement);
        return sqlite3_changes(database.get()) > 0;
    }

    Catalogue& Tables() override { return catalogue; }

    void SetSchemaVersion(int version) override { RunText("PRAGMA user_version = " + std::to_string(version)); }

private:
    struct Remembered {
        std::string text;
        StatementPointer statement;
        /// How much it read when it last ran, which is what it will read about this time.
        std::size_t cellsRead = 0;
    };

    /// Does the work; where it fails and another program has changed the tables meanwhile, once more with the new ones.
    template <class Work>
    void WithFreshCatalogue(Work work)
    {
        try {
            work();
        } catch (const DatabaseError&) {
            if (SchemaVersionNumber() == schemaNumber)
                throw;
            ReadCatalogue();
            work();
        }
    }

    void Run(const Plan& plan, const std::vector<Literal>& literals)
    {
        switch (plan.kind) {
        case PlanKind::Query:
            ReadRows(plan, literals);
            break;
        case PlanKind::Change:
            RunBound(plan, literals);
            break;
        case PlanKind::Definition:
            Define(plan, literals);
            break;
        case PlanKind::IdentityInsert:
            translator.SetIdentityInsert(plan.identityInsert.on ? plan.identityInsert.table : "");
            break;
        case PlanKind::Transaction:
            RunTransaction(plan.transaction);
            break;
        }
    }

    void RunBound(const Plan& plan, const std::vector<Literal>& literals)
    {
        sqlite3_stmt* statement = Prepared(plan.statements.back());
        const Use use(statement);
        BindLiterals(statement, plan, literals);
        StepToEnd(statement);
    }

    /// Changes the tables. A SELECT ... INTO is two statements that come to pass together or not at all.
    void Define(const Plan& plan, const std::vector<Literal>& literals)
    {
        if (!plan.creates.empty() && catalogue.Find(plan.creates) != nullptr)
            throw DatabaseError("There is already an object named '" + plan.creates + "' in the database.");
        const TablePointer dropped = plan.drops.empty() ? nullptr : catalogue.Find(plan.drops);
        if (!plan.drops.empty() && (!dropped || dropped->kind != plan.droppedKind))
            throw DatabaseError("Cannot drop the table '" + plan.drops +
                                "', because it does not exist or you do not have permission.");
        if (plan.statements.size() == 1) {
            RunText(plan.statements[0]);
        } else {
            RunText("SAVEPOINT definition");
            try {
                RunText(plan.statements[0]);
                RunBound(plan, literals);
            } catch (const DatabaseError&) {
                RunText("ROLLBACK TO definition");
                RunText("RELEASE definition");
                throw;
            }
            RunText("RELEASE definition");
        }
        ReadCatalogue();
    }

    void RunTransaction(TransactionStep step)
    {
        // Taking the write lock at once, a transaction cannot meet another's on its way from reading to writing.
        RunText(step == TransactionStep::Begin    ? "BEGIN IMMEDIATE"
                : step == TransactionStep::Commit ? "COMMIT"
                                                  : "ROLLBACK");
        if (step == TransactionStep::Rollback)
            ReadCatalogue();
    }

    RowSet ReadRows(const Plan& plan, const std::vector<Literal>& literals)
    {
        sqlite3_stmt* statement = Prepared(plan.statements[0]);
        const Use use(statement);
        BindLiterals(statement, plan, literals);
        RowSet rows;
        rows.shape = plan.shape;
        Remembered& remembered = recent.front();
        rows.cells.reserve(remembered.cellsRead);
        const std::vector<SourceColumn>& columns = plan.shape->Columns();
        const bool keyed = plan.shape->Updatable() != nullptr;
        int code = 0;
        while ((code = sqlite3_step(statement)) == SQLITE_ROW) {
            int index = 0;
            for (const SourceColumn& column : columns)
                rows.cells.push_back(ColumnContent(statement, index++, column.type.kind));
            if (keyed)
                rows.rowKeys.push_back(sqlite3_column_int64(statement, index));
            ++rows.rowCount;
        }
        if (code != SQLITE_DONE)
            throw LastError(database.get());
        remembered.cellsRead = rows.cells.size();
        preparedAgain = sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_REPREPARE, 1) > 0;
        return rows;
    }

    static void BindLiterals(sqlite3_stmt* statement, const Plan& plan, const std::vector<Literal>& literals)
    {
        int index = 0;
        for (const Parameter& parameter : plan.parameters)
            BindValue(statement, ++index, ParameterValue(parameter, literals));
    }

    /// Binds the values from that place on; the place behind the last.
    static int BindAll(sqlite3_stmt* statement, int index, const std::vector<ColumnValue>& values)
    {
        for (const ColumnValue& value : values)
            BindValue(statement, index++, *value.value);
        return index;
    }

    void StepToEnd(sqlite3_stmt* statement)
    {
        int code = SQLITE_ROW;
        while (code == SQLITE_ROW)
            code = sqlite3_step(statement);
        if (code != SQLITE_DONE)
            throw LastError(database.get());
    }

    StatementPointer Prepare(const std::string& text)
    {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v3(database.get(), text.c_str(), static_cast<int>(text.size()) + 1,
                               SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK)
            throw LastError(database.get());
        return StatementPointer(statement);
    }

    /// A prepared statement out of those used last.
    sqlite3_stmt* Prepared(const std::string& text)
    {
        if (const auto found = byText.find(text); found != byText.end()) {
            recent.splice(recent.begin(), recent, found->second);
            return recent.front().statement.get();
        }
        recent.push_front({text, Prepare(text), 0});
        byText.emplace(recent.front().text, recent.begin());
        constexpr std::size_t mostKept = 100;
        if (recent.size() > mostKept) {
            byText.erase(recent.back().text);
            recent.pop_back();
        }
        return recent.front().statement.get();
    }

    void RunText(const std::string& text)
    {
        const StatementPointer statement = Prepare(text);
        StepToEnd(statement.get());
    }

    std::int64_t SchemaVersionNumber()
    {
        const StatementPointer statement = Prepare("PRAGMA schema_version");
        if (sqlite3_step(statement.get()) != SQLITE_ROW)
            throw LastError(database.get());
        return sqlite3_column_int64(statement.get(), 0);
    }

    bool SchemaChanged() { return preparedAgain && SchemaVersionNumber() != schemaNumber; }

    void ReadCatalogue()
    {
        translator.Forget();
        schemaNumber = SchemaVersionNumber();
        std::vector<Catalogue::Entry> entries;
        const StatementPointer statement = Prepare(
            "SELECT name, type FROM sqlite_schema WHERE type IN ('table', 'view') AND name NOT LIKE 'sqlite_%'");
        while (sqlite3_step(statement.get()) == SQLITE_ROW)
            entries.push_back({std::string(ColumnText(statement.get(), 0)),
                               ColumnText(statement.get(), 1) == "view" ? TableKind::View : TableKind::Table});
        catalogue = Catalogue(entries, [this](const std::string& table) { return ReadColumns(table); });
    }

    std::vector<ColumnInfo> ReadColumns(const std::string& table)
    {
        std::vector<ColumnInfo> columns;
        const StatementPointer statement = Prepare("SELECT name, type, \"notnull\", pk FROM pragma_table_xinfo(?)");
        BindValue(statement.get(), 1, table);
        while (sqlite3_step(statement.get()) == SQLITE_ROW) {
            ColumnInfo& column = columns.emplace_back();
            column.name = ColumnText(statement.get(), 0);
            const std::string_view declared = ColumnText(statement.get(), 1);
            column.type = ReadTypeDeclaration(declared).value_or(SqlType{TypeKind::Varchar});
            column.nullable = sqlite3_column_int(statement.get(), 2) == 0;
            column.identity = sqlite3_column_int(statement.get(), 3) != 0 && EqualNoCase(declared, "INTEGER");
        }
        return columns;
    }

    DatabasePointer database;
    Translator translator{EmitForSqlite};
    Catalogue catalogue;
    std::int64_t schemaNumber = 0;
    bool preparedAgain = false;
    std::list<Remembered> recent;
    std::unordered_map<std::string_view, std::list<Remembered>::iterator> byText;
};

DatabasePointer OpenFile(const std::string& path, int flags)
{
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &opened, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    DatabasePointer database(opened);
    if (code != SQLITE_OK)
        throw DatabaseError("The database file '" + path + "' cannot be opened: " + sqlite3_errmsg(opened));
    sqlite3_extended_result_codes(opened, 1);
    return database;
}

DatabaseError CannotBeUsed(sqlite3* database, const std::string& path)
{
    return DatabaseError((sqlite3_errcode(database) & 0xFF) == SQLITE_NOTADB
                             ? "The file '" + path + "' is no database."
                             : "The database file '" + path + "' cannot be used: " + sqlite3_errmsg(database));
}

void Run(sqlite3* database, const std::string& path, const char* text)
{
    if (sqlite3_exec(database, text, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw CannotBeUsed(database, path);
}

/// What the first row of the statement's answer begins with.
std::string FirstAnswer(sqlite3* database, const std::string& path, const char* text)
{
    std::string answer;
    const auto take = [](void* place, int, char** values, char**) {
        auto& first = *static_cast<std::string*>(place);
        if (first.empty() && values[0] != nullptr)
            first = values[0];
        return 0;
    };
    if (sqlite3_exec(database, text, take, &answer, nullptr) != SQLITE_OK)
        throw CannotBeUsed(database, path);
    return answer;
}

void RefuseWhatIsNoFile(const std::string& path)
{
    std::error_code unknown;
    const std::filesystem::file_status status = std::filesystem::status(path, unknown);
    if (status.type() == std::filesystem::file_type::not_found)
        throw DatabaseError("The database file '" + path + "' does not exist.");
    if (status.type() == std::filesystem::file_type::none)
        throw DatabaseError("The database file '" + path + "' cannot be opened: " + unknown.message());
    if (std::filesystem::is_directory(status))
        throw DatabaseError("'" + path + "' is a folder and no database file.");
    if (!std::filesystem::is_regular_file(status))
        throw DatabaseError("'" + path + "' is no database file.");
    if (faccessat(AT_FDCWD, path.c_str(), R_OK | W_OK, AT_EACCESS) != 0)
        throw DatabaseError("The database file '" + path +
                            "' cannot be written: " + std::generic_category().message(errno));
}

int FileVersion(sqlite3* database, const std::string& path)
{
    return std::atoi(FirstAnswer(database, path, "PRAGMA user_version").c_str());
}

}

std::unique_ptr<Engine> OpenSqlite(const std::string& path)
{
    RefuseWhatIsNoFile(path);
    DatabasePointer database = OpenFile(path, SQLITE_OPEN_READWRITE);
    constexpr int connectMilliseconds = 10'000;
    constexpr int workMilliseconds = 60'000;
    sqlite3_busy_timeout(database.get(), connectMilliseconds);
    const int version = FileVersion(database.get(), path);
    if (version != 0 && version != schemaVersion)
        throw DatabaseError("The database file '" + path + "' holds version " + std::to_string(version) +
                            " of the schema, and this program needs version " + std::to_string(schemaVersion) + ".");
    // What a save has reported done is on the disk, even if the power fails.
    Run(database.get(), path, "PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL; PRAGMA temp_store = MEMORY");
    sqlite3_busy_timeout(database.get(), workMilliseconds);
    AddDialect(database.get());
    return std::make_unique<SqliteEngine>(std::move(database));
}

void CreateSqliteFile(const std::string& path)
{
    std::error_code unknown;
    if (std::filesystem::exists(path, unknown))
        throw DatabaseError("The file '" + path + "' exists already.");
    const DatabasePointer database = OpenFile(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    Run(database.get(), path, "PRAGMA journal_mode = WAL");
}

void CopySqliteFile(const std::string& path, const std::string& copy)
{
    RefuseWhatIsNoFile(path);
    std::error_code unknown;
    if (std::filesystem::exists(copy, unknown))
        throw DatabaseError("The file '" + copy + "' exists already.");
    constexpr int waitMilliseconds = 60'000;
    const DatabasePointer source = OpenFile(path, SQLITE_OPEN_READWRITE);
    sqlite3_busy_timeout(source.get(), waitMilliseconds);
    FileVersion(source.get(), path);
    const DatabasePointer target = OpenFile(copy, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    // All pages in one step are those of one moment, and nobody waits for them.
    std::unique_ptr<sqlite3_backup, FinishBackup> backup(
        sqlite3_backup_init(target.get(), "main", source.get(), "main"));
    const int code = backup ? sqlite3_backup_step(backup.get(), -1) : sqlite3_extended_errcode(target.get());
    backup.reset();
    if (code != SQLITE_DONE)
        throw DatabaseError("The database file '" + path + "' cannot be copied to '" + copy +
                            "': " + sqlite3_errstr(code));
    // Without a log beside it the copy is one file that can be carried away.
    Run(target.get(), copy, "PRAGMA journal_mode = DELETE");
    AddDialect(target.get());
    const std::string verdict = FirstAnswer(target.get(), path, "PRAGMA integrity_check(1)");
    if (verdict != "ok")
        throw DatabaseError("The database file '" + path + "' is damaged: " + verdict);
}

void WithSqliteFileAlone(const std::string& path, const std::function<void()>& work)
{
    const DatabasePointer database = OpenFile(path, SQLITE_OPEN_READWRITE);
    constexpr int waitMilliseconds = 1'000;
    sqlite3_busy_timeout(database.get(), waitMilliseconds);
    // Only who is alone with the file can end its log; the lock that this takes stays until the work is done.
    const int code =
        sqlite3_exec(database.get(), "PRAGMA journal_mode = DELETE; PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE",
                     nullptr, nullptr, nullptr);
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        throw DatabaseError("The database file '" + path + "' is in use.");
    case SQLITE_OK:
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        work();
        break;
    default:
        throw CannotBeUsed(database.get(), path);
    }
}

}
