#include "app/Screens.h"
#include "desktop/FormWindow.h"
#include "desktop/layouts/Layouts.h"
#include "frame/App.h"
#include "tests/desktop/Sight.h"
#include "tests/desktop/TestDesk.h"

#include <QCoreApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollArea>
#include <QScrollBar>
#include <QtTest/QTest>

#include <doctest/doctest.h>

using namespace rovanta;
using namespace rovanta::tests;

/// A screen with what an office of some years shows in it.
static void Fill(Screen& screen)
{
    if (screen.Name() == "frmRentalEntry" || screen.Name() == "frmCreateInvoices" || screen.Name() == "frmBusEntry" ||
        screen.Name() == "frmCustomerEntry" || screen.Name() == "frmCustomerEntry2")
        screen.OpenRecord("1");
    else if (screen.Name() == "frmCustomerNavigator")
        screen.DefaultButton()->Click.Fire();
}

TEST_CASE("The sign-in box stands in the middle and is seen whole")
{
    TestDesk desk;
    desk.host.Main().resize(1280, 720);
    REQUIRE(QTest::qWaitForWindowExposed(&desk.host.Main()));
    const Form& login = *desk.app->Find("frmLogin");
    const QStringList flaws = Flaws(*desk.host.WindowOf(login));
    CHECK_MESSAGE(flaws.isEmpty(), flaws.join("\n").toStdString());
    SaveScreenshot(*desk.host.FrameOf(login), "frmLogin");
    SaveScreenshot(desk.host.Main(), "MDI");
}

TEST_CASE("Every screen is seen whole: nothing clipped, nothing over anything else")
{
    TestDesk desk;
    desk.SignIn();
    desk.host.AnswerAlone();
    desk.app->AppConnection.Execute("UPDATE Bus SET Satellite = 30, Internet = 1234567.89");
    desk.app->AppConnection.Execute("UPDATE Tour SET TotalTourBudget = 1234567.89, IncludedInContract = 1234567.89");
    for (const auto& [name, layout] : AllLayouts()) {
        if (name == "frmLogin")
            continue;
        Screen* screen = nullptr;
        desk.host.Gate().Run([&] {
            screen = &desk.app->Open(name);
            Fill(*screen);
        });
        REQUIRE_FALSE(desk.host.Gate().HasEnded());
        QCoreApplication::processEvents();
        const QStringList flaws = Flaws(*desk.host.WindowOf(*screen));
        CHECK_MESSAGE(flaws.isEmpty(), name << ":\n" << flaws.join("\n").toStdString());
        SaveScreenshot(*desk.host.FrameOf(*screen), QString::fromStdString(name));
        desk.host.Gate().Run([&] { desk.app->Unload(*screen); });
        QCoreApplication::processEvents();
    }
}

TEST_CASE("Every screen fits a screen of 1920 by 1080 at 150 percent without scrolling")
{
    TestDesk desk;
    desk.SignIn();
    desk.host.Main().resize(1280, 720);
    QCoreApplication::processEvents();
    for (const auto& [name, layout] : AllLayouts()) {
        if (name == "frmLogin")
            continue;
        Screen* screen = nullptr;
        desk.host.Gate().Run([&] { screen = &desk.app->Open(name); });
        QCoreApplication::processEvents();
        const auto* scroll = desk.host.FrameOf(*screen)->findChild<QScrollArea*>();
        const QSize need = desk.host.WindowOf(*screen)->minimumSizeHint();
        CHECK_MESSAGE(scroll->horizontalScrollBar()->maximum() == 0, name << " needs a width of " << need.width());
        CHECK_MESSAGE(scroll->verticalScrollBar()->maximum() == 0, name << " needs a height of " << need.height());
        desk.host.Gate().Run([&] { desk.app->Unload(*screen); });
    }
}
