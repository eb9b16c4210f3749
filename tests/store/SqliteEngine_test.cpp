#include <doctest/doctest.h>

#include "store/Catalogue.h"
#include "store/DatabaseError.h"
#include "store/Engine.h"
#include "tests/store/TestOffice.h"

#include <cerrno>
#include <fstream>

#include <sqlite3.h>

using namespace rovanta;

static void ExecuteBare(const std::string& file, const std::string& text)
{
    sqlite3* database = nullptr;
    REQUIRE(sqlite3_open(file.c_str(), &database) == SQLITE_OK);
    CHECK(sqlite3_exec(database, text.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK);
    sqlite3_close(database);
}

TEST_CASE("A database file that does not exist is named and not made")
{
    const TestFolder folder;
    Connection connection;
    const std::string file = folder.File("absent.db");
    CHECK_THROWS_WITH_AS(connection.Open(file), ("The database file '" + file + "' does not exist.").c_str(),
                         DatabaseError);
    CHECK_FALSE(std::filesystem::exists(file));
    CHECK_FALSE(connection.IsOpen());
    CHECK_THROWS_AS(connection.Execute("DELETE FROM Tour"), DatabaseError);
    CHECK_THROWS_AS(connection.Open(""), DatabaseError);
    CHECK_THROWS_AS(connection.Open(folder.File("")), DatabaseError);
}

TEST_CASE("A file that is no database is named")
{
    const TestFolder folder;
    const std::string file = folder.File("config.txt");
    std::ofstream(file) << std::string(4096, 'x');
    Connection connection;
    CHECK_THROWS_WITH_AS(connection.Open("sqlite:" + file), ("The file '" + file + "' is no database.").c_str(),
                         DatabaseError);
}

/// Does the work as somebody whom the rights of files bind, which they do not bind root.
template <class Work>
static void AsOrdinaryUser(Work work)
{
    constexpr uid_t nobody = 65534;
    const uid_t self = geteuid();
    REQUIRE((self != 0 || seteuid(nobody) == 0));
    work();
    REQUIRE((self != 0 || seteuid(self) == 0));
}

TEST_CASE("A database file that may not be written, entered or read is named")
{
    TestOffice office;
    office.connection.Close();
    const std::string file = office.File();
    const std::filesystem::path folder = std::filesystem::path(file).parent_path();
    const auto refusal = [&] {
        std::string said;
        AsOrdinaryUser([&] {
            try {
                office.connection.Open(file);
            } catch (const DatabaseError& error) {
                said = error.what();
            }
        });
        return said;
    };
    std::filesystem::permissions(folder, std::filesystem::perms(0555));
    std::filesystem::permissions(file, std::filesystem::perms(0444));
    CHECK(refusal() == "The database file '" + file + "' cannot be written: Permission denied");
    std::filesystem::permissions(file, std::filesystem::perms(0));
    CHECK(refusal() == "The database file '" + file + "' cannot be written: Permission denied");
    std::filesystem::permissions(folder, std::filesystem::perms(0));
    CHECK(refusal() == "The database file '" + file + "' cannot be opened: Permission denied");
    std::filesystem::permissions(folder, std::filesystem::perms(0755));
    std::filesystem::permissions(file, std::filesystem::perms(0644));
    CHECK_NOTHROW(office.connection.Open(file));
}

TEST_CASE("A database with another version of the schema is refused, both versions named")
{
    TestOffice office;
    office.connection.Close();
    ExecuteBare(office.File(), "PRAGMA user_version = 99");
    CHECK_THROWS_WITH_AS(
        office.connection.Open(office.File()),
        ("The database file '" + office.File() + "' holds version 99 of the schema, and this program needs version 2.")
            .c_str(),
        DatabaseError);
}

TEST_CASE("An existing file is not made again, nor one in a folder that does not exist")
{
    TestOffice office;
    CHECK_THROWS_WITH_AS(CreateDatabaseFile("/no/such/office.db"),
                         "The file '/no/such/office.db' cannot be made: No such file or directory", DatabaseError);
    CHECK_THROWS_AS(CreateDatabaseFile(office.File()), DatabaseError);
    CHECK_THROWS_AS(CreateSchema(office.connection), DatabaseError);
    CHECK(office.Open("SELECT * FROM Tour").Eof());
}

TEST_CASE("A schema that fails midway leaves nothing behind")
{
    const TestFolder folder;
    CreateDatabaseFile(folder.File("office.db"));
    Connection connection;
    connection.Open("sqlite:" + folder.File("office.db"));
    connection.Execute("CREATE TABLE FleetTrackerAction (ID int)");
    CHECK_THROWS_WITH_AS(CreateSchema(connection),
                         "There is already an object named 'FleetTrackerAction' in the database.", DatabaseError);
    CHECK(ListTables(connection).size() == 1);
}

TEST_CASE("A save goes through the write-ahead log")
{
    TestOffice office;
    office.Execute("INSERT INTO Owner (Name) VALUES ('A')");
    CHECK(std::filesystem::file_size(office.File() + "-wal") > 0);
}

static ssize_t WriteWithoutRoom(int, const void*, std::size_t, off_t)
{
    errno = ENOSPC;
    return -1;
}

/// While it lives, every write of the database meets a full disk.
class FullDisk {
public:
    FullDisk() { Set(reinterpret_cast<sqlite3_syscall_ptr>(WriteWithoutRoom)); }
    ~FullDisk() { Set(nullptr); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    static void Set(sqlite3_syscall_ptr call)
    {
        sqlite3_vfs* files = sqlite3_vfs_find(nullptr);
        for (const char* name : {"write", "pwrite", "pwrite64"})
            files->xSetSystemCall(files, name, call);
    }
};

TEST_CASE("A save on a full disk is told in the database's words and writes nothing; with room it goes on")
{
    TestOffice office;
    office.Execute("INSERT INTO Owner (Name) VALUES ('A')");
    Recordset owner = office.Open("SELECT * FROM Owner");
    owner.Fields("Name") = "B";
    {
        const FullDisk full;
        CHECK_THROWS_WITH_AS(office.Execute("INSERT INTO Owner (Name) VALUES ('C')"), "database or disk is full",
                             DatabaseError);
        CHECK_THROWS_WITH_AS(owner.Update(), "database or disk is full", DatabaseError);
        CHECK(RowsOf(office, "SELECT Name FROM Owner") == std::vector<std::string>{"'A'"});
    }
    owner.Update();
    CHECK(RowsOf(office, "SELECT Name FROM Owner") == std::vector<std::string>{"'B'"});
}

TEST_CASE("Statements of one shape share their plan and differ in their values")
{
    TestOffice office;
    for (const char* name : {"Ann", "Ben", "Cid"})
        office.Execute("INSERT INTO Owner (Name,Zip) VALUES ('" + std::string(name) + "','" + std::string(name) + "')");
    CHECK(RowsOf(office, "SELECT Name FROM Owner WHERE ID = 2") == std::vector<std::string>{"'Ben'"});
    CHECK(RowsOf(office, "SELECT Name FROM Owner WHERE ID = 3") == std::vector<std::string>{"'Cid'"});
    CHECK(RowsOf(office, "SELECT TOP 1 Name FROM Owner ORDER BY ID").size() == 1);
    CHECK(RowsOf(office, "SELECT TOP 2 Name FROM Owner ORDER BY ID").size() == 2);
    CHECK(RowsOf(office, "SELECT CAST(Name AS varchar(1)) AS Cut FROM Owner WHERE ID = 1") ==
          std::vector<std::string>{"'A'"});
    CHECK(RowsOf(office, "SELECT CAST(Name AS varchar(2)) AS Cut FROM Owner WHERE ID = 1") ==
          std::vector<std::string>{"'An'"});
    CHECK(RowsOf(office, "SELECT Name,Zip FROM Owner ORDER BY 1").front() == "'Ann' | 'Ann'");
    office.Execute("UPDATE Owner SET Zip = 'z' WHERE ID = 1");
    CHECK(RowsOf(office, "SELECT Name,Zip FROM Owner ORDER BY 2").front() == "'Ben' | 'Ben'");
    CHECK(RowsOf(office, "SELECT ID + 1 AS Next,COUNT(*) AS Number FROM Owner GROUP BY ID + 1").size() == 3);
    CHECK_THROWS_AS(office.Open("SELECT ID + 1 AS Next,COUNT(*) AS Number FROM Owner GROUP BY ID + 2"), DatabaseError);
}
