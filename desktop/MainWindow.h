#pragma once

#include "desktop/EventGate.h"
#include "forms/Menu.h"

#include <QMainWindow>
#include <functional>
#include <map>

class QAction;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QTabBar;

namespace rovanta {

/// What the foot of the main window tells.
struct Standing {
    QString user;
    QString company;
    QString date;
};

/// The frame of the program: the menus, the windows of the screens inside it, the strip of those that are open, and who
/// works where at the foot.
class MainWindow : public QMainWindow {
public:
    explicit MainWindow(EventGate& gate);

    QMdiArea& Area() const { return *area; }
    void BuildMenus(Menu& menu);
    /// Enabled and visible as the menu has it now.
    void RefreshMenus();
    /// A menu of its own that comes up at the mouse.
    void ShowPopup(MenuItem& item);
    void ShowStanding(const Standing& standing);
    /// The strip of open windows; it hides while there is nothing to choose.
    void RefreshStrip();
    QAction* ActionOf(const MenuItem& item) const;

    /// Told when the room for the windows inside has changed.
    std::function<void()> roomChanged;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FillMenu(QMenu& menu, MenuItem& item);
    void PickWindow(int index);

    EventGate& gate;
    QMdiArea* area;
    QTabBar* strip;
    QLabel* user;
    QLabel* company;
    QLabel* date;
    Menu* menu = nullptr;
    std::map<const MenuItem*, QAction*> actions;
};

}
