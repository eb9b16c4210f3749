#pragma once

#include "values/Value.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace rovanta::demo {

/// One row on its way into a table: columns and their values. Columns that are not named stay NULL.
using Row = std::vector<std::pair<std::string, Value>>;

/// The rows of one table, in the order in which their identities count from 1.
struct TableRows {
    std::string_view table;
    std::vector<Row> rows;
};

}
