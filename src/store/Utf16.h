#pragma once

#include <string>
#include <string_view>

namespace rovanta {

/// A UTF-8 text in UTF-16, as SQL Server and its drivers speak. A byte that is no valid UTF-8 becomes U+FFFD.
std::u16string ToUtf16(std::string_view text);

/// A UTF-16 text in UTF-8. Half of a pair without its other half becomes U+FFFD.
std::string ToUtf8(std::u16string_view text);

}
