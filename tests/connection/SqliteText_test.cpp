#include "tests/connection/Refusals.h"

#include "store/Schema.h"

#include <doctest/doctest.h>

using namespace rovanta;
using namespace rovanta::tests;

TEST_CASE("A connection text that names no database file is told at the start")
{
    const TestFolder folder;
    CreateDatabaseFile(folder.File("empty.db"));
    WriteContent(folder.File("nothing.db"), "");
    std::string damaged = ContentOf(TestOffice().folder.File("rovanta.db"));
    damaged.resize(damaged.size() / 2);
    WriteContent(folder.File("half.db"), damaged);
    CheckRefusals(
        "SQLite",
        {
            {"", {"The connection text names no database."}},
            {"sqlite:", {"The connection text names no database."}},
            {"absent.db", {"The database file '", "/absent.db' does not exist."}},
            {"no such folder/rovanta.db", {"The database file '", "/no such folder/rovanta.db' does not exist."}},
            {"sqlite:/no/such/folder/rovanta.db", {"'/no/such/folder/rovanta.db' does not exist."}},
            {"sqlite:" + folder.path.string(), {"'" + folder.path.string() + "' is a folder and no database file."}},
            {"/dev/null", {"'/dev/null' is no database file."}},
            {"config.txt", {"The file '", "/config.txt' is no database."}},
            {folder.File("half.db"), {folder.File("half.db")}},
            {folder.File("empty.db"), {"The database holds no office: it has no table Company."}},
            {folder.File("nothing.db"), {"The database holds no office: it has no table Company."}},
        });
    CHECK_FALSE(std::filesystem::exists("/no/such"));
}

TEST_CASE("A connection text that names no known kind of database is told at the start")
{
    CheckRefusals("SQLite",
                  {
                      {"mysql://office:sesame@db/office", {"begins with 'mysql://'", "'postgresql://'", "'Driver='"}},
                      {"postgresql:office:sesame@db/office", {"begins with 'postgresql://', with both slashes"}},
                      {"postgres:/office:sesame@db/office", {"begins with 'postgresql://', with both slashes"}},
                      {"Drver={FreeTDS};Server=db;UID=office;PWD=sesame",
                       {"begins with 'Drver='", "neither 'Driver=' nor 'DSN='"}},
                      {"host=db user=office password=sesame dbname=office", {"begins with 'host='"}},
                  });
}
