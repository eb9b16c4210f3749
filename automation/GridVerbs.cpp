#include "automation/Desk.h"
#include "automation/RpcError.h"
#include "automation/Verbs.h"
#include "forms/Form.h"
#include "forms/Grid.h"
#include "values/Numbers.h"

#include <nlohmann/json.hpp>

namespace rovanta {

namespace {

struct Cell {
    Grid& grid;
    int row;
    int col;

    bool IsData() const { return row >= grid.FixedRows(); }
    bool IsCheckBox() const { return grid.ColDataType(col) == ColumnData::Boolean && grid.CanEdit(row, col); }
};

struct RowSpan {
    int first;
    int last;
};

}

static std::string Quoted(const Grid& grid)
{
    return "The grid \"" + grid.Name() + "\" of \"" + grid.Owner().Name() + "\"";
}

static int RowOf(const Grid& grid, const Parameters& parameters, const char* name)
{
    const int row = parameters.Number(name);
    if (row < 0 || row >= grid.Rows())
        throw BadParameters(Quoted(grid) + " has no row " + std::to_string(row) + ".");
    return row;
}

/// The cell that a call acts on; a grid that takes nothing from a person refuses.
static Cell NamedCell(Desk& desk, const Parameters& parameters)
{
    Grid& grid = NamedGrid(desk, parameters);
    const int row = RowOf(grid, parameters, "row");
    const int col = parameters.Number("col");
    if (col < 0 || col >= grid.Cols())
        throw BadParameters(Quoted(grid) + " has no column " + std::to_string(col) + ".");
    MustTakeInput(grid);
    return {grid, row, col};
}

static RowSpan WantedRows(const Grid& grid, const Parameters& parameters)
{
    if (!parameters.Has("rows"))
        return {0, grid.Rows() - 1};
    const Json& rows = parameters.Get("rows");
    const auto bound = [&](std::size_t index) {
        return rows.is_array() && rows.size() == 2 ? WholeNumber(rows[index]) : std::nullopt;
    };
    const std::optional<int> first = bound(0);
    const std::optional<int> last = bound(1);
    if (!first || !last)
        throw BadParameters("The parameter \"rows\" must be a list of two row numbers.");
    if (*first < 0 || *first > *last || *last >= grid.Rows())
        throw BadParameters(Quoted(grid) + " has no rows " + std::to_string(*first) + " to " + std::to_string(*last) +
                            ".");
    return {*first, *last};
}

/// A list of lists: what `read` tells of each cell of the rows.
template <class Reader>
static Json ReadCells(const Grid& grid, RowSpan span, Reader read)
{
    Json rows = Json::array();
    for (int row = span.first; row <= span.last; ++row) {
        Json cells = Json::array();
        for (int col = 0; col < grid.Cols(); ++col)
            cells.push_back(read(row, col));
        rows.push_back(std::move(cells));
    }
    return rows;
}

static Json ColorJson(std::optional<Color> color)
{
    return color ? Json(*color) : Json(nullptr);
}

static Json GetCells(Desk& desk, const Parameters& parameters)
{
    const Grid& grid = NamedGrid(desk, parameters);
    const RowSpan span = WantedRows(grid, parameters);
    const bool colors = parameters.Has("colors") && parameters.Flag("colors");
    Json result = {{"rows", grid.Rows()},           {"cols", grid.Cols()}, {"fixedRows", grid.FixedRows()},
                   {"fixedCols", grid.FixedCols()}, {"row", grid.Row()},   {"col", grid.Col()}};
    result["text"] = ReadCells(grid, span, [&](int row, int col) { return grid.DisplayText(row, col); });
    if (colors) {
        result["back"] = ReadCells(grid, span, [&](int row, int col) { return ColorJson(grid.BackColor(row, col)); });
        result["fore"] = ReadCells(grid, span, [&](int row, int col) { return ColorJson(grid.ForeColor(row, col)); });
    }
    return result;
}

static Json SetCell(Desk& desk, const Parameters& parameters)
{
    const auto [grid, row, col] = NamedCell(desk, parameters);
    const Json& value = parameters.Get("value");
    const bool checkBox = grid.ColDataType(col) == ColumnData::Boolean;
    const std::string text = checkBox ? ToText(TypedFlag(value, "value")) : TypedText(value, "value");
    if (grid.ReadOnly() || !grid.CanEdit(row, col))
        throw Refused(Quoted(grid) + " lets nobody edit the cell " + std::to_string(row) + ", " + std::to_string(col) +
                      ".");
    grid.Select(row, col);
    grid.Edit(row, col, text);
    return Json::object();
}

static Json SelectCell(Desk& desk, const Parameters& parameters)
{
    const Cell cell = NamedCell(desk, parameters);
    const int last = parameters.Has("rowTo") ? RowOf(cell.grid, parameters, "rowTo") : cell.row;
    if (!cell.IsData() || last < cell.grid.FixedRows())
        throw Refused(Quoted(cell.grid) + " keeps its headings from being selected.");
    cell.grid.SelectRows(cell.row, last, cell.col);
    return Json::object();
}

/// A press of the left button on a cell. Returns whether the grid still takes a second one.
static bool Press(const Cell& cell)
{
    Grid& grid = cell.grid;
    if (!FocusByMouse(grid))
        return false;
    grid.SetMouse(cell.row, cell.col);
    if (cell.IsData())
        grid.Select(cell.row, cell.col);
    if (cell.IsCheckBox() && !grid.ReadOnly())
        grid.Edit(cell.row, cell.col, ToText(!grid.IsTicked(cell.row, cell.col)));
    grid.Click.Fire();
    return grid.Owner().Visible() && grid.Owner().Enabled() && grid.Visible() && grid.Enabled();
}

static Json ClickCell(Desk& desk, const Parameters& parameters)
{
    Press(NamedCell(desk, parameters));
    return Json::object();
}

static Json DoubleClickCell(Desk& desk, const Parameters& parameters)
{
    const Cell cell = NamedCell(desk, parameters);
    if (Press(cell))
        cell.grid.DoubleClick.Fire();
    return Json::object();
}

static Json RightClickCell(Desk& desk, const Parameters& parameters)
{
    const Cell cell = NamedCell(desk, parameters);
    if (!FocusByMouse(cell.grid))
        return Json::object();
    cell.grid.SetMouse(cell.row, cell.col);
    cell.grid.RightClick.Fire();
    return Json::object();
}

static Json HoverOverCell(Desk& desk, const Parameters& parameters)
{
    const Cell cell = NamedCell(desk, parameters);
    cell.grid.SetMouse(cell.row, cell.col);
    cell.grid.MouseMove.Fire();
    return Json::object();
}

void AddGridVerbs(VerbTable& table)
{
    table["grid.cells"] = GetCells;
    table["grid.set"] = SetCell;
    table["grid.select"] = SelectCell;
    table["grid.click"] = ClickCell;
    table["grid.doubleClick"] = DoubleClickCell;
    table["grid.rightClick"] = RightClickCell;
    table["grid.hover"] = HoverOverCell;
}

}
