#include "values/Numbers.h"

#include "values/Errors.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace rovanta {

double Round(double x, int places)
{
    const double scale = std::pow(10.0, places);
    const double scaled = x * scale;
    if (!std::isfinite(scaled))
        return x;
    return std::nearbyint(scaled) / scale;
}

int CInt(double x)
{
    const double rounded = std::nearbyint(x);
    if (!(rounded >= -32768.0 && rounded <= 32767.0))
        throw Overflow();
    return static_cast<int>(rounded);
}

std::int32_t CLng(double x)
{
    const double rounded = std::nearbyint(x);
    if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0))
        throw Overflow();
    return static_cast<std::int32_t>(rounded);
}

static bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

static bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The longest prefix of `text` (without blanks) that is a number; empty when there is none.
static std::string LeadingNumber(std::string_view text)
{
    std::string number;
    bool digits = false;
    bool point = false;
    bool exponent = false;
    for (const char c : text) {
        if (IsBlank(c))
            continue;
        if (IsDigit(c)) {
            digits = true;
        } else if (c == '.' && !point && !exponent) {
            point = true;
        } else if ((c == 'e' || c == 'E' || c == 'd' || c == 'D') && digits && !exponent) {
            exponent = true;
            number += 'e';
            continue;
        } else if (!((c == '+' || c == '-') && (number.empty() || number.back() == 'e'))) {
            break;
        }
        number += c;
    }
    if (!digits)
        return {};
    while (!IsDigit(number.back()) && number.back() != '.')
        number.pop_back();
    return number;
}

/// The number that the whole of `plain` (digits, a point, an exponent) is: 0 for one too small to tell from it,
/// infinity for one beyond the range of numbers.
static std::optional<double> ReadDouble(std::string_view plain)
{
    double value = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (error == std::errc::invalid_argument || end != plain.data() + plain.size())
        return std::nullopt;
    if (error == std::errc::result_out_of_range) {
        const std::size_t exponent = plain.find_first_of("eE");
        const bool tiny = exponent == std::string_view::npos ? plain.find_first_of("123456789") > plain.find('.')
                                                             : plain[exponent + 1] == '-';
        return tiny ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return value;
}

double Val(std::string_view text)
{
    std::string number = LeadingNumber(text);
    if (!number.empty() && number.front() == '+')
        number.erase(0, 1);
    const double value = ReadDouble(number).value_or(0);
    if (std::isinf(value))
        throw Overflow();
    return value;
}

std::optional<double> ParseNumber(std::string_view text)
{
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    const bool bracketed = !text.empty() && text.back() == ')';
    if (bracketed)
        text.remove_suffix(1);
    bool opened = false;
    bool currency = false;
    bool sign = false;
    bool negative = false;
    // What may stand before the digits, blanks between: a bracket or a sign, and the currency sign, each once.
    for (; !text.empty(); text.remove_prefix(1)) {
        const char c = text.front();
        if (c == '(' && !opened && !sign)
            opened = negative = true;
        else if (c == '$' && !currency)
            currency = true;
        else if ((c == '-' || c == '+') && !sign && !opened) {
            sign = true;
            negative = c == '-';
        } else if (!IsBlank(c))
            break;
    }
    if (text.empty() || opened != bracketed || !(IsDigit(text.front()) || text.front() == '.'))
        return std::nullopt;
    std::string plain;
    for (const char c : text) {
        if (c != ',')
            plain += c;
        else if (plain.find_first_of(".eE") != std::string::npos)
            return std::nullopt;
    }
    if (bracketed && IsBlank(plain.back()))
        plain.erase(plain.find_last_not_of(" \t\r\n") + 1);
    const auto value = ReadDouble(plain);
    if (!value || std::isinf(*value))
        return std::nullopt;
    return negative ? -*value : *value;
}

bool IsNumeric(std::string_view text)
{
    return ParseNumber(text).has_value();
}

double CDbl(std::string_view text)
{
    if (const auto number = ParseNumber(text))
        return *number;
    throw TypeMismatch(std::string(text));
}

double MaskedNumber(std::string_view text)
{
    if (const auto number = ParseNumber(text))
        return *number;
    std::string_view trimmed = text;
    while (!trimmed.empty() && IsBlank(trimmed.back()))
        trimmed.remove_suffix(1);
    if (!trimmed.empty() && trimmed.back() == '%') {
        trimmed.remove_suffix(1);
        if (const auto percent = ParseNumber(trimmed))
            return *percent / 100;
    }
    return Val(text);
}

/// The fifteen significant digits of `number` and the place of its decimal point: 0.d1d2d3... times ten to `exponent`.
struct Decimal {
    std::string digits;
    int exponent = 0;
};

static Decimal SignificantDigits(double number)
{
    // std::to_chars heeds no locale: a desktop set to another language must not turn the point into a comma.
    std::array<char, 40> text{};
    const auto end = std::to_chars(text.begin(), text.end(), std::fabs(number), std::chars_format::scientific, 14).ptr;
    const std::string written(text.begin(), end);
    Decimal decimal;
    decimal.digits = written.substr(0, 1) + written.substr(2, 14);
    decimal.exponent = std::stoi(written.substr(written.find('e') + 1)) + 1;
    while (decimal.digits.size() > 1 && decimal.digits.back() == '0')
        decimal.digits.pop_back();
    return decimal;
}

std::string ToText(double number)
{
    if (std::isnan(number) || std::isinf(number))
        throw Overflow();
    constexpr double digitsShownWhole = 1e15;
    if (std::abs(number) < digitsShownWhole && number == std::trunc(number))
        return std::to_string(static_cast<std::int64_t>(number));
    const Decimal decimal = SignificantDigits(number);
    const std::string sign = number < 0 ? "-" : "";
    const int count = static_cast<int>(decimal.digits.size());
    if (decimal.exponent > 15 || count - decimal.exponent > 28) {
        const std::string fraction = count > 1 ? "." + decimal.digits.substr(1) : "";
        std::array<char, 16> power{};
        std::snprintf(power.data(), power.size(), "E%+03d", decimal.exponent - 1);
        return sign + decimal.digits[0] + fraction + power.data();
    }
    if (decimal.exponent <= 0)
        return sign + "0." + std::string(static_cast<std::size_t>(-decimal.exponent), '0') + decimal.digits;
    const auto whole = static_cast<std::size_t>(decimal.exponent);
    if (count <= decimal.exponent)
        return sign + decimal.digits + std::string(whole - decimal.digits.size(), '0');
    return sign + decimal.digits.substr(0, whole) + "." + decimal.digits.substr(whole);
}

std::string ToText(int number)
{
    return std::to_string(number);
}

std::string ToText(std::int64_t number)
{
    return std::to_string(number);
}

std::string ToText(bool value)
{
    return value ? "True" : "False";
}

}
