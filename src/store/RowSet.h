#pragma once

#include "store/Tree.h"
#include "values/Value.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rovanta {

/// The columns that a SELECT delivers. One shape serves every row set of its plan.
class ResultShape {
public:
    ResultShape(std::vector<SourceColumn> columns, TablePointer updatable);

    const std::vector<SourceColumn>& Columns() const { return columns; }
    /// The names as the statement writes them, or its aliases.
    const std::vector<std::string>& Names() const { return names; }
    /// The one table that the rows come from and can be written back to; null where there is none.
    const TablePointer& Updatable() const { return updatable; }

    /// The column of that name without regard to case, of two equal ones the first.
    std::optional<std::size_t> Find(std::string_view name) const;

private:
    std::vector<SourceColumn> columns;
    std::vector<std::string> names;
    TablePointer updatable;
    /// A table of places by the hash of the name; at most half full, so that a search soon ends.
    std::vector<int> places;
};

/// The rows of a SELECT, read whole.
struct RowSet {
    std::shared_ptr<const ResultShape> shape;
    /// Row by row, one value a column.
    std::vector<Value> cells;
    /// By what the engine finds each row again; empty where the rows cannot be written back.
    std::vector<std::int64_t> rowKeys;
    std::size_t rowCount = 0;

    std::size_t ColumnCount() const { return shape->Columns().size(); }
};

}
