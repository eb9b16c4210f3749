#include <doctest/doctest.h>

#include "SampleDesk.h"

using namespace rovanta;
using namespace rovanta::tests;

TEST_CASE("A control is read with what its kind carries, and nothing else")
{
    SampleDesk at;
    const auto read = [&](const char* control) { return at.On("control.get", control); };
    at.Form().txtMoney = 1234.567;
    at.Form().cmbName.SetListIndex(1);
    at.Form().lstMany.SetSelected(1, true);
    at.Form().dtDate = DateTime::Of(2026, 3, 2, 15, 4, 5);

    CHECK(read("txtName") == Json::parse(R"({"kind":"TextBox","enabled":true,"visible":true,"text":""})"));
    CHECK(read("txtMoney") == Json::parse(R"({"kind":"MaskedBox","enabled":true,"visible":true,"text":"1234.567",
                                              "display":"$1,234.57"})"));
    CHECK(read("rtbText") == Json::parse(R"({"kind":"RichTextBox","enabled":true,"visible":true,"text":""})"));
    CHECK(read("cmbName") == Json::parse(R"({"kind":"ComboBox","enabled":true,"visible":true,"text":"Bruno",
                                             "listIndex":1,"list":["Anna","Bruno"]})"));
    CHECK(read("cmbNameID") == Json::parse(R"({"kind":"ComboBox","enabled":true,"visible":false,"text":"",
                                               "listIndex":-1,"list":["1","2"]})"));
    CHECK(read("lstMany") == Json::parse(R"({"kind":"ListBox","enabled":true,"visible":true,"listIndex":1,
                                             "list":["red","green","blue"],"selected":[false,true,false]})"));
    CHECK(read("chkFlag") ==
          Json::parse(R"({"kind":"CheckBox","enabled":true,"visible":true,"value":0,"caption":"Flag"})"));
    CHECK(read("optFirst") ==
          Json::parse(R"({"kind":"OptionButton","enabled":true,"visible":true,"value":false,"caption":"First"})"));
    CHECK(read("dtDate") ==
          Json::parse(R"({"kind":"DatePicker","enabled":true,"visible":true,"value":"2026-03-02 15:04:05"})"));
    CHECK(read("lblText") == Json::parse(R"({"kind":"Label","enabled":true,"visible":true,"caption":"A label"})"));
    CHECK(read("btnPress") == Json::parse(R"({"kind":"Button","enabled":true,"visible":true,"caption":"Press"})"));
    CHECK(read("tabs") ==
          Json::parse(R"({"kind":"Tabs","enabled":true,"visible":true,"page":0,"captions":["Front","Back"]})"));
    CHECK(read("grid") == Json::parse(R"({"kind":"Grid","enabled":true,"visible":true,"rows":3,"cols":3,"fixedRows":1,
                                          "fixedCols":1,"row":-1,"col":-1})"));
    CHECK(read("pic") == Json::parse(R"({"kind":"Picture","enabled":true,"visible":true,"file":""})"));
    CHECK(read("txtOff")["enabled"] == false);
    CHECK(read("txtHidden")["visible"] == false);

    at.Form().dtDate = DateTime::Of(2026, 3, 2);
    CHECK(read("dtDate")["value"] == "2026-03-02");
}

TEST_CASE("Setting a control replaces its content and fires its change logic, without a leave")
{
    SampleDesk at;
    const auto set = [&](const char* control, const Json& value) { at.On("control.set", control, {{"value", value}}); };

    set("txtName", "Spring");
    CHECK(at.Log() == "change Spring");
    set("txtName", "Spring");
    CHECK(at.Log() == "");
    set("txtName", 12.5);
    CHECK(at.Form().txtName.Text() == "12.5");
    set("txtName", true);
    CHECK(at.Form().txtName.Text() == "True");
    set("txtMoney", "$1,234.50");
    CHECK(at.Form().txtMoney.Text() == "$1,234.50");
    at.Log();

    set("cmbName", "bruno");
    CHECK(at.Log() == "click cmbName 2");
    set("cmbName", "Nobody");
    CHECK(at.Log() == "change cmbName");
    CHECK(at.Form().cmbName.ListIndex() == -1);
    set("lstOne", "green");
    CHECK(at.Form().lstOne.ListIndex() == 1);
    at.Log();

    for (const Json& on : {Json(true), Json(1), Json("1"), Json("true"), Json("True")}) {
        at.Form().chkFlag = false;
        set("chkFlag", on);
        CHECK(at.Form().chkFlag.IsChecked());
    }
    for (const Json& off : {Json(false), Json(0), Json("0"), Json("false")}) {
        at.Form().optFirst = true;
        set("optFirst", off);
        CHECK_FALSE(at.Form().optFirst.Value());
    }
    set("optSecond", true);
    CHECK(at.Form().optSecond.Value());

    set("dtDate", "2026-03-02");
    CHECK(at.Form().dtDate.Value() == DateTime::Of(2026, 3, 2));
    set("dtDate", "2026-03-02 08:30:00");
    CHECK(at.Form().dtDate.Value() == DateTime::Of(2026, 3, 2, 8, 30));
    set("dtDate", "12/31/2026");
    CHECK(at.Form().dtDate.Value() == DateTime::Of(2026, 12, 31));
    at.Log();
    set("tabs", 1);
    CHECK(at.Form().tabs.Page() == 1);
    CHECK(at.Log() == "click tabs");
    CHECK(at.Form().Focused() == nullptr);
}

TEST_CASE("A value that does not fit its control is refused and changes nothing")
{
    SampleDesk at;
    const auto error = [&](const char* control, const Json& value) {
        return at.ErrorOn("control.set", control, {{"value", value}});
    };
    CHECK(error("chkFlag", "maybe") == -32602);
    CHECK(error("chkFlag", 2) == -32602);
    CHECK(error("optFirst", "yes") == -32602);
    CHECK(error("dtDate", "2026-02-30") == -32602);
    CHECK(error("dtDate", 5) == -32602);
    CHECK(error("tabs", 2) == -32602);
    CHECK(error("tabs", -1) == -32602);
    CHECK(error("tabs", 0.5) == -32602);
    CHECK(error("lstOne", "yellow") == -32602);
    CHECK(error("txtName", Json::array({"a"})) == -32602);
    CHECK(error("txtName", nullptr) == -32602);
    for (const char* control : {"lblText", "btnPress", "grid", "pic"}) {
        CHECK(error(control, "x") == -32602);
        CHECK(at.lastError.find(control) != std::string::npos);
    }
    CHECK(at.ErrorOn("control.set", "txtName") == -32602);
    CHECK(at.lastError.find("\"value\"") != std::string::npos);
    CHECK(at.Log() == "");
}

TEST_CASE("A disabled, hidden or locked control is read but takes nothing")
{
    SampleDesk at;
    for (const char* control : {"txtOff", "txtHidden", "txtLocked"}) {
        CHECK(at.ErrorOn("control.set", control, {{"value", "x"}}) == -32001);
        CHECK(at.ErrorOn("control.key", control, {{"key", "x"}}) == -32001);
        CHECK(at.On("control.get", control)["text"] == "");
    }
    CHECK(at.ErrorOn("control.enter", "txtOff") == -32001);
    CHECK(at.ErrorOn("control.leave", "txtHidden") == -32001);
    CHECK(at.ErrorOn("control.pick", "cmbNameID", {{"index", 0}}) == -32001);
    at.Form().btnPress.SetEnabled(false);
    CHECK(at.ErrorOn("control.click", "btnPress") == -32001);
    CHECK(at.ErrorOn("control.doubleClick", "btnPress") == -32001);
    at.Form().chkFlag.SetReadOnly(true);
    CHECK(at.ErrorOn("control.click", "chkFlag") == -32001);
    CHECK(at.Log() == "");

    at.Form().SetEnabled(false);
    CHECK(at.ErrorOn("control.set", "txtName", {{"value", "x"}}) == -32001);
    CHECK(at.lastError == "The form \"frmSample\" is disabled.");
    at.Form().SetEnabled(true);
    at.Form().SetVisible(false);
    CHECK(at.ErrorOn("control.click", "btnAsk") == -32001);
    CHECK(at.On("control.get", "txtName")["text"] == "");
}

TEST_CASE("A missing form, control or parameter is named")
{
    SampleDesk at;
    CHECK(at.Error("control.get", {{"form", "frmNone"}, {"control", "txtName"}}) == -32602);
    CHECK(at.lastError == "The form \"frmNone\" is not open.");
    CHECK(at.ErrorOn("control.get", "txtNone") == -32602);
    CHECK(at.lastError == "The form \"frmSample\" has no control \"txtNone\".");
    CHECK(at.Error("control.get", {{"form", "frmSample"}}) == -32602);
    CHECK(at.lastError == "The parameter \"control\" is missing.");
    CHECK(at.Error("control.get", {{"form", 3}, {"control", "txtName"}}) == -32602);
    CHECK(at.lastError == "The parameter \"form\" must be a text.");
    CHECK(at.Error("control.get") == -32602);
}

TEST_CASE("Picking chooses an entry by place or text, also the one that stands already")
{
    SampleDesk at;
    at.On("control.pick", "cmbName", {{"index", 0}});
    CHECK(at.Log() == "click cmbName 1");
    at.On("control.pick", "cmbName", {{"text", "Anna"}});
    CHECK(at.Log() == "click cmbName 1");
    at.On("control.pick", "cmbName", {{"text", "BRUNO"}});
    CHECK(at.Form().cmbName.Text() == "Bruno");
    at.Log();
    at.On("control.pick", "lstOne", {{"index", 2}});
    CHECK(at.Form().lstOne.Selected(2));
    at.On("control.pick", "lstMany", {{"text", "red"}});
    at.On("control.pick", "lstMany", {{"index", 2}, {"selected", true}});
    at.On("control.pick", "lstMany", {{"index", 0}, {"selected", false}});
    CHECK(at.On("control.get", "lstMany")["selected"] == Json::parse("[false,false,true]"));

    at.Log();
    CHECK(at.ErrorOn("control.pick", "cmbName", {{"index", 2}}) == -32602);
    CHECK(at.ErrorOn("control.pick", "cmbName", {{"index", -1}}) == -32602);
    CHECK(at.ErrorOn("control.pick", "cmbName", {{"text", "Carla"}}) == -32602);
    CHECK(at.lastError == "The control \"cmbName\" of \"frmSample\" has no entry \"Carla\".");
    CHECK(at.ErrorOn("control.pick", "cmbName") == -32602);
    CHECK(at.ErrorOn("control.pick", "cmbName", {{"index", 0}, {"text", "Anna"}}) == -32602);
    CHECK(at.ErrorOn("control.pick", "lstOne", {{"index", 0}, {"selected", false}}) == -32602);
    CHECK(at.ErrorOn("control.pick", "lstMany", {{"index", 0}, {"selected", "no"}}) == -32602);
    CHECK(at.ErrorOn("control.pick", "txtName", {{"index", 0}}) == -32602);
    CHECK(at.Log() == "");
}

TEST_CASE("A key is one character, typed at the end of the content")
{
    SampleDesk at;
    at.On("control.key", "cmbName", {{"key", "b"}});
    CHECK(at.Log() == "key b; change cmbName");
    at.On("control.key", "txtName", {{"key", "A"}});
    at.On("control.key", "txtName", {{"key", "\xC3\xA9"}});
    CHECK(at.Form().txtName.Text() == "A\xC3\xA9");
    at.On("control.key", "txtName", {{"key", "\b"}});
    CHECK(at.Form().txtName.Text() == "A");
    CHECK(at.ErrorOn("control.key", "txtName", {{"key", "ab"}}) == -32602);
    CHECK(at.ErrorOn("control.key", "txtName", {{"key", ""}}) == -32602);
    CHECK(at.ErrorOn("control.key", "btnPress", {{"key", "a"}}) == -32602);
    CHECK(at.Form().txtName.Text() == "A");
}

TEST_CASE("The focus comes and goes with its events")
{
    SampleDesk at;
    at.On("control.enter", "txtName");
    CHECK(at.Log() == "enter txtName");
    at.On("control.enter", "txtName");
    CHECK(at.Log() == "");
    at.On("control.enter", "txtMoney");
    CHECK(at.Log() == "leave txtName");
    at.On("control.set", "txtMoney", {{"value", "$1,234.50"}});
    at.On("control.leave", "txtMoney");
    CHECK(at.Log() == "leave txtMoney");
    CHECK(at.Form().txtMoney.Text() == "1234.5");
    CHECK(at.Form().Focused() == nullptr);
    at.On("control.leave", "txtName");
    CHECK(at.Log() == "leave txtName");
    CHECK(at.ErrorOn("control.enter", "lblText") == -32602);
}

TEST_CASE("A click acts as the mouse does, and leaves the control that had the focus")
{
    SampleDesk at;
    at.On("control.click", "btnPress");
    CHECK(at.Log() == "click btnPress");
    at.On("control.click", "chkFlag");
    at.On("control.click", "chkFlag");
    CHECK(at.Log() == "click chkFlag; click chkFlag");
    CHECK_FALSE(at.Form().chkFlag.IsChecked());
    at.On("control.click", "optFirst");
    at.On("control.click", "optFirst");
    CHECK(at.Form().optFirst.Value());
    CHECK(at.Log() == "click optFirst");
    at.On("control.click", "lstOne");
    at.On("control.doubleClick", "lstOne");
    CHECK(at.Log() == "click lstOne; click lstOne; doubleClick lstOne");
    at.On("control.click", "cmbName");
    CHECK(at.Log() == "click cmbName ");
    at.On("control.click", "lblText");
    CHECK(at.Log() == "");

    at.On("control.enter", "txtName");
    at.On("control.click", "btnPress");
    CHECK(at.Log() == "enter txtName; leave txtName; click btnPress");
}

TEST_CASE("A click that a leaving control takes the focus back from does not happen")
{
    SampleDesk at;
    at.On("control.enter", "txtName");
    at.On("control.set", "txtName", {{"value", "stay"}});
    at.Log();
    at.On("control.click", "btnPress");
    CHECK(at.Log().find("click btnPress") == std::string::npos);
    CHECK(at.Form().Focused() == &at.Form().txtName);
}
