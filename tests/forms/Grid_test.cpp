#include <doctest/doctest.h>

#include "forms/Grid.h"
#include "forms/Log.h"

#include <stdexcept>

using namespace rovanta;
using namespace rovanta::tests;

namespace {

/// A grid of four columns, the first fixed, with one heading and three rows.
struct Sample : Form {
    Sample() : Form("frm", "")
    {
        grid.SetCols(4);
        grid.SetRows(1);
        grid.SetFixedRows(1);
        grid.SetFixedCols(1);
        grid.AddItem("1\tCoach\t1400\t3/2/2026");
        grid.AddItem("2\tTrailer\t99.5");
        grid.AddItem("3\tTruck\t\tnever\tone too many");
        grid.SelChange = [this] { log("sel:" + std::to_string(grid.Row()) + "," + std::to_string(grid.Col())); };
        grid.AfterEdit = [this](int row, int col) { log("edit:" + grid.TextMatrix(row, col)); };
    }

    std::string Column(int col) const
    {
        std::string text;
        for (int row = 0; row < grid.Rows(); ++row)
            text += (row > 0 ? "," : "") + grid.TextMatrix(row, col);
        return text;
    }

    Log log;
    Grid grid{this, "vsfg"};
};

}

TEST_CASE("A row is added from its cells: missing ones are empty, surplus ones go")
{
    Sample form;
    CHECK(form.grid.Rows() == 4);
    CHECK(form.Column(1) == ",Coach,Trailer,Truck");
    CHECK(form.grid.TextMatrix(2, 3) == "");
    CHECK(form.grid.TextMatrix(3, 3) == "never");
    form.grid.AddItem("0\tFirst", 1);
    CHECK(form.Column(0) == ",0,1,2,3");
    form.grid.AddItem("9", 99);
    CHECK(form.Column(0) == ",0,1,2,3,9");
    form.grid.AddCells({"tab\tinside", "b"}, 1);
    CHECK(form.grid.TextMatrix(1, 0) == "tab\tinside");
    CHECK(form.grid.TextMatrix(1, 1) == "b");
}

TEST_CASE("Rows are removed and moved")
{
    Sample form;
    form.grid.RemoveItem(2);
    CHECK(form.Column(0) == ",1,3");
    form.grid.AddItem("4");
    form.grid.MoveRow(3, 1);
    CHECK(form.Column(0) == ",4,1,3");
    form.grid.MoveRow(1, 3);
    CHECK(form.Column(0) == ",1,3,4");
    CHECK_THROWS_AS(form.grid.RemoveItem(4), std::logic_error);
    CHECK_THROWS_AS(form.grid.RemoveItem(-1), std::logic_error);
    CHECK_THROWS_AS(form.grid.MoveRow(1, 4), std::logic_error);
    CHECK(form.grid.Rows() == 4);
}

TEST_CASE("The number of rows and columns can be set; what stays keeps its texts")
{
    Sample form;
    form.grid.SetRows(2);
    CHECK(form.Column(0) == ",1");
    form.grid.SetRows(3);
    CHECK(form.Column(0) == ",1,");
    form.grid.SetCols(2);
    CHECK_THROWS_AS(form.grid.TextMatrix(1, 2), std::logic_error);
    form.grid.SetCols(3);
    CHECK(form.grid.TextMatrix(1, 2) == "");
    CHECK(form.grid.TextMatrix(1, 1) == "Coach");
    CHECK_THROWS_AS(form.grid.SetRows(-1), std::logic_error);
    CHECK_THROWS_AS(form.grid.SetCols(-1), std::logic_error);
}

TEST_CASE("A cell beyond the grid is a mistake of the program")
{
    Sample form;
    CHECK_THROWS_AS(form.grid.TextMatrix(4, 0), std::logic_error);
    CHECK_THROWS_AS(form.grid.TextMatrix(-1, 0), std::logic_error);
    CHECK_THROWS_AS(form.grid.SetTextMatrix(0, 4, "x"), std::logic_error);
    CHECK_THROWS_AS(form.grid.DisplayText(9, 9), std::logic_error);
    CHECK_THROWS_AS(form.grid.ColFormat(4), std::logic_error);
    CHECK_THROWS_AS(form.grid.SetBackColor({1, 0, 1, 4}, 1), std::logic_error);
    CHECK_THROWS_AS(form.grid.Select(4, 0), std::logic_error);
    CHECK_THROWS_AS(form.grid.Select(1, 4), std::logic_error);
}

TEST_CASE("A cell is shown under the picture of its column, headings and other texts as they stand")
{
    Sample form;
    form.grid.SetTextMatrix(0, 2, "1000");
    form.grid.SetColFormat(2, "$#,###.##");
    form.grid.SetColFormat(3, "mm/dd/yyyy");
    CHECK(form.grid.DisplayText(1, 2) == "$1,400.");
    CHECK(form.grid.DisplayText(2, 2) == "$99.5");
    CHECK(form.grid.DisplayText(3, 2) == "");
    CHECK(form.grid.DisplayText(0, 2) == "1000");
    CHECK(form.grid.DisplayText(1, 3) == "03/02/2026");
    CHECK(form.grid.DisplayText(3, 3) == "never");
    CHECK(form.grid.TextMatrix(1, 2) == "1400");
}

TEST_CASE("A check box cell is ticked by the texts of true and by any number but 0")
{
    Sample form;
    for (const char* on : {"True", "true", "-1", "1", "2.5"}) {
        form.grid.SetTextMatrix(1, 1, on);
        CHECK(form.grid.IsTicked(1, 1));
    }
    for (const char* off : {"", "False", "0", "yes"}) {
        form.grid.SetTextMatrix(1, 1, off);
        CHECK_FALSE(form.grid.IsTicked(1, 1));
    }
}

TEST_CASE("Making a cell current fires once for a change")
{
    Sample form;
    CHECK(form.grid.Row() == -1);
    CHECK_FALSE(form.grid.HasCurrentRow());
    form.grid.Select(2, 1);
    form.grid.Select(2, 1);
    form.grid.Select(2, 3);
    CHECK(form.log.Take() == "sel:2,1 sel:2,3");
    CHECK(form.grid.HasCurrentRow());
    form.grid.SelectRows(1, 3, 0);
    CHECK(form.grid.Row() == 1);
    CHECK(form.grid.RowSel() == 3);
    form.grid.Select(0, 0);
    CHECK_FALSE(form.grid.HasCurrentRow());
    form.grid.Select(-1, -1);
    CHECK(form.grid.Row() == -1);
}

TEST_CASE("The current cell stays inside when rows go, and follows its row when one comes before it")
{
    Sample form;
    form.grid.Select(2, 1);
    form.grid.AddItem("0", 1);
    CHECK(form.grid.Row() == 3);
    CHECK(form.grid.TextMatrix(form.grid.Row(), 0) == "2");
    form.grid.AddItem("1b", 3);
    CHECK(form.grid.TextMatrix(form.grid.Row(), 0) == "2");
    form.grid.AddItem("3b", 5);
    CHECK(form.grid.Row() == 4);
    form.grid.SetRows(2);
    CHECK(form.grid.Row() == 1);
    form.grid.RemoveItem(1);
    CHECK_FALSE(form.grid.HasCurrentRow());
    form.grid.SetCols(1);
    CHECK(form.grid.Col() == 0);
    form.grid.SetRows(0);
    CHECK(form.grid.Row() == -1);
}

TEST_CASE("Colours and weight belong to cells and go with their rows")
{
    Sample form;
    CHECK_FALSE(form.grid.BackColor(1, 1));
    form.grid.SetBackColor({1, 1, 2, 2}, 0xFFC0FF);
    form.grid.SetForeColor({2, 3, 2, 3}, 0x0000FF);
    form.grid.SetBold({1, 0, 1, 0}, true);
    CHECK(form.grid.BackColor(1, 1) == 0xFFC0FFu);
    CHECK(form.grid.BackColor(2, 2) == 0xFFC0FFu);
    CHECK_FALSE(form.grid.BackColor(1, 3));
    CHECK_FALSE(form.grid.BackColor(3, 1));
    CHECK(form.grid.ForeColor(2, 3) == 0x0000FFu);
    CHECK(form.grid.Bold(1, 0));
    CHECK_FALSE(form.grid.Bold(1, 1));
    form.grid.RemoveItem(1);
    CHECK(form.grid.ForeColor(1, 3) == 0x0000FFu);
    form.grid.SetBackColor({1, 1, 1, 1}, std::nullopt);
    CHECK_FALSE(form.grid.BackColor(1, 1));
    form.grid.SetCols(6);
    CHECK_FALSE(form.grid.BackColor(1, 5));
}

TEST_CASE("A subtotal stands below the data or right behind the headings and sums the data rows alone")
{
    Sample form;
    form.grid.Select(2, 1);
    form.grid.Subtotal("Total", {2}, "$#,##0.00", 0xC0C0C0, SubtotalPlace::Below);
    CHECK(form.grid.Rows() == 5);
    CHECK(form.grid.IsSubtotal(4));
    CHECK(form.grid.TextMatrix(4, 0) == "Total");
    CHECK(form.grid.TextMatrix(4, 2) == "1499.5");
    CHECK(form.grid.DisplayText(4, 2) == "$1,499.50");
    CHECK(form.grid.BackColor(4, 3) == 0xC0C0C0u);
    CHECK(form.grid.Row() == 2);
    form.grid.Subtotal("Sum", {0, 2}, "", 0xFFFFFF, SubtotalPlace::Above);
    CHECK(form.grid.IsSubtotal(1));
    CHECK(form.grid.TextMatrix(1, 0) == "6");
    CHECK(form.grid.TextMatrix(1, 1) == "Sum");
    CHECK(form.grid.TextMatrix(1, 2) == "1499.5");
    CHECK(form.grid.Row() == 3);
    CHECK_FALSE(form.grid.IsSubtotal(2));
    CHECK_THROWS_AS(form.grid.Subtotal("x", {9}, "", 0, SubtotalPlace::Below), std::logic_error);
}

TEST_CASE("A subtotal of no rows is zero")
{
    Sample form;
    form.grid.SetRows(1);
    form.grid.Subtotal("Total", {2}, "$#,###.##", 0, SubtotalPlace::Below);
    CHECK(form.grid.TextMatrix(1, 2) == "0");
    CHECK(form.grid.DisplayText(1, 2) == "$.");
}

TEST_CASE("A folded row hides its deeper followers, whatever is folded among them")
{
    Sample form;
    form.grid.SetRows(1);
    for (const int level : {0, 1, 2, 1, 0, 1}) {
        form.grid.AddItem(std::to_string(level));
        form.grid.SetRowOutlineLevel(form.grid.Rows() - 1, level);
    }
    const auto shown = [&] {
        std::string rows;
        for (int row = 0; row < form.grid.Rows(); ++row)
            rows += form.grid.IsRowShown(row) ? "x" : ".";
        return rows;
    };
    form.grid.SetOutlineCol(0);
    CHECK(form.grid.OutlineCol() == 0);
    CHECK(shown() == "xxxxxxx");
    form.grid.SetCollapsed(2, true);
    CHECK(shown() == "xxx.xxx");
    form.grid.SetCollapsed(1, true);
    CHECK(shown() == "xx...xx");
    CHECK(form.grid.IsCollapsed(2));
    form.grid.SetCollapsed(1, false);
    CHECK(shown() == "xxx.xxx");
    form.grid.SetRowHidden(6, true);
    CHECK(shown() == "xxx.xx.");
    CHECK(form.grid.RowHidden(6));
}

TEST_CASE("A cell can be edited in an enabled grid of cells to edit, headings and fixed columns never")
{
    Sample form;
    CHECK_FALSE(form.grid.CanEdit(1, 1));
    form.grid.SetEditable(true);
    CHECK(form.grid.CanEdit(1, 1));
    CHECK_FALSE(form.grid.CanEdit(0, 1));
    CHECK_FALSE(form.grid.CanEdit(1, 0));
    CHECK_FALSE(form.grid.CanEdit(4, 1));
    CHECK_FALSE(form.grid.CanEdit(1, 4));
    form.grid.SetEnabled(false);
    CHECK_FALSE(form.grid.CanEdit(1, 1));
    form.grid.Edit(1, 1, "new");
    CHECK(form.log.Take() == "edit:new");
    form.grid.SetTextMatrix(1, 1, "by the program");
    CHECK(form.log.Take() == "");
}

TEST_CASE("What a screen sets of rows and columns can be read back")
{
    Sample form;
    Grid& grid = form.grid;
    grid.SetColAlignment(1, CellAlignment::Right);
    grid.SetFixedAlignment(1, CellAlignment::Center);
    grid.SetColDataType(1, ColumnData::Boolean);
    grid.SetColHidden(1, true);
    grid.SetColWidth(1, 1440);
    grid.SetMergeCol(1, true);
    grid.SetMergeRow(2, true);
    grid.SetMergeCells(MergeMode::FixedOnly);
    grid.SetFrozenCols(1);
    grid.SetRowData(2, "17:3");
    CHECK(grid.ColAlignment(1) == CellAlignment::Right);
    CHECK(grid.FixedAlignment(1) == CellAlignment::Center);
    CHECK(grid.ColDataType(1) == ColumnData::Boolean);
    CHECK(grid.ColHidden(1));
    CHECK(grid.ColWidth(1) == 1440);
    CHECK(grid.MergeCol(1));
    CHECK(grid.MergeRow(2));
    CHECK_FALSE(grid.MergeRow(1));
    CHECK(grid.MergeCells() == MergeMode::FixedOnly);
    CHECK(grid.FrozenCols() == 1);
    grid.AddItem("0", 1);
    CHECK(grid.RowData(3) == "17:3");
    CHECK(grid.MergeRow(3));
    grid.AutoSize(0, 3);
    CHECK(grid.ColWidth(1) == 0);
    CHECK_THROWS_AS(grid.AutoSize(0, 4), std::logic_error);
}

TEST_CASE("Scrolling stays inside the grid and behind the fixed rows and columns")
{
    Sample form;
    CHECK(form.grid.TopRow() == 1);
    CHECK(form.grid.LeftCol() == 1);
    form.grid.SetTopRow(99);
    CHECK(form.grid.TopRow() == 3);
    form.grid.SetLeftCol(-5);
    CHECK(form.grid.LeftCol() == 0);
    form.grid.SetRows(2);
    CHECK(form.grid.TopRow() == 1);
}

TEST_CASE("The mouse and the printer are told to whoever listens")
{
    Sample form;
    CHECK(form.grid.MouseRow() == -1);
    form.grid.SetMouse(2, 3);
    CHECK(form.grid.MouseRow() == 2);
    CHECK(form.grid.MouseCol() == 3);
    form.grid.SetRows(2);
    CHECK(form.grid.MouseRow() == 1);
    form.grid.SetToolTipText("Nashville");
    CHECK(form.grid.ToolTipText() == "Nashville");
    form.grid.PrintGrid({"Nobody listens", false, 0});
    form.grid.Print = [&](const GridPrint& job) { form.log(job.title + (job.landscape ? ":landscape" : "")); };
    form.grid.PrintGrid({"Board", true, 360});
    CHECK(form.log.Take() == "Board:landscape");
}
