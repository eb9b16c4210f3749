#pragma once

#include "forms/Control.h"
#include "values/DateTime.h"

#include <string>
#include <vector>

namespace rovanta {

/// A check box: 1 or 0.
class CheckBox : public Control {
public:
    CheckBox(Form* form, std::string name, std::string caption = {}, Visibility visibility = Visibility::Shown);
    ControlKind Kind() const override { return ControlKind::CheckBox; }

    int Value() const { return checked ? 1 : 0; }
    bool IsChecked() const { return checked; }
    /// Assigning fires Click, unless the box holds that value already.
    void operator=(bool value);

    Event Click;

private:
    bool checked = false;
};

class OptionButton;

/// The option buttons of which one is on.
class OptionGroup {
public:
    const std::vector<OptionButton*>& Members() const { return members; }

private:
    friend class OptionButton;
    std::vector<OptionButton*> members;
};

/// One option button of a group.
class OptionButton : public Control {
public:
    OptionButton(Form* form, OptionGroup& group, std::string name, std::string caption = {},
                 Visibility visibility = Visibility::Shown);
    ControlKind Kind() const override { return ControlKind::OptionButton; }

    bool Value() const { return on; }
    const OptionGroup& Group() const { return group; }
    /// Turning it on turns its neighbours off and fires Click; turning it off fires nothing.
    void operator=(bool value);

    Event Click;

private:
    OptionGroup& group;
    bool on = false;
};

/// A date picker. Its value may bear a time of day.
class DatePicker : public Control {
public:
    DatePicker(Form* form, std::string name, std::string caption = {}, Visibility visibility = Visibility::Shown);
    ControlKind Kind() const override { return ControlKind::DatePicker; }

    DateTime Value() const { return value; }
    void operator=(DateTime date);

    Event Change;

private:
    DateTime value;
};

/// A push button.
class Button : public Control {
public:
    Button(Form* form, std::string name, std::string caption = {}, Visibility visibility = Visibility::Shown);
    ControlKind Kind() const override { return ControlKind::Button; }

    Event Click;
};

/// A row of pages. The page in front is no state of the controls: one in the back answers like one in front.
class Tabs : public Control {
public:
    Tabs(Form* form, std::string name, std::vector<std::string> captions);
    ControlKind Kind() const override { return ControlKind::Tabs; }

    const std::vector<std::string>& Captions() const { return captions; }
    int Page() const { return page; }
    /// Brings a page to the front, counted from 0; throws std::logic_error when there is no such page.
    void SetPage(int index);

    Event Click;

private:
    std::vector<std::string> captions;
    int page = 0;
};

}
