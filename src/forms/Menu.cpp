#include "forms/Menu.h"

#include <stdexcept>

namespace rovanta {

static MenuItem* FindIn(std::deque<MenuItem>& entries, std::string_view name)
{
    for (MenuItem& entry : entries) {
        if (entry.name == name)
            return &entry;
        if (MenuItem* found = FindIn(entry.entries, name))
            return found;
    }
    return nullptr;
}

static bool CanPickIn(std::deque<MenuItem>& entries, std::string_view name)
{
    for (MenuItem& entry : entries) {
        if (entry.enabled && (entry.name == name || CanPickIn(entry.entries, name)))
            return true;
    }
    return false;
}

static void EnableIn(std::deque<MenuItem>& entries, bool enabled)
{
    for (MenuItem& entry : entries) {
        entry.enabled = enabled;
        EnableIn(entry.entries, enabled);
    }
}

MenuItem& Menu::Add(std::string_view parent, std::string name, std::string caption)
{
    std::deque<MenuItem>* entries = &bar;
    if (!parent.empty()) {
        MenuItem* above = Find(parent);
        if (!above)
            throw std::logic_error("Menu: no entry " + std::string(parent));
        entries = &above->entries;
    }
    MenuItem& item = entries->emplace_back();
    item.name = std::move(name);
    item.caption = std::move(caption);
    return item;
}

MenuItem* Menu::Find(std::string_view name)
{
    return FindIn(bar, name);
}

bool Menu::CanPick(std::string_view name)
{
    return CanPickIn(bar, name);
}

void Menu::EnableAll(bool enabled)
{
    EnableIn(bar, enabled);
}

}
