#include "bench/BarePostgres.h"

#include <array>
#include <charconv>
#include <stdexcept>

namespace rovanta::bench {

namespace {

using Result = std::unique_ptr<PGresult, decltype(&PQclear)>;

int statementsRun = 0;
int statementsPrepared = 0;

/// Takes a result over. Throws what the server says instead of one.
Result Checked(PGconn* connection, PGresult* taken)
{
    Result result(taken, PQclear);
    const ExecStatusType status = PQresultStatus(taken);
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
        throw std::runtime_error(std::string("PostgreSQL: ") + PQerrorMessage(connection));
    return result;
}

template <class Number>
std::string TextOf(Number number)
{
    std::array<char, 40> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    return {buffer.data(), written.ptr};
}

template <class Number>
Number NumberOf(const PGresult* result, int row, int column)
{
    Number number{};
    const char* text = PQgetvalue(result, row, column);
    std::from_chars(text, text + PQgetlength(result, row, column), number);
    return number;
}

}

BarePostgres::BarePostgres(const std::string& connectionText)
{
    handle.reset(PQconnectdb(connectionText.c_str()));
    if (PQstatus(Handle()) != CONNECTION_OK)
        throw std::runtime_error(std::string("PostgreSQL: ") + PQerrorMessage(Handle()));
}

void BarePostgres::Run(const std::string& text)
{
    Checked(Handle(), PQexec(Handle(), text.c_str()));
}

void BarePostgres::Prepare(const std::string& text)
{
    Checked(Handle(), PQprepare(Handle(), "", text.c_str(), 0, nullptr));
}

int BarePostgres::StatementsRun()
{
    return statementsRun;
}

BarePostgresStatement::BarePostgresStatement(BarePostgres& database, const std::string& text)
    : connection(database.Handle()), name("bare_" + std::to_string(++statementsPrepared))
{
    Checked(connection, PQprepare(connection, name.c_str(), text.c_str(), 0, nullptr));
}

std::optional<std::string>& BarePostgresStatement::Place(int place)
{
    const auto index = static_cast<std::size_t>(place);
    if (values.size() < index)
        values.resize(index);
    return values[index - 1];
}

void BarePostgresStatement::Bind(int place, std::int64_t number)
{
    Place(place) = TextOf(number);
}

void BarePostgresStatement::Bind(int place, double number)
{
    Place(place) = TextOf(number);
}

bool BarePostgresStatement::Step()
{
    if (result) {
        ++row;
    } else {
        std::vector<const char*> texts;
        texts.reserve(values.size());
        for (const auto& value : values)
            texts.push_back(value ? value->c_str() : nullptr);
        ++statementsRun;
        result = Checked(connection, PQexecPrepared(connection, name.c_str(), static_cast<int>(texts.size()),
                                                    texts.data(), nullptr, nullptr, 0));
        row = 0;
    }
    return row < PQntuples(result.get());
}

std::int64_t BarePostgresStatement::Whole(int column)
{
    return NumberOf<std::int64_t>(result.get(), row, column);
}

std::string BarePostgresStatement::Text(int column)
{
    return {PQgetvalue(result.get(), row, column), static_cast<std::size_t>(PQgetlength(result.get(), row, column))};
}

BareValue BarePostgresStatement::Value(int column)
{
    // The numbers that the server gives its own types.
    constexpr Oid int8 = 20;
    constexpr Oid int2 = 21;
    constexpr Oid int4 = 23;
    constexpr Oid float8 = 701;
    constexpr Oid numeric = 1700;
    if (PQgetisnull(result.get(), row, column) == 1)
        return {};
    switch (PQftype(result.get(), column)) {
    case int2:
    case int4:
    case int8:
        return Whole(column);
    case float8:
    case numeric:
        return NumberOf<double>(result.get(), row, column);
    default:
        return Text(column);
    }
}

}
