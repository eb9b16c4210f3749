#include "store/NewSqliteFile.h"

#include "store/DatabaseError.h"

#include <array>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace rovanta {

namespace fs = std::filesystem;

static constexpr std::array companions = {"-wal", "-shm", "-journal"};

static bool Exists(const std::string& path)
{
    std::error_code unknown;
    return fs::exists(fs::symlink_status(path, unknown));
}

static DatabaseError ExistsAlready(const std::string& path)
{
    return DatabaseError("The file '" + path + "' exists already.");
}

/// What stands in the way of a database of that name.
static std::optional<std::string> InTheWay(const std::string& path)
{
    if (Exists(path))
        return path;
    for (const char* companion : companions)
        if (Exists(path + companion))
            return path + companion;
    return std::nullopt;
}

static void RefuseTaken(const std::string& path)
{
    if (const auto existing = InTheWay(path))
        throw ExistsAlready(*existing);
}

NewSqliteFile::NewSqliteFile(std::string place) : path(std::move(place))
{
    RefuseTaken(path);
    constexpr mode_t asSqliteMakesIt = 0644;
    // Of two that make it at once, one is refused and removes nothing of the other's.
    const int file = open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, asSqliteMakesIt);
    if (file < 0 && errno == EEXIST)
        throw ExistsAlready(path);
    if (file < 0)
        throw DatabaseError("The file '" + path + "' cannot be made: " + std::generic_category().message(errno));
    close(file);
}

NewSqliteFile::~NewSqliteFile()
{
    if (kept)
        return;
    std::error_code ignored;
    fs::remove(path, ignored);
    for (const char* companion : companions)
        fs::remove(path + companion, ignored);
}

void NewSqliteFile::MoveTo(const std::string& place)
{
    RefuseTaken(place);
    // A second name is given only where nothing bears it; the first then goes with this object.
    std::error_code failure;
    fs::create_hard_link(path, place, failure);
    if (failure == std::errc::file_exists)
        throw ExistsAlready(place);
    if (failure)
        Replace(place);
}

void NewSqliteFile::Replace(const std::string& place)
{
    std::error_code failure;
    fs::rename(path, place, failure);
    if (failure)
        throw DatabaseError("The file '" + place + "' cannot be made: " + failure.message());
    kept = true;
}

std::string FreeSqliteName(const std::string& path)
{
    std::string name = path;
    for (int number = 2; InTheWay(name); ++number)
        name = path + std::to_string(number);
    return name;
}

void MoveSqliteCompanions(const std::string& database, const std::string& other)
{
    for (const char* companion : companions)
        if (Exists(database + companion))
            fs::rename(database + companion, other + companion);
}

}
