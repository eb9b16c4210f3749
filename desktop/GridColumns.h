#pragma once

#include "forms/Grid.h"

#include <QFont>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace rovanta {

/// The widths of a grid's columns in logical pixels: what the grid says, what a person has dragged, or what the texts
/// need. Of many rows a sample is measured.
class GridColumns {
public:
    /// Measures anew. `room` is the width that is there; a last column of texts takes what is left of it.
    void Measure(const Grid& grid, const QFont& font, int room);
    /// A person drags the edge of a column.
    void Drag(int col, int width) { dragged[col] = std::max(width, 16); }
    /// The column fits its texts again.
    void Forget(int col) { dragged.erase(col); }

    int Width(int col) const { return widths[static_cast<std::size_t>(col)]; }
    /// Where the column begins, counted from the first one, before any scrolling.
    int Left(int col) const { return lefts[static_cast<std::size_t>(col)]; }
    int Total() const { return lefts.empty() ? 0 : lefts.back(); }
    /// Whether the data of the column are numbers, which stand at the right.
    bool IsNumeric(int col) const { return numeric[static_cast<std::size_t>(col)]; }
    /// The column at that place, -1 behind the last.
    int At(int x) const;

private:
    int Fit(const Grid& grid, int col, const std::vector<int>& sample);
    int TextWidth(const std::string& text, bool bold);

    QFont font;
    std::map<int, int> dragged;
    std::vector<int> widths;
    std::vector<int> lefts;
    std::vector<bool> numeric;
    std::unordered_map<std::string, int> measured[2];
};

}
