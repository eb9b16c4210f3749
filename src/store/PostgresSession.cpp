#include "store/PostgresSession.h"

#include "store/PostgresText.h"
#include "values/Text.h"

#include <libpq-fe.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <poll.h>

namespace rovanta {

namespace {

using Clock = std::chrono::steady_clock;

PGconn* Raw(const std::shared_ptr<void>& connection)
{
    return static_cast<PGconn*>(connection.get());
}

const PGresult* RawResult(const std::shared_ptr<void>& result)
{
    return static_cast<const PGresult*>(result.get());
}

std::shared_ptr<void> Owned(PGresult* result)
{
    return {result, [](void* held) { PQclear(static_cast<PGresult*>(held)); }};
}

/// A text of the library in one line.
std::string OneLine(const char* text)
{
    std::string line = Trim(Replace(Replace(text == nullptr ? "" : text, "\n\t", " "), "\n", " "));
    return line;
}

std::string FieldOf(const PGresult* result, int field)
{
    const char* text = PQresultErrorField(result, field);
    return text == nullptr ? std::string{} : text;
}

std::string OverflowText(const std::string& text)
{
    const char* type = "float";
    if (text.find("bigint") != std::string::npos)
        type = "bigint";
    else if (text.find("integer") != std::string::npos || text.find("smallint") != std::string::npos)
        type = "int";
    else if (text.find("numeric") != std::string::npos)
        type = "money";
    return std::string("Arithmetic overflow error converting expression to data type ") + type + ".";
}

/// The error in the words of the dialect, where it has words of its own.
std::string ErrorText(const PGresult* result, const std::string& state)
{
    std::string text = FieldOf(result, PG_DIAG_MESSAGE_PRIMARY);
    const std::string table = FieldOf(result, PG_DIAG_TABLE_NAME);
    if (state == "23502")
        return "Cannot insert the value NULL into column '" + FieldOf(result, PG_DIAG_COLUMN_NAME) + "', table '" +
               table + "'; column does not allow nulls.";
    if (state == "23505" && !table.empty())
        return "Violation of PRIMARY KEY constraint. Cannot insert duplicate key in object '" + table + "'.";
    if (state == "22012")
        return "Divide by zero error encountered.";
    if (state == "22003")
        return OverflowText(text);
    // The one condition that a type of the program has.
    if (state == "23514")
        return OverflowText("numeric");
    if (state == "22008")
        return "Adding a value to a 'datetime' column caused an overflow.";
    if (state == "21000")
        return "Subquery returned more than 1 value. This is not permitted when the subquery follows =, !=, <, <= , >, "
               ">= or when the subquery is used as an expression.";
    return text;
}

bool Failed(const PGresult* result)
{
    const ExecStatusType status = PQresultStatus(result);
    return status == PGRES_FATAL_ERROR || status == PGRES_BAD_RESPONSE;
}

/// Waits for the server to take the connection, but no longer than until `end`.
PostgresPollingStatusType WaitForServer(PGconn* connection, Clock::time_point end)
{
    PostgresPollingStatusType status = PGRES_POLLING_WRITING;
    while (status != PGRES_POLLING_OK && status != PGRES_POLLING_FAILED) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        if (left <= 0)
            return status;
        pollfd socket{PQsocket(connection), static_cast<short>(status == PGRES_POLLING_READING ? POLLIN : POLLOUT), 0};
        if (poll(&socket, 1, static_cast<int>(left)) > 0)
            status = PQconnectPoll(connection);
    }
    return status;
}

std::string ParameterOf(PGconn* connection, const char* keyword)
{
    std::string found;
    PQconninfoOption* options = PQconninfo(connection);
    for (PQconninfoOption* option = options; option != nullptr && option->keyword != nullptr; ++option)
        if (std::string_view(option->keyword) == keyword && option->val != nullptr)
            found = option->val;
    PQconninfoFree(options);
    return found;
}

/// Has the text read once without its password, for what the library cannot read it quotes.
void CheckText(const PostgresText& text)
{
    text.Check();
    char* failure = nullptr;
    PQconninfoOption* options = PQconninfoParse(text.WithoutPassword().c_str(), &failure);
    const std::string told = OneLine(failure);
    PQconninfoFree(options);
    PQfreemem(failure);
    if (options == nullptr)
        throw DatabaseError("The connection text of the PostgreSQL server makes no sense: " + told);
}

/// Takes what the server says unasked. That is the reason why it ends the connection, if it comes to that; the library
/// would print it on standard error.
void KeepNotice(void* farewell, const PGresult* notice)
{
    if (FieldOf(notice, PG_DIAG_SEVERITY_NONLOCALIZED) == "FATAL")
        *static_cast<std::string*>(farewell) = FieldOf(notice, PG_DIAG_MESSAGE_PRIMARY);
}

}

int PostgresRows::RowCount() const
{
    return PQntuples(RawResult(result));
}

int PostgresRows::ChangedCount() const
{
    return std::atoi(PQcmdTuples(static_cast<PGresult*>(result.get())));
}

bool PostgresRows::IsNull(int row, int column) const
{
    return PQgetisnull(RawResult(result), row, column) == 1;
}

std::string_view PostgresRows::Text(int row, int column) const
{
    return {PQgetvalue(RawResult(result), row, column),
            static_cast<std::size_t>(PQgetlength(RawResult(result), row, column))};
}

/// What travels in one round trip: how many answers must come, and which of them prepare a statement.
struct PostgresSession::Flight {
    struct Answer {
        bool wanted;
        /// The key of the statement that the command prepares; empty where it prepares none.
        std::string prepares;
    };
    std::vector<Answer> answers;
    std::vector<PostgresRows> rows;
};

PostgresSession::PostgresSession(const std::string& connectionText)
{
    const PostgresText text(connectionText);
    CheckText(text);
    const std::string whole = text.Whole();
    constexpr auto patience = std::chrono::milliseconds(9'500);
    const auto end = Clock::now() + patience;
    const std::array<const char*, 6> names{"dbname",          "client_encoding",  "application_name",
                                           "keepalives_idle", "tcp_user_timeout", nullptr};
    const std::array<const char*, 6> values{whole.c_str(), "UTF8", "Rovanta", "60", "60000", nullptr};
    PGconn* opened = PQconnectStartParams(names.data(), values.data(), 1);
    if (opened == nullptr)
        throw DatabaseError("There is no memory left for a connection.");
    connection = {opened, [](void* held) { PQfinish(static_cast<PGconn*>(held)); }};
    const PostgresPollingStatusType status =
        PQstatus(opened) == CONNECTION_BAD ? PGRES_POLLING_FAILED : WaitForServer(opened, end);
    database = ParameterOf(opened, "dbname");
    const std::string what = "The PostgreSQL database '" + database + "' cannot be opened: ";
    if (status == PGRES_POLLING_FAILED)
        throw DatabaseError(what + OneLine(PQerrorMessage(opened)));
    if (status != PGRES_POLLING_OK)
        throw DatabaseError(what + "the server '" + ParameterOf(opened, "host") + "' did not answer within 10 seconds");
    PQsetNoticeReceiver(opened, KeepNotice, &farewell);
    const char* encoding = PQparameterStatus(opened, "server_encoding");
    if (encoding == nullptr || std::string_view(encoding) != "UTF8")
        throw DatabaseError(what + "its encoding is " + (encoding == nullptr ? "unknown" : encoding) +
                            ", and the office needs UTF8");
}

PostgresSession::~PostgresSession() = default;

/// The error that a failed answer tells; without one, why the connection is gone.
PostgresError PostgresSession::ErrorOf(const PostgresRows& answer) const
{
    const PGresult* result = RawResult(answer.result);
    const std::string state = result == nullptr ? std::string{} : FieldOf(result, PG_DIAG_SQLSTATE);
    if (!state.empty())
        return {PQstatus(Raw(connection)) == CONNECTION_BAD ? "" : state, ErrorText(result, state)};
    return {"", farewell.empty() ? OneLine(PQerrorMessage(Raw(connection))) : farewell};
}

static std::vector<Oid> TypesOf(const PostgresCommand& command)
{
    std::vector<Oid> types;
    types.reserve(command.arguments.size());
    for (const PostgresArgument& argument : command.arguments)
        types.push_back(static_cast<Oid>(argument.type));
    return types;
}

/// By what a statement is remembered: its text and the types of its arguments, for the server prepares it for those.
static std::string KeyOf(const PostgresCommand& command)
{
    std::string key = command.text;
    key.push_back('\0');
    for (const PostgresArgument& argument : command.arguments) {
        const auto type = static_cast<unsigned>(argument.type);
        key.push_back(static_cast<char>(type >> 8U));
        key.push_back(static_cast<char>(type & 0xFFU));
    }
    return key;
}

/// By what name the server knows the statement. One that is new to it is prepared on the way, and the one that must go
/// for it is taken from the server as well.
std::string PostgresSession::NameOfPrepared(const PostgresCommand& command, Flight& flight)
{
    const std::string key = KeyOf(command);
    if (const std::string* name = prepared.Find(key))
        return *name;
    std::string name = "rovanta_" + std::to_string(++nextName);
    PGconn* raw = Raw(connection);
    if (const auto gone = prepared.Add(key, name)) {
        PQsendQueryParams(raw, ("DEALLOCATE " + *gone).c_str(), 0, nullptr, nullptr, nullptr, nullptr, 0);
        flight.answers.push_back({false, {}});
    }
    const std::vector<Oid> types = TypesOf(command);
    PQsendPrepare(raw, name.c_str(), command.text.c_str(), static_cast<int>(types.size()), types.data());
    // Whether it came to be is seen from the answer.
    flight.answers.push_back({false, key});
    return name;
}

void PostgresSession::Send(const PostgresCommand& command, Flight& flight)
{
    const int count = static_cast<int>(command.arguments.size());
    std::vector<const char*> values;
    std::vector<int> lengths;
    std::vector<int> formats;
    for (const PostgresArgument& argument : command.arguments) {
        values.push_back(argument.text ? argument.text->c_str() : nullptr);
        lengths.push_back(argument.text ? static_cast<int>(argument.text->size()) : 0);
        // A text travels with its length, so that no character in it can end it early.
        formats.push_back(argument.type == PostgresTypeNumber::Bpchar ? 1 : 0);
    }
    PGconn* raw = Raw(connection);
    int sent = 0;
    if (command.repeated)
        sent = PQsendQueryPrepared(raw, NameOfPrepared(command, flight).c_str(), count, values.data(), lengths.data(),
                                   formats.data(), 0);
    else
        sent = PQsendQueryParams(raw, command.text.c_str(), count, TypesOf(command).data(), values.data(),
                                 lengths.data(), formats.data(), 0);
    if (sent == 0)
        throw ErrorOf({});
    flight.answers.push_back({true, {}});
}

void PostgresSession::SendSync()
{
    if (PQpipelineSync(Raw(connection)) == 0)
        throw ErrorOf({});
    ++roundTrips;
}

/// Takes every answer of the flight; the first error among them is thrown when all have come.
void PostgresSession::Receive(Flight& flight)
{
    PGconn* raw = Raw(connection);
    std::optional<PostgresError> failure;
    for (const Flight::Answer& answer : flight.answers) {
        PGresult* result = PQgetResult(raw);
        if (result == nullptr && !failure)
            failure = ErrorOf({});
        if (result == nullptr)
            break;
        const auto held = Owned(result);
        if (Failed(result) && !failure)
            failure = ErrorOf(PostgresRows(held));
        if (failure && !answer.prepares.empty())
            prepared.Remove(answer.prepares);
        if (!failure && answer.wanted)
            flight.rows.emplace_back(held);
        if (PQstatus(raw) == CONNECTION_BAD)
            break;
        // Behind each command's answer stands an empty one.
        while (PGresult* more = PQgetResult(raw))
            PQclear(more);
    }
    while (PQstatus(raw) != CONNECTION_BAD) {
        const auto last = Owned(PQgetResult(raw));
        if (last == nullptr || PQresultStatus(RawResult(last)) == PGRES_PIPELINE_SYNC)
            break;
    }
    PQexitPipelineMode(raw);
    if (failure)
        throw *failure;
}

std::vector<PostgresRows> PostgresSession::Run(const std::vector<PostgresCommand>& commands)
{
    PGconn* raw = Raw(connection);
    if (PQstatus(raw) == CONNECTION_BAD)
        throw ErrorOf({});
    PQenterPipelineMode(raw);
    Flight flight;
    for (const PostgresCommand& command : commands)
        Send(command, flight);
    SendSync();
    Receive(flight);
    return std::move(flight.rows);
}

PostgresRows PostgresSession::RunScript(const std::string& script)
{
    ++roundTrips;
    const auto result = Owned(PQexec(Raw(connection), script.c_str()));
    if (result == nullptr || Failed(RawResult(result)))
        throw ErrorOf(PostgresRows(result));
    return PostgresRows(result);
}

bool PostgresSession::TakeNews()
{
    PGconn* raw = Raw(connection);
    PQconsumeInput(raw);
    bool news = false;
    while (PGnotify* notice = PQnotifies(raw)) {
        news = news || notice->be_pid != PQbackendPID(raw);
        PQfreemem(notice);
    }
    return news;
}

}
