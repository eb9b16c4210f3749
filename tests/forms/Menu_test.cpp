#include <doctest/doctest.h>

#include "forms/Menu.h"

#include <stdexcept>

using namespace rovanta;

namespace {

Menu SampleMenu()
{
    Menu menu;
    menu.Add("", "File", "File");
    menu.Add("File", "Setup", "Setup");
    menu.Add("File", "Exit", "Exit");
    menu.Add("", "Reports", "Reports");
    menu.Add("Reports", "Sales", "Sales");
    menu.Add("Sales", "ByItem", "By Item");
    return menu;
}

}

TEST_CASE("Entries stand below their parents, in the order of their making")
{
    Menu menu = SampleMenu();
    CHECK(menu.Bar().size() == 2);
    CHECK(menu.Find("File")->entries[1].name == "Exit");
    CHECK(menu.Find("ByItem")->caption == "By Item");
    CHECK(menu.Find("None") == nullptr);
    CHECK_FALSE(menu.Find("Sales")->IsCommand());
    CHECK(menu.Find("ByItem")->IsCommand());
    CHECK_THROWS_AS(menu.Add("None", "x", "x"), std::logic_error);
}

TEST_CASE("Entries keep their address as the tree grows")
{
    Menu menu = SampleMenu();
    const MenuItem* exit = menu.Find("Exit");
    for (int count = 0; count < 100; ++count)
        menu.Add("File", "Entry" + std::to_string(count), "");
    CHECK(menu.Find("Exit") == exit);
}

TEST_CASE("A command can be picked while it and every menu above it are enabled")
{
    Menu menu = SampleMenu();
    CHECK(menu.CanPick("ByItem"));
    CHECK_FALSE(menu.CanPick("None"));
    menu.Find("Reports")->enabled = false;
    CHECK_FALSE(menu.CanPick("ByItem"));
    menu.EnableAll(false);
    CHECK_FALSE(menu.CanPick("Exit"));
    menu.Find("File")->enabled = true;
    menu.Find("Exit")->enabled = true;
    CHECK(menu.CanPick("Exit"));
    CHECK_FALSE(menu.CanPick("Setup"));
    menu.EnableAll(true);
    CHECK(menu.CanPick("ByItem"));
    CHECK(menu.CanPick("Setup"));
}
