#pragma once

#include <string_view>

namespace rovanta {

/// Compares two texts as the database does: without regard to case and to trailing blanks; signs before digits before
/// letters, an accent behind the plain letter. Bytes that are no UTF-8 all count as one and the same character. Below
/// 0, 0 or above 0.
int CompareText(std::string_view a, std::string_view b);

/// Whether `text` is LIKE `pattern`: % for any run, _ for one character, [a-c] and [^a-c] for one of a set; without
/// regard to case. Blanks at the text's end may be left over, blanks at the pattern's end count.
bool IsLike(std::string_view text, std::string_view pattern);

}
