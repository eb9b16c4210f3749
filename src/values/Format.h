#pragma once

#include "values/DateTime.h"

#include <string>
#include <string_view>

namespace rovanta {

/// The pictures that the screens use most.
inline constexpr std::string_view moneyPicture = "$#,##0.00;($#,##0.00)";
inline constexpr std::string_view moneyCellPicture = "$#,##0.00";
/// Kept on purpose: this picture has no zero place, so that 1400 shows as "$1,400." and 0 as "$.".
inline constexpr std::string_view moneySumPicture = "$#,###.##";
inline constexpr std::string_view percentPicture = "#,##0.0%";
inline constexpr std::string_view datePicture = "mm/dd/yyyy";

/// `number` under a picture of the language: `0` a place always shown, `#` a place shown when it holds a digit,
/// `,` between places groups by thousands, `%` scales by a hundred, other characters stand as they are, "..." and \x
/// quote; a second section behind `;` is for numbers below zero, a third for zero. Halves round away from zero.
std::string Format(double number, std::string_view picture);

/// `date` under a picture: d dd ddd dddd m mm mmm mmmm yy yyyy h hh n nn s ss and AM/PM; m behind h counts as minutes.
std::string Format(DateTime date, std::string_view picture);

/// A cell or box text under a picture: a number or a date text is formatted by the kind of picture, anything else
/// (an empty text above all) stands as it is.
std::string FormatText(const std::string& text, std::string_view picture);

}
