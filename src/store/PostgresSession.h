#pragma once

#include "store/DatabaseError.h"
#include "store/RecentlyUsed.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rovanta {

/// An error that the server itself has told.
class PostgresError : public DatabaseError {
public:
    PostgresError(std::string state, const std::string& text) : DatabaseError(text), state(std::move(state)) {}

    /// Five characters by which the server names the kind of error; empty when the connection is gone.
    const std::string& State() const { return state; }

private:
    std::string state;
};

/// The server's types, by the numbers that it gives them.
enum class PostgresTypeNumber : unsigned {
    Int8 = 20,
    Int2 = 21,
    Int4 = 23,
    Text = 25,
    TupleId = 27,
    Float8 = 701,
    Bpchar = 1042,
    Timestamp = 1114,
    Numeric = 1700
};

struct PostgresArgument {
    PostgresTypeNumber type;
    /// As the server reads it; nothing for NULL.
    std::optional<std::string> text;
};

/// One command on its way to the server.
struct PostgresCommand {
    std::string text;
    std::vector<PostgresArgument> arguments;
    /// Whether its like will come again, so that the server should remember how to run it.
    bool repeated = false;
};

/// The rows that a command brought.
class PostgresRows {
public:
    PostgresRows() = default;
    explicit PostgresRows(std::shared_ptr<void> result) : result(std::move(result)) {}

    int RowCount() const;
    /// The rows that a change has met.
    int ChangedCount() const;
    bool IsNull(int row, int column) const;
    std::string_view Text(int row, int column) const;

private:
    friend class PostgresSession;
    std::shared_ptr<void> result;
};

/// A connection to a PostgreSQL server.
class PostgresSession {
public:
    /// Connects within 10 seconds. Throws DatabaseError that tells what was wrong: the text, the server, the user, the
    /// password or the database.
    explicit PostgresSession(const std::string& connectionText);
    ~PostgresSession();
    PostgresSession(const PostgresSession&) = delete;
    PostgresSession& operator=(const PostgresSession&) = delete;

    /// Runs commands in one round trip, all or nothing, and returns what each brought. Throws PostgresError.
    std::vector<PostgresRows> Run(const std::vector<PostgresCommand>& commands);
    /// Runs several commands without arguments that stand in one text, in one round trip, all or nothing.
    PostgresRows RunScript(const std::string& script);

    /// Whether another desk has told since the last call that it changed the tables. Costs no round trip.
    bool TakeNews();

    /// How often the program has waited for the server's answer.
    std::uint64_t RoundTrips() const { return roundTrips; }
    /// The name of the database.
    const std::string& Database() const { return database; }

private:
    struct Flight;

    PostgresError ErrorOf(const PostgresRows& answer) const;
    std::string NameOfPrepared(const PostgresCommand& command, Flight& flight);
    void Send(const PostgresCommand& command, Flight& flight);
    void SendSync();
    void Receive(Flight& flight);

    /// What the server has said when it ended the connection.
    std::string farewell;
    std::shared_ptr<void> connection;
    std::string database;
    std::uint64_t roundTrips = 0;
    std::uint64_t nextName = 0;
    static constexpr std::size_t mostPrepared = 200;
    /// The names of the statements that the server knows.
    RecentlyUsed<std::string> prepared{mostPrepared};
};

}
