#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rovanta {

/// `x` rounded to `places` decimals, half to even: scales by the power of ten, rounds and scales back.
double Round(double x, int places);

/// `x` rounded half to even to a 16-bit integer. Throws Overflow outside -32768 to 32767.
int CInt(double x);
/// The same to a 32-bit integer.
std::int32_t CLng(double x);

/// The leading number of a text: "12abc" is 12, a blank text is 0. Blanks before and between the digits do not count;
/// no currency sign and no thousands mark is understood. A number beyond the range of doubles throws Overflow.
double Val(std::string_view text);

/// Whether the whole text is a number, as CDbl takes it: sign, digits, thousands commas, a currency sign or brackets
/// allowed.
bool IsNumeric(std::string_view text);

/// The number that the whole text is, "$1,234.50" and "($5.00)" included; nothing when it is none. Blanks may stand at
/// the ends and around the sign, not between the digits.
std::optional<double> ParseNumber(std::string_view text);

/// ParseNumber, or TypeMismatch.
double CDbl(std::string_view text);

/// The number in a mask box: blank gives 0, a currency or percent text its number, and any other text its leading
/// number.
double MaskedNumber(std::string_view text);

/// A number as the language writes it: up to fifteen significant digits, no trailing zeros, no exponent below 1E+15.
std::string ToText(double number);
std::string ToText(int number);
std::string ToText(std::int64_t number);
std::string ToText(bool value);

}
