#include <doctest/doctest.h>

#include "values/Text.h"

using namespace rovanta;

TEST_CASE("Trim takes blanks off both ends and nothing else")
{
    CHECK(Trim("  a b  ") == "a b");
    CHECK(Trim("   ").empty());
    CHECK(Trim("").empty());
    CHECK(Trim("\ta\r\n") == "\ta\r\n");
}

TEST_CASE("Case counts for nothing among ASCII letters alone")
{
    CHECK(LowerCase("ABC xyz 1") == "abc xyz 1");
    CHECK(LowerCase("ÀÉÞ ×÷ ßÿ Ł") == "àéþ ×÷ ßÿ Ł");
    CHECK(EqualNoCase("ÉDITH", "édith"));
    CHECK_FALSE(EqualNoCase("édith", "edith"));
    CHECK_FALSE(EqualNoCase("×", "÷"));
    CHECK(StartsWithNoCase("Édith", "éD"));
    CHECK(EqualNoCase("Tour", "tOUR"));
    CHECK_FALSE(EqualNoCase("Tour", "Tours"));
    CHECK_FALSE(EqualNoCase("[", "{"));
    CHECK(StartsWithNoCase("Larkfield", "LARK"));
    CHECK(StartsWithNoCase("Larkfield", ""));
    CHECK_FALSE(StartsWithNoCase("Lark", "Larkfield"));
}

TEST_CASE("Split gives one piece more than there are marks")
{
    CHECK(Split("a,b,c", ',') == std::vector<std::string>{"a", "b", "c"});
    CHECK(Split("", ',') == std::vector<std::string>{""});
    CHECK(Split(",", ',') == std::vector<std::string>{"", ""});
    CHECK(Split("a,,b", ',') == std::vector<std::string>{"a", "", "b"});
    CHECK(Split("abc", ',') == std::vector<std::string>{"abc"});
}

TEST_CASE("Join puts the mark between the pieces")
{
    CHECK(Join({"a", "b", "c"}, ", ") == "a, b, c");
    CHECK(Join({"a"}, ", ") == "a");
    CHECK(Join({}, ", ").empty());
}

TEST_CASE("Replace replaces each and does not look at what it wrote")
{
    CHECK(Replace("it's Bob's", "'", "''") == "it''s Bob''s");
    CHECK(Replace("aaa", "aa", "a") == "aa");
    CHECK(Replace("abc", "x", "y") == "abc");
    CHECK(Replace("a-b", "-", "") == "ab");
}

TEST_CASE("Broken UTF-8 becomes replacement characters")
{
    const std::string mark = "\xEF\xBF\xBD";
    CHECK(ValidUtf8("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x9A\x8C") == "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x9A\x8C");
    CHECK(ValidUtf8("a\xFF"
                    "b") == "a" + mark + "b");
    CHECK(ValidUtf8("\xC3") == mark);
    CHECK(ValidUtf8("\x80") == mark);
    CHECK(ValidUtf8("\xC0\xAF") == mark + mark);
    CHECK(ValidUtf8("\xE0\x80\xAF") == mark + mark + mark);
    CHECK(ValidUtf8("\xED\xA0\x80") == mark + mark + mark);
    CHECK(ValidUtf8("\xF4\x90\x80\x80") == mark + mark + mark + mark);
    CHECK(ValidUtf8("\xE2\x82") == mark + mark);
}

TEST_CASE("Characters are counted, not bytes")
{
    CHECK(CharacterCount("") == 0);
    CHECK(CharacterCount("abc") == 3);
    CHECK(CharacterCount("caf\xC3\xA9") == 4);
    CHECK(CharacterCount("\xF0\x9F\x9A\x8C") == 1);
}
