#pragma once

#include "automation/StoryOffice.h"
#include "desktop/DesktopHost.h"
#include "frame/App.h"

#include <filesystem>
#include <optional>
#include <string>

namespace rovanta::tests {

/// The desktop on an office of its own, made from one of the fixtures; the program has started, nobody has signed in.
class TestDesk {
public:
    TestDesk();
    /// With the statements of that file.
    explicit TestDesk(const std::filesystem::path& fixture);
    ~TestDesk();

    /// Signs in through the boxes of the sign-in window.
    void SignIn();

    StoryOffice office;
    DesktopHost host;
    /// What the program ended with.
    std::optional<int> exitCode;
    std::optional<App> app;
};

}
