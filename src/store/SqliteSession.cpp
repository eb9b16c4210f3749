#include "store/SqliteSession.h"

#include "store/SqliteDialect.h"
#include "store/SqliteFunctions.h"
#include "store/SqliteTexts.h"
#include "store/TextRules.h"

#include <sqlite3.h>

namespace rovanta {

namespace {

/// The kind of a result code, without what it says beyond.
constexpr int KindOf(int code)
{
    return code & 0xFF;
}

SqliteError LastError(sqlite3* database)
{
    return {sqlite3_errcode(database), ErrorTextOfDialect(sqlite3_errmsg(database))};
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

void BindText(sqlite3_stmt* statement, int place, const std::string& text)
{
    sqlite3_bind_text(statement, place, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

}

bool SqliteError::MeansInUse() const
{
    return KindOf(code) == SQLITE_BUSY || KindOf(code) == SQLITE_LOCKED;
}

bool SqliteError::MeansUnreadable() const
{
    return KindOf(code) == SQLITE_NOTADB || KindOf(code) == SQLITE_CORRUPT;
}

SqliteStatement::~SqliteStatement()
{
    sqlite3_reset(handle);
    sqlite3_clear_bindings(handle);
}

void SqliteStatement::Bind(int place, const Value& value)
{
    const auto& content = value.Get();
    if (const auto* text = std::get_if<std::string>(&content))
        BindText(handle, place, *text);
    else if (const auto* whole = std::get_if<std::int64_t>(&content))
        sqlite3_bind_int64(handle, place, *whole);
    else if (const auto* number = std::get_if<double>(&content))
        sqlite3_bind_double(handle, place, *number);
    else if (const auto* flag = std::get_if<bool>(&content))
        sqlite3_bind_int(handle, place, *flag ? 1 : 0);
    else if (const auto* date = std::get_if<DateTime>(&content))
        BindText(handle, place, ToLongIsoText(*date));
    else
        sqlite3_bind_null(handle, place);
}

bool SqliteStatement::Step()
{
    const int code = sqlite3_step(handle);
    if (code != SQLITE_ROW && code != SQLITE_DONE)
        throw LastError(sqlite3_db_handle(handle));
    return code == SQLITE_ROW;
}

void SqliteStatement::Run()
{
    while (Step()) {
    }
}

std::int64_t SqliteStatement::Whole(int column) const
{
    return sqlite3_column_int64(handle, column);
}

std::string_view SqliteStatement::Text(int column) const
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle, column));
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(handle, column))};
}

Value SqliteStatement::Content(int column, TypeKind kind) const
{
    if (sqlite3_column_type(handle, column) == SQLITE_NULL)
        return {};
    switch (kind) {
    case TypeKind::Bit:
        return Whole(column) != 0;
    case TypeKind::Int:
    case TypeKind::BigInt:
        return Whole(column);
    case TypeKind::Money:
    case TypeKind::Decimal:
    case TypeKind::Float:
        return sqlite3_column_double(handle, column);
    case TypeKind::DateTime:
        if (const auto date = ReadStoredDate(Text(column)))
            return *date;
        break;
    default:
        break;
    }
    return std::string(Text(column));
}

bool SqliteStatement::WasPreparedAnew()
{
    return sqlite3_stmt_status(handle, SQLITE_STMTSTATUS_REPREPARE, 1) > 0;
}

SqliteSession::SqliteSession(const std::string& path) : path(path)
{
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &opened, flags, nullptr);
    database.reset(opened, sqlite3_close_v2);
    if (code != SQLITE_OK)
        throw DatabaseError("The database file '" + path + "' cannot be opened: " + sqlite3_errmsg(opened));
    sqlite3_extended_result_codes(opened, 1);
}

void SqliteSession::WaitFor(std::chrono::milliseconds time)
{
    sqlite3_busy_timeout(database.get(), static_cast<int>(time.count()));
}

void SqliteSession::AddDialect()
{
    sqlite3_create_collation_v2(database.get(), sqliteTextCollation, SQLITE_UTF8, nullptr, Collate, nullptr);
    for (const SqliteFunction& function : sqliteFunctions)
        sqlite3_create_function_v2(database.get(), function.name, function.arguments,
                                   SQLITE_UTF8 | SQLITE_DETERMINISTIC, const_cast<SqliteFunction*>(&function),
                                   CallFunction, nullptr, nullptr, nullptr);
}

SqliteStatement SqliteSession::Prepared(const std::string& text)
{
    if (KeptStatement* kept = statements.Find(text))
        return SqliteStatement(*kept);
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v3(database.get(), text.c_str(), static_cast<int>(text.size()) + 1, SQLITE_PREPARE_PERSISTENT,
                           &prepared, nullptr) != SQLITE_OK)
        throw LastError(database.get());
    statements.Add(text, {{prepared, sqlite3_finalize}});
    return SqliteStatement(*statements.Find(text));
}

SqliteError SqliteSession::CannotBeUsed() const
{
    const int code = sqlite3_errcode(database.get());
    return {code, KindOf(code) == SQLITE_NOTADB
                      ? "The file '" + path + "' is no database."
                      : "The database file '" + path + "' cannot be used: " + sqlite3_errmsg(database.get())};
}

void SqliteSession::RunOnFile(const char* text)
{
    if (sqlite3_exec(database.get(), text, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw CannotBeUsed();
}

std::string SqliteSession::AnswerOfFile(const char* text)
{
    std::string answer;
    const auto take = [](void* place, int, char** values, char**) {
        auto& first = *static_cast<std::string*>(place);
        if (first.empty() && values[0] != nullptr)
            first = values[0];
        return 0;
    };
    if (sqlite3_exec(database.get(), text, take, &answer, nullptr) != SQLITE_OK)
        throw CannotBeUsed();
    return answer;
}

std::int64_t SqliteSession::LastRow() const
{
    return sqlite3_last_insert_rowid(database.get());
}

int SqliteSession::ChangedCount() const
{
    return sqlite3_changes(database.get());
}

void SqliteSession::CopyTo(SqliteSession& target)
{
    std::unique_ptr<sqlite3_backup, int (*)(sqlite3_backup*)> backup(
        sqlite3_backup_init(target.database.get(), "main", database.get(), "main"), sqlite3_backup_finish);
    const int code = backup ? sqlite3_backup_step(backup.get(), -1) : sqlite3_extended_errcode(target.database.get());
    backup.reset();
    if (code != SQLITE_DONE)
        throw DatabaseError("The database file '" + path + "' cannot be copied to '" + target.path +
                            "': " + sqlite3_errstr(code));
}

}
