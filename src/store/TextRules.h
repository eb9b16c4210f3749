#pragma once

#include <string_view>

namespace rovanta {

/// Compares two texts as the database does: without regard to the case of Latin letters, accented ones included, and
/// without regard to trailing blanks. Below 0, 0 or above 0.
int CompareText(std::string_view a, std::string_view b);

/// Whether `text` is LIKE `pattern`: % for any run, _ for one character, [a-c] and [^a-c] for one of a set; without
/// regard to case. Blanks at the text's end may be left over, blanks at the pattern's end count.
bool IsLike(std::string_view text, std::string_view pattern);

}
