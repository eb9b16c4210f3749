#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace rovanta {

/// A line break inside a text: a carriage return and a line feed.
inline constexpr std::string_view lineBreak = "\r\n";

/// `text` without the blanks at both ends, as the language's Trim: blanks only, no tabs.
std::string Trim(std::string_view text);

/// Letters of ASCII and Latin-1 in lower case; other characters as they stand.
std::string LowerCase(std::string_view text);

/// Whether two texts are equal without regard to the case of letters, as LowerCase tells it.
bool EqualNoCase(std::string_view a, std::string_view b);

/// Whether `text` begins with `head`, without regard to case.
bool StartsWithNoCase(std::string_view text, std::string_view head);

/// The pieces of `text` between the marks; one piece more than there are marks.
std::vector<std::string> Split(std::string_view text, char mark);

/// The pieces with `mark` between them.
std::string Join(const std::vector<std::string>& pieces, std::string_view mark);

/// `text` with each `from` replaced; `from` must not be empty.
std::string Replace(std::string text, std::string_view from, std::string_view to);

/// `text` with every byte that is no valid UTF-8 replaced by U+FFFD.
std::string ValidUtf8(std::string_view text);

/// The number of characters (code points) of a UTF-8 text.
std::size_t CharacterCount(std::string_view text);

}
