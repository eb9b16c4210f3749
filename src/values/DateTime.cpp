#include "values/DateTime.h"

#include "values/Errors.h"
#include "values/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <vector>

namespace rovanta {

namespace {

constexpr std::int64_t secondsPerDay = 86400;

std::int64_t FloorDivide(std::int64_t a, std::int64_t b)
{
    return a / b - (a % b != 0 && (a < 0) != (b < 0) ? 1 : 0);
}

std::chrono::year_month_day CalendarDay(const DateTime& date)
{
    return std::chrono::sys_days{std::chrono::days{date.DayNumber()}};
}

/// The day's number, or nothing when the calendar has no such day.
std::optional<std::int64_t> NumberOfDay(int year, int month, int day)
{
    // chrono keeps months and days in a byte: a 257 would come out as a 1.
    if (year < 1 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31)
        return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
                                           std::chrono::day{static_cast<unsigned>(day)}};
    if (!date.ok())
        return std::nullopt;
    return std::chrono::sys_days{date}.time_since_epoch().count();
}

/// A moment that arithmetic has led to: within the years 1 to 9999 or an Overflow.
DateTime InCalendar(std::int64_t seconds)
{
    constexpr std::int64_t first = -62135596800;  // 1/1/0001
    constexpr std::int64_t beyond = 253402300800; // 1/1/10000
    if (seconds < first || seconds >= beyond)
        throw Overflow();
    return DateTime::FromSeconds(seconds);
}

}

DateTime DateTime::Of(int year, int month, int day, int hour, int minute, int second)
{
    const auto days = NumberOfDay(year, month, day);
    const bool timeOk = hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
    if (!days || !timeOk)
        throw TypeMismatch(std::to_string(month) + "/" + std::to_string(day) + "/" + std::to_string(year));
    return FromSeconds(*days * secondsPerDay + hour * 3600 + minute * 60 + second);
}

DateTime DateTime::FromSeconds(std::int64_t seconds)
{
    DateTime date;
    date.seconds = seconds;
    return date;
}

int DateTime::Year() const
{
    return static_cast<int>(CalendarDay(*this).year());
}

int DateTime::Month() const
{
    return static_cast<int>(static_cast<unsigned>(CalendarDay(*this).month()));
}

int DateTime::Day() const
{
    return static_cast<int>(static_cast<unsigned>(CalendarDay(*this).day()));
}

int DateTime::Hour() const
{
    return SecondsOfDay() / 3600;
}

int DateTime::Minute() const
{
    return SecondsOfDay() / 60 % 60;
}

int DateTime::Second() const
{
    return SecondsOfDay() % 60;
}

int DateTime::Weekday() const
{
    const std::chrono::weekday weekday{std::chrono::sys_days{std::chrono::days{DayNumber()}}};
    return static_cast<int>(weekday.c_encoding()) + 1;
}

DateTime DateTime::DateOnly() const
{
    return FromSeconds(DayNumber() * secondsPerDay);
}

bool DateTime::HasTime() const
{
    return SecondsOfDay() != 0;
}

int DateTime::SecondsOfDay() const
{
    return static_cast<int>(seconds - DayNumber() * secondsPerDay);
}

std::int64_t DateTime::DayNumber() const
{
    return FloorDivide(seconds, secondsPerDay);
}

DateTime AddDays(DateTime date, std::int64_t days)
{
    if (days < -10'000'000 || days > 10'000'000)
        throw Overflow();
    return InCalendar(date.Seconds() + days * secondsPerDay);
}

DateTime AddMonths(DateTime date, int months)
{
    using namespace std::chrono;
    if (months < -200'000 || months > 200'000)
        throw Overflow();
    const year_month_day day = CalendarDay(date);
    const year_month target = year_month{day.year(), day.month()} + std::chrono::months{months};
    const year_month_day_last last{target.year(), month_day_last{target.month()}};
    const year_month_day moved = day.day() > last.day() ? year_month_day{last} : target / day.day();
    const auto days = sys_days{moved}.time_since_epoch().count();
    return InCalendar(days * secondsPerDay + date.SecondsOfDay());
}

DateTime DateAdd(std::string_view interval, double number, DateTime date)
{
    const double rounded = Round(number, 0);
    if (!(rounded > -1e9 && rounded < 1e9))
        throw Overflow();
    const auto count = static_cast<std::int64_t>(rounded);
    if (interval == "d")
        return AddDays(date, count);
    if (interval == "ww")
        return AddDays(date, 7 * count);
    if (interval == "m")
        return AddMonths(date, static_cast<int>(count));
    if (interval == "yyyy")
        return AddMonths(date, static_cast<int>(std::clamp<std::int64_t>(12 * count, -1'000'000, 1'000'000)));
    if (interval == "h")
        return InCalendar(date.Seconds() + 3600 * count);
    if (interval == "n")
        return InCalendar(date.Seconds() + 60 * count);
    if (interval == "s")
        return InCalendar(date.Seconds() + count);
    throw std::logic_error("DateAdd: no interval '" + std::string(interval) + "'");
}

std::int64_t DateDiff(std::string_view interval, DateTime from, DateTime to)
{
    if (interval == "d")
        return to.DayNumber() - from.DayNumber();
    if (interval == "m")
        return (to.Year() - from.Year()) * 12 + (to.Month() - from.Month());
    if (interval == "yyyy")
        return to.Year() - from.Year();
    if (interval == "ww")
        return (to.DayNumber() - from.DayNumber()) / 7;
    if (interval == "h")
        return FloorDivide(to.Seconds(), 3600) - FloorDivide(from.Seconds(), 3600);
    if (interval == "n")
        return FloorDivide(to.Seconds(), 60) - FloorDivide(from.Seconds(), 60);
    if (interval == "s")
        return to.Seconds() - from.Seconds();
    throw std::logic_error("DateDiff: no interval '" + std::string(interval) + "'");
}

std::string ToText(DateTime date)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%d/%d/%04d", date.Month(), date.Day(), date.Year());
    std::string result = text.data();
    if (date.HasTime()) {
        const int hour = date.Hour() % 12 == 0 ? 12 : date.Hour() % 12;
        std::snprintf(text.data(), text.size(), " %d:%02d:%02d %s", hour, date.Minute(), date.Second(),
                      date.Hour() < 12 ? "AM" : "PM");
        result += text.data();
    }
    return result;
}

std::string ToIsoText(DateTime date)
{
    const std::string text = ToLongIsoText(date);
    return date.HasTime() ? text : text.substr(0, 10);
}

std::string ToLongIsoText(DateTime date)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", date.Year(), date.Month(), date.Day(),
                  date.Hour(), date.Minute(), date.Second());
    return text.data();
}

namespace {

/// Walks a date text: numbers and the marks between them.
class DateReader {
public:
    explicit DateReader(std::string_view text) : rest(text) { SkipBlanks(); }

    std::optional<int> Number()
    {
        int value = 0;
        const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value);
        const auto digits = static_cast<std::size_t>(end - rest.data());
        if (error != std::errc{} || rest.front() == '-' || digits > 4)
            return std::nullopt;
        lastDigits = digits;
        rest.remove_prefix(digits);
        return value;
    }

    bool Take(char mark)
    {
        if (rest.empty() || rest.front() != mark)
            return false;
        rest.remove_prefix(1);
        return true;
    }

    /// Takes "AM" or "PM" in any case; nothing when neither stands here.
    std::optional<bool> TakeAfternoon()
    {
        if (rest.size() < 2 || (rest[1] | 0x20) != 'm')
            return std::nullopt;
        const char first = static_cast<char>(rest[0] | 0x20);
        if (first != 'a' && first != 'p')
            return std::nullopt;
        rest.remove_prefix(2);
        return first == 'p';
    }

    void SkipBlanks()
    {
        while (!rest.empty() && rest.front() == ' ')
            rest.remove_prefix(1);
    }

    bool AtEnd() const { return rest.empty(); }
    std::size_t LastDigits() const { return lastDigits; }

private:
    std::string_view rest;
    std::size_t lastDigits = 0;
};

struct DayParts {
    int year;
    int month;
    int day;
};

std::optional<DayParts> ReadDay(DateReader& reader)
{
    const auto first = reader.Number();
    if (!first)
        return std::nullopt;
    const bool yearFirst = reader.LastDigits() == 4;
    const char mark = reader.Take('/') ? '/' : '-';
    if (mark == '-' && !reader.Take('-'))
        return std::nullopt;
    const auto second = reader.Number();
    if (!second || !reader.Take(mark))
        return std::nullopt;
    const auto third = reader.Number();
    if (!third)
        return std::nullopt;
    if (yearFirst)
        return DayParts{*first, *second, *third};
    int year = *third;
    if (reader.LastDigits() <= 2)
        year += year < 30 ? 2000 : 1900;
    return DayParts{year, *first, *second};
}

/// Seconds of the day, or nothing when what follows is no time.
std::optional<int> ReadTime(DateReader& reader)
{
    std::array<int, 3> parts{};
    const auto hour = reader.Number();
    if (!hour || !reader.Take(':'))
        return std::nullopt;
    parts[0] = *hour;
    std::size_t count = 1;
    do {
        const auto part = reader.Number();
        if (!part || *part > 59)
            return std::nullopt;
        parts[count++] = *part;
    } while (count < parts.size() && reader.Take(':'));
    if (count == parts.size() && reader.Take('.') && !reader.Number())
        return std::nullopt;
    reader.SkipBlanks();
    if (const auto afternoon = reader.TakeAfternoon()) {
        if (parts[0] < 1 || parts[0] > 12)
            return std::nullopt;
        parts[0] = parts[0] % 12 + (*afternoon ? 12 : 0);
    }
    if (parts[0] > 23)
        return std::nullopt;
    return parts[0] * 3600 + parts[1] * 60 + parts[2];
}

}

std::optional<DateTime> ParseDate(std::string_view text)
{
    DateReader reader(text);
    const auto day = ReadDay(reader);
    if (!day)
        return std::nullopt;
    const auto days = NumberOfDay(day->year, day->month, day->day);
    if (!days || day->year < 1753)
        return std::nullopt;
    int seconds = 0;
    const bool timeMustFollow = reader.Take('T');
    reader.SkipBlanks();
    if (timeMustFollow || !reader.AtEnd()) {
        const auto time = ReadTime(reader);
        if (!time)
            return std::nullopt;
        seconds = *time;
        reader.SkipBlanks();
    }
    if (!reader.AtEnd())
        return std::nullopt;
    return DateTime::FromSeconds(*days * secondsPerDay + seconds);
}

DateTime ToDate(std::string_view text)
{
    if (const auto date = ParseDate(text))
        return *date;
    throw TypeMismatch(std::string(text));
}

}
