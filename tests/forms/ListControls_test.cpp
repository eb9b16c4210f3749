#include <doctest/doctest.h>

#include "forms/ListControls.h"
#include "forms/Log.h"

using namespace rovanta;
using namespace rovanta::tests;

namespace {

struct Combos : Form {
    Combos() : Form("frm", "")
    {
        for (const char* entry : {"Anna", "Bruno", "anna", "Bruno Mars"})
            combo.AddItem(entry);
        combo.Click = [this] { log("click:" + std::to_string(combo.ListIndex())); };
        combo.Change = [this] { log("change:" + combo.Text()); };
    }

    Log log;
    ComboBox combo{this, "cmb"};
};

}

TEST_CASE("A combo whose text is set to an entry stands on it and fires a click")
{
    Combos form;
    form.combo = "Bruno";
    CHECK(form.log.Take() == "click:1");
    form.combo = "Bruno";
    CHECK(form.log.Take() == "");
    form.combo = "BRUNO MARS";
    CHECK(form.log.Take() == "click:3");
    CHECK(form.combo.Text() == "Bruno Mars");
    form.combo = "bruno mars";
    CHECK(form.log.Take() == "");
    // Of two entries that differ in case alone the one that is written so is meant.
    form.combo = "anna";
    CHECK(form.combo.ListIndex() == 2);
    form.combo = "ANNA";
    CHECK(form.combo.ListIndex() == 0);
}

TEST_CASE("A combo whose text is no entry has none chosen and fires a change")
{
    Combos form;
    form.combo = "Bruno";
    form.log.Take();
    form.combo = "Bru";
    CHECK(form.log.Take() == "change:Bru");
    CHECK(form.combo.ListIndex() == -1);
    form.combo = "Bru";
    CHECK(form.log.Take() == "");
    form.combo = "";
    CHECK(form.log.Take() == "change:");
    CHECK(form.combo.IsEmpty());
}

TEST_CASE("Choosing a place writes its entry; a place beyond the list is none")
{
    Combos form;
    form.combo.SetListIndex(1);
    CHECK(form.log.Take() == "click:1");
    CHECK(form.combo.Text() == "Bruno");
    form.combo.SetListIndex(1);
    CHECK(form.log.Take() == "");
    form.combo.SetListIndex(99);
    CHECK(form.log.Take() == "click:-1");
    CHECK(form.combo.Text() == "");
    form.combo.SetListIndex(-1);
    CHECK(form.log.Take() == "");
    form.combo = "typed";
    form.log.Take();
    form.combo.SetListIndex(-1);
    CHECK(form.combo.Text() == "");
}

TEST_CASE("A person's pick fires a click also on the entry that stands already")
{
    Combos form;
    form.combo.Pick(0);
    form.combo.Pick(0);
    form.combo.Pick(2);
    CHECK(form.log.Take() == "click:0 click:0 click:2");
}

TEST_CASE("Emptying a combo fires nothing")
{
    Combos form;
    form.combo.Pick(1);
    form.log.Take();
    form.combo.Clear();
    CHECK(form.log.Take() == "");
    CHECK(form.combo.ListCount() == 0);
    CHECK(form.combo.ListIndex() == -1);
    CHECK(form.combo.Text() == "");
    CHECK(form.combo.List(0) == "");
    CHECK(form.combo.List(-1) == "");
}

TEST_CASE("A key is typed at the end, unless the screen's routine swallows it")
{
    Combos form;
    form.combo = "Brun";
    form.log.Take();
    form.combo.PressKey("o");
    CHECK(form.log.Take() == "click:1");
    form.combo.KeyPress = [&](std::string& key) {
        form.log("key:" + key);
        key.clear();
    };
    form.combo.PressKey("x");
    CHECK(form.log.Take() == "key:x");
    CHECK(form.combo.Text() == "Bruno");
}

TEST_CASE("A combo pair is linked by position alone")
{
    Form form("frm", "");
    ComboPair pair(&form, "cmbBus", "Bus");
    ComboPair other(&form, "cmbState", "cmbStateKey", "State");
    pair.AddPair("Coach", "7");
    pair.AddPair("Coach", "9");
    pair.AddPair("Trailer", "8");
    CHECK(pair.id.Name() == "cmbBusID");
    CHECK(other.id.Name() == "cmbStateKey");
    CHECK_FALSE(pair.id.Visible());
    CHECK(pair.Key() == "");
    pair.SetListIndex(1);
    CHECK(pair.Key() == "9");
    pair = "Trailer";
    CHECK(pair.Key() == "8");
    pair = "Nothing";
    CHECK(pair.Key() == "");
    pair.SelectKey("9");
    CHECK(pair.ListIndex() == 1);
    pair.SelectKey("77");
    CHECK(pair.ListIndex() == -1);
    CHECK(pair.Text() == "");
    pair.ClearPair();
    CHECK(pair.ListCount() == 0);
    CHECK(pair.id.ListCount() == 0);
}

namespace {

struct Lists : Form {
    Lists() : Form("frm", "")
    {
        for (ListBox* list : {&one, &several}) {
            for (const char* entry : {"a", "b", "c", "d"})
                list->AddItem(entry);
            list->Click = [this, list] { log("click:" + list->Name()); };
        }
    }

    Log log;
    ListBox one{this, "one"};
    ListBox several{this, "several", "", Visibility::Shown, Choosing::Several};
};

}

TEST_CASE("A list of one choice has one entry chosen")
{
    Lists form;
    form.one.SetListIndex(1);
    CHECK(form.log.Take() == "click:one");
    form.one.SetListIndex(1);
    CHECK(form.log.Take() == "");
    form.one.SetListIndex(2);
    CHECK_FALSE(form.one.Selected(1));
    CHECK(form.one.Selected(2));
    form.one.SetSelected(0, true);
    CHECK(form.one.ListIndex() == 0);
    form.one.SetSelected(0, false);
    CHECK(form.one.ListIndex() == -1);
    form.one.SetListIndex(9);
    CHECK(form.one.ListIndex() == -1);
    form.log.Take();
    form.one.Pick(3);
    form.one.Pick(3);
    CHECK(form.log.Take() == "click:one click:one");
}

TEST_CASE("A list of several choices keeps each by itself")
{
    Lists form;
    form.several.SetSelected(0, true);
    form.several.SetSelected(2, true);
    form.several.SetSelected(2, true);
    CHECK(form.log.Take() == "click:several click:several");
    CHECK(form.several.Selected(0));
    CHECK(form.several.Selected(2));
    form.several.SetSelected(0, false);
    CHECK_FALSE(form.several.Selected(0));
    form.several.SetSelected(9, true);
    CHECK_FALSE(form.several.Selected(9));
    CHECK_FALSE(form.several.Selected(-1));
}

TEST_CASE("Removing an entry leaves the choice on the entry it stood on")
{
    Lists form;
    form.one.SetListIndex(2);
    form.one.RemoveItem(0);
    CHECK(form.one.ListIndex() == 1);
    CHECK(form.one.List(1) == "c");
    CHECK(form.one.Selected(1));
    form.one.RemoveItem(2);
    CHECK(form.one.ListIndex() == 1);
    form.one.RemoveItem(1);
    CHECK(form.one.ListIndex() == -1);
    form.one.RemoveItem(5);
    CHECK(form.one.Entries() == std::vector<std::string>{"b"});
    form.several.SetSelected(3, true);
    form.several.RemoveItem(1);
    CHECK(form.several.Selected(2));
    form.several.Clear();
    CHECK(form.several.ListCount() == 0);
    CHECK(form.several.ListIndex() == -1);
}
