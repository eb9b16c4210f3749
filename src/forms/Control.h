#pragma once

#include "forms/Event.h"

#include <string>

namespace rovanta {

class Form;

enum class ControlKind {
    TextBox,
    MaskedBox,
    RichTextBox,
    ComboBox,
    ListBox,
    CheckBox,
    OptionButton,
    DatePicker,
    Label,
    Button,
    Tabs,
    Grid,
    Picture
};

/// The kind as it is named to people and to scripts: "TextBox".
const char* NameOf(ControlKind kind);

enum class Visibility { Shown, Hidden };

/// One control of a form. It registers itself with the form that owns it and lives as long as it.
class Control {
public:
    Control(Form* form, std::string name, std::string caption, Visibility visibility);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    virtual ControlKind Kind() const = 0;

    Form& Owner() const { return form; }
    const std::string& Name() const { return name; }

    const std::string& Caption() const { return caption; }
    void SetCaption(const std::string& text);
    /// A remark behind the caption or the box, for example a unit.
    const std::string& Note() const { return note; }
    void SetNote(const std::string& text);

    bool Enabled() const { return enabled; }
    void SetEnabled(bool value);
    bool Visible() const { return visible; }
    void SetVisible(bool value);
    /// A control that shows its content but takes none from a person.
    bool ReadOnly() const { return readOnly; }
    void SetReadOnly(bool value);

    /// Brings the focus here: the control that has it is left, with its events.
    void SetFocus();

    Event GotFocus;
    Event LostFocus;

    /// The focus comes and goes, with the kind's own rule before the screen's routine.
    void Enter();
    void Leave();

protected:
    /// Tells the observer that this control is to be drawn anew.
    void Changed();
    /// What the kind itself does when the focus leaves.
    virtual void Leaving() {}

private:
    Form& form;
    std::string name;
    std::string caption;
    std::string note;
    bool enabled = true;
    bool visible;
    bool readOnly = false;
};

}
