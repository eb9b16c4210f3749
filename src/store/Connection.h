#pragma once

#include "store/ConnectionText.h"
#include "store/Statement.h"

#include <memory>
#include <string>

namespace rovanta {

class Engine;

/// The one connection of a running program to its database. The connection text chooses the engine.
class Connection {
public:
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Opens the database within 10 seconds or throws DatabaseError with what was wrong.
    void Open(const std::string& connectionText);
    void Close();
    bool IsOpen() const { return engine != nullptr; }

    /// Runs a statement that returns no rows. Throws DatabaseError.
    void Execute(const Statement& statement);

    Engine& GetEngine();

private:
    std::unique_ptr<Engine> engine;
};

}
