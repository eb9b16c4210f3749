#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace rovanta::bench {

/// A value as a plain program keeps it between reading and writing.
using BareValue = std::variant<std::monostate, std::int64_t, double, std::string>;
using BareRow = std::vector<BareValue>;

}
