#include "automation/ControlJson.h"
#include "automation/RpcError.h"
#include "automation/Verbs.h"
#include "forms/ChoiceControls.h"
#include "forms/Form.h"
#include "forms/Grid.h"
#include "forms/ListControls.h"
#include "forms/TextControls.h"
#include "values/Text.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace rovanta {

static std::string Quoted(const Control& control)
{
    return "\"" + control.Name() + "\" of \"" + control.Owner().Name() + "\"";
}

/// A control that a person may change now, not only look at.
static Control& ControlToChange(Desk& desk, const Parameters& parameters)
{
    Control& control = NamedControl(desk, parameters);
    MustTakeInput(control);
    if (control.ReadOnly())
        throw Refused("The control " + Quoted(control) + " is for reading alone.");
    return control;
}

static Json GetControl(Desk& desk, const Parameters& parameters)
{
    return ToJson(NamedControl(desk, parameters));
}

static void EnterDate(DatePicker& picker, const Json& value)
{
    const std::optional<DateTime> date = value.is_string() ? ParseDate(value.get<std::string>()) : std::nullopt;
    if (!date)
        throw BadParameters("The parameter \"value\" must be a date for " + Quoted(picker) +
                            ": yyyy-mm-dd, yyyy-mm-dd hh:mm:ss or m/d/yyyy.");
    picker = *date;
}

static void EnterPage(Tabs& tabs, const Json& value)
{
    const std::optional<int> page = WholeNumber(value);
    if (!page || *page < 0 || *page >= static_cast<int>(tabs.Captions().size()))
        throw BadParameters("The parameter \"value\" must be the number of a page of " + Quoted(tabs) + ".");
    tabs.SetPage(*page);
}

/// The place of the entry that `index` or `text` tells, one of the two.
template <class List>
static int EntryOf(const List& list, const Parameters& parameters)
{
    if (parameters.Has("index") == parameters.Has("text"))
        throw BadParameters("One of the parameters \"index\" and \"text\" must tell the entry.");
    if (parameters.Has("text")) {
        const std::string text = TypedText(parameters.Get("text"), "text");
        const auto& entries = list.Entries();
        auto found = std::find(entries.begin(), entries.end(), text);
        if (found == entries.end())
            found = std::find_if(entries.begin(), entries.end(),
                                 [&](const std::string& entry) { return EqualNoCase(entry, text); });
        if (found == entries.end())
            throw BadParameters("The control " + Quoted(list) + " has no entry \"" + text + "\".");
        return static_cast<int>(found - entries.begin());
    }
    const int index = parameters.Number("index");
    if (index < 0 || index >= list.ListCount())
        throw BadParameters("The control " + Quoted(list) + " has no entry " + std::to_string(index) + ".");
    return index;
}

static void EnterEntry(ListBox& list, const Json& value)
{
    const Json text = {{"text", TypedText(value, "value")}};
    list.Pick(EntryOf(list, Parameters(text)));
}

static Json SetControl(Desk& desk, const Parameters& parameters)
{
    Control& control = ControlToChange(desk, parameters);
    const Json& value = parameters.Get("value");
    switch (control.Kind()) {
    case ControlKind::TextBox:
    case ControlKind::MaskedBox:
    case ControlKind::RichTextBox:
        static_cast<TextControl&>(control).SetText(TypedText(value, "value"));
        break;
    case ControlKind::ComboBox:
        static_cast<ComboBox&>(control).SetText(TypedText(value, "value"));
        break;
    case ControlKind::ListBox:
        EnterEntry(static_cast<ListBox&>(control), value);
        break;
    case ControlKind::CheckBox:
        static_cast<CheckBox&>(control) = TypedFlag(value, "value");
        break;
    case ControlKind::OptionButton:
        static_cast<OptionButton&>(control) = TypedFlag(value, "value");
        break;
    case ControlKind::DatePicker:
        EnterDate(static_cast<DatePicker&>(control), value);
        break;
    case ControlKind::Tabs:
        EnterPage(static_cast<Tabs&>(control), value);
        break;
    case ControlKind::Label:
    case ControlKind::Button:
    case ControlKind::Grid:
    case ControlKind::Picture:
        throw BadParameters("The control " + Quoted(control) + " is a " + NameOf(control.Kind()) +
                            " and takes no value.");
    }
    return Json::object();
}

static Json PickEntry(Desk& desk, const Parameters& parameters)
{
    Control& control = ControlToChange(desk, parameters);
    if (control.Kind() == ControlKind::ComboBox) {
        auto& combo = static_cast<ComboBox&>(control);
        combo.Pick(EntryOf(combo, parameters));
        return Json::object();
    }
    if (control.Kind() != ControlKind::ListBox)
        throw BadParameters("The control " + Quoted(control) + " has no list to pick from.");
    auto& list = static_cast<ListBox&>(control);
    const int entry = EntryOf(list, parameters);
    const bool selected = !parameters.Has("selected") || parameters.Flag("selected");
    if (list.TakesSeveral())
        list.SetSelected(entry, selected);
    else if (selected)
        list.Pick(entry);
    else
        throw BadParameters("The list " + Quoted(list) + " takes one entry: \"selected\" cannot be false.");
    return Json::object();
}

/// The last character of a UTF-8 text goes.
static std::string WithoutLastCharacter(std::string text)
{
    while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0xC0) == 0x80)
        text.pop_back();
    if (!text.empty())
        text.pop_back();
    return text;
}

static Json PressKey(Desk& desk, const Parameters& parameters)
{
    Control& control = ControlToChange(desk, parameters);
    const std::string key = parameters.Text("key");
    if (CharacterCount(key) != 1)
        throw BadParameters("The parameter \"key\" must be one character.");
    if (control.Kind() == ControlKind::ComboBox) {
        static_cast<ComboBox&>(control).PressKey(key);
        return Json::object();
    }
    auto* box = dynamic_cast<TextControl*>(&control);
    if (!box)
        throw BadParameters("The control " + Quoted(control) + " is a " + NameOf(control.Kind()) +
                            " and takes no key.");
    box->SetText(key == "\b" ? WithoutLastCharacter(box->Text()) : box->Text() + key);
    return Json::object();
}

static Control& ControlForFocus(Desk& desk, const Parameters& parameters)
{
    Control& control = NamedControl(desk, parameters);
    MustTakeInput(control);
    if (control.Kind() == ControlKind::Label || control.Kind() == ControlKind::Picture)
        throw BadParameters("The control " + Quoted(control) + " is a " + NameOf(control.Kind()) +
                            " and takes no focus.");
    return control;
}

static Json EnterControl(Desk& desk, const Parameters& parameters)
{
    ControlForFocus(desk, parameters).SetFocus();
    return Json::object();
}

static Json LeaveControl(Desk& desk, const Parameters& parameters)
{
    Control& control = ControlForFocus(desk, parameters);
    control.Owner().DropFocus(control);
    return Json::object();
}

/// One press of the left button, the control's own answer to it. Returns whether the control still takes a second one.
static bool Press(Control& control)
{
    if (!FocusByMouse(control))
        return false;
    switch (control.Kind()) {
    case ControlKind::Button:
        static_cast<Button&>(control).Click.Fire();
        break;
    case ControlKind::CheckBox: {
        auto& box = static_cast<CheckBox&>(control);
        box = !box.IsChecked();
        break;
    }
    case ControlKind::OptionButton:
        static_cast<OptionButton&>(control) = true;
        break;
    case ControlKind::ListBox:
        static_cast<ListBox&>(control).Click.Fire();
        break;
    case ControlKind::ComboBox:
        static_cast<ComboBox&>(control).Click.Fire();
        break;
    case ControlKind::Grid:
        static_cast<Grid&>(control).Click.Fire();
        break;
    default:
        break;
    }
    return control.Owner().Visible() && control.Owner().Enabled() && control.Visible() && control.Enabled();
}

static Control& ControlToPress(Desk& desk, const Parameters& parameters)
{
    const Control& named = NamedControl(desk, parameters);
    const bool changes = named.Kind() == ControlKind::CheckBox || named.Kind() == ControlKind::OptionButton;
    if (changes)
        return ControlToChange(desk, parameters);
    Control& control = NamedControl(desk, parameters);
    MustTakeInput(control);
    return control;
}

static Json ClickControl(Desk& desk, const Parameters& parameters)
{
    Press(ControlToPress(desk, parameters));
    return Json::object();
}

static Json DoubleClickControl(Desk& desk, const Parameters& parameters)
{
    Control& control = ControlToPress(desk, parameters);
    if (!Press(control))
        return Json::object();
    if (control.Kind() == ControlKind::ListBox)
        static_cast<ListBox&>(control).DoubleClick.Fire();
    if (control.Kind() == ControlKind::Grid)
        static_cast<Grid&>(control).DoubleClick.Fire();
    return Json::object();
}

void AddControlVerbs(VerbTable& table)
{
    table["control.get"] = GetControl;
    table["control.set"] = SetControl;
    table["control.pick"] = PickEntry;
    table["control.key"] = PressKey;
    table["control.enter"] = EnterControl;
    table["control.leave"] = LeaveControl;
    table["control.click"] = ClickControl;
    table["control.doubleClick"] = DoubleClickControl;
}

}
