#pragma once

#include "forms/Control.h"
#include "forms/Event.h"

#include <string>
#include <string_view>
#include <vector>

namespace rovanta {

class Button;
class Form;

/// How a shell learns that a form is to be drawn anew.
class FormView {
public:
    virtual ~FormView() = default;
    virtual void ControlChanged(Control& control) = 0;
    /// Caption, enabled state or visibility of the form itself.
    virtual void FormChanged(Form& form) = 0;
    virtual void FocusMoved(Control& control) = 0;
};

/// One logical window: its controls, its state, the observer that draws it.
class Form {
public:
    Form(std::string name, std::string caption);
    virtual ~Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& Name() const { return name; }
    const std::string& Caption() const { return caption; }
    void SetCaption(const std::string& text);

    /// A disabled form takes nothing from a person; another form stands before it.
    bool Enabled() const { return enabled; }
    void SetEnabled(bool value);
    bool Visible() const { return visible; }
    void SetVisible(bool value);

    const std::vector<Control*>& Controls() const { return controls; }
    /// The control of that name, or nullptr.
    Control* FindControl(std::string_view controlName) const;

    /// The control that has the focus, or nullptr.
    Control* Focused() const { return focused; }
    /// The focus comes to `control`; the one that had it is left first, with its events.
    void MoveFocus(Control& control);
    /// The focus goes from `control`, with its events, and comes to no other control.
    void DropFocus(Control& control);

    /// What Enter and Escape press; nullptr for nothing.
    Button* DefaultButton() const { return defaultButton; }
    void SetDefaultButton(Button& button) { defaultButton = &button; }
    Button* CancelButton() const { return cancelButton; }
    void SetCancelButton(Button& button) { cancelButton = &button; }

    /// The form is about to go: by its own close box or by its own routine.
    Event Unload;

    void SetView(FormView* observer) { view = observer; }

private:
    friend class Control;
    void Register(Control& control);
    void ControlChanged(Control& control);

    std::string name;
    std::string caption;
    bool enabled = true;
    bool visible = false;
    std::vector<Control*> controls;
    Control* focused = nullptr;
    Button* defaultButton = nullptr;
    Button* cancelButton = nullptr;
    FormView* view = nullptr;
};

}
