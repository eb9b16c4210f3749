#include <doctest/doctest.h>

#include "store/DatabaseError.h"
#include "store/OdbcText.h"
#include "store/SqlServerText.h"
#include "store/Utf16.h"

using namespace rovanta;

namespace {

TableInfo Numbered()
{
    return {"Bus",
            TableKind::Table,
            {{"ID", {TypeKind::Int}, false, true}, {"Name", {TypeKind::Varchar, 100}}, {"Lease", {TypeKind::Money}}}};
}

TableInfo Plain()
{
    return {"Company", TableKind::Table, {{"TaxRate", {TypeKind::Float}}, {"Since", {TypeKind::DateTime}}}};
}

}

TEST_CASE("Values are written as T-SQL reads them")
{
    struct {
        Value value;
        TypeKind kind;
        const char* text;
    } const cases[] = {
        {Value(), TypeKind::Int, "NULL"},
        {true, TypeKind::Bit, "1"},
        {false, TypeKind::Bit, "0"},
        {-7, TypeKind::Int, "-7"},
        {0.1, TypeKind::Float, "0.10000000000000001E0"},
        {1e300, TypeKind::Float, "1.0000000000000001e+300"},
        {-1234.5, TypeKind::Money, "-1234.5000"},
        {DateTime::Of(2026, 3, 2), TypeKind::DateTime, "'3/2/2026'"},
        {DateTime::Of(2026, 3, 2, 15, 4, 5), TypeKind::DateTime, "'3/2/2026 3:04:05 PM'"},
        {"O'Neil", TypeKind::Varchar, "'O''Neil'"},
        {"", TypeKind::Varchar, "''"},
        {"a\\\r\nb", TypeKind::Varchar, "'a\\' + '\r\nb'"},
    };
    for (const auto& one : cases)
        CHECK(SqlServerLiteral(one.value, one.kind) == one.text);
    CHECK(SqlServerName("a]b") == "[a]]b]");
}

TEST_CASE("The last number is the highest that a row has or that the server gave")
{
    TableInfo table = Numbered();
    table.name = "It's";
    CHECK(SqlServerLastNumber(table) ==
          "SELECT (SELECT MAX(CAST([ID] AS bigint)) FROM [It's]) AS Highest, (SELECT CAST(last_value AS bigint) "
          "FROM sys.identity_columns WHERE object_id = OBJECT_ID('[It''s]')) AS LastGiven");
}

TEST_CASE("A row is written with its number asked for, and found again by the number and by what was read")
{
    const TableInfo bus = Numbered();
    const Value name("Coach 12");
    const Value lease(900.5);
    const Value nothing;
    const std::vector<ColumnValue> changes{{&bus.columns[1], &name}};
    const std::vector<ColumnValue> read{{&bus.columns[1], &nothing}, {&bus.columns[2], &lease}};
    CHECK(SqlServerInsert(bus, changes) ==
          "INSERT INTO [Bus] ([Name]) VALUES ('Coach 12'); SELECT CAST(SCOPE_IDENTITY() AS bigint) AS NewNumber");
    CHECK(SqlServerUpdate(bus, 5, changes, read) ==
          "UPDATE [Bus] SET [Name] = 'Coach 12' WHERE [ID] = 5 AND [Name] IS NULL AND [Lease] = 900.5000");
    CHECK(SqlServerDelete(bus, 5, {}) == "DELETE FROM [Bus] WHERE [ID] = 5");
    CHECK_THROWS_AS(SqlServerUpdate(bus, noRowNumber, changes, read), DatabaseError);
}

TEST_CASE("A row without a number is one of those that stand as it was read, to the second")
{
    const TableInfo company = Plain();
    const Value rate(0.5);
    const Value since(DateTime::Of(2026, 3, 2, 23, 59, 59));
    const std::vector<ColumnValue> changes{{&company.columns[0], &rate}};
    CHECK(SqlServerInsert(company, {}) == "INSERT INTO [Company] DEFAULT VALUES");
    CHECK(SqlServerUpdate(company, noRowNumber, changes, {{&company.columns[1], &since}}) ==
          "WITH FoundRow AS (SELECT TOP 1 * FROM [Company] WHERE [Since] >= '3/2/2026 11:59:59 PM' AND [Since] < "
          "'3/3/2026') UPDATE FoundRow SET [TaxRate] = 0.5E0");
    CHECK(SqlServerDelete(company, noRowNumber, {{&company.columns[0], &rate}}) ==
          "WITH FoundRow AS (SELECT TOP 1 * FROM [Company] WHERE [TaxRate] = 0.5E0) DELETE FROM FoundRow");
    CHECK_THROWS_AS(SqlServerDelete(company, noRowNumber, {}), DatabaseError);
}

TEST_CASE("The server's types count as the dialect's nearest ones")
{
    CHECK(TypeOnSqlServer("varchar", 100) == SqlType{TypeKind::Varchar, 100});
    CHECK(TypeOnSqlServer("NVARCHAR", 100) == SqlType{TypeKind::Varchar, 50});
    CHECK(TypeOnSqlServer("varchar", -1) == SqlType{TypeKind::Varchar});
    CHECK(TypeOnSqlServer("smallint", 2) == SqlType{TypeKind::Int});
    CHECK(TypeOnSqlServer("decimal", 9) == SqlType{TypeKind::Float});
    CHECK(TypeOnSqlServer("smalldatetime", 4) == SqlType{TypeKind::DateTime});
    CHECK(TypeOnSqlServer("geography", -1) == SqlType{TypeKind::Varchar});
}

TEST_CASE("A connection text is read with braces, and the program's own words stay with the program")
{
    const OdbcText text("driver={FreeTDS}; Server=db ;Port=1433;PWD={a;b}}c};LoginTimeout=3;QueryTimeout=60");
    CHECK(text.Get("DRIVER") == "FreeTDS");
    CHECK(text.Get("pwd") == "a;b}c");
    CHECK(text.Get("UID") == "");
    CHECK(text.Server() == "db, port 1433");
    CHECK(text.Seconds(loginTimeoutKey, 8) == 3);
    CHECK(text.Seconds("Other", 8) == 8);
    CHECK(text.ForDriver() == "driver=FreeTDS;Server=db;Port=1433;PWD={a;b}}c};");
    CHECK(OdbcText(text.With("Server", "x y")).Get("Server") == "x y");
    CHECK_THROWS_AS(OdbcText("Driver=FreeTDS;nonsense"), DatabaseError);
    CHECK_THROWS_AS(OdbcText("LoginTimeout=0").Seconds(loginTimeoutKey, 8), DatabaseError);
    CHECK_THROWS_AS(OdbcText("LoginTimeout=99").Seconds(loginTimeoutKey, 8), DatabaseError);
}

TEST_CASE("Texts go to UTF-16 and back")
{
    for (const char* text : {"", "plain", "Zo\xC3\xAB", "\xE6\x9D\xB1\xE4\xBA\xAC", "\xF0\x9F\x9A\x8C bus"})
        CHECK(ToUtf8(ToUtf16(text)) == text);
    CHECK(ToUtf16("\xF0\x9F\x9A\x8C") == u"\xD83D\xDE8C");
    CHECK(ToUtf16("\xFF") == u"\xFFFD");
    const char16_t half[] = {0xD83D, u'x'};
    CHECK(ToUtf8({half, 2}) == "\xEF\xBF\xBDx");
}
