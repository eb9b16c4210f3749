#pragma once

#include "forms/Event.h"

#include <deque>
#include <string>
#include <string_view>

namespace rovanta {

/// One entry of a menu: a command, or a menu that only holds its entries.
struct MenuItem {
    std::string name;
    std::string caption;
    bool enabled = true;
    bool visible = true;
    std::deque<MenuItem> entries;
    Event Click;

    bool IsCommand() const { return entries.empty(); }
};

/// A tree of menus. Entries keep their address as the tree grows.
class Menu {
public:
    /// Adds an entry below the one named `parent`, on the bar itself when `parent` is empty.
    /// Throws std::logic_error when there is no such parent.
    MenuItem& Add(std::string_view parent, std::string name, std::string caption);

    /// The entry of that name, or nullptr.
    MenuItem* Find(std::string_view name);
    /// Whether the entry and every menu above it are enabled. The two menus that only pop up are hidden on the bar,
    /// so visibility is not asked.
    bool CanPick(std::string_view name);

    void EnableAll(bool enabled);
    std::deque<MenuItem>& Bar() { return bar; }

private:
    std::deque<MenuItem> bar;
};

}
