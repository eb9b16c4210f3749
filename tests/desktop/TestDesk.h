#pragma once

#include "automation/StoryOffice.h"
#include "desktop/DesktopHost.h"
#include "frame/App.h"

#include <optional>
#include <string>

namespace rovanta::tests {

/// The desktop on an office of its own, made from one of the fixtures; the program has started, nobody has signed in.
class TestDesk {
public:
    explicit TestDesk(const std::string& fixture = "small");
    ~TestDesk();

    /// Signs in through the boxes of the sign-in window.
    void SignIn();

    StoryOffice office;
    DesktopHost host;
    std::optional<App> app;
};

}
