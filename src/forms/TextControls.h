#pragma once

#include "forms/Control.h"

#include <string>
#include <string_view>

namespace rovanta {

/// What every box with a text shares.
class TextControl : public Control {
public:
    using Control::Control;

    const std::string& Text() const { return text; }
    bool IsEmpty() const { return text.empty(); }
    /// The leading number of the text, 0 for a blank.
    double Val() const;
    /// Assigning fires Change, unless the box holds that text already.
    void SetText(const std::string& newText);

    Event Change;

private:
    std::string text;
};

/// A plain text box. Entering it selects its whole content.
class TextBox : public TextControl {
public:
    TextBox(Form* form, std::string name, std::string caption = {}, Visibility visibility = Visibility::Shown);
    TextBox(Form* form, std::string name, Visibility visibility);

    ControlKind Kind() const override { return ControlKind::TextBox; }
    void operator=(const std::string& newText) { SetText(newText); }
    void operator=(double number);

    /// Several lines; `lines` is how many are seen at once.
    int Lines() const { return lines; }
    void SetLines(int count) { lines = count; }
    /// Shows a mark for each character.
    bool Secret() const { return secret; }
    void SetSecret() { secret = true; }

private:
    int lines = 1;
    bool secret = false;
};

/// A box that holds a plain content and shows it under a picture while the focus is elsewhere.
class MaskedBox : public TextControl {
public:
    MaskedBox(Form* form, std::string name, std::string caption, std::string picture, Visibility visibility);

    ControlKind Kind() const override { return ControlKind::MaskedBox; }
    const std::string& Picture() const { return picture; }
    /// The content as it is shown.
    virtual std::string Display() const;
    /// The content as a number: an empty mask gives 0.
    double Number() const;

    void operator=(const std::string& newText) { SetText(newText); }
    void operator=(double number);

protected:
    void Leaving() override;

private:
    std::string picture;
};

/// A money box: "$#,##0.00;($#,##0.00)", the unrounded number inside.
class MoneyBox : public MaskedBox {
public:
    MoneyBox(Form* form, std::string name, std::string caption = {}, Visibility visibility = Visibility::Shown);
    using MaskedBox::operator=;
};

/// A percent box: "#,##0.0%"; 0.125 inside shows as 12.5%.
class PercentBox : public MaskedBox {
public:
    PercentBox(Form* form, std::string name, std::string caption = {}, Visibility visibility = Visibility::Shown);
    using MaskedBox::operator=;
};

/// A telephone box: ten digits show as (615) 555-0100, anything else as it was typed.
class PhoneBox : public MaskedBox {
public:
    PhoneBox(Form* form, std::string name, std::string caption = {}, Visibility visibility = Visibility::Shown);
    using MaskedBox::operator=;
    std::string Display() const override;

protected:
    void Leaving() override {}
};

/// A box that holds a document in rich text.
class RichTextBox : public TextControl {
public:
    RichTextBox(Form* form, std::string name, std::string caption = {}, Visibility visibility = Visibility::Shown);
    ControlKind Kind() const override { return ControlKind::RichTextBox; }
    void operator=(const std::string& newText) { SetText(newText); }
};

/// A text that a person only reads.
class Label : public Control {
public:
    Label(Form* form, std::string name, std::string caption = {}, Visibility visibility = Visibility::Shown);
    ControlKind Kind() const override { return ControlKind::Label; }
    void operator=(const std::string& text) { SetCaption(text); }
};

}
