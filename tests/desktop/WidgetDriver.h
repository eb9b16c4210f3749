#pragma once

#include "desktop/DesktopHost.h"

#include <QPoint>
#include <QTimer>
#include <deque>
#include <stdexcept>
#include <string>
#include <vector>

class QWidget;

namespace rovanta {

class Control;
class GridView;

namespace tests {

/// A box that came up and what was pressed on it.
struct SeenMessage {
    std::string title;
    std::string text;
    bool asked = false;
    std::string answer;
};

/// What a person could not reach: it is hidden, disabled or covered by a box.
class OutOfReach : public std::runtime_error {
public:
    explicit OutOfReach(const std::string& what) : std::runtime_error("nobody could reach " + what) {}
};

/// A person's hands: types into the widgets of the windows, clicks them, and answers the boxes that come up. What
/// nobody could reach throws OutOfReach.
class WidgetDriver {
public:
    explicit WidgetDriver(DesktopHost& host);

    /// Enters the box with the mouse, replaces its content and stays in it.
    void Type(const std::string& form, const std::string& control, const std::string& text);
    /// Drops the list down and clicks the entry.
    void Pick(const std::string& form, const std::string& control, const std::string& entry);
    /// Clicks a button, a check box, an option or the tab of a page by its number.
    void Click(const std::string& form, const std::string& control);
    void ClickTab(const std::string& form, const std::string& control, int page);
    void ClickCell(const std::string& form, const std::string& grid, int row, int col);
    void RightClickCell(const std::string& form, const std::string& grid, int row, int col);
    void DoubleClickCell(const std::string& form, const std::string& grid, int row, int col);
    /// Goes to the next widget by the Tab key.
    void Leave(const std::string& form, const std::string& control);
    void PickMenu(const std::string& command);
    /// The close box of a window.
    void Close(const std::string& form);
    /// Types characters where the keyboard goes when the control has it.
    void Keys(const std::string& form, const std::string& control, const std::string& text);
    void SelectCells(const std::string& form, const std::string& grid, int row, int lastRow, int col);
    /// The entries that a list shows.
    std::vector<std::string> Entries(const std::string& form, const std::string& control) const;

    /// What a person reads in a box, on a label or a button now.
    std::string Shown(const std::string& form, const std::string& control) const;
    QWidget& WidgetOf(const std::string& form, const std::string& control) const;
    GridView& GridOf(const std::string& form, const std::string& grid) const;
    Form& FormOf(const std::string& form) const;
    Control& ControlOf(const std::string& form, const std::string& control) const;

    std::deque<std::string> answers;
    std::deque<SeenMessage> messages;
    /// The entry of the next pop-up menu to pick, by its name; a pop-up with none is closed.
    std::string popupChoice;

private:
    void AnswerBoxes();
    void Settle();
    QWidget& Reachable(const std::string& form, const std::string& control);
    void ShowPageOf(QWidget& widget);
    QPoint PlaceOf(GridView& view, int row, int col);

    DesktopHost& host;
    QTimer watch;
};

}

}
