#pragma once

#include "app/Screens.h"
#include "bench/BenchOffice.h"
#include "frame/App.h"
#include "tests/support/TestApp.h"

namespace rovanta::bench {

/// The whole program without a window, signed in.
class Desk {
public:
    explicit Desk(const BenchOffice& office)
        : app(host, AllScreens(), {office.ConfigPath(), "bench", DateTime::Of(2026, 3, 2, 9, 0, 0)})
    {
        app.Start();
        auto& login = app.Open<frmLogin>();
        login.txtUsername = "office";
        login.txtPassword = "word";
        login.btnLogin.Click.Fire();
        app.DropClosed();
    }

    /// The frozen clock moves on by a minute, so that a save has something to write.
    void PassTime() { app.clock.Freeze(DateAdd("n", ++minutes, DateTime::Of(2026, 3, 2, 9, 0, 0))); }

    tests::SilentHost host;
    App app;

private:
    int minutes = 0;
};

}
