#include "desktop/MainWindow.h"

#include "desktop/AccessKeys.h"
#include "desktop/Look.h"
#include "desktop/binders/Binder.h"

#include <QAction>
#include <QCloseEvent>
#include <QCursor>
#include <QEvent>
#include <QFrame>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QTabBar>
#include <QVBoxLayout>

namespace rovanta {

MainWindow::MainWindow(EventGate& gate)
    : gate(gate), area(new QMdiArea), strip(new QTabBar), user(new QLabel), company(new QLabel), date(new QLabel)
{
    setObjectName("MDI");
    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    strip->setDrawBase(false);
    strip->setExpanding(false);
    strip->setFocusPolicy(Qt::NoFocus);
    strip->hide();
    column->addWidget(strip);
    column->addWidget(area, 1);
    setCentralWidget(body);
    area->setBackground(Look::desk);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    connect(strip, &QTabBar::tabBarClicked, this, [this](int index) { PickWindow(index); });
    for (QLabel* label : {user, company, date}) {
        label->setTextFormat(Qt::PlainText);
        label->setContentsMargins(Look::gap, 0, Look::gap, 0);
    }
    statusBar()->setSizeGripEnabled(false);
    statusBar()->addWidget(user);
    statusBar()->addWidget(company, 1);
    statusBar()->addPermanentWidget(date);
    area->viewport()->installEventFilter(this);
    resize(QSize(1440, 900).boundedTo(screen()->availableSize()));
}

QAction* MainWindow::ActionOf(const MenuItem& item) const
{
    const auto found = actions.find(&item);
    return found == actions.end() ? nullptr : found->second;
}

void MainWindow::BuildMenus(Menu& newMenu)
{
    menu = &newMenu;
    actions.clear();
    menuBar()->clear();
    std::size_t place = 0;
    for (MenuItem& item : menu->Bar()) {
        // The letters of the bar are fixed, so that forms can keep away from them.
        const char letter = place < menuLetters.size() ? menuLetters[place] : '\0';
        ++place;
        const auto position = QString::fromStdString(item.caption).indexOf(QChar(letter), 0, Qt::CaseInsensitive);
        std::optional<AccessKey> key;
        if (position >= 0)
            key = AccessKey{static_cast<std::size_t>(position), letter};
        QMenu* drop = menuBar()->addMenu(WithKey(item.caption, key ? &*key : nullptr));
        actions[&item] = drop->menuAction();
        FillMenu(*drop, item);
    }
    RefreshMenus();
}

void MainWindow::FillMenu(QMenu& into, MenuItem& item)
{
    std::vector<std::string> captions;
    for (const MenuItem& entry : item.entries)
        captions.push_back(entry.caption);
    const auto keys = KeysOfMenu(captions);
    std::size_t place = 0;
    for (MenuItem& entry : item.entries) {
        const auto& key = keys[place++];
        const QString text = WithKey(entry.caption, key ? &*key : nullptr);
        if (!entry.IsCommand()) {
            QMenu* deeper = into.addMenu(text);
            actions[&entry] = deeper->menuAction();
            FillMenu(*deeper, entry);
            continue;
        }
        QAction* action = into.addAction(text);
        action->setObjectName(QString::fromStdString(entry.name));
        actions[&entry] = action;
        connect(action, &QAction::triggered, this, [this, &entry] {
            gate.Run([this, &entry] {
                if (menu->CanPick(entry.name))
                    entry.Click.Fire();
            });
        });
    }
}

void MainWindow::RefreshMenus()
{
    for (const auto& [item, action] : actions) {
        action->setEnabled(item->enabled);
        action->setVisible(item->visible);
    }
}

void MainWindow::ShowPopup(MenuItem& item)
{
    if (QAction* action = ActionOf(item); action && action->menu())
        action->menu()->exec(QCursor::pos());
}

void MainWindow::ShowStanding(const Standing& standing)
{
    user->setText(standing.user);
    user->setVisible(!standing.user.isEmpty());
    company->setText(standing.company);
    date->setText(standing.date);
}

void MainWindow::RefreshStrip()
{
    const QSignalBlocker quiet(strip);
    const QList<QMdiSubWindow*> open = area->subWindowList(QMdiArea::CreationOrder);
    QList<QMdiSubWindow*> shown;
    for (QMdiSubWindow* window : open) {
        if (!window->isHidden())
            shown += window;
    }
    while (strip->count() > shown.size())
        strip->removeTab(strip->count() - 1);
    while (strip->count() < shown.size())
        strip->addTab({});
    for (int at = 0; at < shown.size(); ++at) {
        strip->setTabText(at, shown[at]->windowTitle().replace("&", "&&"));
        strip->setTabData(at, QVariant::fromValue<QObject*>(shown[at]));
        if (shown[at] == area->activeSubWindow())
            strip->setCurrentIndex(at);
    }
    strip->setVisible(shown.size() > 1);
}

void MainWindow::PickWindow(int index)
{
    auto* window = index < 0 ? nullptr : qobject_cast<QMdiSubWindow*>(strip->tabData(index).value<QObject*>());
    if (window && area->subWindowList().contains(window))
        area->setActiveSubWindow(window);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == area->viewport() && event->type() == QEvent::Resize && roomChanged)
        roomChanged();
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    // The frame's own close box runs no routine of any screen.
    event->accept();
    gate.End(0);
}

}
