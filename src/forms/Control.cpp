#include "forms/Control.h"

#include "forms/Form.h"

#include <stdexcept>

namespace rovanta {

const char* NameOf(ControlKind kind)
{
    switch (kind) {
    case ControlKind::TextBox:
        return "TextBox";
    case ControlKind::MaskedBox:
        return "MaskedBox";
    case ControlKind::RichTextBox:
        return "RichTextBox";
    case ControlKind::ComboBox:
        return "ComboBox";
    case ControlKind::ListBox:
        return "ListBox";
    case ControlKind::CheckBox:
        return "CheckBox";
    case ControlKind::OptionButton:
        return "OptionButton";
    case ControlKind::DatePicker:
        return "DatePicker";
    case ControlKind::Label:
        return "Label";
    case ControlKind::Button:
        return "Button";
    case ControlKind::Tabs:
        return "Tabs";
    case ControlKind::Grid:
        return "Grid";
    case ControlKind::Picture:
        return "Picture";
    }
    throw std::logic_error("NameOf: no such control kind");
}

Control::Control(Form* form, std::string name, std::string caption, Visibility visibility)
    : form(*form), name(std::move(name)), caption(std::move(caption)), visible(visibility == Visibility::Shown)
{
    form->Register(*this);
}

void Control::SetCaption(const std::string& text)
{
    if (caption == text)
        return;
    caption = text;
    Changed();
}

void Control::SetNote(const std::string& text)
{
    note = text;
    Changed();
}

void Control::SetEnabled(bool value)
{
    if (enabled == value)
        return;
    enabled = value;
    Changed();
}

void Control::SetVisible(bool value)
{
    if (visible == value)
        return;
    visible = value;
    Changed();
}

void Control::SetReadOnly(bool value)
{
    if (readOnly == value)
        return;
    readOnly = value;
    Changed();
}

void Control::SetFocus()
{
    form.MoveFocus(*this);
}

void Control::Enter()
{
    GotFocus.Fire();
}

void Control::Leave()
{
    Leaving();
    LostFocus.Fire();
}

void Control::Changed()
{
    form.ControlChanged(*this);
}

}
