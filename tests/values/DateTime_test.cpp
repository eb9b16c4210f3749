#include <doctest/doctest.h>

#include "values/DateTime.h"
#include "values/Errors.h"

using namespace rovanta;

namespace {

DateTime Day(const char* text)
{
    return ToDate(text);
}

}

TEST_CASE("A date is made of its parts and gives them back")
{
    const DateTime date = DateTime::Of(2026, 11, 20, 23, 59, 58);
    CHECK(date.Year() == 2026);
    CHECK(date.Month() == 11);
    CHECK(date.Day() == 20);
    CHECK(date.Hour() == 23);
    CHECK(date.Minute() == 59);
    CHECK(date.Second() == 58);
    CHECK(date.HasTime());
    CHECK(date.SecondsOfDay() == 86398);
    CHECK(date.DateOnly() == DateTime::Of(2026, 11, 20));
    CHECK_FALSE(date.DateOnly().HasTime());
    CHECK(DateTime::FromSeconds(date.Seconds()) == date);
}

TEST_CASE("Dates before 1970 count downwards by whole days")
{
    const DateTime date = DateTime::Of(1969, 12, 31, 18);
    CHECK(date.Seconds() == -21600);
    CHECK(date.DayNumber() == -1);
    CHECK(date.SecondsOfDay() == 64800);
    CHECK(date.Day() == 31);
}

TEST_CASE("The zero of dates is December 30, 1899")
{
    CHECK(DateTime() == DateTime::Of(1899, 12, 30));
}

TEST_CASE("There is no such day or time")
{
    CHECK_THROWS_WITH_AS(DateTime::Of(2026, 2, 29), "Type mismatch: '2/29/2026'", RunTimeError);
    CHECK_THROWS_AS(DateTime::Of(2026, 13, 1), RunTimeError);
    CHECK_THROWS_AS(DateTime::Of(2026, 0, 1), RunTimeError);
    CHECK_THROWS_AS(DateTime::Of(2026, 257, 1), RunTimeError);
    CHECK_THROWS_AS(DateTime::Of(2026, 1, 257), RunTimeError);
    CHECK_THROWS_AS(DateTime::Of(2026, -1, 1), RunTimeError);
    CHECK_THROWS_AS(DateTime::Of(10000, 1, 1), RunTimeError);
    CHECK_THROWS_AS(DateTime::Of(0, 1, 1), RunTimeError);
    CHECK_THROWS_AS(DateTime::Of(2026, 1, 1, 24), RunTimeError);
    CHECK_THROWS_AS(DateTime::Of(2026, 1, 1, 0, 60), RunTimeError);
    CHECK_THROWS_AS(DateTime::Of(2026, 1, 1, 0, 0, 60), RunTimeError);
}

TEST_CASE("Leap years have a February 29 by the century rule")
{
    CHECK(DateTime::Of(2024, 2, 29).Day() == 29);
    CHECK(DateTime::Of(2000, 2, 29).Day() == 29);
    CHECK_THROWS_AS(DateTime::Of(1900, 2, 29), RunTimeError);
    CHECK_THROWS_AS(DateTime::Of(2100, 2, 29), RunTimeError);
    CHECK(AddDays(DateTime::Of(2024, 2, 28), 1) == DateTime::Of(2024, 2, 29));
    CHECK(AddDays(DateTime::Of(2026, 2, 28), 1) == DateTime::Of(2026, 3, 1));
}

TEST_CASE("The week begins with Sunday as day 1")
{
    CHECK(Day("1/4/2026").Weekday() == 1);
    CHECK(Day("1/5/2026").Weekday() == 2);
    CHECK(Day("1/10/2026").Weekday() == 7);
    CHECK(Day("2/29/2024").Weekday() == 5);
    CHECK(Day("12/31/1899").Weekday() == 1);
    CHECK(Day("1/1/1970 11:59 PM").Weekday() == 5);
}

TEST_CASE("DateAdd moves by days, weeks, months and years")
{
    struct Row {
        const char* interval;
        double number;
        const char* from;
        const char* expected;
    };
    const Row rows[] = {
        {"d", 1, "1/31/2026", "2/1/2026"},
        {"d", -1, "1/1/2026", "12/31/2025"},
        {"d", 0, "1/1/2026 3:04:05 PM", "1/1/2026 3:04:05 PM"},
        {"d", 366, "1/1/2024", "1/1/2025"},
        {"d", 1.5, "1/1/2026", "1/3/2026"},
        {"d", 2.5, "1/1/2026", "1/3/2026"},
        {"d", 1, "12/31/2025 11:00:00 PM", "1/1/2026 11:00:00 PM"},
        {"ww", 4, "1/5/2026", "2/2/2026"},
        {"ww", -1, "1/5/2026", "12/29/2025"},
        {"m", 1, "1/31/2026", "2/28/2026"},
        {"m", 1, "1/31/2024", "2/29/2024"},
        {"m", 1, "3/31/2026", "4/30/2026"},
        {"m", 1, "2/28/2026", "3/28/2026"},
        {"m", -1, "3/31/2026", "2/28/2026"},
        {"m", -1, "1/15/2026", "12/15/2025"},
        {"m", 12, "2/29/2024", "2/28/2025"},
        {"m", 13, "12/31/2025", "1/31/2027"},
        {"m", -13, "1/31/2026", "12/31/2024"},
        {"m", 1, "1/31/2026 3:04:05 PM", "2/28/2026 3:04:05 PM"},
        {"yyyy", 1, "2/29/2024", "2/28/2025"},
        {"yyyy", 4, "2/29/2024", "2/29/2028"},
        {"yyyy", -1, "1/5/2026", "1/5/2025"},
        {"h", 25, "1/1/2026", "1/2/2026 1:00:00 AM"},
        {"n", -1, "1/1/2026", "12/31/2025 11:59:00 PM"},
        {"s", 90, "1/1/2026", "1/1/2026 12:01:30 AM"},
    };
    for (const Row& row : rows) {
        CAPTURE(row.interval);
        CAPTURE(row.number);
        CAPTURE(row.from);
        CHECK(ToText(DateAdd(row.interval, row.number, Day(row.from))) == row.expected);
    }
}

TEST_CASE("DateAdd refuses an unknown interval and a date beyond the calendar")
{
    const DateTime date = Day("1/5/2026");
    CHECK_THROWS_AS(DateAdd("q", 1, date), std::logic_error);
    CHECK_THROWS_AS(DateAdd("", 1, date), std::logic_error);
    CHECK_THROWS_WITH_AS(DateAdd("d", 1e9, date), "Overflow", RunTimeError);
    CHECK_THROWS_AS(DateAdd("d", 9e8, date), RunTimeError);
    CHECK_THROWS_AS(DateAdd("m", 9e8, date), RunTimeError);
    CHECK_THROWS_AS(DateAdd("yyyy", 9e8, date), RunTimeError);
    CHECK_THROWS_AS(DateAdd("yyyy", 7974, date), RunTimeError);
    CHECK_THROWS_AS(DateAdd("yyyy", -2026, date), RunTimeError);
    CHECK(ToText(DateAdd("yyyy", 7973, date)) == "1/5/9999");
}

TEST_CASE("DateDiff counts calendar days and boundaries")
{
    struct Row {
        const char* interval;
        const char* from;
        const char* to;
        int expected;
    };
    const Row rows[] = {
        {"d", "1/5/2026", "1/5/2026", 0},
        {"d", "1/5/2026 11:59:59 PM", "1/6/2026", 1},
        {"d", "1/5/2026", "1/5/2026 11:59:59 PM", 0},
        {"d", "2/28/2024", "3/1/2024", 2},
        {"d", "2/28/2026", "3/1/2026", 1},
        {"d", "3/1/2026", "2/28/2026", -1},
        {"d", "1/1/1970", "12/31/1969 1:00 PM", -1},
        {"m", "1/31/2026", "2/1/2026", 1},
        {"m", "1/1/2026", "1/31/2026", 0},
        {"m", "12/31/2025", "1/1/2026", 1},
        {"m", "3/1/2026", "1/31/2026", -2},
        {"m", "1/15/2024", "1/14/2026", 24},
        {"yyyy", "12/31/2025", "1/1/2026", 1},
        {"yyyy", "1/1/2026", "12/31/2026", 0},
        {"ww", "1/5/2026", "1/18/2026", 1},
        {"ww", "1/5/2026", "1/19/2026", 2},
        {"h", "1/5/2026 1:59 AM", "1/5/2026 2:00 AM", 1},
        {"n", "1/5/2026 1:00:59 AM", "1/5/2026 1:01:00 AM", 1},
        {"s", "1/5/2026", "1/6/2026", 86400},
    };
    for (const Row& row : rows) {
        CAPTURE(row.interval);
        CAPTURE(row.from);
        CAPTURE(row.to);
        CHECK(DateDiff(row.interval, Day(row.from), Day(row.to)) == row.expected);
    }
    CHECK_THROWS_AS(DateDiff("w", Day("1/5/2026"), Day("1/6/2026")), std::logic_error);
}

TEST_CASE("A date as text has no leading zeros, and its time only where it has one")
{
    CHECK(ToText(DateTime::Of(2026, 1, 5)) == "1/5/2026");
    CHECK(ToText(DateTime::Of(2026, 12, 31)) == "12/31/2026");
    CHECK(ToText(DateTime::Of(2026, 1, 5, 15, 4, 5)) == "1/5/2026 3:04:05 PM");
    CHECK(ToText(DateTime::Of(2026, 1, 5, 0, 0, 1)) == "1/5/2026 12:00:01 AM");
    CHECK(ToText(DateTime::Of(2026, 1, 5, 12, 0, 0)) == "1/5/2026 12:00:00 PM");
    CHECK(ToText(DateTime::Of(2026, 1, 5, 9, 30, 0)) == "1/5/2026 9:30:00 AM");
    CHECK(ToIsoText(DateTime::Of(2026, 1, 5)) == "2026-01-05");
    CHECK(ToIsoText(DateTime::Of(2026, 1, 5, 15, 4, 5)) == "2026-01-05 15:04:05");
    CHECK(ToLongIsoText(DateTime::Of(2026, 1, 5)) == "2026-01-05 00:00:00");
}

TEST_CASE("ParseDate reads the ways in which a date is written")
{
    struct Row {
        const char* text;
        const char* expected;
    };
    const Row rows[] = {
        {"1/5/2026", "1/5/2026"},
        {"01/05/2026", "1/5/2026"},
        {" 1/5/2026 ", "1/5/2026"},
        {"1-5-2026", "1/5/2026"},
        {"2026-01-05", "1/5/2026"},
        {"2026/1/5", "1/5/2026"},
        {"1/5/26", "1/5/2026"},
        {"1/5/29", "1/5/2029"},
        {"1/5/30", "1/5/1930"},
        {"1/5/99", "1/5/1999"},
        {"2/29/2024", "2/29/2024"},
        {"1/1/1753", "1/1/1753"},
        {"12/31/9999", "12/31/9999"},
        {"1/5/2026 3:04:05 PM", "1/5/2026 3:04:05 PM"},
        {"1/5/2026 3:04 pm", "1/5/2026 3:04:00 PM"},
        {"1/5/2026 12:00 AM", "1/5/2026"},
        {"1/5/2026 12:00 PM", "1/5/2026 12:00:00 PM"},
        {"1/5/2026 15:04", "1/5/2026 3:04:00 PM"},
        {"2026-01-05 15:04:05", "1/5/2026 3:04:05 PM"},
        {"2026-01-05 15:04:05.123", "1/5/2026 3:04:05 PM"},
        {"2026-01-05T15:04:05", "1/5/2026 3:04:05 PM"},
        {"2026-01-05 00:00:00", "1/5/2026"},
    };
    for (const Row& row : rows) {
        CAPTURE(row.text);
        const auto date = ParseDate(row.text);
        REQUIRE(date.has_value());
        CHECK(ToText(*date) == row.expected);
        CHECK(ToDate(row.text) == *date);
    }
}

TEST_CASE("ParseDate refuses what is no date")
{
    for (const char* text : {"",
                             " ",
                             "soon",
                             "1",
                             "1/5",
                             "1/5/",
                             "/5/2026",
                             "1//2026",
                             "1/5-2026",
                             "1-5/2026",
                             "1.5.2026",
                             "13/1/2026",
                             "0/5/2026",
                             "1/0/2026",
                             "1/32/2026",
                             "2/30/2026",
                             "2/29/2026",
                             "2/29/1900",
                             "4/31/2026",
                             "257/1/2026",
                             "1/257/2026",
                             "1/5/1752",
                             "1/5/026",
                             "1/5/20261",
                             "-1/5/2026",
                             "1/-5/2026",
                             "1/5/2026x",
                             "1/5/2026 x",
                             "1/5/2026 3",
                             "1/5/2026 3:",
                             "1/5/2026 24:00",
                             "1/5/2026 3:60",
                             "1/5/2026 3:04:60",
                             "1/5/2026 13:00 PM",
                             "1/5/2026 0:00 AM",
                             "1/5/2026 3:04:05:",
                             "1/5/2026 3:04:05:06",
                             "1/5/2026 3:04.5",
                             "1/5/2026 3:04 XM",
                             "1/5/2026 3:04 PM x",
                             "2026-01-05T",
                             "2026-13-01",
                             "2026-02-30",
                             "20260105"}) {
        CAPTURE(text);
        CHECK_FALSE(ParseDate(text).has_value());
        CHECK_THROWS_AS(ToDate(text), RunTimeError);
    }
    CHECK_THROWS_WITH(ToDate("2/30/2026"), "Type mismatch: '2/30/2026'");
}

TEST_CASE("Every date's text reads back as the same date")
{
    for (DateTime date = DateTime::Of(2023, 12, 1, 0, 0, 1); date < DateTime::Of(2025, 3, 2); date = AddDays(date, 1)) {
        REQUIRE(ParseDate(ToText(date)) == date);
        REQUIRE(ParseDate(ToLongIsoText(date)) == date);
        date = DateAdd("n", 61, date);
    }
}
