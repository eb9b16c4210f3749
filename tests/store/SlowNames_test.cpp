#include "store/Connection.h"
#include "store/DatabaseError.h"

#include <doctest/doctest.h>

#include <chrono>
#include <future>
#include <string_view>
#include <thread>

#include <dlfcn.h>
#include <netdb.h>

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

TEST_CASE("A start does not wait for a name server that is asleep")
{
    const std::string name = slowName;
    auto postgres = std::async(std::launch::async, Meet, "postgresql://app:sesame@" + name + ":5432/office");
    auto odbc = std::async(std::launch::async, Meet,
                           "Driver={FreeTDS};Server=" + name + ";Port=1433;UID=a;PWD=sesame;TDS_Version=7.4");
    for (const Refusal& refusal : {postgres.get(), odbc.get()}) {
        CAPTURE(refusal.text);
        CHECK(refusal.text.find("'" + name) != std::string::npos);
        CHECK(refusal.text.find("did not answer within 10 seconds") != std::string::npos);
        CHECK(refusal.seconds < 11);
    }
}
