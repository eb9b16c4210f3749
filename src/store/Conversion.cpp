#include "store/Conversion.h"

#include "store/DatabaseError.h"
#include "values/Text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace rovanta {

namespace {

std::string_view Trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

/// The whole text as one number of the given C++ type; nothing when it is none.
template <class Number>
std::optional<Number> ReadNumber(std::string_view text)
{
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1);
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

DatabaseError ConversionFailed(std::string_view text, TypeKind to)
{
    switch (to) {
    case TypeKind::Bit:
    case TypeKind::Int:
        return DatabaseError("Conversion failed when converting the varchar value '" + std::string(text) +
                             "' to data type " + std::string(TypeName(to)) + ".");
    case TypeKind::Money:
        return DatabaseError("Cannot convert a char value to money. The char value has incorrect syntax.");
    case TypeKind::DateTime:
        return DatabaseError("Conversion failed when converting date and/or time from character string.");
    default:
        return DatabaseError("Error converting data type varchar to " + std::string(TypeName(to)) + ".");
    }
}

DatabaseError NumberTooLarge(TypeKind to)
{
    return DatabaseError("Arithmetic overflow error converting expression to data type " + std::string(TypeName(to)) +
                         ".");
}

std::int64_t WholeInRange(std::int64_t number, TypeKind to)
{
    if (to == TypeKind::Int && (number < INT32_MIN || number > INT32_MAX))
        throw NumberTooLarge(to);
    return number;
}

std::int64_t WholeInRange(double number, TypeKind to)
{
    constexpr double limit = 9223372036854774784.0;
    if (!(number >= -limit && number <= limit))
        throw NumberTooLarge(to);
    return WholeInRange(static_cast<std::int64_t>(number), to);
}

std::int64_t WholeOfText(std::string_view text, TypeKind to)
{
    const std::string_view trimmed = Trimmed(text);
    if (trimmed.empty())
        return 0;
    if (const auto number = ReadNumber<std::int64_t>(trimmed))
        return WholeInRange(*number, to);
    throw ConversionFailed(text, to);
}

double NumberOfText(std::string_view text, TypeKind to)
{
    std::string plain(Trimmed(text));
    if (plain.empty() && to != TypeKind::Decimal)
        return 0;
    if (to == TypeKind::Money) {
        plain = Replace(plain, ",", "");
        const auto sign = plain.find('$');
        if (sign == 0 || (sign == 1 && (plain[0] == '-' || plain[0] == '+')))
            plain.erase(sign, 1);
    }
    const auto number = ReadNumber<double>(plain);
    if (!number || !std::isfinite(*number))
        throw ConversionFailed(text, to);
    return *number;
}

bool FlagOfText(std::string_view text)
{
    const std::string_view trimmed = Trimmed(text);
    if (EqualNoCase(trimmed, "true"))
        return true;
    if (trimmed.empty() || EqualNoCase(trimmed, "false"))
        return false;
    if (const auto number = ReadNumber<std::int64_t>(trimmed))
        return *number != 0;
    throw ConversionFailed(text, TypeKind::Bit);
}

/// Day 0 of the database, which an empty text stands for.
DateTime FirstDay()
{
    return DateTime::Of(1900, 1, 1);
}

DateTime DateOfText(std::string_view text)
{
    const std::string_view trimmed = Trimmed(text);
    if (trimmed.empty())
        return FirstDay();
    if (const auto date = ParseDate(trimmed))
        return *date;
    throw ConversionFailed(text, TypeKind::DateTime);
}

DateTime DateOfDays(double days)
{
    constexpr double earliest = -53690;
    constexpr double latest = 2958463;
    if (!(days >= earliest && days <= latest))
        throw NumberTooLarge(TypeKind::DateTime);
    return DateTime::FromSeconds(FirstDay().Seconds() + std::llround(days * 86400));
}

std::string Printed(const char* format, double number)
{
    std::array<char, 400> buffer{};
    std::snprintf(buffer.data(), buffer.size(), format, number);
    return buffer.data();
}

/// A date as the database casts it to a text: "Mar  2 2026  3:04PM".
std::string TextOfDate(DateTime date)
{
    constexpr std::array<const char*, 12> months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    std::array<char, 40> buffer{};
    const int hour = date.Hour() % 12 == 0 ? 12 : date.Hour() % 12;
    std::snprintf(buffer.data(), buffer.size(), "%s %2d %d %2d:%02d%s",
                  months.at(static_cast<std::size_t>(date.Month() - 1)), date.Day(), date.Year(), hour, date.Minute(),
                  date.Hour() < 12 ? "AM" : "PM");
    return buffer.data();
}

/// The first `length` characters of a text.
std::string Cut(const std::string& text, int length)
{
    int characters = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool begins = (static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U;
        if (begins && ++characters > length)
            return text.substr(0, i);
    }
    return text;
}

std::string TextOf(const Value& value, TypeKind from, int length)
{
    const auto& content = value.Get();
    if (const auto* date = std::get_if<DateTime>(&content))
        return TextOfDate(*date);
    if (const auto* flag = std::get_if<bool>(&content))
        return *flag ? "1" : "0";
    if (const auto* whole = std::get_if<std::int64_t>(&content)) {
        std::string digits = std::to_string(*whole);
        // A number that the text has no room for is not cut but marked.
        return length > 0 && digits.size() > static_cast<std::size_t>(length) ? "*" : digits;
    }
    if (const auto* number = std::get_if<double>(&content))
        return from == TypeKind::Money ? Printed("%.2f", *number) : Printed("%.6g", *number);
    return std::get<std::string>(content);
}

/// A number in hand, of whatever kind; a true flag is 1.
double NumberOf(const Value& value)
{
    const auto& content = value.Get();
    if (const auto* flag = std::get_if<bool>(&content))
        return *flag ? 1 : 0;
    if (const auto* whole = std::get_if<std::int64_t>(&content))
        return static_cast<double>(*whole);
    return std::get<double>(content);
}

Value ToWhole(const Value& value, TypeKind from, TypeKind to)
{
    if (const auto* text = std::get_if<std::string>(&value.Get()))
        return WholeOfText(*text, to);
    if (const auto* whole = std::get_if<std::int64_t>(&value.Get()))
        return WholeInRange(*whole, to);
    const double number = NumberOf(value);
    return WholeInRange(from == TypeKind::Money ? std::round(number) : std::trunc(number), to);
}

Value ToNumber(const Value& value, TypeKind to)
{
    const auto* text = std::get_if<std::string>(&value.Get());
    const double number = text != nullptr ? NumberOfText(*text, to) : NumberOf(value);
    return to == TypeKind::Money ? RoundMoney(number) : number;
}

}

DatabaseError NotConvertible(TypeKind from, TypeKind to)
{
    return DatabaseError("Implicit conversion from data type " + std::string(TypeName(from)) + " to " +
                         std::string(TypeName(to)) + " is not allowed. Use the CONVERT function to run this query.");
}

Value Convert(const Value& value, TypeKind from, const SqlType& to)
{
    if (value.IsNull() || to.kind == TypeKind::Unknown)
        return value;
    if (value.IsDate() && IsNumber(to.kind))
        throw NotConvertible(from, to.kind);
    switch (to.kind) {
    case TypeKind::Bit:
        return value.IsText() ? FlagOfText(std::get<std::string>(value.Get())) : NumberOf(value) != 0;
    case TypeKind::Int:
    case TypeKind::BigInt:
        return ToWhole(value, from, to.kind);
    case TypeKind::Money:
    case TypeKind::Decimal:
    case TypeKind::Float:
        return ToNumber(value, to.kind);
    case TypeKind::DateTime:
        if (value.IsDate())
            return value;
        return value.IsText() ? DateOfText(std::get<std::string>(value.Get())) : DateOfDays(NumberOf(value));
    case TypeKind::Varchar:
        return to.length == 0 ? TextOf(value, from, 0) : Cut(TextOf(value, from, to.length), to.length);
    case TypeKind::Unknown:
        break;
    }
    return value;
}

bool FitsAsItStands(const SqlType& from, const SqlType& to)
{
    if (from.kind == TypeKind::Unknown)
        return true;
    if (to.kind == TypeKind::Varchar)
        return from.kind == TypeKind::Varchar && (to.length == 0 || (from.length > 0 && from.length <= to.length));
    if (from.kind == to.kind)
        return true;
    const bool wider = from.kind < to.kind;
    if (to.kind == TypeKind::BigInt || to.kind == TypeKind::Int || to.kind == TypeKind::Money)
        return wider && IsWhole(from.kind);
    return (to.kind == TypeKind::Float || to.kind == TypeKind::Decimal) && IsNumber(from.kind);
}

double RoundMoney(double amount)
{
    constexpr double mostMoney = 922337203685477.5807;
    if (!(std::abs(amount) <= mostMoney))
        throw NumberTooLarge(TypeKind::Money);
    const double scaled = amount * 10000;
    constexpr double exactWholeNumbers = 9007199254740992.0;
    return std::abs(scaled) < exactWholeNumbers ? std::round(scaled) / 10000 : amount;
}

TypeKind KindOf(const Value& value)
{
    constexpr std::array<TypeKind, 6> kinds{TypeKind::Unknown, TypeKind::Bit,      TypeKind::BigInt,
                                            TypeKind::Float,   TypeKind::DateTime, TypeKind::Varchar};
    return kinds.at(value.Get().index());
}

std::string FittedText(std::string text, int length, const std::string& place)
{
    // A text has at least as many bytes as characters.
    if (length == 0 || text.size() <= static_cast<std::size_t>(length) ||
        CharacterCount(text) <= static_cast<std::size_t>(length))
        return text;
    std::string cut = Cut(text, length);
    if (text.find_first_not_of(' ', cut.size()) != std::string::npos)
        throw DatabaseError("String or binary data would be truncated in " + place + ".");
    return cut;
}

std::string ColumnPlace(const std::string& table, const std::string& column)
{
    return "table '" + table + "', column '" + column + "'";
}

}
