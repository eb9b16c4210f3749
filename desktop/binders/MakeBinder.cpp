#include "desktop/FormWindow.h"
#include "desktop/binders/ChoiceBinders.h"
#include "desktop/binders/GridBinder.h"
#include "desktop/binders/ListBinders.h"
#include "desktop/binders/PictureBinder.h"
#include "desktop/binders/TextBinders.h"

#include <stdexcept>

namespace rovanta {

static bool HasSeveralLines(const TextControl& box, const Node& node)
{
    const auto* text = dynamic_cast<const TextBox*>(&box);
    return node.lines > 1 || (text && text->Lines() > 1);
}

std::unique_ptr<Binder> MakeBinder(FormWindow& window, Control& control, const Node& node)
{
    switch (control.Kind()) {
    case ControlKind::TextBox:
    case ControlKind::MaskedBox: {
        auto& box = static_cast<TextControl&>(control);
        if (HasSeveralLines(box, node))
            return std::make_unique<MemoBinder>(window, box, node);
        return std::make_unique<LineBinder>(window, box, node);
    }
    case ControlKind::RichTextBox:
        return std::make_unique<MemoBinder>(window, static_cast<TextControl&>(control), node);
    case ControlKind::ComboBox:
        return std::make_unique<ComboBinder>(window, static_cast<ComboBox&>(control), node);
    case ControlKind::ListBox:
        return std::make_unique<ListBinder>(window, static_cast<ListBox&>(control), node);
    case ControlKind::CheckBox:
        return std::make_unique<CheckBinder>(window, static_cast<CheckBox&>(control), node);
    case ControlKind::OptionButton:
        return std::make_unique<OptionBinder>(window, static_cast<OptionButton&>(control), node);
    case ControlKind::DatePicker:
        return std::make_unique<DateBinder>(window, static_cast<DatePicker&>(control), node);
    case ControlKind::Label:
        return std::make_unique<LabelBinder>(window, static_cast<Label&>(control), node);
    case ControlKind::Button:
        return std::make_unique<ButtonBinder>(window, static_cast<Button&>(control));
    case ControlKind::Tabs:
        return std::make_unique<TabsBinder>(window, static_cast<Tabs&>(control));
    case ControlKind::Grid:
        return std::make_unique<GridBinder>(window, static_cast<Grid&>(control), node);
    case ControlKind::Picture:
        return std::make_unique<PictureBinder>(window, static_cast<Picture&>(control), node);
    }
    throw std::logic_error("No binder for the control " + control.Name());
}

}
