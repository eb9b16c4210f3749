#include "forms/Grid.h"

#include "values/Numbers.h"

#include <algorithm>

namespace rovanta {

template <class Setter>
void Grid::StyleRange(GridRange range, Setter set)
{
    for (int styleRow = range.row1; styleRow <= range.row2; ++styleRow) {
        RowEntry& entry = RowAt(styleRow);
        entry.styles.resize(columns.size());
        for (int styleCol = range.col1; styleCol <= range.col2; ++styleCol) {
            ColumnAt(styleCol);
            set(entry.styles[static_cast<std::size_t>(styleCol)]);
        }
    }
    Changed();
}

void Grid::SetBackColor(GridRange range, std::optional<Color> color)
{
    StyleRange(range, [&](Style& style) { style.back = color; });
}

void Grid::SetForeColor(GridRange range, std::optional<Color> color)
{
    StyleRange(range, [&](Style& style) { style.fore = color; });
}

void Grid::SetBold(GridRange range, bool bold)
{
    StyleRange(range, [&](Style& style) { style.bold = bold; });
}

const Grid::Style* Grid::StyleAt(int styleRow, int styleCol) const
{
    ColumnAt(styleCol);
    const RowEntry& entry = RowAt(styleRow);
    return entry.styles.empty() ? nullptr : &entry.styles[static_cast<std::size_t>(styleCol)];
}

std::optional<Color> Grid::BackColor(int styleRow, int styleCol) const
{
    const Style* style = StyleAt(styleRow, styleCol);
    return style ? style->back : std::nullopt;
}

std::optional<Color> Grid::ForeColor(int styleRow, int styleCol) const
{
    const Style* style = StyleAt(styleRow, styleCol);
    return style ? style->fore : std::nullopt;
}

bool Grid::Bold(int styleRow, int styleCol) const
{
    const Style* style = StyleAt(styleRow, styleCol);
    return style && style->bold;
}

void Grid::Subtotal(const std::string& caption, const std::vector<int>& sumCols, std::string_view picture, Color back,
                    SubtotalPlace place)
{
    const auto isSummed = [&](int index) { return std::find(sumCols.begin(), sumCols.end(), index) != sumCols.end(); };
    RowEntry entry;
    entry.subtotal = true;
    entry.picture = picture;
    entry.cells.resize(columns.size());
    for (int index = 0; index < Cols(); ++index) {
        if (isSummed(index))
            continue;
        entry.cells[static_cast<std::size_t>(index)] = caption;
        break;
    }
    for (const int index : sumCols) {
        ColumnAt(index);
        double sum = 0;
        for (int dataRow = fixedRows; dataRow < Rows(); ++dataRow) {
            if (!IsSubtotal(dataRow))
                sum += Val(TextMatrix(dataRow, index));
        }
        entry.cells[static_cast<std::size_t>(index)] = ToText(sum);
    }
    const int at = place == SubtotalPlace::Above ? fixedRows : Rows();
    rows.insert(rows.begin() + at, std::move(entry));
    if (row >= at)
        ++row, ++rowSel;
    SetBackColor({at, 0, at, Cols() - 1}, back);
}

void Grid::SetRowOutlineLevel(int index, int level)
{
    RowAt(index).level = level;
    Changed();
}

void Grid::SetCollapsed(int index, bool collapsed)
{
    RowAt(index).collapsed = collapsed;
    Changed();
}

bool Grid::IsRowShown(int index) const
{
    if (RowAt(index).hidden)
        return false;
    int level = RowAt(index).level;
    for (int above = index - 1; above >= fixedRows && level > 0; --above) {
        const RowEntry& entry = RowAt(above);
        if (entry.level >= level)
            continue;
        if (entry.collapsed)
            return false;
        level = entry.level;
    }
    return true;
}

void Grid::SetOutlineCol(int index)
{
    outlineCol = index;
    Changed();
}

}
