#include "tools/Backup.h"

#include "frame/Configuration.h"
#include "store/Connection.h"
#include "store/DatabaseError.h"
#include "store/OdbcText.h"
#include "store/PostgresText.h"
#include "store/Recordset.h"
#include "store/SqlServerText.h"
#include "store/SqliteFile.h"
#include "values/Text.h"

#include <sys/stat.h>
#include <unistd.h>

namespace rovanta {

namespace {

namespace fs = std::filesystem;

std::string OfficeConnection(const fs::path& folder)
{
    return ReadConfigFile((folder / "config.txt").string()).ConnectionString;
}

/// A word between the apostrophes of a shell.
std::string ShellWord(const std::string& word)
{
    return "'" + Replace(word, "'", "'\\''") + "'";
}

/// The database as a statement of its server names it; where the DSN alone knows it, plainly none that could be run.
std::string DatabaseOnSqlServer(const std::string& connectionText)
{
    const OdbcText text(connectionText);
    const std::string name = text.Get("Database");
    return name.empty() ? "<the database of the DSN " + text.Get("DSN") + ">" : SqlServerName(name);
}

/// Gives the draft the owner and the rights of the file that it replaces, before anything is in it. Who may write in
/// the folder of one that is lost may write the new one.
void TakeAccess(const NewSqliteFile& draft, const std::string& database)
{
    struct stat like {};
    constexpr mode_t readAndWrite = 0666;
    const bool there = stat(database.c_str(), &like) == 0;
    if (!there && stat(fs::absolute(database).parent_path().c_str(), &like) != 0)
        return;
    const bool given = chown(draft.Path().c_str(), like.st_uid, like.st_gid) == 0;
    if (there && !given)
        throw RunTimeError("The database file '" + database +
                           "' belongs to another user or group: restore it as root.");
    chmod(draft.Path().c_str(), like.st_mode & readAndWrite);
}

void RefuseNoOffice(const std::string& draft, const std::string& backup)
{
    Connection connection;
    try {
        connection.Open(draft);
        const Recordset user("SELECT TOP 1 Username FROM [User]", connection);
        const Recordset company("SELECT TOP 1 Name FROM Company", connection);
    } catch (const DatabaseError& error) {
        throw RunTimeError("The file '" + backup + "' holds no office: " + Replace(error.what(), draft, backup));
    }
}

/// Puts the draft in the place of the database and leaves the replaced file beside it.
void PutInPlace(const std::string& database, NewSqliteFile& draft, const std::string& kept)
{
    // What a damaged file has beside it belongs to that file and to no other.
    MoveSqliteCompanions(database, kept);
    // With two names for the old file there is a database at every moment.
    std::error_code noLinks;
    fs::create_hard_link(database, kept, noLinks);
    if (noLinks)
        fs::rename(database, kept);
    draft.Replace(database);
}

}

std::uintmax_t BackUpOffice(const fs::path& folder, const std::string& backup)
{
    const std::string connection = OfficeConnection(folder);
    if (ChooseEngine(connection) != EngineKind::Sqlite)
        throw RunTimeError(ServerBackupAdvice(connection, backup));
    if (fs::exists(backup))
        throw RunTimeError("The file '" + backup + "' exists already.");
    const std::string database = DatabaseFile(connection);
    NewSqliteFile draft(FreeSqliteName(backup + ".part"));
    // Whoever may not read the database may not read its backup.
    std::error_code unknown;
    fs::permissions(draft.Path(), fs::status(database, unknown).permissions() & fs::perms(0666), unknown);
    CopySqliteFile(database, draft);
    draft.MoveTo(backup);
    return fs::file_size(backup);
}

std::string RestoreOffice(const fs::path& folder, const std::string& backup)
{
    const std::string connection = OfficeConnection(folder);
    if (ChooseEngine(connection) != EngineKind::Sqlite)
        throw RunTimeError(ServerRestoreAdvice(connection, backup));
    const std::string database = DatabaseFile(connection);
    NewSqliteFile draft(FreeSqliteName(database + ".part"));
    TakeAccess(draft, database);
    CopySqliteFile(backup, draft);
    RefuseNoOffice(draft.Path(), backup);
    if (!fs::exists(database)) {
        draft.MoveTo(database);
        return {};
    }
    std::string kept = FreeSqliteName(database + ".replaced");
    try {
        WithSqliteFileAlone(database, [&] { PutInPlace(database, draft, kept); });
    } catch (const DatabaseError& error) {
        throw RunTimeError(std::string(error.what()) + " Close the office on every desk first.");
    }
    return kept;
}

std::string ServerBackupAdvice(const std::string& connectionText, const std::string& file)
{
    if (ChooseEngine(connectionText) == EngineKind::Postgres)
        return "The office lies on a PostgreSQL server. The server's own tool saves it while it is in use:\n"
               "  pg_dump --format=custom --file=" +
               ShellWord(file) + " " + ShellWord(PostgresText(connectionText).WithoutPassword());
    return "The office lies on a SQL Server. The server itself saves it, to a file of its own machine, while it is in "
           "use:\n  BACKUP DATABASE " +
           DatabaseOnSqlServer(connectionText) + " TO DISK = N'" + Replace(file, "'", "''") + "' WITH INIT, CHECKSUM";
}

std::string ServerRestoreAdvice(const std::string& connectionText, const std::string& file)
{
    if (ChooseEngine(connectionText) == EngineKind::Postgres)
        return "The office lies on a PostgreSQL server. When it is closed on every desk, the server's own tool puts "
               "the file back:\n  pg_restore --clean --if-exists --single-transaction --dbname=" +
               ShellWord(PostgresText(connectionText).WithoutPassword()) + " " + ShellWord(file);
    return "The office lies on a SQL Server. When it is closed on every desk, the server itself puts the file back:\n"
           "  RESTORE DATABASE " +
           DatabaseOnSqlServer(connectionText) + " FROM DISK = N'" + Replace(file, "'", "''") + "' WITH REPLACE";
}

}
