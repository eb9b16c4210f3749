#include "forms/Grid.h"

#include "values/Format.h"
#include "values/Numbers.h"
#include "values/Text.h"

#include <algorithm>
#include <stdexcept>

namespace rovanta {

Grid::Grid(Form* form, std::string name, std::string caption, Visibility visibility)
    : Control(form, std::move(name), std::move(caption), visibility)
{
}

const Grid::RowEntry& Grid::RowAt(int index) const
{
    if (index < 0 || index >= Rows())
        throw std::logic_error("Grid " + Name() + ": no row " + std::to_string(index));
    return rows[static_cast<std::size_t>(index)];
}

Grid::RowEntry& Grid::RowAt(int index)
{
    return const_cast<RowEntry&>(std::as_const(*this).RowAt(index));
}

const Grid::ColumnEntry& Grid::ColumnAt(int index) const
{
    if (index < 0 || index >= Cols())
        throw std::logic_error("Grid " + Name() + ": no column " + std::to_string(index));
    return columns[static_cast<std::size_t>(index)];
}

Grid::ColumnEntry& Grid::ColumnAt(int index)
{
    return const_cast<ColumnEntry&>(std::as_const(*this).ColumnAt(index));
}

void Grid::SetRows(int count)
{
    if (count < 0)
        throw std::logic_error("Grid " + Name() + ": a negative number of rows");
    rows.resize(static_cast<std::size_t>(count));
    for (RowEntry& entry : rows)
        entry.cells.resize(columns.size());
    KeepCurrentInside();
    Changed();
}

void Grid::SetCols(int count)
{
    if (count < 0)
        throw std::logic_error("Grid " + Name() + ": a negative number of columns");
    columns.resize(static_cast<std::size_t>(count));
    for (RowEntry& entry : rows) {
        entry.cells.resize(columns.size());
        if (!entry.styles.empty())
            entry.styles.resize(columns.size());
    }
    KeepCurrentInside();
    Changed();
}

void Grid::SetFixedRows(int count)
{
    fixedRows = count;
    topRow = std::max(topRow, fixedRows);
    Changed();
}

void Grid::SetFixedCols(int count)
{
    fixedCols = count;
    leftCol = std::max(leftCol, fixedCols);
    Changed();
}

void Grid::SetFrozenCols(int count)
{
    frozenCols = count;
    Changed();
}

const std::string& Grid::TextMatrix(int textRow, int textCol) const
{
    ColumnAt(textCol);
    return RowAt(textRow).cells[static_cast<std::size_t>(textCol)];
}

void Grid::SetTextMatrix(int textRow, int textCol, const std::string& text)
{
    ColumnAt(textCol);
    RowAt(textRow).cells[static_cast<std::size_t>(textCol)] = text;
    Changed();
}

std::string Grid::DisplayText(int textRow, int textCol) const
{
    const RowEntry& entry = RowAt(textRow);
    const std::string& text = TextMatrix(textRow, textCol);
    if (textRow < fixedRows)
        return text;
    const std::string& picture = entry.picture.empty() ? ColumnAt(textCol).format : entry.picture;
    return FormatText(text, picture);
}

bool Grid::IsTicked(int textRow, int textCol) const
{
    const std::string& text = TextMatrix(textRow, textCol);
    return EqualNoCase(text, "True") || (IsNumeric(text) && CDbl(text) != 0);
}

void Grid::AddItem(std::string_view line, int before)
{
    AddCells(Split(line, '\t'), before);
}

void Grid::AddCells(std::vector<std::string> cells, int before)
{
    RowEntry entry;
    entry.cells = std::move(cells);
    entry.cells.resize(columns.size());
    if (before < 0 || before > Rows()) {
        rows.push_back(std::move(entry));
    } else {
        rows.insert(rows.begin() + before, std::move(entry));
        if (row >= before)
            ++row, ++rowSel;
    }
    Changed();
}

void Grid::RemoveItem(int index)
{
    RowAt(index);
    rows.erase(rows.begin() + index);
    KeepCurrentInside();
    Changed();
}

void Grid::MoveRow(int from, int to)
{
    RowAt(from);
    RowAt(to);
    RowEntry moved = std::move(rows[static_cast<std::size_t>(from)]);
    rows.erase(rows.begin() + from);
    rows.insert(rows.begin() + to, std::move(moved));
    Changed();
}

void Grid::KeepCurrentInside()
{
    row = std::min(row, Rows() - 1);
    rowSel = std::min(rowSel, Rows() - 1);
    col = std::min(col, Cols() - 1);
    mouseRow = std::min(mouseRow, Rows() - 1);
    mouseCol = std::min(mouseCol, Cols() - 1);
    topRow = std::clamp(topRow, 0, std::max(0, Rows() - 1));
    leftCol = std::clamp(leftCol, 0, std::max(0, Cols() - 1));
}

void Grid::SetColFormat(int index, std::string_view picture)
{
    ColumnAt(index).format = picture;
    Changed();
}

void Grid::SetColAlignment(int index, CellAlignment alignment)
{
    ColumnAt(index).alignment = alignment;
    Changed();
}

void Grid::SetFixedAlignment(int index, CellAlignment alignment)
{
    ColumnAt(index).fixedAlignment = alignment;
    Changed();
}

void Grid::SetColDataType(int index, ColumnData data)
{
    ColumnAt(index).data = data;
    Changed();
}

void Grid::SetColHidden(int index, bool hidden)
{
    ColumnAt(index).hidden = hidden;
    Changed();
}

void Grid::SetColWidth(int index, int twips)
{
    ColumnAt(index).width = twips;
    Changed();
}

void Grid::SetMergeCol(int index, bool merge)
{
    ColumnAt(index).merge = merge;
    Changed();
}

void Grid::AutoSize(int first, int last)
{
    for (int index = first; index <= last; ++index)
        ColumnAt(index).width = 0;
    Changed();
}

void Grid::SetMergeRow(int index, bool merge)
{
    RowAt(index).merge = merge;
    Changed();
}

void Grid::SetRowHidden(int index, bool hidden)
{
    RowAt(index).hidden = hidden;
    Changed();
}

void Grid::SetMergeCells(MergeMode mode)
{
    mergeCells = mode;
    Changed();
}

void Grid::SetRowData(int index, const std::string& data)
{
    RowAt(index).data = data;
}

void Grid::Select(int newRow, int newCol)
{
    SelectRows(newRow, newRow, newCol);
}

void Grid::SelectRows(int first, int last, int newCol)
{
    if (first != -1) {
        RowAt(first);
        RowAt(last);
        ColumnAt(newCol);
    }
    if (row == first && rowSel == last && col == newCol)
        return;
    row = first;
    rowSel = last;
    col = newCol;
    Changed();
    SelChange.Fire();
}

void Grid::SetMouse(int newRow, int newCol)
{
    mouseRow = newRow;
    mouseCol = newCol;
}

void Grid::SetToolTipText(const std::string& text)
{
    if (toolTip == text)
        return;
    toolTip = text;
    Changed();
}

void Grid::SetTopRow(int value)
{
    topRow = std::clamp(value, 0, std::max(0, Rows() - 1));
    Changed();
}

void Grid::SetLeftCol(int value)
{
    leftCol = std::clamp(value, 0, std::max(0, Cols() - 1));
    Changed();
}

void Grid::SetEditable(bool value)
{
    editable = value;
    Changed();
}

bool Grid::CanEdit(int editRow, int editCol) const
{
    return editable && Enabled() && editRow >= fixedRows && editRow < Rows() && editCol >= fixedCols &&
           editCol < Cols();
}

void Grid::Edit(int editRow, int editCol, const std::string& text)
{
    SetTextMatrix(editRow, editCol, text);
    AfterEdit.Fire(editRow, editCol);
}

}
