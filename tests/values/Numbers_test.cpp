#include <doctest/doctest.h>

#include "values/Errors.h"
#include "values/Numbers.h"

#include <cmath>
#include <limits>

using namespace rovanta;

TEST_CASE("Round scales, rounds half to even and scales back")
{
    struct Row {
        double x;
        int places;
        double expected;
    };
    const Row rows[] = {
        {0.5, 0, 0},
        {1.5, 0, 2},
        {2.5, 0, 2},
        {3.5, 0, 4},
        {-0.5, 0, 0},
        {-1.5, 0, -2},
        {-2.5, 0, -2},
        {2.4999, 0, 2},
        {2.5001, 0, 3},
        {0.125, 2, 0.12},
        {0.375, 2, 0.38},
        {0.625, 2, 0.62},
        {-0.125, 2, -0.12},
        {1.005, 2, 1.0},
        {2.675, 2, 2.68},
        {1.115, 2, 1.12},
        {8.345, 2, 8.35},
        {1.0049, 2, 1.0},
        {1234.565, 2, 1234.56},
        {100.0 / 3, 2, 33.33},
        {200.0 / 3, 2, 66.67},
        {0, 2, 0},
        {12.34, 2, 12.34},
        {1e14 + 0.25, 1, 1e14 + 0.2},
        {1234, -2, 1200},
        {1250, -2, 1200},
        {1350, -2, 1400},
    };
    for (const Row& row : rows) {
        CAPTURE(row.x);
        CAPTURE(row.places);
        CHECK(Round(row.x, row.places) == row.expected);
    }
}

TEST_CASE("Round leaves numbers alone that cannot be scaled")
{
    CHECK(Round(1e308, 2) == 1e308);
    CHECK(std::isinf(Round(std::numeric_limits<double>::infinity(), 2)));
}

TEST_CASE("CInt rounds half to even within sixteen bits")
{
    struct Row {
        double x;
        int expected;
    };
    const Row rows[] = {{0.5, 0},         {1.5, 2},           {2.5, 2},        {-0.5, 0},      {-1.5, -2},
                        {-2.5, -2},       {7.49, 7},          {7.51, 8},       {32767, 32767}, {32767.4, 32767},
                        {-32768, -32768}, {-32768.5, -32768}, {32766.5, 32766}};
    for (const Row& row : rows) {
        CAPTURE(row.x);
        CHECK(CInt(row.x) == row.expected);
    }
}

TEST_CASE("CInt refuses what is beyond sixteen bits")
{
    for (const double x : {32767.5, 32768.0, -32768.51, -32769.0, 1e9, std::nan("")}) {
        CAPTURE(x);
        CHECK_THROWS_WITH_AS(CInt(x), "Overflow", RunTimeError);
    }
}

TEST_CASE("CLng rounds half to even within 32 bits")
{
    CHECK(CLng(2.5) == 2);
    CHECK(CLng(40000) == 40000);
    CHECK(CLng(2147483647.4) == 2147483647);
    CHECK(CLng(-2147483648.5) == -2147483647 - 1);
    CHECK_THROWS_WITH_AS(CLng(2147483647.5), "Overflow", RunTimeError);
    CHECK_THROWS_AS(CLng(-2147483649.0), RunTimeError);
    CHECK_THROWS_AS(CLng(std::nan("")), RunTimeError);
}

TEST_CASE("Val reads the leading number of a text")
{
    struct Row {
        const char* text;
        double expected;
    };
    const Row rows[] = {
        {"", 0},        {"   ", 0},          {"12", 12},     {"12abc", 12},  {"abc", 0},      {"abc12", 0},
        {"-5", -5},     {"+5", 5},           {"- 5", -5},    {"--5", 0},     {"-", 0},        {".", 0},
        {".5", 0.5},    {"5.", 5},           {"-.5x", -0.5}, {"1.5.3", 1.5}, {"1 234", 1234}, {" 1\t2\r\n3 ", 123},
        {"1,234", 1},   {"$12", 0},          {"(5)", 0},     {"50%", 50},    {"1e3", 1000},   {"1E3", 1000},
        {"1d2", 100},   {"1e", 1},           {"1e+", 1},     {"1e-2", 0.01}, {"1e2e3", 100},  {"e5", 0},
        {"1e2.5", 100}, {"1/5/2026", 1},     {"1e-400", 0},  {"007", 7},     {"inf", 0},      {"nan", 0},
        {"0x10", 0},    {"1200.50", 1200.5},
    };
    for (const Row& row : rows) {
        CAPTURE(row.text);
        CHECK(Val(row.text) == row.expected);
    }
    CHECK_THROWS_WITH_AS(Val("1e400"), "Overflow", RunTimeError);
}

TEST_CASE("CDbl reads a text that is a number as a whole")
{
    struct Row {
        const char* text;
        double expected;
    };
    const Row rows[] = {
        {"0", 0},
        {"12", 12},
        {" 12 ", 12},
        {"-12.5", -12.5},
        {"+12", 12},
        {"- 12", -12},
        {"1,234.50", 1234.5},
        {"1,234,567", 1234567},
        {"$1,234.50", 1234.5},
        {"-$5", -5},
        {"$-5", -5},
        {"$ 5", 5},
        {"($5.00)", -5},
        {"$(5.00)", -5},
        {"(1,400.25)", -1400.25},
        {"( 5 )", -5},
        {".5", 0.5},
        {"5.", 5},
        {"1e3", 1000},
        {"1E-2", 0.01},
        {"1e-400", 0},
        {"$1,400.", 1400},
    };
    for (const Row& row : rows) {
        CAPTURE(row.text);
        CHECK(IsNumeric(row.text));
        CHECK(CDbl(row.text) == row.expected);
    }
}

TEST_CASE("CDbl refuses a text that is no number")
{
    for (const char* text :
         {"",    " ",     "abc",     "12abc", "$",  "-",  "()", "(5",    "5)",   "(-5)", "--5", "-+5",   "$$5",
          "5 5", "1.2.3", "1.5,000", ",5",    "$.", "5%", "1e", "1e400", "0x10", "inf",  "nan", "((5))", "5$"}) {
        CAPTURE(text);
        CHECK_FALSE(IsNumeric(text));
        CHECK_FALSE(ParseNumber(text).has_value());
        CHECK_THROWS_AS(CDbl(text), RunTimeError);
    }
    CHECK_THROWS_WITH(CDbl("twelve"), "Type mismatch: 'twelve'");
    CHECK_THROWS_WITH(CDbl(""), "Type mismatch");
}

TEST_CASE("A mask box gives its number, a blank one 0")
{
    struct Row {
        const char* text;
        double expected;
    };
    const Row rows[] = {{"", 0},         {"  ", 0},        {"$1,234.50", 1234.5}, {"($5.00)", -5}, {"8.5%", 0.085},
                        {" 50 % ", 0.5}, {"(5)%", -0.05},  {"12 days", 12},       {"$.", 0},       {"none", 0},
                        {"%", 0},        {"-1,400", -1400}};
    for (const Row& row : rows) {
        CAPTURE(row.text);
        CHECK(MaskedNumber(row.text) == doctest::Approx(row.expected));
    }
}

TEST_CASE("A number as text has up to fifteen significant digits")
{
    struct Row {
        double number;
        const char* expected;
    };
    const Row rows[] = {
        {0, "0"},
        {-0.0, "0"},
        {1, "1"},
        {-1, "-1"},
        {1400, "1400"},
        {1400.5, "1400.5"},
        {0.1, "0.1"},
        {-0.25, "-0.25"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {2.0 / 3, "0.666666666666667"},
        {100.0 / 3, "33.3333333333333"},
        {0.00001, "0.00001"},
        {123456789012345, "123456789012345"},
        {999999999999999, "999999999999999"},
        {1e15, "1E+15"},
        {1234567890123456, "1.23456789012346E+15"},
        {-2.5e20, "-2.5E+20"},
        {1e100, "1E+100"},
        {99999.999999999999, "100000"},
        {1e-30, "1E-30"},
        {32767, "32767"},
    };
    for (const Row& row : rows) {
        CAPTURE(row.expected);
        CHECK(ToText(row.number) == row.expected);
    }
    CHECK_THROWS_AS(ToText(std::nan("")), RunTimeError);
    CHECK_THROWS_AS(ToText(std::numeric_limits<double>::infinity()), RunTimeError);
}

TEST_CASE("Whole numbers and flags as text")
{
    CHECK(ToText(-7) == "-7");
    CHECK(ToText(std::int64_t{9007199254740993}) == "9007199254740993");
    CHECK(ToText(true) == "True");
    CHECK(ToText(false) == "False");
}
