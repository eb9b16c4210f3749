#include "desktop/GridView.h"

#include "desktop/Look.h"

#include <QColor>
#include <QFont>
#include <QPaintEvent>
#include <QPainter>
#include <QPen>
#include <QPolygonF>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>

namespace rovanta {

static constexpr int padding = 8;
static constexpr int outlineStep = 18;

/// The office's tables keep a colour as 0xBBGGRR; a set top bit names a colour of the system.
static QColor FromOffice(Color color)
{
    if (color & 0x80000000U)
        return Look::accent;
    return QColor::fromRgb(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                           static_cast<int>(color >> 16 & 0xFF));
}

static QColor Blend(const QColor& below, const QColor& above, qreal share)
{
    const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return {mix(below.red(), above.red()), mix(below.green(), above.green()), mix(below.blue(), above.blue())};
}

std::vector<int> GridView::SeenRows() const
{
    const auto first = static_cast<std::size_t>(verticalScrollBar()->value());
    const std::size_t last = std::min(shownRows.size(), first + static_cast<std::size_t>(PageRows()) + 1);
    if (first >= last)
        return {};
    return {shownRows.begin() + static_cast<std::ptrdiff_t>(first),
            shownRows.begin() + static_cast<std::ptrdiff_t>(last)};
}

std::vector<int> GridView::SeenCols() const
{
    std::vector<int> seen;
    const int room = viewport()->width();
    for (int col = 0; col < grid.Cols(); ++col) {
        const int left = X(col);
        const int least = col < LockedCols() ? 0 : LockedWidth();
        if (columns.Width(col) > 0 && left < room && left + columns.Width(col) > least)
            seen.push_back(col);
    }
    return seen;
}

bool GridView::IsFixed(GridCell cell) const
{
    return cell.row < grid.FixedRows() || cell.col < grid.FixedCols();
}

bool GridView::IsSelected(int row) const
{
    return grid.HasCurrentRow() && row >= std::min(grid.Row(), grid.RowSel()) &&
           row <= std::max(grid.Row(), grid.RowSel());
}

void GridView::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), Look::base);
    if (gone || grid.Cols() == 0)
        return;
    const std::vector<int> rows = SeenRows();
    std::vector<int> locked;
    std::vector<int> scrolled;
    for (const int col : SeenCols())
        (col < LockedCols() ? locked : scrolled).push_back(col);
    const QRect whole = viewport()->rect();
    const int top = HeadingHeight();
    const int left = LockedWidth();
    if (top > 0)
        painter.fillRect(QRect(0, 0, whole.width(), top), Look::heading);
    PaintRegion(painter, {rows, scrolled, whole.adjusted(left, top, 0, 0)});
    PaintRegion(painter, {rows, locked, QRect(0, top, left, whole.height() - top)});
    PaintRegion(painter, {fixedRows, scrolled, QRect(left, 0, whole.width() - left, top)});
    PaintRegion(painter, {fixedRows, locked, QRect(0, 0, left, top)});
    painter.setClipping(false);
    painter.setPen(Look::frame);
    if (top > 0)
        painter.drawLine(0, top - 1, whole.right(), top - 1);
    if (left > 0 && horizontalScrollBar()->value() > 0)
        painter.drawLine(left - 1, 0, left - 1, whole.bottom());
    const QRect current = CellRect({grid.Row(), grid.Col()});
    if (hasFocus() && ShowsCellCursor() && grid.HasCurrentRow() && !current.isEmpty()) {
        painter.setClipRect(whole.adjusted(grid.Col() < LockedCols() ? 0 : left, top, 0, 0));
        painter.setPen(QPen(Look::accent, 2));
        painter.drawRect(current.adjusted(1, 1, -1, -1));
    }
}

void GridView::PaintRegion(QPainter& painter, const Region& region) const
{
    if (region.clip.isEmpty())
        return;
    painter.setClipRect(region.clip);
    std::vector<bool> done(region.rows.size() * region.cols.size());
    for (std::size_t rowAt = 0; rowAt < region.rows.size(); ++rowAt) {
        for (std::size_t colAt = 0; colAt < region.cols.size(); ++colAt) {
            if (done[rowAt * region.cols.size() + colAt])
                continue;
            const QSize span = SpanAt(region, rowAt, colAt);
            const GridCell cell{region.rows[rowAt], region.cols[colAt]};
            QRect rect(X(cell.col), CellRect({cell.row, cell.col}).top(), 0, span.height() * RowHeight());
            for (int step = 0; step < span.width(); ++step)
                rect.setWidth(rect.width() + columns.Width(region.cols[colAt + static_cast<std::size_t>(step)]));
            for (int down = 0; down < span.height(); ++down) {
                for (int along = 0; along < span.width(); ++along)
                    done[(rowAt + static_cast<std::size_t>(down)) * region.cols.size() + colAt +
                         static_cast<std::size_t>(along)] = true;
            }
            PaintCell(painter, rect, cell);
        }
    }
}

QSize GridView::SpanAt(const Region& region, std::size_t rowAt, std::size_t colAt) const
{
    const GridCell cell{region.rows[rowAt], region.cols[colAt]};
    const std::string& text = grid.TextMatrix(cell.row, cell.col);
    const MergeMode mode = grid.MergeCells();
    // Empty neighbours stay apart: a free day is a cell of its own.
    if (text.empty() || mode == MergeMode::Never || (mode == MergeMode::FixedOnly && !IsFixed(cell)))
        return {1, 1};
    int width = 1;
    int height = 1;
    const auto equal = [&](std::size_t row, std::size_t col) {
        return grid.TextMatrix(region.rows[row], region.cols[col]) == text;
    };
    if (grid.MergeRow(cell.row)) {
        while (colAt + static_cast<std::size_t>(width) < region.cols.size() &&
               equal(rowAt, colAt + static_cast<std::size_t>(width)))
            ++width;
    }
    const auto rowFits = [&](std::size_t row) {
        for (std::size_t col = colAt; col < colAt + static_cast<std::size_t>(width); ++col) {
            if (!grid.MergeCol(region.cols[col]) || !equal(row, col))
                return false;
        }
        return true;
    };
    while (rowAt + static_cast<std::size_t>(height) < region.rows.size() &&
           rowFits(rowAt + static_cast<std::size_t>(height)))
        ++height;
    return {width, height};
}

QColor GridView::FillOf(GridCell cell) const
{
    const auto own = grid.BackColor(cell.row, cell.col);
    const bool data = cell.row >= grid.FixedRows();
    QColor fill = IsFixed(cell) && (!data || grid.MergeCells() != MergeMode::Never) ? Look::heading : Look::base;
    if (own)
        fill = FromOffice(*own);
    if (!data)
        return fill;
    if (IsSelected(cell.row))
        return own ? Blend(fill, Look::accent, 0.18) : Look::accentTint;
    return cell.row == hovered.row && !own ? Look::hoverTint : fill;
}

void GridView::PaintCell(QPainter& painter, QRect rect, GridCell cell) const
{
    painter.fillRect(rect, FillOf(cell));
    painter.setPen(grid.MergeCells() == MergeMode::Free || cell.row < grid.FixedRows() ? Look::line : Look::heading);
    painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    painter.drawLine(rect.topRight(), rect.bottomRight());
    const bool data = cell.row >= grid.FixedRows();
    if (data && grid.ColDataType(cell.col) == ColumnData::Boolean && !grid.IsSubtotal(cell.row)) {
        QStyleOption mark;
        mark.rect = QRect(0, 0, 16, 16);
        mark.rect.moveCenter(rect.center());
        mark.state = grid.IsTicked(cell.row, cell.col) ? QStyle::State_On : QStyle::State_Off;
        mark.state.setFlag(QStyle::State_Enabled, isEnabled());
        style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &mark, &painter, this);
        return;
    }
    if (cell.col == grid.OutlineCol() && data) {
        PaintOutline(painter, cell);
        rect.setLeft(rect.left() + outlineStep * (grid.RowOutlineLevel(cell.row) + 1) - padding / 2);
    }
    PaintText(painter, rect, cell);
}

Qt::Alignment GridView::AlignmentOf(GridCell cell) const
{
    CellAlignment alignment = grid.ColAlignment(cell.col);
    const bool heading = cell.row < grid.FixedRows();
    if (heading && grid.FixedAlignment(cell.col) != CellAlignment::General)
        alignment = grid.FixedAlignment(cell.col);
    switch (alignment) {
    case CellAlignment::Left:
        return Qt::AlignLeft | Qt::AlignVCenter;
    case CellAlignment::Center:
        return Qt::AlignHCenter | Qt::AlignVCenter;
    case CellAlignment::Right:
        return Qt::AlignRight | Qt::AlignVCenter;
    case CellAlignment::General:
        break;
    }
    const bool right = columns.IsNumeric(cell.col);
    return (right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

void GridView::PaintText(QPainter& painter, QRect rect, GridCell cell) const
{
    const QString text = QString::fromStdString(grid.DisplayText(cell.row, cell.col));
    if (text.isEmpty())
        return;
    const bool heading = cell.row < grid.FixedRows();
    const auto own = grid.ForeColor(cell.row, cell.col);
    QFont used = font();
    if (heading || grid.IsSubtotal(cell.row) || grid.Bold(cell.row, cell.col))
        used.setWeight(QFont::DemiBold);
    painter.setFont(used);
    QColor ink = heading ? Look::caption : Look::text;
    if (own)
        ink = FromOffice(*own);
    else if (!isEnabled())
        ink = Look::faint;
    painter.setPen(ink);
    // A text that is merged over several columns stands in the middle of what is seen of it.
    const int sides = rect.width() < 40 ? 2 : padding;
    QRect seen = rect;
    if (rect.width() > columns.Width(cell.col)) {
        const QRect clip = painter.clipBoundingRect().toAlignedRect();
        seen.setLeft(std::max(rect.left(), clip.left()));
        seen.setRight(std::min(rect.right(), clip.right()));
    }
    seen.adjust(sides, 0, -sides, 0);
    const QString fitted = painter.fontMetrics().elidedText(text, Qt::ElideRight, seen.width());
    painter.drawText(seen, static_cast<int>(AlignmentOf(cell)) | Qt::TextSingleLine, fitted);
}

QRect GridView::OutlineMark(GridCell cell) const
{
    if (cell.col != grid.OutlineCol() || !HasDeeperRows(cell.row))
        return {};
    const QRect rect = CellRect(cell);
    if (rect.isEmpty())
        return {};
    return {rect.left() + 2 + outlineStep * grid.RowOutlineLevel(cell.row), rect.top(), outlineStep, rect.height()};
}

void GridView::PaintOutline(QPainter& painter, GridCell cell) const
{
    const QRect box = OutlineMark(cell);
    if (box.isEmpty())
        return;
    const QPointF at = QRectF(box).center();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Look::caption, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (grid.IsCollapsed(cell.row))
        painter.drawPolyline(QPolygonF({at + QPointF(-2, -4), at + QPointF(2, 0), at + QPointF(-2, 4)}));
    else
        painter.drawPolyline(QPolygonF({at + QPointF(-4, -2), at + QPointF(0, 2), at + QPointF(4, -2)}));
    painter.restore();
}

}
