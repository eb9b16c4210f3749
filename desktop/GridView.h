#pragma once

#include "desktop/GridColumns.h"
#include "forms/Grid.h"

#include <QAbstractScrollArea>
#include <functional>
#include <optional>
#include <vector>

class QLineEdit;

namespace rovanta {

/// One cell, by its row and column in the grid.
struct GridCell {
    int row = -1;
    int col = -1;
    bool IsSet() const { return row >= 0 && col >= 0; }
    bool operator==(const GridCell&) const = default;
};

/// Paints a grid straight from its control: only the cells that are seen, with fixed and frozen parts, merged
/// neighbours, colours, outline marks, check boxes and editing in place.
class GridView : public QAbstractScrollArea {
public:
    using Act = std::function<void(const std::function<void()>&)>;

    /// `act` runs what a person does to the grid.
    GridView(Grid& grid, Act act);

    /// Draws from the grid anew.
    void Refresh();
    /// The grid is about to go: nothing is drawn or done from here on.
    void Forget() { gone = true; }

    /// Where a cell is seen in the viewport; empty when it is out of sight.
    QRect CellRect(GridCell cell) const;
    /// The cell at a place of the viewport.
    GridCell CellAt(QPoint place) const;
    QRect OutlineMark(GridCell cell) const;
    /// The box of the edit in place, or nullptr.
    QLineEdit* Editor() const { return editor; }

    /// The rows and the width that the layout would like to see, 0 for the usual.
    void Prefer(int rows, int width);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Cells that are painted under one clip: a corner, the headings, the fixed columns or the data.
    struct Region {
        std::vector<int> rows;
        std::vector<int> cols;
        QRect clip;
    };

    // Where things are.
    int RowHeight() const;
    int LockedCols() const;
    int LockedWidth() const;
    int HeadingHeight() const;
    int X(int col) const;
    /// The place of a row among those shown below the headings, -1 when it is not shown.
    int PlaceOf(int row) const;
    int PageRows() const;
    std::vector<int> SeenRows() const;
    std::vector<int> SeenCols() const;
    std::optional<int> EdgeAt(QPoint place) const;
    void UpdateScrollBars();
    void ScrollTo(GridCell cell);
    void ListRows();
    bool HasDeeperRows(int row) const;
    bool ShowsCellCursor() const;

    // Painting.
    void PaintRegion(QPainter& painter, const Region& region) const;
    QSize SpanAt(const Region& region, std::size_t rowAt, std::size_t colAt) const;
    void PaintCell(QPainter& painter, QRect rect, GridCell cell) const;
    void PaintText(QPainter& painter, QRect rect, GridCell cell) const;
    void PaintOutline(QPainter& painter, GridCell cell) const;
    Qt::Alignment AlignmentOf(GridCell cell) const;
    QColor FillOf(GridCell cell) const;
    bool IsFixed(GridCell cell) const;
    bool IsSelected(int row) const;

    // What a person does.
    void Press(GridCell cell, Qt::KeyboardModifiers keys);
    void Hover(GridCell cell);
    void Move(int places, bool extend);
    void MoveTo(int place, bool extend);
    void MoveSideways(int step);
    void ToggleFold(int row);
    bool Toggle(GridCell cell);
    bool PressEnter();
    void CopySelection() const;
    bool MoveByKey(const QKeyEvent& key);
    bool TypeKey(const QKeyEvent& key);

    // Editing in place.
    bool CanType(GridCell cell) const;
    void BeginEdit(GridCell cell, const QString& typed = {});
    void EndEdit(bool keep);
    void NextEdit(int step);

    Grid& grid;
    Act act;
    GridColumns columns;
    std::vector<int> fixedRows;
    std::vector<int> shownRows;
    int knownTopRow = -1;
    int knownLeftCol = -1;
    GridCell knownCurrent;
    GridCell hovered;
    GridCell pressed;
    std::optional<int> draggedEdge;
    QLineEdit* editor = nullptr;
    GridCell edited;
    bool gone = false;
    int preferredRows = 8;
    int preferredWidth = 480;
};

}
