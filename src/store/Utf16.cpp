#include "store/Utf16.h"

#include "values/Text.h"

#include <cstdint>

namespace rovanta {

namespace {

constexpr char32_t firstBeyond = 0x10000;

void AppendUtf8(std::string& text, char32_t point)
{
    const auto tail = [&](int shift) { text += static_cast<char>(0x80U | ((point >> shift) & 0x3FU)); };
    if (point < 0x80) {
        text += static_cast<char>(point);
    } else if (point < 0x800) {
        text += static_cast<char>(0xC0U | (point >> 6));
        tail(0);
    } else if (point < firstBeyond) {
        text += static_cast<char>(0xE0U | (point >> 12));
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0U | (point >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

bool IsHead(char16_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsTail(char16_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

}

std::u16string ToUtf16(std::string_view given)
{
    const std::string text = ValidUtf8(given);
    std::u16string result;
    for (std::size_t at = 0; at < text.size();) {
        const auto first = static_cast<unsigned char>(text[at]);
        const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
        char32_t point = length == 1 ? first : first & (0xFFU >> (length + 1));
        for (std::size_t i = 1; i < length; ++i)
            point = (point << 6) | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
        at += length;
        if (point < firstBeyond) {
            result += static_cast<char16_t>(point);
        } else {
            result += static_cast<char16_t>(0xD800 + ((point - firstBeyond) >> 10));
            result += static_cast<char16_t>(0xDC00 + ((point - firstBeyond) & 0x3FF));
        }
    }
    return result;
}

std::string ToUtf8(std::u16string_view text)
{
    constexpr char32_t unknown = 0xFFFD;
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (IsHead(unit) && at + 1 < text.size() && IsTail(text[at + 1])) {
            AppendUtf8(result, firstBeyond + ((unit - 0xD800U) << 10) + (text[at + 1] - 0xDC00U));
            ++at;
        } else {
            AppendUtf8(result, IsHead(unit) || IsTail(unit) ? unknown : unit);
        }
    }
    return result;
}

}
