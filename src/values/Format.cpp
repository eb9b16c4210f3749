#include "values/Format.h"

#include "values/Numbers.h"
#include "values/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <vector>

namespace rovanta {

namespace {

/// One piece of a number section: a digit place or a text that stands as it is.
struct Place {
    enum class Kind { Zero, Digit, Point, Literal } kind;
    std::string literal;
};

struct Section {
    std::vector<Place> places;
    bool grouped = false;
    bool percent = false;
    int wholePlaces = 0;
    int decimals = 0;
};

Section ReadSection(std::string_view picture)
{
    Section section;
    bool afterPoint = false;
    const auto literal = [&](std::string text) { section.places.push_back({Place::Kind::Literal, std::move(text)}); };
    for (std::size_t i = 0; i < picture.size(); ++i) {
        const char c = picture[i];
        if (c == '0' || c == '#') {
            section.places.push_back({c == '0' ? Place::Kind::Zero : Place::Kind::Digit, {}});
            ++(afterPoint ? section.decimals : section.wholePlaces);
        } else if (c == '.' && !afterPoint) {
            section.places.push_back({Place::Kind::Point, {}});
            afterPoint = true;
        } else if (c == ',' && section.wholePlaces > 0 && !afterPoint) {
            section.grouped = true;
        } else if (c == '%') {
            section.percent = true;
            literal("%");
        } else if (c == '\\' && i + 1 < picture.size()) {
            literal(std::string(1, picture[++i]));
        } else if (c == '"') {
            const std::size_t end = std::min(picture.find('"', i + 1), picture.size());
            literal(std::string(picture.substr(i + 1, end - i - 1)));
            i = end;
        } else {
            literal(std::string(1, c));
        }
    }
    return section;
}

std::vector<std::string_view> Sections(std::string_view picture)
{
    std::vector<std::string_view> sections;
    bool quoted = false;
    std::size_t start = 0;
    for (std::size_t i = 0; i < picture.size(); ++i) {
        if (picture[i] == '"')
            quoted = !quoted;
        if (picture[i] == ';' && !quoted) {
            sections.push_back(picture.substr(start, i - start));
            start = i + 1;
        }
    }
    sections.push_back(picture.substr(start));
    return sections;
}

/// The digits of `number` (not below zero) rounded to `decimals` places, halves away from zero as its fifteen
/// significant digits read, so that 2.675 rounds to 2.68 though its double lies below.
struct Digits {
    std::string whole;
    std::string fraction;
    bool IsZero() const { return whole.empty() && fraction.find_first_not_of('0') == std::string::npos; }
};

Digits RoundedDigits(double number, int decimals)
{
    // 309 digits before the point and 14 behind it at the most; std::to_chars heeds no locale.
    std::array<char, 400> text{};
    const int magnitude = number > 0 ? static_cast<int>(std::floor(std::log10(number))) + 1 : 1;
    const int known = std::max(0, 15 - std::max(magnitude, 1));
    const auto end = std::to_chars(text.begin(), text.end(), number, std::chars_format::fixed, known).ptr;
    const std::string written(text.begin(), end);
    const std::size_t point = std::min(written.find('.'), written.size());
    std::string whole = written.substr(0, point);
    std::string fraction = point < written.size() ? written.substr(point + 1) : "";
    const auto wanted = static_cast<std::size_t>(decimals);
    const bool up = fraction.size() > wanted && fraction[wanted] >= '5';
    fraction.resize(wanted, '0');
    std::string all = whole + fraction;
    if (up) {
        std::size_t i = all.size();
        while (i > 0 && all[i - 1] == '9')
            all[--i] = '0';
        if (i == 0)
            all.insert(0, "1");
        else
            ++all[i - 1];
    }
    const std::size_t wholeSize = all.size() - wanted;
    whole = all.substr(0, wholeSize);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    return {whole, all.substr(wholeSize)};
}

/// The whole part padded with the zeros that its section always shows.
std::string PaddedWhole(const Section& section, std::string whole)
{
    std::size_t minimum = 0;
    int place = 0;
    for (const Place& part : section.places) {
        if (part.kind == Place::Kind::Point)
            break;
        if (part.kind == Place::Kind::Zero && minimum == 0)
            minimum = static_cast<std::size_t>(section.wholePlaces - place);
        if (part.kind == Place::Kind::Zero || part.kind == Place::Kind::Digit)
            ++place;
    }
    if (whole.size() < minimum)
        whole.insert(0, minimum - whole.size(), '0');
    return whole;
}

/// The fraction without the zeros that its section does not show.
std::string TrimmedFraction(const Section& section, std::string fraction)
{
    std::size_t minimum = 0;
    std::size_t place = 0;
    bool afterPoint = false;
    for (const Place& part : section.places) {
        afterPoint = afterPoint || part.kind == Place::Kind::Point;
        if (!afterPoint || (part.kind != Place::Kind::Zero && part.kind != Place::Kind::Digit))
            continue;
        ++place;
        if (part.kind == Place::Kind::Zero)
            minimum = place;
    }
    while (fraction.size() > minimum && fraction.back() == '0')
        fraction.pop_back();
    return fraction;
}

/// The digits that the whole place with `placesBehind` places behind it shows: one digit, none where the number is
/// shorter, and at the first place all that stand before it too.
std::string WholeDigits(const Section& section, const std::string& whole, std::size_t placesBehind, bool firstPlace)
{
    std::string text;
    for (std::size_t behind = whole.size(); behind-- > 0;) {
        if (behind != placesBehind && !(firstPlace && behind > placesBehind))
            continue;
        text += whole[whole.size() - 1 - behind];
        if (section.grouped && behind > 0 && behind % 3 == 0)
            text += ',';
    }
    return text;
}

std::string WriteSection(const Section& section, const Digits& digits)
{
    const std::string whole = PaddedWhole(section, digits.whole);
    const std::string fraction = TrimmedFraction(section, digits.fraction);
    const auto wholePlaces = static_cast<std::size_t>(section.wholePlaces);
    std::string text;
    std::size_t place = 0;
    for (const Place& part : section.places) {
        switch (part.kind) {
        case Place::Kind::Literal:
            text += part.literal;
            break;
        case Place::Kind::Point:
            text += wholePlaces == 0 ? whole + '.' : ".";
            break;
        default:
            if (place < wholePlaces)
                text += WholeDigits(section, whole, wholePlaces - 1 - place, place == 0);
            else if (place - wholePlaces < fraction.size())
                text += fraction[place - wholePlaces];
            ++place;
        }
    }
    return text;
}

}

std::string Format(double number, std::string_view picture)
{
    if (!std::isfinite(number))
        return ToText(number);
    const std::vector<std::string_view> sections = Sections(picture);
    const Section first = ReadSection(sections[0]);
    const double shown = first.percent ? number * 100 : number;
    const Digits rounded = RoundedDigits(std::fabs(shown), first.decimals);
    if (rounded.IsZero() && sections.size() > 2 && !sections[2].empty())
        return WriteSection(ReadSection(sections[2]), rounded);
    if (number >= 0 || rounded.IsZero())
        return WriteSection(first, rounded);
    if (sections.size() > 1 && !sections[1].empty()) {
        const Section second = ReadSection(sections[1]);
        return WriteSection(second, RoundedDigits(std::fabs(second.percent ? number * 100 : number), second.decimals));
    }
    return "-" + WriteSection(first, rounded);
}

namespace {

constexpr std::array monthNames = {"January", "February", "March",     "April",   "May",      "June",
                                   "July",    "August",   "September", "October", "November", "December"};
constexpr std::array dayNames = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

std::string Padded(int number, std::size_t width)
{
    std::string text = std::to_string(number);
    return text.size() < width ? std::string(width - text.size(), '0') + text : text;
}

std::string DateWord(DateTime date, char letter, std::size_t count, bool minutes, bool halfDay)
{
    const int hour = halfDay ? (date.Hour() % 12 == 0 ? 12 : date.Hour() % 12) : date.Hour();
    const std::string month = monthNames[static_cast<std::size_t>(date.Month() - 1)];
    const std::string day = dayNames[static_cast<std::size_t>(date.Weekday() - 1)];
    switch (letter) {
    case 'd':
        return count <= 2 ? Padded(date.Day(), count) : count == 3 ? day.substr(0, 3) : day;
    case 'm':
        if (minutes)
            return Padded(date.Minute(), count);
        return count <= 2 ? Padded(date.Month(), count) : count == 3 ? month.substr(0, 3) : month;
    case 'y':
        return count <= 2 ? Padded(date.Year() % 100, 2) : Padded(date.Year(), 4);
    case 'h':
        return Padded(hour, count);
    case 'n':
        return Padded(date.Minute(), count);
    default:
        return Padded(date.Second(), count);
    }
}

}

std::string Format(DateTime date, std::string_view picture)
{
    const std::string lower = LowerCase(picture);
    const bool halfDay = lower.find("am/pm") != std::string::npos;
    std::string text;
    bool afterHour = false;
    for (std::size_t i = 0; i < picture.size();) {
        if (lower.compare(i, 5, "am/pm") == 0) {
            text += date.Hour() < 12 ? "AM" : "PM";
            i += 5;
            continue;
        }
        const char letter = lower[i];
        if (std::string_view("dmyhns").find(letter) == std::string_view::npos) {
            text += picture[i++];
            continue;
        }
        const std::size_t end = std::min(lower.find_first_not_of(letter, i), lower.size());
        text += DateWord(date, letter, end - i, letter == 'm' && afterHour, halfDay);
        afterHour = letter == 'h';
        i = end;
    }
    return text;
}

std::string FormatText(const std::string& text, std::string_view picture)
{
    if (text.empty() || picture.empty())
        return text;
    const bool numberPicture = picture.find_first_of("0#") != std::string_view::npos;
    if (numberPicture) {
        const auto number = ParseNumber(text);
        return number ? Format(*number, picture) : text;
    }
    const auto date = ParseDate(text);
    return date ? Format(*date, picture) : text;
}

}
