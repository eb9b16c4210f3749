#include "bench/BenchServer.h"

#include "bench/Child.h"
#include "store/ServerDatabase.h"

#include <unistd.h>

namespace rovanta::bench {

static void RunScript(const std::vector<std::string>& words)
{
    std::vector<std::string> command{SERVER_SCRIPT};
    command.insert(command.end(), words.begin(), words.end());
    Child(command).Finish();
}

BenchServer::BenchServer(const std::filesystem::path& parent, CommitsWait wait)
    : folder(std::filesystem::absolute(parent / ("bench-server-" + std::to_string(getpid()))).string())
{
    try {
        RunScript({"start", folder, wait == CommitsWait::ForTheDisk ? "durable" : ""});
    } catch (...) {
        Stop();
        throw;
    }
}

BenchServer::~BenchServer()
{
    Stop();
}

void BenchServer::Stop() noexcept
{
    try {
        RunScript({"stop", folder});
    } catch (const std::exception&) {
        // Who has started the benchmark stops what is left.
    }
}

std::string BenchServer::MakeDatabase(const std::string& name)
{
    const std::string server = "postgresql://app@/postgres?host=" + folder;
    CreateServerDatabase(server, name, "");
    return WithDatabase(server, name);
}

}
