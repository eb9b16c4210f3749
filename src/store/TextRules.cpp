#include "store/TextRules.h"

#include <cstdint>
#include <optional>

namespace rovanta {

namespace {

std::string_view WithoutTrailingBlanks(std::string_view text)
{
    const auto last = text.find_last_not_of(' ');
    return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

/// Latin letters in lower case: ASCII, Latin-1 and Latin Extended-A, whose pairs of letters are neighbours.
std::uint32_t Folded(std::uint32_t c)
{
    if (c < 0x80)
        return c >= 'A' && c <= 'Z' ? c + 32 : c;
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7)
        return c + 32;
    const bool evenCapitals = (c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177);
    if (evenCapitals && c % 2 == 0)
        return c + 1;
    const bool oddCapitals = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
    if (oddCapitals && c % 2 == 1)
        return c + 1;
    return c == 0x178 ? 0xFF : c;
}

/// Takes one character of UTF-8 off the front; a byte that begins none stands for itself.
std::uint32_t TakeCharacter(std::string_view& text)
{
    const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    const std::uint32_t first = byte(0);
    const std::size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC2 ? 1 : 0;
    std::uint32_t c = first;
    if (more > 0 && more < text.size()) {
        c = first & (0x3FU >> more);
        for (std::size_t i = 1; i <= more; ++i)
            c = c << 6 | (byte(i) & 0x3FU);
        text.remove_prefix(more + 1);
        return c;
    }
    text.remove_prefix(1);
    return c;
}

std::uint32_t TakeFolded(std::string_view& text)
{
    return Folded(TakeCharacter(text));
}

/// Reads the set that begins behind a '[' and tells whether `c` is in it; nothing when the set has no end.
std::optional<bool> IsInSet(std::string_view& pattern, std::uint32_t c)
{
    const bool excluded = !pattern.empty() && pattern.front() == '^';
    if (excluded)
        pattern.remove_prefix(1);
    bool found = false;
    bool first = true;
    while (!pattern.empty()) {
        const std::uint32_t from = TakeFolded(pattern);
        if (from == ']' && !first)
            return found != excluded;
        first = false;
        std::uint32_t to = from;
        if (pattern.size() > 1 && pattern[0] == '-' && pattern[1] != ']') {
            pattern.remove_prefix(1);
            to = TakeFolded(pattern);
        }
        found = found || (c >= from && c <= to);
    }
    return std::nullopt;
}

/// Takes one character off both where the pattern's first item, no '%', fits the text's first character.
bool TakeMatch(std::string_view& text, std::string_view& pattern)
{
    if (text.empty())
        return false;
    const std::uint32_t c = TakeFolded(text);
    const std::uint32_t item = TakeFolded(pattern);
    if (item == '[')
        return IsInSet(pattern, c).value_or(false);
    return item == '_' || item == c;
}

}

int CompareText(std::string_view a, std::string_view b)
{
    a = WithoutTrailingBlanks(a);
    b = WithoutTrailingBlanks(b);
    while (!a.empty() && !b.empty()) {
        const std::uint32_t left = TakeFolded(a);
        const std::uint32_t right = TakeFolded(b);
        if (left != right)
            return left < right ? -1 : 1;
    }
    return static_cast<int>(!a.empty()) - static_cast<int>(!b.empty());
}

bool IsLike(std::string_view text, std::string_view pattern)
{
    // Where the last '%' stood: on a mismatch that run takes one character more. One such place is enough, since a
    // later
    // '%' can do whatever an earlier one could.
    std::string_view runText;
    std::string_view runPattern;
    bool inRun = false;
    while (true) {
        if (pattern.empty() && WithoutTrailingBlanks(text).empty())
            return true;
        if (!pattern.empty() && pattern.front() == '%') {
            pattern.remove_prefix(1);
            runText = text;
            runPattern = pattern;
            inRun = true;
            continue;
        }
        if (!pattern.empty() && TakeMatch(text, pattern))
            continue;
        if (!inRun || runText.empty())
            return false;
        TakeCharacter(runText);
        text = runText;
        pattern = runPattern;
    }
}

}
