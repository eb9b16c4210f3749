#include "values/Numbers.h"

#include "values/Errors.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

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

double Val(std::string_view text)
{
    std::string number = LeadingNumber(text);
    if (!number.empty() && number.front() == '+')
        number.erase(0, 1);
    double value = 0;
    std::from_chars(number.data(), number.data() + number.size(), value);
    return value;
}

std::optional<double> ParseNumber(std::string_view text)
{
    std::string plain;
    bool negative = false;
    bool currency = false;
    bool opened = false;
    bool closed = false;
    for (const char c : text) {
        if (IsBlank(c))
            continue;
        if (closed)
            return std::nullopt;
        if (c == '(' && plain.empty() && !opened) {
            opened = negative = true;
        } else if (c == ')' && opened) {
            closed = true;
        } else if (c == '$' && plain.empty() && !currency) {
            currency = true;
        } else if (c == '-' && plain.empty() && !negative) {
            negative = true;
        } else if (c == '+' && plain.empty()) {
            continue;
        } else if (c == ',' && !plain.empty()) {
            continue;
        } else {
            plain += c;
        }
    }
    if (plain.empty() || opened != closed || !(IsDigit(plain.front()) || plain.front() == '.'))
        return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (error != std::errc{} || end != plain.data() + plain.size())
        return std::nullopt;
    return negative ? -value : value;
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
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.14e", std::fabs(number));
    const std::string_view written = text.data();
    Decimal decimal;
    decimal.digits = std::string(1, written[0]) + std::string(written.substr(2, 14));
    decimal.exponent = std::stoi(std::string(written.substr(written.find('e') + 1))) + 1;
    while (decimal.digits.size() > 1 && decimal.digits.back() == '0')
        decimal.digits.pop_back();
    return decimal;
}

std::string ToText(double number)
{
    if (std::isnan(number) || std::isinf(number))
        throw Overflow();
    if (number == 0)
        return "0";
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
