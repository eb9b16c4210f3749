#include "store/OdbcSession.h"

#include "store/DatabaseError.h"
#include "store/Utf16.h"
#include "values/Text.h"

#include <sql.h>
#include <sqlext.h>

#include <array>
#include <optional>

namespace rovanta {

namespace {

constexpr int mostQuerySeconds = 60;

template <SQLSMALLINT type>
void Free(void* handle)
{
    SQLFreeHandle(type, handle);
}

void Disconnect(void* connection)
{
    SQLDisconnect(connection);
    Free<SQL_HANDLE_DBC>(connection);
}

/// A text as the driver manager takes it, which has no const in its declarations.
class DriverText {
public:
    explicit DriverText(std::string_view text) : units(ToUtf16(text)) {}
    SQLWCHAR* Data() { return reinterpret_cast<SQLWCHAR*>(units.data()); }
    SQLINTEGER Length() const { return static_cast<SQLINTEGER>(units.size()); }

private:
    std::u16string units;
};

/// A number as the driver manager takes it where its interface says a pointer.
SQLPOINTER AsPointer(std::intptr_t number)
{
    return reinterpret_cast<SQLPOINTER>(number); // NOLINT(performance-no-int-to-ptr)
}

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
        // The driver says some things more than once.
        if (said.find(one.text) == std::string::npos)
            said += (said.empty() ? "" : " ") + one.text;
    }
    if (!ofServer.empty())
        return DatabaseError(ofServer);
    if (!driverFound)
        return DatabaseError("The ODBC driver '" + (text.Get("Driver").empty() ? text.Get("DSN") : text.Get("Driver")) +
                             "' cannot be used: " + said);
    return DatabaseError("The database server '" + text.Server() + "' does not answer: " + said);
}

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

OdbcHandle OpenEnvironment()
{
    SQLHANDLE handle = nullptr;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &handle)))
        throw DatabaseError("The ODBC driver manager cannot be used.");
    SQLSetEnvAttr(handle, SQL_ATTR_ODBC_VERSION, AsPointer(SQL_OV_ODBC3), 0);
    return {handle, Free<SQL_HANDLE_ENV>};
}

OdbcHandle SignIn(SQLHANDLE environment, const OdbcText& text)
{
    if (text.Get("Driver").empty() && text.Get("DSN").empty())
        throw DatabaseError("The connection text names no ODBC driver.");
    constexpr int mostLoginSeconds = 8;
    const int loginSeconds = text.Seconds(loginTimeoutKey, mostLoginSeconds);
    if (text.Server().empty())
        throw DatabaseError("The connection text names no server.");
    SQLHANDLE handle = nullptr;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_DBC, environment, &handle)))
        throw DatabaseError("The ODBC driver manager cannot be used.");
    OdbcHandle unconnected(handle, Free<SQL_HANDLE_DBC>);
    SQLSetConnectAttr(handle, SQL_ATTR_LOGIN_TIMEOUT, AsPointer(loginSeconds), 0);
    DriverText driverText(text.ForDriver());
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(SQLDriverConnectW(handle, nullptr, driverText.Data(),
                                         static_cast<SQLSMALLINT>(driverText.Length()), nullptr, 0, &length,
                                         SQL_DRIVER_NOPROMPT)))
        throw ConnectionError(handle, text);
    return {unconnected.release(), Disconnect};
}

}

OdbcSession::OdbcSession(const OdbcText& text)
    : querySeconds(text.Seconds(queryTimeoutKey, mostQuerySeconds)), environment(OpenEnvironment()),
      connection(SignIn(environment.get(), text))
{
}

OdbcBatch OdbcSession::Send(std::string_view batch)
{
    SQLHANDLE handle = nullptr;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, connection.get(), &handle)))
        throw DatabaseError("The connection to the database is closed.");
    OdbcHandle statement(handle, Free<SQL_HANDLE_STMT>);
    SQLSetStmtAttr(handle, SQL_ATTR_QUERY_TIMEOUT, AsPointer(querySeconds), 0);
    DriverText sent(batch);
    ++roundTrips;
    const SQLRETURN code = SQLExecDirectW(handle, sent.Data(), sent.Length());
    if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA)
        throw StatementError(handle);
    return OdbcBatch(std::move(statement));
}

bool OdbcBatch::NextResult()
{
    const SQLRETURN code = SQLMoreResults(statement.get());
    if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA)
        throw StatementError(statement.get());
    return code != SQL_NO_DATA;
}

void OdbcBatch::ReadToEnd()
{
    while (NextResult()) {
    }
}

std::vector<OdbcColumn> OdbcBatch::Columns() const
{
    SQLSMALLINT count = 0;
    if (!SQL_SUCCEEDED(SQLNumResultCols(statement.get(), &count)))
        throw StatementError(statement.get());
    std::vector<OdbcColumn> columns;
    for (SQLUSMALLINT i = 1; i <= count; ++i) {
        std::array<char16_t, 300> name{};
        SQLSMALLINT length = 0;
        SQLSMALLINT type = 0;
        SQLSMALLINT decimals = 0;
        SQLSMALLINT nullable = 0;
        SQLULEN size = 0;
        if (!SQL_SUCCEEDED(SQLDescribeColW(statement.get(), i, reinterpret_cast<SQLWCHAR*>(name.data()),
                                           static_cast<SQLSMALLINT>(name.size()), &length, &type, &size, &decimals,
                                           &nullable)))
            throw StatementError(statement.get());
        columns.push_back({ToUtf8(name.data()), KindFromDriver(type)});
    }
    return columns;
}

std::vector<Value> OdbcBatch::ReadCells(const std::vector<OdbcColumn>& columns)
{
    std::vector<Value> cells;
    if (columns.empty())
        return cells;
    SQLRETURN code = SQL_SUCCESS;
    while (SQL_SUCCEEDED(code = SQLFetch(statement.get())))
        for (std::size_t i = 0; i < columns.size(); ++i)
            cells.push_back(Content(statement.get(), static_cast<SQLUSMALLINT>(i + 1), columns[i].kind));
    if (code != SQL_NO_DATA)
        throw StatementError(statement.get());
    return cells;
}

std::int64_t OdbcBatch::ChangedCount() const
{
    SQLLEN changed = 0;
    if (!SQL_SUCCEEDED(SQLRowCount(statement.get(), &changed)))
        throw StatementError(statement.get());
    return changed;
}

}
