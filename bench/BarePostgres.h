#pragma once

#include "bench/BareValue.h"

#include <libpq-fe.h>

#include <memory>
#include <optional>
#include <string_view>

namespace rovanta::bench {

/// libpq as a plain C program uses it: what is done often is prepared once and run with new values, one call after the
/// other, and the values are read out of what comes back. Failures throw std::runtime_error.
class BarePostgres {
public:
    /// Connects by a connection text of the program.
    explicit BarePostgres(const std::string& connectionText);

    void Run(const std::string& text);
    /// Prepares a statement and forgets it.
    void Prepare(const std::string& text);
    PGconn* Handle() { return handle.get(); }
    /// The server's version, in its own words.
    std::string Version() const { return PQparameterStatus(handle.get(), "server_version"); }

    static constexpr const char* rowKey = "ctid";
    static constexpr const char* returningKey = " RETURNING \"ID\"";

    /// How many statements all connections of this kind have run.
    static int StatementsRun();

private:
    std::unique_ptr<PGconn, decltype(&PQfinish)> handle{nullptr, PQfinish};
};

/// One prepared statement. Its whole result is there after the first step.
class BarePostgresStatement {
public:
    BarePostgresStatement(BarePostgres& database, const std::string& text);

    void Bind(int place, std::int64_t number);
    void Bind(int place, double number);
    void Bind(int place, std::string_view text) { Place(place) = text; }
    void BindNull(int place) { Place(place).reset(); }

    bool Step();
    void Reset() { result.reset(); }
    std::int64_t NewKey() { return Whole(0); }

    int Columns() const { return PQnfields(result.get()); }
    const char* Name(int column) const { return PQfname(result.get(), column); }
    std::int64_t Whole(int column);
    std::string Text(int column);
    BareValue Value(int column);

private:
    std::optional<std::string>& Place(int place);

    PGconn* connection;
    std::string name;
    std::vector<std::optional<std::string>> values;
    std::unique_ptr<PGresult, decltype(&PQclear)> result{nullptr, PQclear};
    int row = 0;
};

}
