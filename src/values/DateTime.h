#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rovanta {

/// A calendar date with a time of day in whole seconds, without a time zone: what the machine's clock on the wall says.
/// A text is read as a date within the years 1753 to 9999 alone, as the database's `datetime` takes them.
class DateTime {
public:
    /// December 30, 1899, 0:00: the zero of the language's dates.
    DateTime() = default;

    /// The given date and time of day. Throws TypeMismatch when there is no such day or time.
    static DateTime Of(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

    /// Whole seconds since January 1, 1970, 0:00.
    static DateTime FromSeconds(std::int64_t seconds);
    std::int64_t Seconds() const { return seconds; }

    int Year() const;
    int Month() const;
    int Day() const;
    int Hour() const;
    int Minute() const;
    int Second() const;
    /// 1 for Sunday to 7 for Saturday.
    int Weekday() const;

    /// The same day at 0:00.
    DateTime DateOnly() const;
    bool HasTime() const;
    /// Seconds since midnight.
    int SecondsOfDay() const;
    /// Days since January 1, 1970; counts calendar days, negative before.
    std::int64_t DayNumber() const;

    auto operator<=>(const DateTime&) const = default;

private:
    std::int64_t seconds = -2209161600; // 1899-12-30
};

/// `date` moved by whole days, earlier when negative. Keeps the time of day. Throws Overflow beyond the years 1 to
/// 9999.
DateTime AddDays(DateTime date, std::int64_t days);

/// `date` moved by calendar months; a day past the month's end falls back to its last day.
/// Throws Overflow beyond the years 1 to 9999.
DateTime AddMonths(DateTime date, int months);

/// The language's DateAdd: `interval` is "d" days, "ww" weeks, "m" months, "yyyy" years, "h", "n", "s".
/// A fractional `number` is rounded half to even first. Throws Overflow beyond the years 1 to 9999 and
/// std::logic_error for another interval.
DateTime DateAdd(std::string_view interval, double number, DateTime date);

/// The language's DateDiff, `to` minus `from`: with "d" calendar days, with "m" month boundaries, "yyyy" year
/// boundaries, "ww" whole weeks, "h", "n", "s" boundaries. Throws std::logic_error for another interval.
std::int64_t DateDiff(std::string_view interval, DateTime from, DateTime to);

/// The machine's date text: m/d/yyyy without leading zeros, and where there is a time of day " h:mm:ss AM" after it.
std::string ToText(DateTime date);

/// "yyyy-mm-dd", and " hh:mm:ss" where there is a time of day.
std::string ToIsoText(DateTime date);
/// "yyyy-mm-dd hh:mm:ss", always with the time: how the embedded store and the automation write a date.
std::string ToLongIsoText(DateTime date);

/// Reads m/d/yyyy, m-d-yyyy, m/d/yy or yyyy-mm-dd, with an optional h:mm, h:mm:ss, AM or PM; nothing when the text is
/// no date. Two-digit years below 30 belong to 2000.
std::optional<DateTime> ParseDate(std::string_view text);

/// ParseDate, or TypeMismatch.
DateTime ToDate(std::string_view text);

}
