#include <doctest/doctest.h>

#include "forms/ChoiceControls.h"
#include "forms/Log.h"

#include <stdexcept>

using namespace rovanta;
using namespace rovanta::tests;

TEST_CASE("A check box is 1 or 0 and fires a click when it changes")
{
    Form form("frm", "");
    CheckBox box(&form, "chk", "Inactive");
    Log log;
    box.Click = [&] { log("click:" + std::to_string(box.Value())); };
    box = false;
    CHECK(log.Take() == "");
    box = true;
    box = true;
    box = false;
    CHECK(log.Take() == "click:1 click:0");
    CHECK_FALSE(box.IsChecked());
}

TEST_CASE("Choosing one option button clears its neighbours, without an event of theirs")
{
    Form form("frm", "");
    OptionGroup group;
    OptionButton one(&form, group, "one");
    OptionButton two(&form, group, "two");
    OptionButton three(&form, group, "three");
    OptionGroup elsewhere;
    OptionButton other(&form, elsewhere, "other");
    Log log;
    for (OptionButton* button : {&one, &two, &three, &other})
        button->Click = [&log, button] { log(button->Name()); };
    other = true;
    one = true;
    two = true;
    two = true;
    CHECK(log.Take() == "other one two");
    CHECK_FALSE(one.Value());
    CHECK(two.Value());
    CHECK(other.Value());
    two = false;
    CHECK(log.Take() == "");
    CHECK_FALSE(two.Value());
    CHECK(group.Members().size() == 3);
}

TEST_CASE("When an option button's routine runs, its neighbours are off already")
{
    Form form("frm", "");
    OptionGroup group;
    OptionButton one(&form, group, "one");
    OptionButton two(&form, group, "two");
    bool oneWasOn = true;
    two.Click = [&] { oneWasOn = one.Value(); };
    one = true;
    two = true;
    CHECK_FALSE(oneWasOn);
}

TEST_CASE("A date picker holds a date with its time and fires when it changes")
{
    Form form("frm", "");
    DatePicker picker(&form, "dt");
    Log log;
    picker.Change = [&] { log(ToIsoText(picker.Value())); };
    CHECK(picker.Value() == DateTime());
    picker = DateTime::Of(2026, 3, 2);
    picker = DateTime::Of(2026, 3, 2);
    picker = DateTime::Of(2026, 3, 2, 8, 30);
    CHECK(log.Take() == "2026-03-02 2026-03-02 08:30:00");
}

TEST_CASE("Turning a page fires a click; a page that is not there is a mistake of the program")
{
    Form form("frm", "");
    Tabs tabs(&form, "tab", {"Front", "Back"});
    Log log;
    tabs.Click = [&] { log(std::to_string(tabs.Page())); };
    tabs.SetPage(0);
    CHECK(log.Take() == "");
    tabs.SetPage(1);
    tabs.SetPage(0);
    CHECK(log.Take() == "1 0");
    CHECK_THROWS_AS(tabs.SetPage(2), std::logic_error);
    CHECK_THROWS_AS(tabs.SetPage(-1), std::logic_error);
    CHECK(tabs.Page() == 0);
    CHECK(tabs.Captions().size() == 2);
}

TEST_CASE("A page in the back does not change its controls")
{
    Form form("frm", "");
    Tabs tabs(&form, "tab", {"Front", "Back"});
    CheckBox box(&form, "chk");
    tabs.SetPage(1);
    CHECK(box.Visible());
    box = true;
    CHECK(box.IsChecked());
}
