#include "forms/TextControls.h"

#include "values/Format.h"
#include "values/Numbers.h"

#include <algorithm>

namespace rovanta {

double TextControl::Val() const
{
    return rovanta::Val(text);
}

void TextControl::SetText(const std::string& newText)
{
    if (text == newText)
        return;
    text = newText;
    Changed();
    Change.Fire();
}

TextBox::TextBox(Form* form, std::string name, std::string caption, Visibility visibility)
    : TextControl(form, std::move(name), std::move(caption), visibility)
{
}

TextBox::TextBox(Form* form, std::string name, Visibility visibility)
    : TextControl(form, std::move(name), {}, visibility)
{
}

void TextBox::operator=(double number)
{
    SetText(ToText(number));
}

MaskedBox::MaskedBox(Form* form, std::string name, std::string caption, std::string picture, Visibility visibility)
    : TextControl(form, std::move(name), std::move(caption), visibility), picture(std::move(picture))
{
}

std::string MaskedBox::Display() const
{
    return FormatText(Text(), picture);
}

double MaskedBox::Number() const
{
    return MaskedNumber(Text());
}

void MaskedBox::operator=(double number)
{
    SetText(ToText(number));
}

void MaskedBox::Leaving()
{
    const bool plain = Text().find_first_of("$,()%") == std::string::npos;
    if (plain || IsEmpty())
        return;
    const bool percent = Text().back() == '%';
    if (percent || ParseNumber(Text()))
        SetText(ToText(MaskedNumber(Text())));
}

MoneyBox::MoneyBox(Form* form, std::string name, std::string caption, Visibility visibility)
    : MaskedBox(form, std::move(name), std::move(caption), std::string(moneyPicture), visibility)
{
}

PercentBox::PercentBox(Form* form, std::string name, std::string caption, Visibility visibility)
    : MaskedBox(form, std::move(name), std::move(caption), std::string(percentPicture), visibility)
{
}

PhoneBox::PhoneBox(Form* form, std::string name, std::string caption, Visibility visibility)
    : MaskedBox(form, std::move(name), std::move(caption), "(###) ###-####", visibility)
{
}

std::string PhoneBox::Display() const
{
    const std::string& digits = Text();
    const bool tenDigits =
        digits.size() == 10 && std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!tenDigits)
        return digits;
    return "(" + digits.substr(0, 3) + ") " + digits.substr(3, 3) + "-" + digits.substr(6);
}

RichTextBox::RichTextBox(Form* form, std::string name, std::string caption, Visibility visibility)
    : TextControl(form, std::move(name), std::move(caption), visibility)
{
}

Label::Label(Form* form, std::string name, std::string caption, Visibility visibility)
    : Control(form, std::move(name), std::move(caption), visibility)
{
}

}
