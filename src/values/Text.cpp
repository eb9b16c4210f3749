#include "values/Text.h"

#include <algorithm>
#include <cstdint>

namespace rovanta {

/// The byte at that place in lower case: a letter of ASCII, or the second byte of an accented letter of Latin-1.
static char LowerCaseAt(std::string_view text, std::size_t at)
{
    const char c = text[at];
    if (c >= 'A' && c <= 'Z')
        return static_cast<char>(c - 'A' + 'a');
    const bool latin1 = at > 0 && text[at - 1] == '\xC3';
    const auto byte = static_cast<unsigned char>(c);
    constexpr unsigned char multiplicationSign = 0x97;
    return latin1 && byte >= 0x80 && byte <= 0x9E && byte != multiplicationSign ? static_cast<char>(byte + 0x20) : c;
}

std::string Trim(std::string_view text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return std::string(text);
}

std::string LowerCase(std::string_view text)
{
    std::string lower(text);
    for (std::size_t i = 0; i < text.size(); ++i)
        lower[i] = LowerCaseAt(text, i);
    return lower;
}

bool EqualNoCase(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (LowerCaseAt(a, i) != LowerCaseAt(b, i))
            return false;
    return true;
}

bool StartsWithNoCase(std::string_view text, std::string_view head)
{
    return text.size() >= head.size() && EqualNoCase(text.substr(0, head.size()), head);
}

std::vector<std::string> Split(std::string_view text, char mark)
{
    std::vector<std::string> pieces;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = text.find(mark, start);
        pieces.emplace_back(text.substr(start, end == std::string_view::npos ? end : end - start));
        if (end == std::string_view::npos)
            return pieces;
        start = end + 1;
    }
}

std::string Join(const std::vector<std::string>& pieces, std::string_view mark)
{
    std::string joined;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0)
            joined += mark;
        joined += pieces[i];
    }
    return joined;
}

std::string Replace(std::string text, std::string_view from, std::string_view to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

/// The length of the valid UTF-8 sequence at the head of `text`, 0 when there is none.
static std::size_t SequenceLength(std::string_view text)
{
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const auto follows = [&](std::size_t i) { return i < text.size() && (byte(i) & 0xC0) == 0x80; };
    const std::uint8_t first = byte(0);
    if (first < 0x80)
        return 1;
    if (first >= 0xC2 && first <= 0xDF)
        return follows(1) ? 2 : 0;
    if (first >= 0xE0 && first <= 0xEF) {
        if (!follows(1) || !follows(2))
            return 0;
        const bool overlong = first == 0xE0 && byte(1) < 0xA0;
        const bool surrogate = first == 0xED && byte(1) >= 0xA0;
        return overlong || surrogate ? 0 : 3;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        if (!follows(1) || !follows(2) || !follows(3))
            return 0;
        const bool overlong = first == 0xF0 && byte(1) < 0x90;
        const bool beyond = first == 0xF4 && byte(1) >= 0x90;
        return overlong || beyond ? 0 : 4;
    }
    return 0;
}

std::string ValidUtf8(std::string_view text)
{
    std::string valid;
    valid.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = SequenceLength(text);
        if (length == 0)
            valid += "\xEF\xBF\xBD";
        else
            valid += text.substr(0, length);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return valid;
}

std::size_t CharacterCount(std::string_view text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<std::uint8_t>(c) & 0xC0) != 0x80; }));
}

}
