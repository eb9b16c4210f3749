#pragma once

#include <span>
#include <string_view>

namespace rovanta {

/// One entry of the main menu. `parent` is empty on the bar.
struct MenuEntry {
    std::string_view parent;
    std::string_view name;
    std::string_view caption;
};

/// One command: which permissions open it (either is enough, none for both empty), how it is refused, what it opens.
struct MenuCommand {
    std::string_view name;
    std::string_view permission;
    std::string_view otherPermission;
    const char* denial;
    std::string_view screen;
};

/// One pop-up command: what it reads from the current row of a grid and which screen takes the key.
struct PopupCommand {
    std::string_view name;
    std::string_view permission;
    std::string_view otherPermission;
    std::string_view sourceForm;
    std::string_view sourceGrid;
    int sourceColumn;
    const char* emptyMessage;
    std::string_view screen;
};

/// The menu tree, parents before their entries.
std::span<const MenuEntry> MenuEntries();
/// The commands that test a permission and open a screen.
std::span<const MenuCommand> MenuCommands();
std::span<const PopupCommand> PopupCommands();

}
