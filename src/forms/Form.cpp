#include "forms/Form.h"

#include <algorithm>
#include <stdexcept>

namespace rovanta {

Form::Form(std::string name, std::string caption) : name(std::move(name)), caption(std::move(caption)) {}

void Form::SetCaption(const std::string& text)
{
    if (caption == text)
        return;
    caption = text;
    if (view)
        view->FormChanged(*this);
}

void Form::SetEnabled(bool value)
{
    if (enabled == value)
        return;
    enabled = value;
    if (view)
        view->FormChanged(*this);
}

void Form::SetVisible(bool value)
{
    if (visible == value)
        return;
    visible = value;
    if (view)
        view->FormChanged(*this);
}

Control* Form::FindControl(std::string_view controlName) const
{
    const auto found =
        std::find_if(controls.begin(), controls.end(), [&](const Control* c) { return c->Name() == controlName; });
    return found == controls.end() ? nullptr : *found;
}

void Form::MoveFocus(Control& control)
{
    if (focused == &control)
        return;
    if (Control* left = std::exchange(focused, nullptr))
        left->Leave();
    // The routine of the control that was left may have brought the focus elsewhere, above all back to itself.
    if (focused)
        return;
    focused = &control;
    control.Enter();
    if (view && focused == &control)
        view->FocusMoved(control);
}

void Form::DropFocus(Control& control)
{
    if (focused == &control)
        focused = nullptr;
    control.Leave();
}

void Form::Register(Control& control)
{
    if (FindControl(control.Name()))
        throw std::logic_error("Form " + name + ": two controls named " + control.Name());
    controls.push_back(&control);
}

void Form::ControlChanged(Control& control)
{
    if (view)
        view->ControlChanged(control);
}

}
