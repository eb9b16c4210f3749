#pragma once

#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/Schema.h"
#include "tests/support/TestServer.h"
#include "values/DateTime.h"

#include <filesystem>
#include <optional>
#include <string>
#include <unistd.h>

namespace rovanta {

/// A folder of its own for one test, gone with it.
class TestFolder {
public:
    TestFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "rovanta-store-XXXXXX").string();
        path = mkdtemp(name.data());
    }
    ~TestFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    std::string File(const std::string& name) const { return (path / name).string(); }

private:
    std::filesystem::path path;
};

/// The database on the server that every empty office is a copy of.
inline const std::string& EmptyOffice()
{
    static std::optional<TestDatabase> made;
    if (!made) {
        made.emplace("");
        Connection connection;
        connection.Open(made->Text());
        CreateSchema(connection);
    }
    return made->Name();
}

/// An empty office of its own: the whole schema, no rows. It lies in a file, or where the suite runs on a server, in a
/// database there.
class TestOffice {
public:
    TestOffice()
    {
        if (TestServer()) {
            database.emplace(EmptyOffice());
            connection.Open(Text());
            return;
        }
        CreateDatabaseFile(File());
        connection.Open(File());
        CreateSchema(connection);
    }

    std::string File() const { return folder.File("office.db"); }
    /// Its connection text.
    std::string Text() const { return database ? database->Text() : File(); }

    void Execute(const std::string& statement) { connection.Execute(Statement::Verbatim(statement)); }
    Recordset Open(const std::string& select) { return Recordset(Statement::Verbatim(select), connection); }

    TestFolder folder;
    std::optional<TestDatabase> database;
    Connection connection;
};

/// A value as the expected rows of tests write it: NULL, 1, 12.5, 2026-03-02 00:00:00, true, 'text'.
inline std::string Shown(const Value& value)
{
    if (value.IsNull())
        return "NULL";
    if (value.IsDate())
        return ToLongIsoText(value.Date());
    if (value.IsText())
        return "'" + value.Text() + "'";
    if (std::holds_alternative<bool>(value.Get()))
        return value.Flag() ? "true" : "false";
    return value.Text();
}

/// The rows of a SELECT, the values of each parted by " | ".
inline std::vector<std::string> RowsOf(Recordset& records)
{
    std::vector<std::string> rows;
    const std::size_t columns = records.ColumnNames().size();
    for (; !records.Eof(); records.MoveNext()) {
        std::string row;
        for (std::size_t i = 0; i < columns; ++i)
            row += (i == 0 ? "" : " | ") + Shown(records.FieldAt(i).Value());
        rows.push_back(row);
    }
    return rows;
}

inline std::vector<std::string> RowsOf(TestOffice& office, const std::string& select)
{
    Recordset records = office.Open(select);
    return RowsOf(records);
}

}
