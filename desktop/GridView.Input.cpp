#include "desktop/GridView.h"

#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>

namespace rovanta {

void GridView::mousePressEvent(QMouseEvent* event)
{
    if (gone)
        return;
    const QPoint place = event->position().toPoint();
    const GridCell cell = CellAt(place);
    EndEdit(true);
    if (event->button() == Qt::LeftButton) {
        draggedEdge = EdgeAt(place);
        if (draggedEdge || !cell.IsSet())
            return;
        if (OutlineMark(cell).contains(place)) {
            ToggleFold(cell.row);
            return;
        }
        pressed = cell;
        Press(cell, event->modifiers());
    } else if (event->button() == Qt::RightButton) {
        act([&] {
            grid.SetFocus();
            grid.SetMouse(cell.row, cell.col);
            grid.RightClick.Fire();
        });
    }
}

void GridView::Press(GridCell cell, Qt::KeyboardModifiers keys)
{
    act([&] {
        grid.SetFocus();
        grid.SetMouse(cell.row, cell.col);
        if (cell.row < grid.FixedRows())
            return;
        if (keys & Qt::ShiftModifier && grid.HasCurrentRow())
            grid.SelectRows(grid.Row(), cell.row, grid.Col());
        else
            grid.Select(cell.row, cell.col);
    });
}

void GridView::mouseReleaseEvent(QMouseEvent* event)
{
    if (gone)
        return;
    draggedEdge.reset();
    if (event->button() != Qt::LeftButton || !pressed.IsSet())
        return;
    const GridCell cell = CellAt(event->position().toPoint());
    if (std::exchange(pressed, {}) != cell)
        return;
    // What the press has brought about (a message box of the box that was left) may have moved the rows.
    act([&] {
        if (cell.row >= grid.FixedRows() && grid.Row() != cell.row && grid.RowSel() != cell.row)
            return;
        grid.SetMouse(cell.row, cell.col);
        Toggle(cell);
        grid.Click.Fire();
    });
}

void GridView::mouseMoveEvent(QMouseEvent* event)
{
    if (gone)
        return;
    const QPoint place = event->position().toPoint();
    if (draggedEdge) {
        columns.Drag(*draggedEdge, place.x() - X(*draggedEdge));
        Refresh();
        return;
    }
    viewport()->setCursor(EdgeAt(place) ? Qt::SplitHCursor : Qt::ArrowCursor);
    const GridCell cell = CellAt(place);
    const bool spans =
        pressed.row >= grid.FixedRows() && pressed.IsSet() && cell.row >= grid.FixedRows() && cell.row != pressed.row;
    if (spans && event->buttons() & Qt::LeftButton) {
        act([&] { grid.SelectRows(pressed.row, cell.row, pressed.col); });
        return;
    }
    Hover(cell);
}

void GridView::Hover(GridCell cell)
{
    if (gone || cell == hovered)
        return;
    hovered = cell;
    viewport()->update();
    if (grid.MouseMove.IsWired()) {
        act([&] {
            grid.SetMouse(cell.row, cell.col);
            grid.MouseMove.Fire();
        });
    }
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (gone)
        return;
    const QPoint place = event->position().toPoint();
    if (event->button() != Qt::LeftButton)
        return;
    if (const auto edge = EdgeAt(place)) {
        columns.Forget(*edge);
        Refresh();
        return;
    }
    const GridCell cell = CellAt(place);
    if (!cell.IsSet() || OutlineMark(cell).contains(place))
        return;
    if (CanType(cell)) {
        Press(cell, {});
        BeginEdit(cell);
        return;
    }
    act([&] {
        grid.SetMouse(cell.row, cell.col);
        grid.DoubleClick.Fire();
    });
}

bool GridView::viewportEvent(QEvent* event)
{
    if (gone)
        return QAbstractScrollArea::viewportEvent(event);
    if (event->type() == QEvent::Leave)
        Hover({});
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const GridCell cell = CellAt(help->pos());
        QString text = QString::fromStdString(grid.ToolTipText());
        if (text.isEmpty() && cell.IsSet()) {
            const QString whole = QString::fromStdString(grid.DisplayText(cell.row, cell.col));
            if (fontMetrics().horizontalAdvance(whole) > columns.Width(cell.col) - 16)
                text = whole;
        }
        QToolTip::showText(help->globalPos(), text, viewport(), cell.IsSet() ? CellRect(cell) : QRect());
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

bool GridView::Toggle(GridCell cell)
{
    const bool tick = grid.CanEdit(cell.row, cell.col) && grid.ColDataType(cell.col) == ColumnData::Boolean &&
                      !grid.IsSubtotal(cell.row);
    if (tick)
        grid.Edit(cell.row, cell.col, grid.IsTicked(cell.row, cell.col) ? "False" : "True");
    return tick;
}

void GridView::ToggleFold(int row)
{
    act([&] {
        grid.SetFocus();
        grid.SetCollapsed(row, !grid.IsCollapsed(row));
    });
}

void GridView::MoveTo(int place, bool extend)
{
    if (shownRows.empty())
        return;
    const int last = static_cast<int>(shownRows.size()) - 1;
    const int row = shownRows[static_cast<std::size_t>(std::clamp(place, 0, last))];
    const int col = grid.Col() >= 0 ? grid.Col() : std::min(grid.FixedCols(), grid.Cols() - 1);
    act([&] {
        if (extend && grid.HasCurrentRow())
            grid.SelectRows(grid.Row(), row, col);
        else
            grid.Select(row, col);
    });
    ScrollTo({row, col});
}

void GridView::Move(int places, bool extend)
{
    const int from = PlaceOf(extend ? grid.RowSel() : grid.Row());
    MoveTo(from < 0 ? 0 : from + places, extend);
}

void GridView::MoveSideways(int step)
{
    if (!ShowsCellCursor()) {
        const bool folds = grid.OutlineCol() >= 0 && HasDeeperRows(grid.Row());
        if (folds && grid.IsCollapsed(grid.Row()) == (step > 0))
            ToggleFold(grid.Row());
        else
            horizontalScrollBar()->setValue(horizontalScrollBar()->value() + step * 48);
        return;
    }
    int col = grid.Col() + step;
    while (col >= grid.FixedCols() && col < grid.Cols() && columns.Width(col) == 0)
        col += step;
    if (col >= grid.FixedCols() && col < grid.Cols() && grid.HasCurrentRow())
        act([&] { grid.Select(grid.Row(), col); });
}

bool GridView::PressEnter()
{
    const bool twice = grid.DoubleClick.IsWired();
    if (!grid.HasCurrentRow() || (!twice && !grid.Click.IsWired()))
        return false;
    act([&] {
        grid.SetMouse(grid.Row(), std::max(0, grid.Col()));
        (twice ? grid.DoubleClick : grid.Click).Fire();
    });
    return true;
}

void GridView::CopySelection() const
{
    if (!grid.HasCurrentRow())
        return;
    QStringList lines;
    for (int row = std::min(grid.Row(), grid.RowSel()); row <= std::max(grid.Row(), grid.RowSel()); ++row) {
        QStringList cells;
        for (int col = 0; col < grid.Cols(); ++col) {
            if (!grid.ColHidden(col))
                cells += QString::fromStdString(grid.DisplayText(row, col));
        }
        lines += cells.join('\t');
    }
    QApplication::clipboard()->setText(lines.join('\n'));
}

bool GridView::MoveByKey(const QKeyEvent& key)
{
    const bool extend = key.modifiers() & Qt::ShiftModifier;
    const bool whole = key.modifiers() & Qt::ControlModifier || !ShowsCellCursor();
    switch (key.key()) {
    case Qt::Key_Up:
        Move(-1, extend);
        return true;
    case Qt::Key_Down:
        Move(1, extend);
        return true;
    case Qt::Key_PageUp:
        Move(-PageRows(), extend);
        return true;
    case Qt::Key_PageDown:
        Move(PageRows(), extend);
        return true;
    case Qt::Key_Left:
        MoveSideways(-1);
        return true;
    case Qt::Key_Right:
        MoveSideways(1);
        return true;
    case Qt::Key_Home:
    case Qt::Key_End: {
        const bool end = key.key() == Qt::Key_End;
        if (whole)
            MoveTo(end ? static_cast<int>(shownRows.size()) - 1 : 0, extend);
        else if (grid.HasCurrentRow())
            act([&] { grid.Select(grid.Row(), end ? grid.Cols() - 1 : grid.FixedCols()); });
        return true;
    }
    default:
        return false;
    }
}

bool GridView::TypeKey(const QKeyEvent& key)
{
    const GridCell current{grid.Row(), grid.Col()};
    if (key.key() == Qt::Key_F2 && CanType(current)) {
        BeginEdit(current);
        return true;
    }
    if (key.key() == Qt::Key_Space && current.IsSet()) {
        // In a list with check boxes the blank ticks the row, wherever the cursor stands in it.
        GridCell tick = current;
        for (int col = grid.FixedCols(); col < grid.Cols() && grid.ColDataType(tick.col) != ColumnData::Boolean; ++col)
            tick.col = grid.ColDataType(col) == ColumnData::Boolean ? col : tick.col;
        if (grid.CanEdit(tick.row, tick.col) && grid.ColDataType(tick.col) == ColumnData::Boolean) {
            act([&] { Toggle(tick); });
            return true;
        }
    }
    const bool character = !key.text().isEmpty() && key.text().at(0).isPrint() &&
                           !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (character && CanType(current)) {
        BeginEdit(current, key.text());
        return true;
    }
    return false;
}

void GridView::keyPressEvent(QKeyEvent* event)
{
    if (gone)
        return;
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->matches(QKeySequence::Copy))
        CopySelection();
    else if (!(MoveByKey(*event) || (enter && PressEnter()) || TypeKey(*event)))
        event->ignore();
}

void GridView::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    update();
    viewport()->update();
}

void GridView::focusOutEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusOutEvent(event);
    update();
    viewport()->update();
}

}
