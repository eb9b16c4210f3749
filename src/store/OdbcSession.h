#pragma once

#include "store/OdbcText.h"
#include "store/SqlType.h"
#include "values/Value.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace rovanta {

/// A handle of the driver manager, freed when it goes.
using OdbcHandle = std::unique_ptr<void, void (*)(void*)>;

/// A column of a result as the driver tells it.
struct OdbcColumn {
    std::string name;
    TypeKind kind;
};

/// A batch that the server has been sent, with its results one after the other. Everything in it throws DatabaseError
/// with what the server says.
class OdbcBatch {
public:
    explicit OdbcBatch(OdbcHandle statement) : statement(std::move(statement)) {}

    /// The columns of the result at hand; none where it brings no rows.
    std::vector<OdbcColumn> Columns() const;
    /// The rows of the result at hand, value after value; empty where it has no columns.
    std::vector<Value> ReadCells(const std::vector<OdbcColumn>& columns);
    /// How many rows the change at hand found.
    std::int64_t ChangedCount() const;
    /// Goes on to the next result; a statement of the batch that failed tells so here. False behind the last.
    bool NextResult();
    void ReadToEnd();

private:
    OdbcHandle statement;
};

/// A connection to SQL Server through an ODBC driver.
class OdbcSession {
public:
    /// Signs in. Throws DatabaseError that tells what was wrong: the text, the driver, the server, the user or the
    /// database.
    explicit OdbcSession(const OdbcText& text);

    /// Sends a batch and waits for its first result.
    OdbcBatch Send(std::string_view batch);
    /// Runs a batch, whatever it brings.
    void Run(std::string_view batch) { Send(batch).ReadToEnd(); }

    /// How often the program has waited for the server's answer.
    std::uint64_t RoundTrips() const { return roundTrips; }

private:
    int querySeconds;
    OdbcHandle environment;
    OdbcHandle connection;
    std::uint64_t roundTrips = 0;
};

}
