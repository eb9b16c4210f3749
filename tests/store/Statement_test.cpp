#include <doctest/doctest.h>

#include "store/DatabaseError.h"
#include "store/Statement.h"

#include <limits>
#include <type_traits>

using namespace rovanta;

TEST_CASE("A statement is put together from literals and values with a kind")
{
    const Statement statement = Statement("SELECT * FROM OldTourName WHERE Customer='") + Text("Gold Pine") +
                                "' AND NewName='" + Text("Fall Run") + "'";
    CHECK(statement.Get() == "SELECT * FROM OldTourName WHERE Customer='Gold Pine' AND NewName='Fall Run'");
    CHECK((Statement("DELETE FROM Tour WHERE ID = ") + Key(std::int64_t{-7})).Get() ==
          "DELETE FROM Tour WHERE ID = -7");
    CHECK((Statement("x IN (") + KeyList({"1", "22", "-3"}) + ")").Get() == "x IN (1,22,-3)");
    CHECK((Statement("Paid - ") + Number(12.5)).Get() == "Paid - 12.5");
    CHECK((Statement("Taxable = ") + Flag(true) + "," + Flag(false)).Get() == "Taxable = 1,0");
    CHECK((Statement("'") + DateText(DateTime::Of(2026, 3, 2)) + "'").Get() == "'3/2/2026'");
    CHECK((Statement("'") + DateText(DateTime::Of(2026, 3, 2, 15, 4, 5)) + "'").Get() == "'3/2/2026 3:04:05 PM'");
}

TEST_CASE("A text of a value never becomes a statement by itself")
{
    CHECK_FALSE(std::is_convertible_v<std::string, Statement>);
    CHECK_FALSE(std::is_convertible_v<const char*, Statement>);
    CHECK_FALSE(std::is_convertible_v<char(&)[8], Statement>);
    CHECK(std::is_convertible_v<const char(&)[8], Statement>);
}

TEST_CASE("An apostrophe in a text raises the database's syntax error")
{
    CHECK_THROWS_WITH_AS(Text("O'Brien"), "Incorrect syntax near 'Brien'.", DatabaseError);
    CHECK_THROWS_WITH_AS(Text("x' OR 'a'='a"), "Incorrect syntax near 'OR'.", DatabaseError);
    CHECK_THROWS_WITH_AS(Text("it is the drivers'"), "Incorrect syntax near '''.", DatabaseError);
    CHECK(Text("plain; DROP TABLE Tour --").Get() == "plain; DROP TABLE Tour --");
}

TEST_CASE("A guarded text has its apostrophes doubled")
{
    CHECK(QuotedText("O'Brien's").Get() == "O''Brien''s");
    CHECK(QuotedText("").Get() == "");
}

TEST_CASE("A key that is no whole number raises a syntax error")
{
    CHECK(Key("120").Get() == "120");
    CHECK(Key("-1").Get() == "-1");
    for (const char* key : {"abc", "1.5", "1 OR 1=1", " 1", "--1", "-", "1e3"})
        CHECK_THROWS_AS(Key(key), DatabaseError);
    CHECK_THROWS_WITH_AS(Key(""), "Incorrect syntax near '='.", DatabaseError);
    CHECK_THROWS_WITH_AS(Key("12a"), "Incorrect syntax near '12a'.", DatabaseError);
    CHECK_THROWS_AS(KeyList({"1", ""}), DatabaseError);
    CHECK(KeyList({}).Get() == "");
}

TEST_CASE("A number goes into a statement in full, and an infinite one is refused")
{
    CHECK_THROWS_AS(Number(std::numeric_limits<double>::infinity()), RunTimeError);
    CHECK_THROWS_AS(Number(std::numeric_limits<double>::quiet_NaN()), RunTimeError);
    CHECK(Number(-0.25).Get() == "-0.25");
    CHECK(Number(1400).Get() == "1400");
}
