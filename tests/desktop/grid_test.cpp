#include "desktop/GridView.h"
#include "forms/Form.h"

#include <QApplication>
#include <QClipboard>
#include <QColor>
#include <QElapsedTimer>
#include <QEvent>
#include <QHelpEvent>
#include <QImage>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <QtTest/QTest>

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace rovanta;

namespace {

/// A grid of three data rows in a window of its own, with what it tells.
struct Sheet {
    explicit Sheet(int rows = 3) : form("frmSheet", "Sheet"), grid(&form, "vsfgList")
    {
        grid.SetCols(4);
        grid.SetRows(1);
        grid.SetFixedRows(1);
        for (int col = 0; col < 4; ++col)
            grid.SetTextMatrix(0, col, std::string("Caption ") + static_cast<char>('A' + col));
        for (int row = 1; row <= rows; ++row)
            grid.AddItem("r" + std::to_string(row) + "\tText\t" + std::to_string(row * 100) + "\tFalse");
        grid.SetColFormat(2, "$#,##0.00");
        grid.SetColDataType(3, ColumnData::Boolean);
        grid.Click = [this] { log.push_back("click"); };
        grid.SelChange = [this] { log.push_back("select " + std::to_string(grid.Row())); };
        grid.AfterEdit = [this](int row, int col) { log.push_back("edit " + grid.TextMatrix(row, col)); };
        view = std::make_unique<GridView>(grid, [this](const std::function<void()>& act) {
            if (!grid.Enabled())
                return;
            act();
            view->Refresh();
        });
        view->resize(600, 260);
        view->show();
        view->activateWindow();
        REQUIRE(QTest::qWaitForWindowActive(view.get()));
        view->setFocus();
    }

    QPoint Place(int row, int col) const { return view->CellRect({row, col}).center(); }
    void Click(int row, int col, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, keys, Place(row, col));
    }
    QColor Pixel(int row, int col) const
    {
        const QRect rect = view->CellRect({row, col});
        const QImage image = view->viewport()->grab().toImage();
        const qreal scale = image.devicePixelRatio();
        return image.pixelColor(((QPointF(rect.topLeft()) + QPointF(2, 2)) * scale).toPoint());
    }

    Form form;
    Grid grid;
    std::unique_ptr<GridView> view;
    std::vector<std::string> log;
};

}

TEST_CASE("A click selects the cell and fires Click, once for each")
{
    Sheet sheet;
    sheet.Click(2, 1);
    CHECK(sheet.grid.Row() == 2);
    CHECK(sheet.grid.Col() == 1);
    CHECK(sheet.grid.MouseRow() == 2);
    CHECK(sheet.log == std::vector<std::string>{"select 2", "click"});
}

TEST_CASE("A click on a heading selects nothing and tells where the mouse is")
{
    Sheet sheet;
    sheet.Click(0, 1);
    CHECK(sheet.grid.Row() == -1);
    CHECK(sheet.grid.MouseRow() == 0);
    CHECK(sheet.log == std::vector<std::string>{"click"});
}

TEST_CASE("Rows are walked by the arrow, Page, Home and End keys")
{
    Sheet sheet(100);
    QTest::keyClick(sheet.view.get(), Qt::Key_Down);
    CHECK(sheet.grid.Row() == 1);
    QTest::keyClick(sheet.view.get(), Qt::Key_Down);
    CHECK(sheet.grid.Row() == 2);
    QTest::keyClick(sheet.view.get(), Qt::Key_Up);
    QTest::keyClick(sheet.view.get(), Qt::Key_Up);
    CHECK(sheet.grid.Row() == 1);
    QTest::keyClick(sheet.view.get(), Qt::Key_End);
    CHECK(sheet.grid.Row() == 100);
    CHECK_FALSE(sheet.view->CellRect({100, 0}).isEmpty());
    CHECK(sheet.view->CellRect({1, 0}).isEmpty());
    QTest::keyClick(sheet.view.get(), Qt::Key_PageUp);
    CHECK(sheet.grid.Row() < 100);
    QTest::keyClick(sheet.view.get(), Qt::Key_Home);
    CHECK(sheet.grid.Row() == 1);
}

TEST_CASE("Shift spans rows, by the mouse and by the keys")
{
    Sheet sheet;
    sheet.Click(1, 0);
    sheet.Click(3, 0, Qt::ShiftModifier);
    CHECK(sheet.grid.Row() == 1);
    CHECK(sheet.grid.RowSel() == 3);
    QTest::keyClick(sheet.view.get(), Qt::Key_Up, Qt::ShiftModifier);
    CHECK(sheet.grid.Row() == 1);
    CHECK(sheet.grid.RowSel() == 2);
    QTest::keyClick(sheet.view.get(), Qt::Key_C, Qt::ControlModifier);
    CHECK(QApplication::clipboard()->text() == "r1\tText\t$100.00\tFalse\nr2\tText\t$200.00\tFalse");
}

TEST_CASE("Enter does what a double click does")
{
    Sheet sheet;
    int opened = 0;
    sheet.grid.DoubleClick = [&] { opened = sheet.grid.MouseRow(); };
    sheet.Click(3, 0);
    QTest::keyClick(sheet.view.get(), Qt::Key_Return);
    CHECK(opened == 3);
    QTest::mouseDClick(sheet.view->viewport(), Qt::LeftButton, {}, sheet.Place(2, 0));
    CHECK(opened == 2);
}

TEST_CASE("A grid that nobody may edit takes neither letters nor ticks")
{
    Sheet sheet;
    sheet.Click(1, 3);
    QTest::keyClick(sheet.view.get(), Qt::Key_Space);
    QTest::keyClicks(sheet.view.get(), "abc");
    QTest::keyClick(sheet.view.get(), Qt::Key_F2);
    CHECK(sheet.view->Editor() == nullptr);
    CHECK(sheet.grid.TextMatrix(1, 3) == "False");
    CHECK(sheet.grid.TextMatrix(1, 1) == "Text");
}

TEST_CASE("A check box takes a click and the blank key, wherever the cursor stands in its row")
{
    Sheet sheet;
    sheet.grid.SetEditable(true);
    sheet.Click(1, 3);
    CHECK(sheet.grid.TextMatrix(1, 3) == "True");
    sheet.Click(2, 0);
    QTest::keyClick(sheet.view.get(), Qt::Key_Space);
    CHECK(sheet.grid.TextMatrix(2, 3) == "True");
    QTest::keyClick(sheet.view.get(), Qt::Key_Space);
    CHECK(sheet.grid.TextMatrix(2, 3) == "False");
    CHECK(sheet.log.back() == "edit False");
}

TEST_CASE("A cell is edited in place: typing replaces, F2 changes, Enter keeps, Escape drops")
{
    Sheet sheet;
    sheet.grid.SetEditable(true);
    sheet.Click(1, 1);
    QTest::keyClicks(sheet.view.get(), "N");
    REQUIRE(sheet.view->Editor());
    QTest::keyClicks(sheet.view->Editor(), "ew");
    QTest::keyClick(sheet.view->Editor(), Qt::Key_Return);
    CHECK(sheet.view->Editor() == nullptr);
    CHECK(sheet.grid.TextMatrix(1, 1) == "New");
    CHECK(sheet.log.back() == "edit New");
    QTest::keyClick(sheet.view.get(), Qt::Key_F2);
    REQUIRE(sheet.view->Editor());
    QTest::keyClicks(sheet.view->Editor(), "x");
    QTest::keyClick(sheet.view->Editor(), Qt::Key_Escape);
    CHECK(sheet.grid.TextMatrix(1, 1) == "New");
}

TEST_CASE("The Tab key goes from cell to cell while editing, and going elsewhere keeps the text")
{
    Sheet sheet;
    sheet.grid.SetEditable(true);
    QTest::mouseClick(sheet.view->viewport(), Qt::LeftButton, {}, sheet.Place(1, 0));
    QTest::mouseDClick(sheet.view->viewport(), Qt::LeftButton, {}, sheet.Place(1, 0));
    REQUIRE(sheet.view->Editor());
    QTest::keyClicks(sheet.view->Editor(), "one");
    QTest::keyClick(sheet.view->Editor(), Qt::Key_Tab);
    REQUIRE(sheet.view->Editor());
    CHECK(sheet.grid.TextMatrix(1, 0) == "one");
    CHECK(sheet.grid.Col() == 1);
    QTest::keyClicks(sheet.view->Editor(), "two");
    sheet.Click(3, 0);
    CHECK(sheet.view->Editor() == nullptr);
    CHECK(sheet.grid.TextMatrix(1, 1) == "two");
}

TEST_CASE("A disabled grid takes nothing")
{
    Sheet sheet;
    sheet.grid.SetEditable(true);
    sheet.grid.SetEnabled(false);
    sheet.Click(1, 3);
    QTest::keyClick(sheet.view.get(), Qt::Key_Down);
    CHECK(sheet.log.empty());
    CHECK(sheet.grid.Row() == -1);
    CHECK(sheet.grid.TextMatrix(1, 3) == "False");
}

TEST_CASE("The right button tells its cell and leaves the selection to the screen")
{
    Sheet sheet;
    int pressed = -1;
    sheet.grid.RightClick = [&] { pressed = sheet.grid.MouseRow(); };
    QTest::mouseClick(sheet.view->viewport(), Qt::RightButton, {}, sheet.Place(2, 1));
    CHECK(pressed == 2);
    CHECK(sheet.grid.Row() == -1);
}

TEST_CASE("The mouse that moves tells each new cell once, and that it has gone")
{
    Sheet sheet;
    std::vector<int> rows;
    sheet.grid.MouseMove = [&] { rows.push_back(sheet.grid.MouseRow()); };
    QWidget* viewport = sheet.view->viewport();
    // The events go to the view alone: a display's own pointer would come and go in between as it likes.
    const auto move = [&](QPoint place) {
        QMouseEvent event(QEvent::MouseMove, place, viewport->mapToGlobal(place), Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(viewport, &event);
    };
    move(sheet.Place(1, 1));
    move(sheet.Place(1, 1) + QPoint(2, 0));
    move(sheet.Place(2, 1));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(viewport, &leave);
    CHECK(rows == std::vector<int>{1, 2, -1});
}

TEST_CASE("Hidden rows and columns are not there for the eye")
{
    Sheet sheet;
    sheet.grid.SetRowHidden(2, true);
    sheet.grid.SetColHidden(1, true);
    sheet.view->Refresh();
    CHECK(sheet.view->CellRect({2, 0}).isEmpty());
    CHECK(sheet.view->CellRect({1, 1}).isEmpty());
    sheet.Click(1, 0);
    QTest::keyClick(sheet.view.get(), Qt::Key_Down);
    CHECK(sheet.grid.Row() == 3);
    CHECK(sheet.view->CellAt(sheet.Place(3, 2)) == GridCell{3, 2});
}

TEST_CASE("Fixed and frozen columns stay while the others scroll")
{
    Sheet sheet;
    sheet.grid.SetCols(40);
    sheet.grid.SetFixedCols(1);
    sheet.grid.SetFrozenCols(1);
    for (int col = 0; col < 40; ++col)
        sheet.grid.SetColWidth(col, 1200);
    sheet.view->Refresh();
    const QRect frozen = sheet.view->CellRect({1, 1});
    sheet.view->horizontalScrollBar()->setValue(400);
    CHECK(sheet.view->CellRect({1, 1}) == frozen);
    CHECK(sheet.view->CellRect({1, 2}).isEmpty());
    CHECK(sheet.view->CellAt(frozen.center()) == GridCell{1, 1});
    CHECK(sheet.view->CellAt(QPoint(frozen.right() + 10, frozen.center().y())).col > 5);
}

TEST_CASE("The logic may bring a row and a column to the edge")
{
    Sheet sheet(200);
    sheet.grid.SetCols(40);
    for (int col = 0; col < 40; ++col)
        sheet.grid.SetColWidth(col, 1200);
    sheet.grid.SetTopRow(50);
    sheet.grid.SetLeftCol(10);
    sheet.view->Refresh();
    CHECK(sheet.view->CellRect({50, 10}).left() == 0);
    CHECK(sheet.view->CellRect({49, 10}).isEmpty());
}

TEST_CASE("An outline folds by its mark and by the arrow keys")
{
    Sheet sheet(5);
    sheet.grid.SetOutlineCol(0);
    for (const int row : {2, 3})
        sheet.grid.SetRowOutlineLevel(row, 1);
    sheet.view->Refresh();
    const QRect mark = sheet.view->OutlineMark({1, 0});
    REQUIRE_FALSE(mark.isEmpty());
    CHECK(sheet.view->OutlineMark({2, 0}).isEmpty());
    QTest::mouseClick(sheet.view->viewport(), Qt::LeftButton, {}, mark.center());
    CHECK(sheet.grid.IsCollapsed(1));
    CHECK(sheet.view->CellRect({2, 0}).isEmpty());
    CHECK(sheet.grid.Row() == -1);
    sheet.Click(1, 1);
    QTest::keyClick(sheet.view.get(), Qt::Key_Down);
    CHECK(sheet.grid.Row() == 4);
    QTest::keyClick(sheet.view.get(), Qt::Key_Up);
    QTest::keyClick(sheet.view.get(), Qt::Key_Right);
    CHECK_FALSE(sheet.grid.IsCollapsed(1));
    QTest::keyClick(sheet.view.get(), Qt::Key_Left);
    CHECK(sheet.grid.IsCollapsed(1));
}

TEST_CASE("A cell shows its own colour, and equal neighbours show as one")
{
    Sheet sheet;
    sheet.grid.SetBackColor({1, 1, 1, 2}, 0x0000FF);
    sheet.view->Refresh();
    CHECK(sheet.Pixel(1, 1) == QColor(255, 0, 0));
    CHECK(sheet.Pixel(2, 1) != QColor(255, 0, 0));
    sheet.grid.SetTextMatrix(2, 0, "Text");
    sheet.grid.SetMergeRow(2, true);
    const auto lineBetween = [&] {
        sheet.view->Refresh();
        const QRect rect = sheet.view->CellRect({2, 0});
        const QImage image = sheet.view->viewport()->grab().toImage();
        return image.pixelColor((QPointF(rect.right(), rect.top() + 3) * image.devicePixelRatio()).toPoint()) !=
               QColor(Qt::white);
    };
    CHECK(lineBetween());
    sheet.grid.SetMergeCells(MergeMode::FixedOnly);
    CHECK(lineBetween());
    sheet.grid.SetMergeCells(MergeMode::Free);
    CHECK_FALSE(lineBetween());
}

TEST_CASE("A column is dragged by the edge of its heading and fits its texts again at a double click")
{
    Sheet sheet;
    const QRect before = sheet.view->CellRect({0, 1});
    const QPoint edge(before.right() + 1, before.center().y());
    QTest::mousePress(sheet.view->viewport(), Qt::LeftButton, {}, edge);
    QMouseEvent move(QEvent::MouseMove, edge + QPoint(50, 0), sheet.view->viewport()->mapToGlobal(edge + QPoint(50, 0)),
                     Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(sheet.view->viewport(), &move);
    QTest::mouseRelease(sheet.view->viewport(), Qt::LeftButton, {}, edge + QPoint(50, 0));
    const QRect after = sheet.view->CellRect({0, 1});
    CHECK(after.width() >= before.width() + 49);
    CHECK(sheet.log.empty());
    QTest::mouseDClick(sheet.view->viewport(), Qt::LeftButton, {}, QPoint(after.right() + 1, after.center().y()));
    CHECK(sheet.view->CellRect({0, 1}).width() == before.width());
}

TEST_CASE("Numbers stand at the right and a width that the screen asks is kept")
{
    Sheet sheet;
    sheet.grid.SetColWidth(0, 1500);
    sheet.view->Refresh();
    CHECK(sheet.view->CellRect({1, 0}).width() == 100);
    const QImage image = sheet.view->viewport()->grab().toImage();
    const QRect cell = sheet.view->CellRect({1, 2});
    int firstInk = cell.right();
    for (int x = cell.left() + 3; x < cell.right() - 3; ++x) {
        for (int y = cell.top() + 3; y < cell.bottom() - 3; ++y) {
            if (image.pixelColor((QPointF(x, y) * image.devicePixelRatio()).toPoint()).lightness() < 120)
                firstInk = std::min(firstInk, x);
        }
    }
    CHECK(firstInk > cell.left() + 10);
}

TEST_CASE("Twenty thousand rows are measured, walked and painted without a wait")
{
    Sheet sheet(20000);
    QElapsedTimer watch;
    watch.start();
    for (int step = 0; step < 20; ++step) {
        QTest::keyClick(sheet.view.get(), step % 2 ? Qt::Key_Home : Qt::Key_End);
        sheet.view->viewport()->repaint();
    }
    CHECK(watch.elapsed() < 4000);
    CHECK(sheet.grid.Row() == 1);
}

TEST_CASE("A view whose grid has gone does nothing any more")
{
    Sheet sheet;
    sheet.view->Forget();
    sheet.Click(1, 1);
    QTest::keyClick(sheet.view.get(), Qt::Key_Down);
    sheet.view->viewport()->repaint();
    CHECK(sheet.log.empty());
}
