#include "desktop/GridView.h"

#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>

namespace rovanta {

bool GridView::CanType(GridCell cell) const
{
    return !gone && cell.IsSet() && grid.CanEdit(cell.row, cell.col) && !grid.ReadOnly() &&
           grid.ColDataType(cell.col) == ColumnData::Text && !grid.IsSubtotal(cell.row) && !grid.ColHidden(cell.col);
}

void GridView::BeginEdit(GridCell cell, const QString& typed)
{
    EndEdit(true);
    if (!CanType(cell))
        return;
    ScrollTo(cell);
    edited = cell;
    editor = new QLineEdit(viewport());
    editor->setObjectName("editor");
    editor->setFrame(false);
    editor->setAutoFillBackground(true);
    editor->setAlignment(AlignmentOf(cell));
    editor->setText(typed.isEmpty() ? QString::fromStdString(grid.TextMatrix(cell.row, cell.col)) : typed);
    editor->setGeometry(CellRect(cell).adjusted(1, 1, -1, -1));
    editor->installEventFilter(this);
    editor->show();
    editor->setFocus(Qt::OtherFocusReason);
    if (typed.isEmpty())
        editor->selectAll();
}

void GridView::EndEdit(bool keep)
{
    QLineEdit* ended = std::exchange(editor, nullptr);
    if (!ended)
        return;
    const std::string text = ended->text().toStdString();
    const bool hadFocus = ended->hasFocus();
    ended->removeEventFilter(this);
    ended->hide();
    ended->deleteLater();
    if (hadFocus)
        setFocus(Qt::OtherFocusReason);
    if (keep && CanType(edited) && text != grid.TextMatrix(edited.row, edited.col))
        act([&] { grid.Edit(edited.row, edited.col, text); });
}

void GridView::NextEdit(int step)
{
    const GridCell from = edited;
    EndEdit(true);
    if (gone)
        return;
    for (GridCell next{from.row, from.col + step}; next.col >= 0 && next.col < grid.Cols(); next.col += step) {
        if (!CanType(next))
            continue;
        act([&] { grid.Select(next.row, next.col); });
        BeginEdit(next);
        return;
    }
}

bool GridView::eventFilter(QObject* watched, QEvent* event)
{
    if (!editor || watched != editor)
        return QAbstractScrollArea::eventFilter(watched, event);
    if (event->type() == QEvent::FocusOut && static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
        EndEdit(true);
        return false;
    }
    if (event->type() != QEvent::KeyPress)
        return false;
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        EndEdit(true);
        return true;
    case Qt::Key_Escape:
        EndEdit(false);
        return true;
    case Qt::Key_Tab:
        NextEdit(1);
        return true;
    case Qt::Key_Backtab:
        NextEdit(-1);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        EndEdit(true);
        return QAbstractScrollArea::eventFilter(watched, event);
    default:
        return false;
    }
}

}
