#include "app/Screens.h"
#include "desktop/DesktopHost.h"
#include "desktop/Look.h"
#include "frame/App.h"
#include "frame/frmLogin.h"
#include "master/frmCustomerEntry2.h"
#include "tours/frmRentalEntry.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QTimer>

#include <cstdio>
#include <iostream>
#include <unistd.h>

using namespace rovanta;

/// A person's work on large lists: sign-in, the customers, a tour, its save.
static void Work(App& app, const std::string& tour)
{
    auto& login = app.Open<frmLogin>();
    login.txtUsername = "office";
    login.txtPassword = "word";
    login.btnLogin.Click.Fire();
    app.Open<frmCustomerEntry2>();
    auto& screen = app.Open<frmRentalEntry>();
    screen.LoadTour(tour);
    screen.btnSave.Click.Fire();
}

static void Say(const char* line)
{
    std::puts(line);
    std::fflush(stdout);
}

/// The desktop program itself, which says when its login box is drawn. A line of input is the key of a tour to work on;
/// the end of input is the end of the program.
int main(int count, char** values)
{
    if (count != 2)
        return 2;
    QApplication application(count, values);
    Look::Apply(application);
    DesktopHost host;
    App app(host, AllScreens(), {values[1], "bench", std::nullopt});
    host.Serve(app);
    host.Gate().Run([&] { app.Start(); });
    if (host.Gate().HasEnded())
        return host.ExitCode();
    QTimer::singleShot(0, [&] {
        host.Main().grab();
        Say(app.Find<frmLogin>() != nullptr ? "ready" : "no login box");
    });
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
        std::string tour;
        if (!std::getline(std::cin, tour)) {
            QApplication::quit();
            return;
        }
        host.Gate().Run([&] { Work(app, tour); });
        host.Main().grab();
        Say("done");
    });
    const int code = QApplication::exec();
    host.Dismiss();
    return code;
}
