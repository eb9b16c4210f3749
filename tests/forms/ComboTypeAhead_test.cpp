#include <doctest/doctest.h>

#include "forms/ComboTypeAhead.h"
#include "forms/Log.h"

using namespace rovanta;
using namespace rovanta::tests;

namespace {

struct Office : Form {
    Office() : Form("frm", "")
    {
        for (const char* entry : {"Alder", "Birch", "Blue Comet", "Blue Harbor", "Cedar"}) {
            first.AddItem(entry);
            second.AddItem(entry);
        }
        first.Click = [this] { log(first.Text()); };
    }

    /// Presses a key at a time in seconds and tells the entry that stands then.
    std::string Press(ComboBox& combo, std::string key, double now, double delay = 1)
    {
        ComboTypeAhead(combo, key, state, now, delay);
        CHECK(key == "");
        return combo.Text();
    }

    Log log;
    ComboBox first{this, "cmbFirst"};
    ComboBox second{this, "cmbSecond"};
    TypeAheadState state;
};

}

TEST_CASE("Letters typed in time are gathered and find the first entry that begins with them, in any case")
{
    Office office;
    CHECK(office.Press(office.first, "b", 100) == "Birch");
    CHECK(office.Press(office.first, "L", 100.5) == "Blue Comet");
    CHECK(office.Press(office.first, "u", 101.2) == "Blue Comet");
    CHECK(office.Press(office.first, "e", 101.9) == "Blue Comet");
    CHECK(office.Press(office.first, " ", 102.8) == "Blue Comet");
    CHECK(office.Press(office.first, "h", 103.7) == "Blue Harbor");
    CHECK(office.log.Take() == "Birch Blue Comet Blue Harbor");
}

TEST_CASE("An accented letter finds its capital")
{
    Office office;
    office.first.AddItem("Édith");
    CHECK(office.Press(office.first, "é", 100) == "Édith");
    CHECK(office.Press(office.first, "D", 100.5) == "Édith");
    CHECK(office.Press(office.first, "x", 101) == "Édith");
}

TEST_CASE("A key after the delay begins a new search; the delay itself is too long already")
{
    Office office;
    office.Press(office.first, "b", 100);
    CHECK(office.Press(office.first, "c", 101) == "Cedar");
    CHECK(office.Press(office.first, "a", 101.999) == "Cedar");
    CHECK(office.state.searchText == "ca");
    CHECK(office.Press(office.first, "a", 103.5) == "Alder");
}

TEST_CASE("Without a delay every key begins a new search")
{
    Office office;
    CHECK(office.Press(office.first, "b", 100, 0) == "Birch");
    CHECK(office.Press(office.first, "c", 100, 0) == "Cedar");
}

TEST_CASE("Another combo begins a new search")
{
    Office office;
    office.Press(office.first, "b", 100);
    CHECK(office.Press(office.second, "c", 100.1) == "Cedar");
    CHECK(office.first.Text() == "Birch");
    CHECK(office.Press(office.first, "a", 100.2) == "Alder");
}

TEST_CASE("A key that finds nothing is swallowed, leaves the choice and lengthens the search")
{
    Office office;
    office.Press(office.first, "b", 100);
    CHECK(office.Press(office.first, "x", 100.1) == "Birch");
    CHECK(office.Press(office.first, "l", 100.2) == "Birch");
    CHECK(office.state.searchText == "bxl");
    CHECK(office.Press(office.first, "\b", 100.3) == "Birch");
    CHECK(office.state.searchText == "bxl\b");
}

TEST_CASE("A key after midnight follows one from before it without a time-out")
{
    Office office;
    CHECK(office.Press(office.first, "b", 86399) == "Birch");
    CHECK(office.Press(office.first, "l", 3) == "Blue Comet");
    CHECK(office.Press(office.first, "u", 3.5) == "Blue Comet");
    CHECK(office.state.searchText == "blu");
}

TEST_CASE("The very first key begins a search, whatever the time")
{
    Office office;
    CHECK(office.Press(office.first, "c", 0.2, 5) == "Cedar");
}
