#include "store/DatabaseError.h"
#include "tests/store/TestOffice.h"

#include <doctest/doctest.h>

#include <chrono>
#include <future>
#include <string_view>
#include <thread>

#include <dlfcn.h>
#include <netdb.h>
#include <sqlite3.h>

using namespace rovanta;

static constexpr const char* slowName = "name-server-asleep.invalid";

/// Stands before the system's own: a name server that is asleep is waited for much longer than a person waits.
extern "C" int getaddrinfo(const char* name, const char* service, const addrinfo* hints, addrinfo** found)
{
    if (name != nullptr && std::string_view(name) == slowName) {
        std::this_thread::sleep_for(std::chrono::seconds(40));
        return EAI_AGAIN;
    }
    using Function = int (*)(const char*, const char*, const addrinfo*, addrinfo**);
    static const auto next = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "getaddrinfo"));
    return next(name, service, hints, found);
}

namespace {

/// A database file that somebody has for himself as long as the object lives.
class HeldFile {
public:
    explicit HeldFile(const std::string& path)
    {
        REQUIRE(sqlite3_open(path.c_str(), &database) == SQLITE_OK);
        REQUIRE(sqlite3_exec(database, "PRAGMA journal_mode = DELETE; BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) ==
                SQLITE_OK);
    }
    ~HeldFile() { sqlite3_close(database); }
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

private:
    sqlite3* database = nullptr;
};

struct Refusal {
    std::string text;
    double seconds = 0;
};

Refusal Meet(const std::string& text)
{
    const auto start = std::chrono::steady_clock::now();
    Refusal refusal;
    try {
        Connection connection;
        connection.Open(text);
    } catch (const DatabaseError& error) {
        refusal.text = error.what();
    }
    refusal.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return refusal;
}

}

TEST_CASE("A start waits ten seconds for a name server that is asleep, or for a file that another holds, and no longer")
{
    const TestFolder folder;
    const std::string file = folder.File("office.db");
    CreateDatabaseFile(file);
    const HeldFile held(file);
    const std::string name = slowName;
    auto sqlite = std::async(std::launch::async, Meet, file);
    auto postgres = std::async(std::launch::async, Meet, "postgresql://app:sesame@" + name + ":5432/office");
    auto odbc = std::async(std::launch::async, Meet,
                           "Driver={FreeTDS};Server=" + name + ";Port=1433;UID=a;PWD=sesame;TDS_Version=7.4");
    const std::vector<Refusal> refusals{sqlite.get(), postgres.get(), odbc.get()};
    CHECK(refusals[0].text == "The database file '" + file + "' cannot be used: database is locked");
    CHECK(refusals[1].text == "The database server '" + name + ":5432' did not answer within 10 seconds.");
    CHECK(refusals[2].text == "The database server '" + name + ", port 1433' did not answer within 10 seconds.");
    for (const Refusal& refusal : refusals) {
        CAPTURE(refusal.text);
        CHECK(refusal.seconds > 8);
        CHECK(refusal.seconds < 11);
    }
}
