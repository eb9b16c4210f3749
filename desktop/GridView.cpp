#include "desktop/GridView.h"

#include "desktop/Look.h"

#include <QFrame>
#include <QLineEdit>
#include <QResizeEvent>
#include <QScrollBar>
#include <algorithm>
#include <limits>

namespace rovanta {

GridView::GridView(Grid& grid, Act act) : grid(grid), act(std::move(act))
{
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::StyledPanel);
    setFrameShadow(QFrame::Plain);
    setViewportMargins(1, 1, 1, 1);
    viewport()->setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    horizontalScrollBar()->setSingleStep(24);
    Refresh();
}

int GridView::RowHeight() const
{
    return fontMetrics().height() + 8;
}

int GridView::LockedCols() const
{
    return std::min(grid.Cols(), grid.FixedCols() + grid.FrozenCols());
}

int GridView::LockedWidth() const
{
    return columns.Left(LockedCols());
}

int GridView::HeadingHeight() const
{
    return static_cast<int>(fixedRows.size()) * RowHeight();
}

int GridView::X(int col) const
{
    return columns.Left(col) - (col < LockedCols() ? 0 : horizontalScrollBar()->value());
}

int GridView::PageRows() const
{
    return std::max(1, (viewport()->height() - HeadingHeight()) / RowHeight());
}

int GridView::PlaceOf(int row) const
{
    const auto found = std::lower_bound(shownRows.begin(), shownRows.end(), row);
    return found != shownRows.end() && *found == row ? static_cast<int>(found - shownRows.begin()) : -1;
}

void GridView::ListRows()
{
    fixedRows.clear();
    shownRows.clear();
    for (int row = 0; row < std::min(grid.FixedRows(), grid.Rows()); ++row) {
        if (!grid.RowHidden(row))
            fixedRows.push_back(row);
    }
    // Below a folded row nothing deeper is seen; `foldedAt` is the level of the outermost fold that is open.
    constexpr int unfolded = std::numeric_limits<int>::max();
    int foldedAt = unfolded;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        const int level = grid.RowOutlineLevel(row);
        if (level <= foldedAt)
            foldedAt = unfolded;
        if (foldedAt == unfolded && !grid.RowHidden(row))
            shownRows.push_back(row);
        if (foldedAt == unfolded && grid.IsCollapsed(row))
            foldedAt = level;
    }
}

void GridView::Refresh()
{
    if (gone)
        return;
    ListRows();
    columns.Measure(grid, font(), viewport()->width());
    UpdateScrollBars();
    // The logic may scroll; what a person has scrolled since stays otherwise.
    if (grid.LeftCol() != knownLeftCol && grid.LeftCol() < grid.Cols()) {
        knownLeftCol = grid.LeftCol();
        horizontalScrollBar()->setValue(columns.Left(std::max(knownLeftCol, LockedCols())) - LockedWidth());
    }
    if (grid.TopRow() != knownTopRow) {
        knownTopRow = grid.TopRow();
        verticalScrollBar()->setValue(std::max(0, PlaceOf(knownTopRow)));
    }
    const GridCell current{grid.Row(), grid.Col()};
    if (current != knownCurrent) {
        knownCurrent = current;
        if (current.IsSet())
            ScrollTo(current);
    }
    if (editor && (!CanType(edited) || grid.Row() != edited.row))
        EndEdit(false);
    viewport()->update();
}

void GridView::UpdateScrollBars()
{
    const int rows = static_cast<int>(shownRows.size());
    verticalScrollBar()->setPageStep(PageRows());
    verticalScrollBar()->setRange(0, std::max(0, rows - PageRows()));
    const int room = std::max(1, viewport()->width() - LockedWidth());
    horizontalScrollBar()->setPageStep(room);
    horizontalScrollBar()->setRange(0, std::max(0, columns.Total() - LockedWidth() - room));
}

void GridView::ScrollTo(GridCell cell)
{
    if (gone)
        return;
    const int place = PlaceOf(cell.row);
    QScrollBar& down = *verticalScrollBar();
    if (place >= 0 && place < down.value())
        down.setValue(place);
    else if (place >= down.value() + PageRows())
        down.setValue(place - PageRows() + 1);
    if (cell.col < LockedCols() || cell.col >= grid.Cols())
        return;
    QScrollBar& across = *horizontalScrollBar();
    const int left = columns.Left(cell.col) - LockedWidth();
    const int right = left + columns.Width(cell.col);
    if (!ShowsCellCursor())
        return;
    if (left < across.value())
        across.setValue(left);
    else if (right > across.value() + across.pageStep())
        across.setValue(right - across.pageStep());
}

void GridView::scrollContentsBy(int, int)
{
    if (gone)
        return;
    EndEdit(true);
    viewport()->update();
}

void GridView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    if (gone)
        return;
    columns.Measure(grid, font(), viewport()->width());
    UpdateScrollBars();
}

QRect GridView::CellRect(GridCell cell) const
{
    const bool heading = cell.row < grid.FixedRows();
    int y = 0;
    if (heading) {
        const auto found = std::find(fixedRows.begin(), fixedRows.end(), cell.row);
        if (found == fixedRows.end())
            return {};
        y = static_cast<int>(found - fixedRows.begin()) * RowHeight();
    } else {
        const int place = PlaceOf(cell.row);
        if (place < 0)
            return {};
        y = HeadingHeight() + (place - verticalScrollBar()->value()) * RowHeight();
    }
    const QRect rect(X(cell.col), y, columns.Width(cell.col), RowHeight());
    QRect room = viewport()->rect();
    if (!heading)
        room.setTop(HeadingHeight());
    if (cell.col >= LockedCols())
        room.setLeft(LockedWidth());
    return rect.intersects(room) && rect.width() > 0 ? rect : QRect();
}

GridCell GridView::CellAt(QPoint place) const
{
    if (!viewport()->rect().contains(place))
        return {};
    const int x = place.x() < LockedWidth() ? place.x() : place.x() + horizontalScrollBar()->value();
    const int col = columns.At(x);
    int row = -1;
    const int line = place.y() / RowHeight();
    if (line < static_cast<int>(fixedRows.size())) {
        row = fixedRows[static_cast<std::size_t>(line)];
    } else {
        const std::size_t at = static_cast<std::size_t>(line - static_cast<int>(fixedRows.size())) +
                               static_cast<std::size_t>(verticalScrollBar()->value());
        if (at < shownRows.size())
            row = shownRows[at];
    }
    return row < 0 || col < 0 ? GridCell{} : GridCell{row, col};
}

std::optional<int> GridView::EdgeAt(QPoint place) const
{
    constexpr int reach = 4;
    if (place.y() >= HeadingHeight())
        return std::nullopt;
    for (const int col : SeenCols()) {
        if (std::abs(X(col) + columns.Width(col) - place.x()) <= reach && columns.Width(col) > 0)
            return col;
    }
    return std::nullopt;
}

bool GridView::HasDeeperRows(int row) const
{
    return row >= grid.FixedRows() && row + 1 < grid.Rows() &&
           grid.RowOutlineLevel(row + 1) > grid.RowOutlineLevel(row);
}

bool GridView::ShowsCellCursor() const
{
    return grid.Editable() || grid.MergeCells() == MergeMode::Free;
}

void GridView::Prefer(int rows, int width)
{
    if (rows > 0)
        preferredRows = rows;
    if (width > 0)
        preferredWidth = width;
    updateGeometry();
}

QSize GridView::sizeHint() const
{
    const int lines = static_cast<int>(fixedRows.size()) + preferredRows;
    return {preferredWidth, lines * RowHeight() + 20};
}

QSize GridView::minimumSizeHint() const
{
    constexpr int leastRows = 3;
    return {240, (static_cast<int>(fixedRows.size()) + leastRows) * RowHeight() + 20};
}

}
