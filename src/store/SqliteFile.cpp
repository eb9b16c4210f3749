#include "store/SqliteFile.h"

#include "store/SqliteSession.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace rovanta {

using namespace std::chrono_literals;

void RefuseWhatIsNoFile(const std::string& path)
{
    std::error_code unknown;
    const std::filesystem::file_status status = std::filesystem::status(path, unknown);
    if (status.type() == std::filesystem::file_type::not_found)
        throw DatabaseError("The database file '" + path + "' does not exist.");
    if (status.type() == std::filesystem::file_type::none)
        throw DatabaseError("The database file '" + path + "' cannot be opened: " + unknown.message());
    if (std::filesystem::is_directory(status))
        throw DatabaseError("'" + path + "' is a folder and no database file.");
    if (!std::filesystem::is_regular_file(status))
        throw DatabaseError("'" + path + "' is no database file.");
}

void RefuseWhatCannotBeWritten(const std::string& path)
{
    if (faccessat(AT_FDCWD, path.c_str(), R_OK | W_OK, AT_EACCESS) != 0)
        throw DatabaseError("The database file '" + path +
                            "' cannot be written: " + std::generic_category().message(errno));
}

void CopySqliteFile(const std::string& path, const NewSqliteFile& copy)
{
    RefuseWhatIsNoFile(path);
    if (faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) != 0)
        throw DatabaseError("The database file '" + path +
                            "' cannot be read: " + std::generic_category().message(errno));
    SqliteSession source(path);
    source.WaitFor(60s);
    // Whether it is a database at all is seen before anything is copied.
    source.AnswerOfFile("PRAGMA user_version");
    SqliteSession target(copy.Path());
    source.CopyTo(target);
    // Without a log beside it the copy is one file that can be carried away.
    target.RunOnFile("PRAGMA journal_mode = DELETE");
    target.AddDialect();
    const std::string verdict = target.AnswerOfFile("PRAGMA integrity_check(1)");
    if (verdict != "ok")
        throw DatabaseError("The database file '" + path + "' is damaged: " + verdict);
}

void WithSqliteFileAlone(const std::string& path, const std::function<void()>& work)
{
    SqliteSession session(path);
    session.WaitFor(1s);
    try {
        // Only who is alone with the file can end its log; the lock that this takes stays until the work is done.
        session.RunOnFile("PRAGMA journal_mode = DELETE; PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE");
    } catch (const SqliteError& error) {
        if (error.MeansInUse())
            throw DatabaseError("The database file '" + path + "' is in use.");
        if (!error.MeansUnreadable())
            throw;
    }
    work();
}

}
