#pragma once

#include "forms/Menu.h"
#include "frame/Screen.h"

#include <set>
#include <string_view>

namespace rovanta {

/// The main window: a menu bar, and every other screen as a window inside it.
class MDI : public Screen {
public:
    static constexpr const char* screenName = "MDI";
    explicit MDI(App& app);

    Menu menu;
    /// The menus are to be drawn anew.
    Event MenuChanged;

    /// The commands whose screens do not exist yet; each says so in a message box after its permission test.
    static const std::set<std::string_view>& PendingCommands();

private:
    void BuildMenu();
    void WireCommands();
    void WirePopups();
    void OpenScreen(std::string_view command, std::string_view screen);
    void SayPending(std::string_view command);
    void mnuUpdateDB_Click();
};

}
