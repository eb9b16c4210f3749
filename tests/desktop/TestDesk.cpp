#include "tests/desktop/TestDesk.h"

#include "app/Screens.h"
#include "desktop/FormWindow.h"
#include "desktop/binders/Binder.h"
#include "frame/frmLogin.h"
#include "tests/desktop/WidgetDriver.h"

#include <QtTest/QTest>

#include <stdexcept>
#include <unistd.h>

namespace rovanta::tests {

static std::string NextMachine()
{
    static int count = 0;
    return "desktop-test-" + std::to_string(getpid()) + "-" + std::to_string(++count);
}

TestDesk::TestDesk() : TestDesk(std::filesystem::path(SOURCE_FOLDER) / "tests/fixtures/small.sql") {}

TestDesk::TestDesk(const std::filesystem::path& fixture) : office(fixture, {})
{
    // The event loop of the tests outlives many programs.
    host.Gate().exit = [this](int code) { exitCode = code; };
    app.emplace(host, AllScreens(), AppOptions{office.ConfigPath(), NextMachine(), DateTime::Of(2026, 3, 2, 9, 0, 0)});
    host.Serve(*app);
    host.Gate().Run([this] { app->Start(); });
    if (!host.Gate().HasEnded()) {
        host.Main().resize(1440, 900);
        host.Main().activateWindow();
        if (!QTest::qWaitForWindowActive(&host.Main()))
            throw std::runtime_error("the main window does not come to the front");
    }
}

TestDesk::~TestDesk()
{
    host.Dismiss();
}

void TestDesk::SignIn()
{
    WidgetDriver driver(host);
    driver.Type("frmLogin", "txtUsername", "office");
    driver.Type("frmLogin", "txtPassword", "coach2026");
    driver.Click("frmLogin", "btnLogin");
}

}
