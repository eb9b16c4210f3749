#include "tests/desktop/WidgetDriver.h"

#include "desktop/FormWindow.h"
#include "desktop/binders/GridBinder.h"
#include "forms/ChoiceControls.h"
#include "forms/ListControls.h"
#include "forms/TextControls.h"

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QModelIndex>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QtTest/QTest>

namespace rovanta::tests {

WidgetDriver::WidgetDriver(DesktopHost& host) : host(host)
{
    QObject::connect(&watch, &QTimer::timeout, &watch, [this] { AnswerBoxes(); });
    watch.start(1);
}

void WidgetDriver::AnswerBoxes()
{
    if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        menu && !menu->menuAction()->text().isEmpty()) {
        QAction* chosen = menu->findChild<QAction*>(QString::fromStdString(std::exchange(popupChoice, {})));
        menu->close();
        if (chosen)
            chosen->trigger();
        return;
    }
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box || !box->isVisible())
        return;
    SeenMessage seen{
        box->windowTitle().toStdString(), box->text().toStdString(), box->button(QMessageBox::Yes) != nullptr, {}};
    QMessageBox::StandardButton button = QMessageBox::Ok;
    if (seen.asked) {
        const std::string answer = answers.empty() ? "no" : answers.front();
        if (!answers.empty())
            answers.pop_front();
        seen.answer = answer;
        button = answer == "yes" ? QMessageBox::Yes : QMessageBox::No;
    }
    messages.push_back(seen);
    QTest::mouseClick(box->button(button), Qt::LeftButton);
}

Form& WidgetDriver::FormOf(const std::string& form) const
{
    for (QMdiSubWindow* frame : host.Main().Area().subWindowList()) {
        for (auto* window : frame->findChildren<QWidget*>(QString::fromStdString(form))) {
            if (auto* found = dynamic_cast<FormWindow*>(window); found && !found->IsDetached())
                return found->Shown();
        }
    }
    throw OutOfReach(form);
}

Control& WidgetDriver::ControlOf(const std::string& form, const std::string& control) const
{
    Control* found = FormOf(form).FindControl(control);
    if (!found)
        throw OutOfReach(form + "." + control);
    return *found;
}

QWidget& WidgetDriver::WidgetOf(const std::string& form, const std::string& control) const
{
    const Binder* binder = host.WindowOf(FormOf(form))->BinderOf(control);
    if (!binder)
        throw OutOfReach(form + "." + control);
    return binder->Widget();
}

GridView& WidgetDriver::GridOf(const std::string& form, const std::string& grid) const
{
    return dynamic_cast<GridView&>(WidgetOf(form, grid));
}

void WidgetDriver::ShowPageOf(QWidget& widget)
{
    for (QWidget* parent = widget.parentWidget(); parent; parent = parent->parentWidget()) {
        auto* tabs = qobject_cast<QTabWidget*>(parent);
        for (int page = 0; tabs && page < tabs->count(); ++page) {
            if (tabs->widget(page)->isAncestorOf(&widget) && tabs->currentIndex() != page)
                QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(page).center());
        }
    }
}

void WidgetDriver::Settle()
{
    QCoreApplication::processEvents();
    if (host.Gate().HasEnded() || !host.Main().isVisible() || QApplication::focusWidget())
        return;
    // A box and a list that drops down are windows of their own; the keyboard goes back to the main one.
    QApplication::setActiveWindow(nullptr);
    QApplication::setActiveWindow(&host.Main());
}

QWidget& WidgetDriver::Reachable(const std::string& form, const std::string& control)
{
    QWidget& widget = WidgetOf(form, control);
    QMdiSubWindow* frame = host.FrameOf(FormOf(form));
    if (QApplication::activeModalWidget() || !frame->isVisible())
        throw OutOfReach(form + "." + control);
    if (host.Main().Area().activeSubWindow() != frame)
        host.Main().Area().setActiveSubWindow(frame);
    ShowPageOf(widget);
    if (auto* scroll = frame->findChild<QScrollArea*>())
        scroll->ensureWidgetVisible(&widget);
    if (!widget.isVisible() || !widget.isEnabled())
        throw OutOfReach(form + "." + control);
    return widget;
}

void WidgetDriver::Type(const std::string& form, const std::string& control, const std::string& text)
{
    QWidget& widget = Reachable(form, control);
    if (ControlOf(form, control).ReadOnly())
        throw OutOfReach("the content of " + control);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(8, widget.height() / 2));
    QCoreApplication::processEvents();
    if (auto* memo = qobject_cast<QPlainTextEdit*>(&widget))
        memo->selectAll();
    else
        QTest::keyClick(&widget, Qt::Key_A, Qt::ControlModifier);
    if (text.empty())
        QTest::keyClick(&widget, Qt::Key_Delete);
    QTest::keyClicks(&widget, QString::fromStdString(text));
}

void WidgetDriver::Pick(const std::string& form, const std::string& control, const std::string& entry)
{
    QWidget& widget = Reachable(form, control);
    auto* combo = qobject_cast<QComboBox*>(&widget);
    auto* view = combo ? combo->view() : qobject_cast<QAbstractItemView*>(&widget);
    if (!view)
        throw OutOfReach("a list of " + control);
    widget.setFocus(Qt::MouseFocusReason);
    QCoreApplication::processEvents();
    int row = 0;
    while (row < view->model()->rowCount() &&
           view->model()->index(row, 0).data().toString() != QString::fromStdString(entry))
        ++row;
    const QModelIndex index = view->model()->index(row, 0);
    if (!index.isValid())
        throw OutOfReach("the entry " + entry + " of " + control);
    if (combo) {
        combo->showPopup();
        QTest::qWait(1);
    }
    view->scrollTo(index);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(index).center());
    QCoreApplication::processEvents();
    if (combo && view->isVisible())
        combo->hidePopup();
    Settle();
}

void WidgetDriver::Click(const std::string& form, const std::string& control)
{
    QWidget& widget = Reachable(form, control);
    // The words of a check box stand at its left; its middle may be bare.
    const bool mark = qobject_cast<QCheckBox*>(&widget) || qobject_cast<QRadioButton*>(&widget);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, mark ? QPoint(8, widget.height() / 2) : widget.rect().center());
    Settle();
}

void WidgetDriver::ClickTab(const std::string& form, const std::string& control, int page)
{
    auto& tabs = dynamic_cast<QTabWidget&>(Reachable(form, control));
    QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {}, tabs.tabBar()->tabRect(page).center());
}

QPoint WidgetDriver::PlaceOf(GridView& view, int row, int col)
{
    const QRect rect = view.CellRect({row, col}).intersected(view.viewport()->rect());
    if (rect.isEmpty())
        throw OutOfReach("the cell " + std::to_string(row) + ", " + std::to_string(col));
    return rect.center();
}

void WidgetDriver::ClickCell(const std::string& form, const std::string& grid, int row, int col)
{
    auto& view = dynamic_cast<GridView&>(Reachable(form, grid));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, PlaceOf(view, row, col));
    Settle();
}

void WidgetDriver::RightClickCell(const std::string& form, const std::string& grid, int row, int col)
{
    auto& view = dynamic_cast<GridView&>(Reachable(form, grid));
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, PlaceOf(view, row, col));
    Settle();
}

void WidgetDriver::DoubleClickCell(const std::string& form, const std::string& grid, int row, int col)
{
    auto& view = dynamic_cast<GridView&>(Reachable(form, grid));
    const QPoint place = PlaceOf(view, row, col);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
    Settle();
}

void WidgetDriver::Leave(const std::string& form, const std::string& control)
{
    QWidget& widget = Reachable(form, control);
    if (!widget.hasFocus())
        widget.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&widget, Qt::Key_Tab);
    Settle();
}

void WidgetDriver::Close(const std::string& form)
{
    if (QApplication::activeModalWidget())
        throw OutOfReach(form);
    host.FrameOf(FormOf(form))->close();
    Settle();
}

void WidgetDriver::Keys(const std::string& form, const std::string& control, const std::string& text)
{
    QWidget& widget = Reachable(form, control);
    widget.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&widget, QString::fromStdString(text));
    Settle();
}

void WidgetDriver::SelectCells(const std::string& form, const std::string& grid, int row, int lastRow, int col)
{
    auto& view = dynamic_cast<GridView&>(Reachable(form, grid));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, PlaceOf(view, row, col));
    if (lastRow != row)
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ShiftModifier, PlaceOf(view, lastRow, col));
    const auto& logical = dynamic_cast<const Grid&>(ControlOf(form, grid));
    if (logical.Row() != row || logical.RowSel() != lastRow)
        throw OutOfReach("the row " + std::to_string(row) + " of " + grid);
    Settle();
}

std::vector<std::string> WidgetDriver::Entries(const std::string& form, const std::string& control) const
{
    const QWidget& widget = WidgetOf(form, control);
    const auto* combo = qobject_cast<const QComboBox*>(&widget);
    const auto* list = qobject_cast<const QAbstractItemView*>(&widget);
    const QAbstractItemModel* model = combo ? combo->model() : list->model();
    std::vector<std::string> entries;
    for (int row = 0; row < model->rowCount(); ++row)
        entries.push_back(model->index(row, 0).data().toString().toStdString());
    return entries;
}

void WidgetDriver::PickMenu(const std::string& command)
{
    auto* action = host.Main().findChild<QAction*>(QString::fromStdString(command));
    if (!action || !action->isEnabled() || !action->isVisible() || QApplication::activeModalWidget())
        throw OutOfReach("the command " + command);
    action->trigger();
    Settle();
}

std::string WidgetDriver::Shown(const std::string& form, const std::string& control) const
{
    const QWidget& widget = WidgetOf(form, control);
    QString text;
    if (const auto* edit = qobject_cast<const QLineEdit*>(&widget))
        text = edit->text();
    else if (const auto* memo = qobject_cast<const QPlainTextEdit*>(&widget))
        text = memo->toPlainText();
    else if (const auto* combo = qobject_cast<const QComboBox*>(&widget))
        text = combo->currentIndex() < 0 && !combo->isEditable() ? combo->placeholderText().trimmed()
                                                                 : combo->currentText();
    else if (const auto* label = qobject_cast<const QLabel*>(&widget))
        text = label->text();
    else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        text = button->isCheckable() ? (button->isChecked() ? "1" : "0") : button->text().remove('&');
    return text.toStdString();
}

}
