#pragma once

#include "forms/Control.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rovanta {

/// A colour as the office's tables give it: 0xBBGGRR.
using Color = std::uint32_t;

enum class CellAlignment { General, Left, Center, Right };
enum class ColumnData { Text, Boolean };
/// Which equal neighbours show as one cell: none, all of the rows and columns marked for it, or the fixed ones alone.
enum class MergeMode { Never, Free, FixedOnly };
/// Where Subtotal puts its row.
enum class SubtotalPlace { Above, Below };

struct GridRange {
    int row1 = 0;
    int col1 = 0;
    int row2 = 0;
    int col2 = 0;
};

/// How a grid goes to the printer.
struct GridPrint {
    std::string title;
    bool landscape = false;
    int marginTwips = 0;
};

/// A grid of text cells: rows and columns counted from 0, the first of them fixed as headings.
/// Every cell holds a plain text; a column's picture tells how it is shown. Rows can be an outline by their level.
/// A row or column beyond the grid throws std::logic_error, unless a routine says otherwise.
class Grid : public Control {
public:
    Grid(Form* form, std::string name, std::string caption = {}, Visibility visibility = Visibility::Shown);
    ControlKind Kind() const override { return ControlKind::Grid; }

    int Rows() const { return static_cast<int>(rows.size()); }
    /// Cuts rows from the end or adds empty ones.
    void SetRows(int count);
    int Cols() const { return static_cast<int>(columns.size()); }
    void SetCols(int count);
    int FixedRows() const { return fixedRows; }
    void SetFixedRows(int count);
    int FixedCols() const { return fixedCols; }
    void SetFixedCols(int count);
    /// Columns behind the fixed ones that do not scroll.
    int FrozenCols() const { return frozenCols; }
    void SetFrozenCols(int count);

    /// The plain text of a cell.
    const std::string& TextMatrix(int row, int col) const;
    void SetTextMatrix(int row, int col, const std::string& text);
    /// The text of a cell as it is shown, under its column's picture.
    std::string DisplayText(int row, int col) const;
    /// Whether a check box cell is ticked: the texts of true, and any number but 0.
    bool IsTicked(int row, int col) const;

    /// Adds a row of tab-separated cells at the end or before `row`.
    void AddItem(std::string_view line, int row = -1);
    /// The same with the cells as they are, tabs and all.
    void AddCells(std::vector<std::string> cells, int row = -1);
    void RemoveItem(int row);
    void MoveRow(int from, int to);

    const std::string& ColFormat(int col) const { return ColumnAt(col).format; }
    void SetColFormat(int col, std::string_view picture);
    CellAlignment ColAlignment(int col) const { return ColumnAt(col).alignment; }
    void SetColAlignment(int col, CellAlignment alignment);
    CellAlignment FixedAlignment(int col) const { return ColumnAt(col).fixedAlignment; }
    void SetFixedAlignment(int col, CellAlignment alignment);
    ColumnData ColDataType(int col) const { return ColumnAt(col).data; }
    void SetColDataType(int col, ColumnData data);
    bool ColHidden(int col) const { return ColumnAt(col).hidden; }
    void SetColHidden(int col, bool hidden);
    /// In twips; 0 leaves the width to the shell, which fits it to the texts.
    int ColWidth(int col) const { return ColumnAt(col).width; }
    void SetColWidth(int col, int twips);
    bool MergeCol(int col) const { return ColumnAt(col).merge; }
    void SetMergeCol(int col, bool merge);
    /// Fits the widths of the columns to their texts.
    void AutoSize(int first, int last);

    bool MergeRow(int row) const { return RowAt(row).merge; }
    void SetMergeRow(int row, bool merge);
    bool RowHidden(int row) const { return RowAt(row).hidden; }
    void SetRowHidden(int row, bool hidden);
    MergeMode MergeCells() const { return mergeCells; }
    void SetMergeCells(MergeMode mode);

    /// Colours and weight of a range; nothing gives the colour back to the shell.
    void SetBackColor(GridRange range, std::optional<Color> color);
    void SetForeColor(GridRange range, std::optional<Color> color);
    void SetBold(GridRange range, bool bold);
    std::optional<Color> BackColor(int row, int col) const;
    std::optional<Color> ForeColor(int row, int col) const;
    bool Bold(int row, int col) const;

    /// Adds a row that bears `caption` in the first column that is not summed and, for each of `sumCols`, the sum of
    /// all data rows under `picture`. Above stands right behind the headings.
    void Subtotal(const std::string& caption, const std::vector<int>& sumCols, std::string_view picture, Color back,
                  SubtotalPlace place);
    bool IsSubtotal(int row) const { return RowAt(row).subtotal; }

    /// Outline: the level of a row (0 outermost) and whether its deeper followers are folded away.
    int RowOutlineLevel(int row) const { return RowAt(row).level; }
    void SetRowOutlineLevel(int row, int level);
    bool IsCollapsed(int row) const { return RowAt(row).collapsed; }
    void SetCollapsed(int row, bool collapsed);
    /// Whether a row is seen: neither hidden nor below a folded one.
    bool IsRowShown(int row) const;
    /// The column that carries the outline's marks, -1 for none.
    int OutlineCol() const { return outlineCol; }
    void SetOutlineCol(int col);

    /// A text that a screen keeps with a row, never shown.
    const std::string& RowData(int row) const { return RowAt(row).data; }
    void SetRowData(int row, const std::string& data);

    /// The current cell; -1 when there is none. Selecting another fires SelChange.
    int Row() const { return row; }
    int Col() const { return col; }
    /// The other end of the selected span of rows.
    int RowSel() const { return rowSel; }
    void Select(int newRow, int newCol);
    void SelectRows(int first, int last, int newCol);
    /// Whether the current row is a data row.
    bool HasCurrentRow() const { return row >= fixedRows && row < Rows(); }

    /// The cell under the mouse, -1 outside.
    int MouseRow() const { return mouseRow; }
    int MouseCol() const { return mouseCol; }
    void SetMouse(int newRow, int newCol);
    const std::string& ToolTipText() const { return toolTip; }
    void SetToolTipText(const std::string& text);

    /// The first scrolling row and column in sight.
    int TopRow() const { return topRow; }
    void SetTopRow(int value);
    int LeftCol() const { return leftCol; }
    void SetLeftCol(int value);

    /// Whether a person may edit cells in place. Check box columns of an editable grid take a click.
    bool Editable() const { return editable; }
    void SetEditable(bool value);
    bool CanEdit(int editRow, int editCol) const;
    /// A person has entered a text into a cell: stores it and fires AfterEdit.
    void Edit(int editRow, int editCol, const std::string& text);

    /// Draws the grid anew.
    void Refresh() { Changed(); }
    /// Sends the grid to the printer through whoever listens to Print.
    void PrintGrid(const GridPrint& job) { Print.Fire(job); }

    Event Click;
    Event DoubleClick;
    /// A press of the right button, with MouseRow and MouseCol set.
    Event RightClick;
    Event MouseMove;
    Event SelChange;
    EventOf<int, int> AfterEdit;
    EventOf<const GridPrint&> Print;

private:
    struct Style {
        std::optional<Color> back;
        std::optional<Color> fore;
        bool bold = false;
    };
    struct RowEntry {
        std::vector<std::string> cells;
        std::vector<Style> styles; // empty until a cell of the row is coloured
        std::string picture;       // a subtotal row's own
        std::string data;
        int level = 0;
        bool collapsed = false;
        bool subtotal = false;
        bool merge = false;
        bool hidden = false;
    };
    struct ColumnEntry {
        std::string format;
        CellAlignment alignment = CellAlignment::General;
        CellAlignment fixedAlignment = CellAlignment::General;
        ColumnData data = ColumnData::Text;
        int width = 0;
        bool hidden = false;
        bool merge = false;
    };

    const RowEntry& RowAt(int index) const;
    RowEntry& RowAt(int index);
    const ColumnEntry& ColumnAt(int index) const;
    ColumnEntry& ColumnAt(int index);
    template <class Setter>
    void StyleRange(GridRange range, Setter set);
    const Style* StyleAt(int styleRow, int styleCol) const;
    void KeepCurrentInside();

    std::vector<RowEntry> rows;
    std::vector<ColumnEntry> columns;
    int fixedRows = 0;
    int fixedCols = 0;
    int frozenCols = 0;
    MergeMode mergeCells = MergeMode::Never;
    int outlineCol = -1;
    int row = -1;
    int col = -1;
    int rowSel = -1;
    int mouseRow = -1;
    int mouseCol = -1;
    int topRow = 0;
    int leftCol = 0;
    bool editable = false;
    std::string toolTip;
};

}
