#include "store/OdbcEngine.h"

#include "store/DatabaseError.h"
#include "store/OdbcText.h"
#include "store/Schema.h"
#include "store/SqlServerText.h"
#include "store/Translator.h"
#include "store/Utf16.h"
#include "values/Text.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>

namespace rovanta {

namespace {

template <SQLSMALLINT type>
struct FreeHandle {
    void operator()(void* handle) const { SQLFreeHandle(type, handle); }
};
struct Disconnect {
    void operator()(void* connection) const
    {
        SQLDisconnect(connection);
        SQLFreeHandle(SQL_HANDLE_DBC, connection);
    }
};
using EnvironmentPointer = std::unique_ptr<void, FreeHandle<SQL_HANDLE_ENV>>;
using UnconnectedPointer = std::unique_ptr<void, FreeHandle<SQL_HANDLE_DBC>>;
using ConnectionPointer = std::unique_ptr<void, Disconnect>;
using StatementPointer = std::unique_ptr<void, FreeHandle<SQL_HANDLE_STMT>>;

/// A text as the driver manager takes it, which has no const in its declarations.
class DriverText {
public:
    explicit DriverText(std::string_view text) : units(ToUtf16(text)) {}
    SQLWCHAR* Data() { return reinterpret_cast<SQLWCHAR*>(units.data()); }
    SQLINTEGER Length() const { return static_cast<SQLINTEGER>(units.size()); }

private:
    std::u16string units;
};

struct Diagnosis {
    std::string state;
    SQLINTEGER number = 0;
    std::string text;
};

/// The text without the names of those who passed it on: "[FreeTDS][SQL Server]Invalid object name 'Tuor'."
std::string WithoutMessengers(std::string text)
{
    while (text.starts_with('[')) {
        const auto end = text.find(']');
        if (end == std::string::npos)
            break;
        text = Trim(text.substr(end + 1));
    }
    return text;
}

std::vector<Diagnosis> Diagnoses(SQLSMALLINT handleType, SQLHANDLE handle)
{
    std::vector<Diagnosis> all;
    std::array<char16_t, 6> state{};
    std::array<char16_t, 4096> text{};
    SQLINTEGER number = 0;
    SQLSMALLINT length = 0;
    for (SQLSMALLINT i = 1; SQL_SUCCEEDED(
             SQLGetDiagRecW(handleType, handle, i, reinterpret_cast<SQLWCHAR*>(state.data()), &number,
                            reinterpret_cast<SQLWCHAR*>(text.data()), static_cast<SQLSMALLINT>(text.size()), &length));
         ++i)
        all.push_back({ToUtf8(state.data()), number, WithoutMessengers(ToUtf8(text.data()))});
    return all;
}

/// What a statement failed with. Where the server tells several things, the first is the reason.
DatabaseError StatementError(SQLHANDLE statement)
{
    const std::vector<Diagnosis> all = Diagnoses(SQL_HANDLE_STMT, statement);
    for (const Diagnosis& one : all)
        if (!one.state.starts_with("01"))
            return DatabaseError(one.text);
    return DatabaseError(all.empty() ? "The database driver failed without a word." : all.front().text);
}

DatabaseError ConnectionError(SQLHANDLE connection, const OdbcText& text)
{
    const std::vector<Diagnosis> all = Diagnoses(SQL_HANDLE_DBC, connection);
    std::string said;
    std::string ofServer;
    bool driverFound = true;
    for (const Diagnosis& one : all) {
        constexpr SQLINTEGER lowestOfDriver = 20000;
        constexpr SQLINTEGER loginFailed = 18456;
        // Once the server has answered, its own words name the user or the database. That the login failed goes with
        // every reason, and is the reason itself where no other is told.
        if (one.number > 0 && one.number < lowestOfDriver && (ofServer.empty() || one.number != loginFailed))
            ofServer = one.text;
        driverFound = driverFound && !one.state.starts_with("IM") && one.text.find("open lib") == std::string::npos;
        said += (said.empty() ? "" : " ") + one.text;
    }
    if (!ofServer.empty())
        return DatabaseError(ofServer);
    if (!driverFound)
        return DatabaseError("The ODBC driver '" + (text.Get("Driver").empty() ? text.Get("DSN") : text.Get("Driver")) +
                             "' cannot be used: " + said);
    return DatabaseError("The database server '" + text.Server() + "' does not answer: " + said);
}

/// A column of a result as the driver tells it.
struct DriverColumn {
    std::string name;
    TypeKind kind;
};

TypeKind KindFromDriver(SQLSMALLINT type)
{
    switch (type) {
    case SQL_BIT:
        return TypeKind::Bit;
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
        return TypeKind::Int;
    case SQL_BIGINT:
        return TypeKind::BigInt;
    case SQL_DECIMAL:
        return TypeKind::Money;
    case SQL_NUMERIC:
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return TypeKind::Float;
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
    case SQL_DATETIME:
        return TypeKind::DateTime;
    default:
        return TypeKind::Varchar;
    }
}

template <class Content>
std::optional<Content> FixedContent(SQLHANDLE statement, SQLUSMALLINT column, SQLSMALLINT type)
{
    Content content{};
    SQLLEN length = 0;
    if (!SQL_SUCCEEDED(SQLGetData(statement, column, type, &content, sizeof content, &length)))
        throw StatementError(statement);
    return length == SQL_NULL_DATA ? std::nullopt : std::optional(content);
}

Value TextContent(SQLHANDLE statement, SQLUSMALLINT column)
{
    std::array<char16_t, 2049> piece{};
    std::u16string text;
    SQLLEN length = 0;
    SQLRETURN code = SQL_SUCCESS_WITH_INFO;
    while (code == SQL_SUCCESS_WITH_INFO) {
        code = SQLGetData(statement, column, SQL_C_WCHAR, piece.data(), sizeof piece, &length);
        if (code == SQL_NO_DATA)
            break;
        if (!SQL_SUCCEEDED(code))
            throw StatementError(statement);
        if (length == SQL_NULL_DATA)
            return {};
        // A piece that is not the last fills the buffer, which ends in a zero.
        const std::size_t room = piece.size() - 1;
        const bool whole = length != SQL_NO_TOTAL && static_cast<std::size_t>(length) <= room * sizeof(char16_t);
        text.append(piece.data(), whole ? static_cast<std::size_t>(length) / sizeof(char16_t) : room);
    }
    return ToUtf8(text);
}

Value Content(SQLHANDLE statement, SQLUSMALLINT column, TypeKind kind)
{
    switch (kind) {
    case TypeKind::Bit: {
        const auto flag = FixedContent<unsigned char>(statement, column, SQL_C_BIT);
        return flag ? Value(*flag != 0) : Value();
    }
    case TypeKind::Int:
    case TypeKind::BigInt: {
        const auto whole = FixedContent<std::int64_t>(statement, column, SQL_C_SBIGINT);
        return whole ? Value(*whole) : Value();
    }
    case TypeKind::Money:
    case TypeKind::Float: {
        const auto number = FixedContent<double>(statement, column, SQL_C_DOUBLE);
        return number ? Value(*number) : Value();
    }
    case TypeKind::DateTime: {
        const auto date = FixedContent<SQL_TIMESTAMP_STRUCT>(statement, column, SQL_C_TYPE_TIMESTAMP);
        return date ? Value(DateTime::Of(date->year, date->month, date->day, date->hour, date->minute, date->second))
                    : Value();
    }
    default:
        return TextContent(statement, column);
    }
}

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
    OdbcEngine(EnvironmentPointer environment, ConnectionPointer connection, int queryTimeout)
        : environment(std::move(environment)), connection(std::move(connection)), queryTimeout(queryTimeout)
    {
    }

    void Execute(std::string_view statement) override
    {
        RefuseSecondStatement(statement);
        const StatementPointer sent = Send(statement);
        ReadToEnd(sent.get());
        constexpr std::array<std::string_view, 5> changers{"CREATE", "DROP", "ALTER", "ROLLBACK", "SELECT"};
        const auto begins = [&](std::string_view word) { return StartsWithNoCase(statement, word); };
        catalogueStale |= std::any_of(changers.begin(), changers.end(), begins);
    }

    RowSet Query(std::string_view select) override
    {
        RefuseSecondStatement(select);
        const StatementPointer sent = Send(select);
        while (ColumnCount(sent.get()) == 0)
            if (!NextResult(sent.get()))
                throw DatabaseError(
                    "Operation is not allowed when the object is closed: the statement returns no rows.");
        const std::vector<DriverColumn> columns = Describe(sent.get());
        RowSet rows;
        rows.cells = ReadCells(sent.get(), columns);
        rows.rowCount = rows.cells.size() / columns.size();
        ReadToEnd(sent.get());
        rows.shape = ShapeOf(select, columns);
        AddRowKeys(rows);
        return rows;
    }

    InsertedRow Insert(const TableInfo& table, const std::vector<ColumnValue>& values) override
    {
        const StatementPointer sent = Send(SqlServerInsert(table, values));
        Value number;
        do {
            if (const std::vector<Value> cells = ReadCells(sent.get(), Describe(sent.get())); !cells.empty())
                number = cells.front();
        } while (NextResult(sent.get()));
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

    void BeginSnapshot() override { RunOwn(sqlServerSnapshot); }

    std::int64_t LastNumber(const TableInfo& table) override
    {
        const StatementPointer sent = Send(SqlServerLastNumber(table));
        double last = 0;
        for (const Value& number : ReadCells(sent.get(), Describe(sent.get())))
            last = std::max(last, number.IsNull() ? 0 : number.Number());
        return static_cast<std::int64_t>(last);
    }

    Catalogue& Tables() override
    {
        if (catalogueStale)
            ReadCatalogue();
        return catalogue;
    }

    std::uint64_t RoundTrips() const override { return roundTrips; }

    void SetSchemaVersion(int version) override { RunOwn(SqlServerSetVersion(version)); }

    /// Runs a batch of the store's own.
    void RunOwn(const std::string& batch) { ReadToEnd(Send(batch).get()); }

    std::optional<int> NotedVersion()
    {
        const StatementPointer sent = Send(sqlServerVersion);
        const std::vector<Value> cells = ReadCells(sent.get(), Describe(sent.get()));
        return cells.empty() ? std::nullopt : std::optional(static_cast<int>(cells.front().Number()));
    }

private:
    StatementPointer Send(std::string_view text)
    {
        SQLHANDLE handle = nullptr;
        if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, connection.get(), &handle)))
            throw DatabaseError("The connection to the database is closed.");
        StatementPointer statement(handle);
        SQLSetStmtAttr(handle, SQL_ATTR_QUERY_TIMEOUT, reinterpret_cast<SQLPOINTER>(std::intptr_t{queryTimeout}), 0);
        DriverText sent(text);
        ++roundTrips;
        const SQLRETURN code = SQLExecDirectW(handle, sent.Data(), sent.Length());
        if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA)
            throw StatementError(handle);
        return statement;
    }

    /// Goes on to the next result of a batch; a statement of it that failed tells so here.
    static bool NextResult(SQLHANDLE statement)
    {
        const SQLRETURN code = SQLMoreResults(statement);
        if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA)
            throw StatementError(statement);
        return code != SQL_NO_DATA;
    }

    static void ReadToEnd(SQLHANDLE statement)
    {
        while (NextResult(statement)) {
        }
    }

    static SQLSMALLINT ColumnCount(SQLHANDLE statement)
    {
        SQLSMALLINT count = 0;
        if (!SQL_SUCCEEDED(SQLNumResultCols(statement, &count)))
            throw StatementError(statement);
        return count;
    }

    static std::vector<DriverColumn> Describe(SQLHANDLE statement)
    {
        std::vector<DriverColumn> columns;
        const SQLSMALLINT count = ColumnCount(statement);
        for (SQLUSMALLINT i = 1; i <= count; ++i) {
            std::array<char16_t, 300> name{};
            SQLSMALLINT length = 0;
            SQLSMALLINT type = 0;
            SQLSMALLINT decimals = 0;
            SQLSMALLINT nullable = 0;
            SQLULEN size = 0;
            if (!SQL_SUCCEEDED(SQLDescribeColW(statement, i, reinterpret_cast<SQLWCHAR*>(name.data()),
                                               static_cast<SQLSMALLINT>(name.size()), &length, &type, &size, &decimals,
                                               &nullable)))
                throw StatementError(statement);
            columns.push_back({ToUtf8(name.data()), KindFromDriver(type)});
        }
        return columns;
    }

    /// The rows of the result at hand, value after value; empty where it has no columns.
    static std::vector<Value> ReadCells(SQLHANDLE statement, const std::vector<DriverColumn>& columns)
    {
        std::vector<Value> cells;
        if (columns.empty())
            return cells;
        SQLRETURN code = SQL_SUCCESS;
        while (SQL_SUCCEEDED(code = SQLFetch(statement)))
            for (std::size_t i = 0; i < columns.size(); ++i)
                cells.push_back(Content(statement, static_cast<SQLUSMALLINT>(i + 1), columns[i].kind));
        if (code != SQL_NO_DATA)
            throw StatementError(statement);
        return cells;
    }

    /// How many rows a change found.
    SQLLEN RowsChanged(const std::string& change)
    {
        const StatementPointer sent = Send(change);
        SQLLEN changed = 0;
        if (!SQL_SUCCEEDED(SQLRowCount(sent.get(), &changed)))
            throw StatementError(sent.get());
        ReadToEnd(sent.get());
        return changed;
    }

    /// What the result is made of: the columns as the server delivers them, and behind them those of the one table that
    /// they come from, where the statement shows it.
    std::shared_ptr<const ResultShape> ShapeOf(std::string_view select, const std::vector<DriverColumn>& columns)
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
        for (const DriverColumn& column : columns)
            delivered.push_back({column.name, {column.kind}, nullptr, nullptr});
        return std::make_shared<ResultShape>(std::move(delivered), nullptr);
    }

    static bool Agree(const ResultShape& shape, const std::vector<DriverColumn>& columns)
    {
        return std::equal(
            shape.Names().begin(), shape.Names().end(), columns.begin(), columns.end(),
            [](const std::string& name, const DriverColumn& column) { return EqualNoCase(name, column.name); });
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
        const StatementPointer sent = Send(sqlServerCatalogue);
        const std::vector<DriverColumn> described = Describe(sent.get());
        const std::vector<Value> cells = ReadCells(sent.get(), described);
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

    EnvironmentPointer environment;
    ConnectionPointer connection;
    int queryTimeout;
    Translator translator{ShapeAlone};
    Catalogue catalogue;
    bool catalogueStale = true;
    std::uint64_t roundTrips = 0;
};

EnvironmentPointer OpenEnvironment()
{
    SQLHANDLE handle = nullptr;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &handle)))
        throw DatabaseError("The ODBC driver manager cannot be used.");
    EnvironmentPointer environment(handle);
    SQLSetEnvAttr(handle, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(std::intptr_t{SQL_OV_ODBC3}), 0);
    return environment;
}

ConnectionPointer SignIn(SQLHANDLE environment, const OdbcText& text)
{
    SQLHANDLE handle = nullptr;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_DBC, environment, &handle)))
        throw DatabaseError("The ODBC driver manager cannot be used.");
    UnconnectedPointer unconnected(handle);
    constexpr int mostLoginSeconds = 8;
    const int loginSeconds = text.Seconds(loginTimeoutKey, mostLoginSeconds);
    if (text.Server().empty())
        throw DatabaseError("The connection text names no server.");
    SQLSetConnectAttr(handle, SQL_ATTR_LOGIN_TIMEOUT, reinterpret_cast<SQLPOINTER>(std::intptr_t{loginSeconds}), 0);
    DriverText driverText(text.ForDriver());
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(SQLDriverConnectW(handle, nullptr, driverText.Data(),
                                         static_cast<SQLSMALLINT>(driverText.Length()), nullptr, 0, &length,
                                         SQL_DRIVER_NOPROMPT)))
        throw ConnectionError(handle, text);
    return ConnectionPointer(unconnected.release());
}

}

std::unique_ptr<Engine> OpenOdbc(const std::string& connectionText)
{
    const OdbcText text(connectionText);
    if (text.Get("Driver").empty() && text.Get("DSN").empty())
        throw DatabaseError("The connection text names no ODBC driver.");
    constexpr int mostQuerySeconds = 60;
    const int querySeconds = text.Seconds(queryTimeoutKey, mostQuerySeconds);
    EnvironmentPointer environment = OpenEnvironment();
    ConnectionPointer connection = SignIn(environment.get(), text);
    auto engine = std::make_unique<OdbcEngine>(std::move(environment), std::move(connection), querySeconds);
    engine->RunOwn(sqlServerSettings);
    if (const auto version = engine->NotedVersion(); version && *version != schemaVersion)
        throw DatabaseError("The database '" + text.Get("Database") + "' holds version " + std::to_string(*version) +
                            " of the schema, and this program needs version " + std::to_string(schemaVersion) + ".");
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
