#include "store/TextRules.h"

#include <unicode/uchar.h>
#include <unicode/ucol.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

namespace rovanta {

namespace {

std::string_view WithoutTrailingBlanks(std::string_view text)
{
    const auto last = text.find_last_not_of(' ');
    return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

/// Orders as the servers' collations do: base letters first, then accents, never case.
class Collator {
public:
    Collator()
    {
        UErrorCode status = U_ZERO_ERROR;
        collator.reset(ucol_open("", &status));
        ucol_setStrength(collator.get(), UCOL_SECONDARY);
        if (U_FAILURE(status))
            throw std::runtime_error(std::string("The rules for comparing texts are missing: ") + u_errorName(status));
        RankPlainCharacters();
    }

    int Compare(std::string_view a, std::string_view b) const
    {
        std::size_t at = 0;
        // Most texts part at two plain characters, whose ranks tell the order.
        for (; at < a.size() && at < b.size(); ++at) {
            const int left = Rank(a[at]);
            const int right = Rank(b[at]);
            if (left == 0 || right == 0)
                return CompareByRules(a, b);
            if (left != right)
                return IsFollowedByPlain(a, at) && IsFollowedByPlain(b, at) ? left - right : CompareByRules(a, b);
        }
        if (a.size() == b.size())
            return 0;
        const bool shorter = a.size() < b.size();
        return Rank(shorter ? b[at] : a[at]) != 0 ? (shorter ? -1 : 1) : CompareByRules(a, b);
    }

private:
    /// The place of a plain character among all of them, equal for the two cases of a letter; 0 for any other.
    int Rank(char c) const { return ranks[static_cast<unsigned char>(c)]; }

    /// What stands behind a character may belong to it, as an accent of its own does, unless it is plain, too.
    bool IsFollowedByPlain(std::string_view text, std::size_t at) const
    {
        return at + 1 == text.size() || Rank(text[at + 1]) != 0;
    }

    int CompareByRules(std::string_view a, std::string_view b) const
    {
        UErrorCode status = U_ZERO_ERROR;
        return ucol_strcollUTF8(collator.get(), a.data(), static_cast<int32_t>(a.size()), b.data(),
                                static_cast<int32_t>(b.size()), &status);
    }

    void RankPlainCharacters()
    {
        std::string plain;
        for (char c = ' '; c <= '~'; ++c)
            plain += c;
        const auto compare = [&](char a, char b) { return CompareByRules({&a, 1}, {&b, 1}); };
        std::sort(plain.begin(), plain.end(), [&](char a, char b) { return compare(a, b) < 0; });
        int rank = 1;
        for (std::size_t i = 0; i < plain.size(); ++i) {
            if (i > 0 && compare(plain[i - 1], plain[i]) != 0)
                ++rank;
            ranks[static_cast<unsigned char>(plain[i])] = rank;
        }
    }

    std::unique_ptr<UCollator, void (*)(UCollator*)> collator{nullptr, ucol_close};
    std::array<int, 256> ranks{};
};

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
    return static_cast<std::uint32_t>(u_tolower(static_cast<UChar32>(TakeCharacter(text))));
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
    static const Collator collator;
    return collator.Compare(WithoutTrailingBlanks(a), WithoutTrailingBlanks(b));
}

bool IsLike(std::string_view text, std::string_view pattern)
{
    // Where the last '%' stood: on a mismatch that run takes one character more. One such place is enough, since a
    // later '%' can do whatever an earlier one could.
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
