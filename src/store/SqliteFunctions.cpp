#include "store/SqliteFunctions.h"

#include "store/Conversion.h"
#include "store/DatabaseError.h"
#include "store/TextRules.h"

#include <algorithm>
#include <cmath>

namespace rovanta {

namespace {

DatabaseError DividedByZero()
{
    return DatabaseError("Divide by zero error encountered.");
}

bool AnyNull(const Value* arguments, int count)
{
    return std::any_of(arguments, arguments + count, [](const Value& argument) { return argument.IsNull(); });
}

std::int64_t Whole(const Value& value)
{
    return std::get<std::int64_t>(Convert(value, TypeKind::BigInt, {TypeKind::BigInt}).Get());
}

/// A date as it stands in the tables.
DateTime StoredDate(const Value& value)
{
    if (const auto* text = std::get_if<std::string>(&value.Get()))
        if (const auto date = ReadStoredDate(*text))
            return *date;
    throw DatabaseError("Conversion failed when converting date and/or time from character string.");
}

/// A value as SQLite holds it, of the dialect's type.
Value TypedValue(const Value& stored, TypeKind kind)
{
    if (kind == TypeKind::DateTime)
        return StoredDate(stored);
    if (kind == TypeKind::Bit)
        return stored.Number() != 0;
    return stored;
}

Value AsMoney(const Value* arguments)
{
    return arguments[0].IsNull() ? Value() : Value(RoundMoney(arguments[0].Number()));
}

Value Divide(const Value* arguments)
{
    if (AnyNull(arguments, 2))
        return {};
    const double divisor = arguments[1].Number();
    if (divisor == 0)
        throw DividedByZero();
    return arguments[0].Number() / divisor;
}

Value DivideWhole(const Value* arguments)
{
    if (AnyNull(arguments, 2))
        return {};
    const std::int64_t divisor = Whole(arguments[1]);
    if (divisor == 0)
        throw DividedByZero();
    // The one quotient of whole numbers that is none.
    const std::int64_t dividend = Whole(arguments[0]);
    if (divisor == -1 && dividend == INT64_MIN)
        throw DatabaseError("Arithmetic overflow error converting expression to data type bigint.");
    return dividend / divisor;
}

Value Remainder(const Value* arguments)
{
    if (AnyNull(arguments, 2))
        return {};
    const double divisor = arguments[1].Number();
    if (divisor == 0)
        throw DividedByZero();
    const bool whole = std::holds_alternative<std::int64_t>(arguments[0].Get()) &&
                       std::holds_alternative<std::int64_t>(arguments[1].Get());
    if (whole)
        return divisor == -1 ? std::int64_t{0} : Whole(arguments[0]) % Whole(arguments[1]);
    return std::fmod(arguments[0].Number(), divisor);
}

Value Like(const Value* arguments)
{
    if (AnyNull(arguments, 2))
        return {};
    return IsLike(arguments[0].Text(), arguments[1].Text());
}

/// The value, the numbers of the kinds from and to, and the length of a varchar.
Value ConvertType(const Value* arguments)
{
    if (arguments[0].IsNull())
        return {};
    const auto from = static_cast<TypeKind>(Whole(arguments[1]));
    const SqlType to{static_cast<TypeKind>(Whole(arguments[2])), static_cast<int>(Whole(arguments[3]))};
    return Convert(TypedValue(arguments[0], from), from, to);
}

/// The text, the length of its column and the column as error texts name it.
Value FitText(const Value* arguments)
{
    if (arguments[0].IsNull())
        return {};
    return FittedText(arguments[0].Text(), static_cast<int>(Whole(arguments[1])), arguments[2].Text());
}

Value AddToDate(const Value* arguments)
{
    if (AnyNull(arguments, 3))
        return {};
    constexpr int firstYear = 1753;
    try {
        const DateTime date = DateAdd(arguments[0].Text(), arguments[1].Number(), StoredDate(arguments[2]));
        if (date.Year() >= firstYear)
            return date;
    } catch (const DatabaseError&) {
        throw;
    } catch (const RunTimeError&) {
        // The language's own overflow is the database's as well.
    }
    throw DatabaseError("Adding a value to a 'datetime' column caused an overflow.");
}

/// The Sunday on or before a date.
std::int64_t SundayBefore(DateTime date)
{
    return date.DayNumber() - (date.Weekday() - 1);
}

Value DateDifference(const Value* arguments)
{
    if (AnyNull(arguments, 3))
        return {};
    const DateTime from = StoredDate(arguments[1]);
    const DateTime to = StoredDate(arguments[2]);
    // The language counts whole weeks, the database the Sundays between.
    if (arguments[0].Text() == "ww")
        return (SundayBefore(to) - SundayBefore(from)) / 7;
    return DateDiff(arguments[0].Text(), from, to);
}

/// The two digits at `at`; below 0 when they are none.
int TwoDigits(std::string_view text, std::size_t at)
{
    const int tens = text[at] - '0';
    const int ones = text[at + 1] - '0';
    return tens < 0 || tens > 9 || ones < 0 || ones > 9 ? -10000 : tens * 10 + ones;
}

}

std::optional<DateTime> ReadStoredDate(std::string_view text)
{
    constexpr std::size_t fullLength = 19;
    if (text.size() == fullLength && text[4] == '-' && text[7] == '-' && text[13] == ':' && text[16] == ':') {
        const int year = TwoDigits(text, 0) * 100 + TwoDigits(text, 2);
        const int month = TwoDigits(text, 5);
        const int day = TwoDigits(text, 8);
        const int seconds = TwoDigits(text, 11) * 3600 + TwoDigits(text, 14) * 60 + TwoDigits(text, 17);
        if (year > 0 && month > 0 && day > 0 && month <= 12 && day <= 28 && seconds >= 0)
            return DateTime::FromSeconds(DateTime::Of(year, month, day).Seconds() + seconds);
    }
    return ParseDate(text);
}

const std::array<SqliteFunction, 9> sqliteFunctions{{{"as_money", 1, AsMoney},
                                                     {"divide", 2, Divide},
                                                     {"divide_whole", 2, DivideWhole},
                                                     {"remainder", 2, Remainder},
                                                     {"is_like", 2, Like},
                                                     {"convert_type", 4, ConvertType},
                                                     {"fit_text", 3, FitText},
                                                     {"add_to_date", 3, AddToDate},
                                                     {"date_difference", 3, DateDifference}}};

}
