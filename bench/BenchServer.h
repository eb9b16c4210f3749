#pragma once

#include <filesystem>
#include <string>

namespace rovanta::bench {

/// What a commit of a database waits for.
enum class CommitsWait { ForTheDisk, ForNothing };

/// A PostgreSQL server of the benchmark's own, on a unix socket in a new folder below `parent`; it goes with the
/// object.
class BenchServer {
public:
    BenchServer(const std::filesystem::path& parent, CommitsWait wait);
    ~BenchServer();
    BenchServer(const BenchServer&) = delete;
    BenchServer& operator=(const BenchServer&) = delete;

    /// The connection text of a new database on it.
    std::string MakeDatabase(const std::string& name);

private:
    void Stop() noexcept;

    std::string folder;
};

}
