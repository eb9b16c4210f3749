#include "desktop/FormWindow.h"
#include "desktop/GridView.h"
#include "frame/MDI.h"
#include "frame/frmLogin.h"
#include "tests/desktop/TestDesk.h"
#include "tests/desktop/WidgetDriver.h"

#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QDialog>
#include <QEvent>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <QTimer>
#include <QToolTip>
#include <QtTest/QTest>

#include <doctest/doctest.h>

using namespace rovanta;
using namespace rovanta::tests;

static QAction* Command(DesktopHost& host, const char* name)
{
    return host.Main().findChild<QAction*>(name);
}

TEST_CASE("Before the sign-in only the way out is open, and after it every menu")
{
    TestDesk desk;
    WidgetDriver driver(desk.host);
    REQUIRE(Command(desk.host, "LeaseEntry"));
    CHECK_FALSE(Command(desk.host, "LeaseEntry")->isEnabled());
    CHECK_FALSE(Command(desk.host, "CompanyInfo")->isEnabled());
    CHECK(Command(desk.host, "Exit")->isEnabled());
    CHECK_THROWS_AS(driver.PickMenu("LeaseEntry"), OutOfReach);
    desk.SignIn();
    CHECK(Command(desk.host, "LeaseEntry")->isEnabled());
    CHECK(desk.host.Main().windowTitle() == "Rovanta - Larkfield Production");
    for (const QAction* menu : desk.host.Main().menuBar()->actions())
        CHECK(menu->isVisible() == (menu->text().remove('&') != "Popup" && menu->text().remove('&') != "FTNavPopup"));
}

TEST_CASE("The bar of menus has an access key each")
{
    TestDesk desk;
    QString letters;
    for (const QAction* menu : desk.host.Main().menuBar()->actions()) {
        if (menu->isVisible())
            letters += menu->text().mid(menu->text().indexOf('&') + 1, 1).toUpper();
    }
    CHECK(letters.toStdString() == "FDKTEAMRH");
}

TEST_CASE("A sign-in that fails says so in a box, empties the boxes and goes back to the name")
{
    TestDesk desk;
    WidgetDriver driver(desk.host);
    driver.Type("frmLogin", "txtUsername", "office");
    driver.Type("frmLogin", "txtPassword", "wrong");
    QTest::keyClick(&driver.WidgetOf("frmLogin", "txtPassword"), Qt::Key_Return);
    REQUIRE(driver.messages.size() == 1);
    CHECK(driver.messages[0].title == "Invalid Username/Password");
    CHECK(driver.messages[0].text == "Your username and/or password is invalid.");
    CHECK(driver.Shown("frmLogin", "txtPassword").empty());
    CHECK(desk.host.Main().focusWidget() == &driver.WidgetOf("frmLogin", "txtUsername"));
    CHECK_FALSE(Command(desk.host, "LeaseEntry")->isEnabled());
}

TEST_CASE("The password is never shown")
{
    TestDesk desk;
    WidgetDriver driver(desk.host);
    driver.Type("frmLogin", "txtPassword", "coach2026");
    const auto& box = dynamic_cast<const QLineEdit&>(driver.WidgetOf("frmLogin", "txtPassword"));
    CHECK(box.displayText() != box.text());
}

TEST_CASE("An apostrophe at the sign-in is told and ends the program with 1")
{
    TestDesk desk;
    WidgetDriver driver(desk.host);
    driver.Type("frmLogin", "txtUsername", "x' OR 'a'='a");
    driver.Type("frmLogin", "txtPassword", "y");
    driver.Click("frmLogin", "btnLogin");
    REQUIRE(driver.messages.size() == 1);
    CHECK(driver.messages[0].text.find("Incorrect syntax near") != std::string::npos);
    CHECK(desk.exitCode == 1);
    CHECK_FALSE(Command(desk.host, "LeaseEntry")->isEnabled());
}

TEST_CASE("Exit and the close button of the sign-in box end the program with 0")
{
    TestDesk menu;
    Command(menu.host, "Exit")->trigger();
    CHECK(menu.exitCode == 0);
    TestDesk box;
    WidgetDriver driver(box.host);
    driver.Click("frmLogin", "btnCancel");
    CHECK(box.exitCode == 0);
    CHECK(driver.messages.empty());
}

TEST_CASE("The main window's own close box runs no routine of a screen")
{
    TestDesk desk;
    desk.SignIn();
    WidgetDriver driver(desk.host);
    driver.PickMenu("LeaseEntry");
    bool unloaded = false;
    driver.FormOf("frmRentalEntry").Unload = [&] { unloaded = true; };
    desk.host.Main().close();
    CHECK(desk.exitCode == 0);
    CHECK_FALSE(unloaded);
}

TEST_CASE("A screen is opened once, comes to the front again and goes by its close box")
{
    TestDesk desk;
    desk.SignIn();
    WidgetDriver driver(desk.host);
    driver.PickMenu("LeaseEntry");
    driver.PickMenu("ContactNavigator");
    CHECK(desk.host.Main().Area().activeSubWindow()->windowTitle() == "Search Navigator");
    driver.PickMenu("LeaseEntry");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    CHECK(desk.host.Main().Area().subWindowList().size() == 2);
    CHECK(desk.host.Main().Area().activeSubWindow()->windowTitle() == "Tour Entry/Edit");
    CHECK(desk.host.FrameOf(driver.FormOf("frmRentalEntry"))->pos() == QPoint(0, 0));
    driver.Close("frmRentalEntry");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    CHECK(desk.app->Find("frmRentalEntry") == nullptr);
    CHECK(desk.host.Main().Area().subWindowList().size() == 1);
    CHECK_FALSE(desk.app->openFlags.RentalEntryOpen);
}

TEST_CASE("The strip of open windows shows while there is a choice and brings the chosen one to the front")
{
    TestDesk desk;
    desk.SignIn();
    WidgetDriver driver(desk.host);
    auto* strip = desk.host.Main().centralWidget()->findChild<QTabBar*>(QString(), Qt::FindDirectChildrenOnly);
    REQUIRE(strip);
    driver.PickMenu("LeaseEntry");
    CHECK_FALSE(strip->isVisible());
    driver.PickMenu("ContactNavigator");
    REQUIRE(strip->isVisible());
    CHECK(strip->count() == 2);
    CHECK(strip->tabText(strip->currentIndex()) == "Search Navigator");
    QTest::mouseClick(strip, Qt::LeftButton, {}, strip->tabRect(0).center());
    CHECK(desk.host.Main().Area().activeSubWindow()->windowTitle() == "Tour Entry/Edit");
    driver.Close("frmRentalEntry");
    CHECK_FALSE(strip->isVisible());
}

TEST_CASE("The tour screen takes nothing while its invoices are being made, nor can it be closed")
{
    TestDesk desk;
    desk.SignIn();
    WidgetDriver driver(desk.host);
    driver.PickMenu("LeaseEntry");
    driver.Pick("frmRentalEntry", "cmbTour", "Ember Lights - Winter Run");
    driver.Click("frmRentalEntry", "btnCalculate");
    CHECK_FALSE(desk.host.WindowOf(driver.FormOf("frmRentalEntry"))->isEnabled());
    CHECK(desk.host.Main().Area().activeSubWindow()->windowTitle() == "Create Invoices");
    CHECK_THROWS_AS(driver.Click("frmRentalEntry", "btnSave"), OutOfReach);
    driver.Close("frmRentalEntry");
    CHECK(desk.app->Find("frmRentalEntry") != nullptr);
    driver.Click("frmCreateInvoices", "btnCancel");
    CHECK(desk.host.WindowOf(driver.FormOf("frmRentalEntry"))->isEnabled());
}

TEST_CASE("The foot of the window tells user, company and day")
{
    TestDesk desk;
    desk.SignIn();
    QStringList told;
    for (const QLabel* label : desk.host.Main().findChildren<QLabel*>()) {
        if (label->isVisible())
            told += label->text();
    }
    CHECK(told.contains("office"));
    CHECK(told.contains("Larkfield Production"));
    CHECK(told.contains("Monday, March 2, 2026"));
}

TEST_CASE("A right click on a contact brings up the menu, and its command opens the customer")
{
    TestDesk desk;
    desk.SignIn();
    WidgetDriver driver(desk.host);
    driver.PickMenu("ContactNavigator");
    driver.Click("frmCustomerNavigator", "btnFind");
    driver.popupChoice = "OpenCustomer";
    driver.RightClickCell("frmCustomerNavigator", "vsfgContacts", 1, 3);
    CHECK(driver.popupChoice.empty());
    CHECK(driver.Shown("frmCustomerEntry2", "cmbCustomer") == "Ember Lights");
    CHECK(desk.host.Main().Area().activeSubWindow()->windowTitle() == "Customer Entry/Edit");
}

TEST_CASE("A command without the right is refused by a box with its sign")
{
    TestDesk desk;
    desk.app->AppConnection.Execute("UPDATE [User] SET Type = 'User'");
    desk.SignIn();
    WidgetDriver driver(desk.host);
    driver.PickMenu("LeaseEntry");
    REQUIRE(driver.messages.size() == 1);
    CHECK(driver.messages[0].title == "Invalid Permission");
    CHECK(driver.messages[0].text == "You do not have permission to view this record.");
    CHECK(desk.app->Find("frmRentalEntry") == nullptr);
}

TEST_CASE("A question takes the answer that is pressed")
{
    TestDesk desk;
    WidgetDriver driver(desk.host);
    driver.answers = {"yes", "no"};
    const Message question{"Really?", "Delete Confirmation", MessageIcon::None, MessageButtons::YesNo};
    CHECK(desk.host.ShowMessage(question) == MessageAnswer::Yes);
    CHECK(desk.host.ShowMessage(question) == MessageAnswer::No);
    CHECK(desk.host.ShowMessage({"Done", "Done", MessageIcon::Information, MessageButtons::Ok}) == MessageAnswer::Ok);
}

TEST_CASE("Markup in a message is shown as it stands")
{
    TestDesk desk;
    WidgetDriver driver(desk.host);
    desk.host.ShowMessage({"<b>Blue</b> & Harbor", "Title", MessageIcon::None, MessageButtons::Ok});
    CHECK(driver.messages[0].text == "<b>Blue</b> & Harbor");
}

TEST_CASE("The wait cursor is gone when an act is over, however often it was asked for")
{
    TestDesk desk;
    desk.host.Gate().Run([&] {
        desk.host.ShowHourglass(true);
        desk.host.ShowHourglass(true);
        CHECK(QGuiApplication::overrideCursor());
        desk.host.ShowHourglass(false);
        CHECK(QGuiApplication::overrideCursor());
    });
    CHECK_FALSE(QGuiApplication::overrideCursor());
}

TEST_CASE("A file dialog offers the kinds of files and gives the chosen one, nothing when it is left")
{
    TestDesk desk;
    QStringList filters;
    QTimer watch;
    bool choose = true;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        filters = dialog->nameFilters();
        if (choose) {
            dialog->selectFile(QString::fromStdString(desk.office.ConfigPath()));
            static_cast<QDialog*>(dialog)->accept();
        } else {
            dialog->reject();
        }
    });
    watch.start(5);
    const FileQuestion question{FileDialogKind::Open, "Select Image",
                                "Bitmap Files (*.bmp)|*.bmp|All Files|*.txt;*.png"};
    CHECK(desk.host.ChooseFile(question) == desk.office.ConfigPath());
    CHECK(filters == QStringList{"Bitmap Files (*.bmp)", "All Files (*.txt *.png)"});
    choose = false;
    CHECK(desk.host.ChooseFile(question) == std::nullopt);
}

TEST_CASE("A small box stays in the middle when the main window grows, until somebody moves it")
{
    TestDesk desk;
    QMdiSubWindow* frame = desk.host.FrameOf(*desk.app->Find("frmLogin"));
    desk.host.Main().resize(1000, 700);
    QCoreApplication::processEvents();
    CHECK(std::abs(frame->geometry().center().x() - desk.host.Main().Area().viewport()->rect().center().x()) < 3);
    frame->move(10, 10);
    desk.host.Main().resize(1100, 700);
    QCoreApplication::processEvents();
    CHECK(frame->pos() == QPoint(10, 10));
}

TEST_CASE("A tool tip of the grid's own comes before the text of a cell")
{
    TestDesk desk;
    desk.SignIn();
    WidgetDriver driver(desk.host);
    driver.PickMenu("ContactNavigator");
    auto& grid = dynamic_cast<Grid&>(driver.ControlOf("frmCustomerNavigator", "vsfgContacts"));
    grid.SetToolTipText("Nashville");
    GridView& view = driver.GridOf("frmCustomerNavigator", "vsfgContacts");
    QHelpEvent help(QEvent::ToolTip, QPoint(10, 10), view.viewport()->mapToGlobal(QPoint(10, 10)));
    QApplication::sendEvent(view.viewport(), &help);
    CHECK(QToolTip::text() == "Nashville");
}
