#include "forms/ChoiceControls.h"

#include <stdexcept>

namespace rovanta {

CheckBox::CheckBox(Form* form, std::string name, std::string caption, Visibility visibility)
    : Control(form, std::move(name), std::move(caption), visibility)
{
}

void CheckBox::operator=(bool value)
{
    if (checked == value)
        return;
    checked = value;
    Changed();
    Click.Fire();
}

OptionButton::OptionButton(Form* form, OptionGroup& group, std::string name, std::string caption, Visibility visibility)
    : Control(form, std::move(name), std::move(caption), visibility), group(group)
{
    group.members.push_back(this);
}

void OptionButton::operator=(bool value)
{
    if (on == value)
        return;
    on = value;
    Changed();
    if (!value)
        return;
    for (OptionButton* member : group.members) {
        if (member != this)
            *member = false;
    }
    Click.Fire();
}

DatePicker::DatePicker(Form* form, std::string name, std::string caption, Visibility visibility)
    : Control(form, std::move(name), std::move(caption), visibility)
{
}

void DatePicker::operator=(DateTime date)
{
    if (value == date)
        return;
    value = date;
    Changed();
    Change.Fire();
}

Button::Button(Form* form, std::string name, std::string caption, Visibility visibility)
    : Control(form, std::move(name), std::move(caption), visibility)
{
}

Tabs::Tabs(Form* form, std::string name, std::vector<std::string> captions)
    : Control(form, std::move(name), {}, Visibility::Shown), captions(std::move(captions))
{
}

void Tabs::SetPage(int index)
{
    if (index < 0 || index >= static_cast<int>(captions.size()))
        throw std::logic_error("Tabs " + Name() + ": no page " + std::to_string(index));
    if (page == index)
        return;
    page = index;
    Changed();
    Click.Fire();
}

}
