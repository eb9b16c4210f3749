#pragma once

#include "store/ServerDatabase.h"

#include <cstdlib>
#include <optional>
#include <string>
#include <unistd.h>

namespace rovanta {

/// The connection text of the database server that this run of the suite plays on, any database in it; nothing where
/// each office lies in a file.
inline std::optional<std::string> TestServer()
{
    const char* text = std::getenv("ROVANTA_TEST_SERVER");
    return text == nullptr || *text == '\0' ? std::nullopt : std::optional<std::string>(text);
}

/// A database of its own on that server, gone with the object.
class TestDatabase {
public:
    /// A copy of the database `like`; without tables where that is empty.
    explicit TestDatabase(const std::string& like)
    {
        static int count = 0;
        name = "rovanta_" + std::to_string(getpid()) + "_" + std::to_string(++count);
        CreateServerDatabase(*TestServer(), name, like);
    }
    ~TestDatabase()
    {
        try {
            DropServerDatabase(*TestServer(), name);
        } catch (const std::exception&) {
            // The server goes with the suite, and the database with it.
        }
    }
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    const std::string& Name() const { return name; }
    std::string Text() const { return WithDatabase(*TestServer(), name); }

private:
    std::string name;
};

}
