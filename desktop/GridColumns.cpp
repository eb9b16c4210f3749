#include "desktop/GridColumns.h"

#include "values/Numbers.h"

#include <QFontMetrics>
#include <algorithm>

namespace rovanta {

static constexpr int padding = 8;
static constexpr int narrowest = 28;
static constexpr int widest = 340;
static constexpr int outlineStep = 18;
static constexpr int firstRows = 200;
static constexpr int furtherRows = 60;

/// The headings, the first rows and some of the others.
static std::vector<int> SampleRows(const Grid& grid)
{
    std::vector<int> sample;
    const int first = std::min(grid.Rows(), grid.FixedRows() + firstRows);
    for (int row = 0; row < first; ++row)
        sample.push_back(row);
    const int step = std::max(1, (grid.Rows() - first) / furtherRows);
    for (int row = first; row < grid.Rows(); row += step)
        sample.push_back(row);
    return sample;
}

int GridColumns::TextWidth(const std::string& text, bool bold)
{
    auto& known = measured[bold ? 1 : 0];
    const auto found = known.find(text);
    if (found != known.end())
        return found->second;
    if (known.size() > 20000)
        known.clear();
    QFont used = font;
    if (bold)
        used.setWeight(QFont::DemiBold);
    return known[text] = QFontMetrics(used).horizontalAdvance(QString::fromStdString(text));
}

int GridColumns::Fit(const Grid& grid, int col, const std::vector<int>& sample)
{
    int width = 0;
    bool numbers = false;
    bool texts = false;
    for (const int row : sample) {
        const std::string text = grid.DisplayText(row, col);
        const bool data = row >= grid.FixedRows() && !grid.IsSubtotal(row);
        if (data && !text.empty())
            (rovanta::IsNumeric(grid.TextMatrix(row, col)) ? numbers : texts) = true;
        const bool mark = grid.ColDataType(col) == ColumnData::Boolean && data;
        int need = mark ? 18 : TextWidth(text, !data || grid.Bold(row, col));
        if (col == grid.OutlineCol() && data)
            need += outlineStep * (grid.RowOutlineLevel(row) + 1);
        width = std::max(width, need);
    }
    numeric[static_cast<std::size_t>(col)] = numbers && !texts;
    // Texts are set in fractions of a pixel when the screen is scaled.
    constexpr int slack = 2;
    return std::clamp(width + 2 * padding + slack, narrowest, widest);
}

void GridColumns::Measure(const Grid& grid, const QFont& newFont, int room)
{
    if (newFont != font) {
        font = newFont;
        measured[0].clear();
        measured[1].clear();
    }
    const auto count = static_cast<std::size_t>(grid.Cols());
    if (widths.size() != count)
        dragged.clear();
    widths.assign(count, 0);
    numeric.assign(count, false);
    const std::vector<int> sample = SampleRows(grid);
    int last = -1;
    int total = 0;
    for (int col = 0; col < grid.Cols(); ++col) {
        if (grid.ColHidden(col))
            continue;
        const int fit = Fit(grid, col, sample);
        const auto byHand = dragged.find(col);
        constexpr int twipsPerPixel = 15;
        int width = grid.ColWidth(col) > 0 ? grid.ColWidth(col) / twipsPerPixel : fit;
        if (byHand != dragged.end())
            width = byHand->second;
        widths[static_cast<std::size_t>(col)] = width;
        total += width;
        last = col;
    }
    const bool lastTakesRest = last >= 0 && !numeric[static_cast<std::size_t>(last)] && !dragged.contains(last) &&
                               grid.ColWidth(last) == 0 && grid.ColDataType(last) == ColumnData::Text &&
                               grid.ColAlignment(last) <= CellAlignment::Left;
    if (lastTakesRest && total < room)
        widths[static_cast<std::size_t>(last)] += room - total;
    lefts.assign(count + 1, 0);
    for (std::size_t col = 0; col < count; ++col)
        lefts[col + 1] = lefts[col] + widths[col];
}

int GridColumns::At(int x) const
{
    if (x < 0 || x >= Total())
        return -1;
    // Hidden columns have no width, so the last one that begins here is the one that is seen.
    const auto behind = std::upper_bound(lefts.begin(), lefts.end(), x);
    return static_cast<int>(behind - lefts.begin()) - 1;
}

}
