#include "automation/ControlJson.h"

#include "automation/AutomationHost.h"
#include "automation/Parameters.h"
#include "forms/ChoiceControls.h"
#include "forms/Grid.h"
#include "forms/ListControls.h"
#include "forms/Picture.h"
#include "forms/TextControls.h"
#include "values/DateTime.h"
#include "values/Value.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <stdexcept>
#include <type_traits>

namespace rovanta {

static Json WhatItCarries(const TextControl& box)
{
    return {{"text", box.Text()}};
}

static Json WhatItCarries(const MaskedBox& box)
{
    return {{"text", box.Text()}, {"display", box.Display()}};
}

static Json WhatItCarries(const ComboBox& combo)
{
    return {{"text", combo.Text()}, {"listIndex", combo.ListIndex()}, {"list", combo.Entries()}};
}

static Json WhatItCarries(const ListBox& list)
{
    std::vector<bool> selected;
    for (int index = 0; index < list.ListCount(); ++index)
        selected.push_back(list.Selected(index));
    return {{"list", list.Entries()}, {"listIndex", list.ListIndex()}, {"selected", selected}};
}

static Json WhatItCarries(const CheckBox& box)
{
    return {{"value", box.Value()}, {"caption", box.Caption()}};
}

static Json WhatItCarries(const OptionButton& button)
{
    return {{"value", button.Value()}, {"caption", button.Caption()}};
}

static Json WhatItCarries(const DatePicker& picker)
{
    return {{"value", ToIsoText(picker.Value())}};
}

static Json WhatItCarries(const Label& label)
{
    return {{"caption", label.Caption()}};
}

static Json WhatItCarries(const Button& button)
{
    return {{"caption", button.Caption()}};
}

static Json WhatItCarries(const Tabs& tabs)
{
    return {{"page", tabs.Page()}, {"captions", tabs.Captions()}};
}

static Json WhatItCarries(const Grid& grid)
{
    return {{"rows", grid.Rows()},           {"cols", grid.Cols()}, {"fixedRows", grid.FixedRows()},
            {"fixedCols", grid.FixedCols()}, {"row", grid.Row()},   {"col", grid.Col()}};
}

static Json WhatItCarries(const Picture& picture)
{
    return {{"file", picture.File()}};
}

static Json ByKind(const Control& control)
{
    switch (control.Kind()) {
    case ControlKind::TextBox:
    case ControlKind::RichTextBox:
        return WhatItCarries(static_cast<const TextControl&>(control));
    case ControlKind::MaskedBox:
        return WhatItCarries(static_cast<const MaskedBox&>(control));
    case ControlKind::ComboBox:
        return WhatItCarries(static_cast<const ComboBox&>(control));
    case ControlKind::ListBox:
        return WhatItCarries(static_cast<const ListBox&>(control));
    case ControlKind::CheckBox:
        return WhatItCarries(static_cast<const CheckBox&>(control));
    case ControlKind::OptionButton:
        return WhatItCarries(static_cast<const OptionButton&>(control));
    case ControlKind::DatePicker:
        return WhatItCarries(static_cast<const DatePicker&>(control));
    case ControlKind::Label:
        return WhatItCarries(static_cast<const Label&>(control));
    case ControlKind::Button:
        return WhatItCarries(static_cast<const Button&>(control));
    case ControlKind::Tabs:
        return WhatItCarries(static_cast<const Tabs&>(control));
    case ControlKind::Grid:
        return WhatItCarries(static_cast<const Grid&>(control));
    case ControlKind::Picture:
        return WhatItCarries(static_cast<const Picture&>(control));
    }
    throw std::logic_error("ToJson: no such control kind");
}

Json ToJson(const Control& control)
{
    Json json = ByKind(control);
    json["kind"] = NameOf(control.Kind());
    json["enabled"] = control.Enabled();
    json["visible"] = control.Visible();
    return json;
}

static const char* NameOf(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::None:
        return "none";
    case MessageIcon::Exclamation:
        return "exclamation";
    case MessageIcon::Question:
        return "question";
    case MessageIcon::Information:
        return "information";
    case MessageIcon::Critical:
        return "critical";
    }
    throw std::logic_error("NameOf: no such icon");
}

static const char* NameOf(MessageAnswer answer)
{
    if (answer == MessageAnswer::Ok)
        return "ok";
    return answer == MessageAnswer::Yes ? "yes" : "no";
}

Json ToJson(const ShownMessage& shown)
{
    Json json = {{"title", shown.message.title},
                 {"text", shown.message.text},
                 {"icon", NameOf(shown.message.icon)},
                 {"buttons", shown.message.buttons == MessageButtons::Ok ? "ok" : "yesno"},
                 {"answer", NameOf(shown.answer)}};
    if (shown.unanswered)
        json["unanswered"] = true;
    return json;
}

Json ToJson(const Value& value)
{
    return std::visit(
        [](const auto& content) -> Json {
            using Kind = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<Kind, Null>)
                return nullptr;
            else if constexpr (std::is_same_v<Kind, DateTime>)
                return ToLongIsoText(content);
            else
                return content;
        },
        value.Get());
}

}
