#include <doctest/doctest.h>

#include "forms/ChoiceControls.h"
#include "forms/Log.h"
#include "forms/TextControls.h"

#include <stdexcept>

using namespace rovanta;
using namespace rovanta::tests;

namespace {

struct TwoBoxes : Form {
    TwoBoxes() : Form("frmTwo", "Two")
    {
        for (TextBox* box : {&first, &second, &third}) {
            box->GotFocus = [this, box] { log("enter:" + box->Name()); };
            box->LostFocus = [this, box] { log("leave:" + box->Name()); };
        }
    }

    Log log;
    TextBox first{this, "first", "First"};
    TextBox second{this, "second", "Second"};
    TextBox third{this, "third", "Third"};
};

}

TEST_CASE("A control registers itself with its form under its name")
{
    TwoBoxes form;
    CHECK(form.Controls() == std::vector<Control*>{&form.first, &form.second, &form.third});
    CHECK(form.FindControl("second") == &form.second);
    CHECK(form.FindControl("Second") == nullptr);
    CHECK(form.FindControl("none") == nullptr);
    CHECK(&form.first.Owner() == &form);
    CHECK_THROWS_AS(TextBox(&form, "first"), std::logic_error);
}

TEST_CASE("The focus leaves one control before it comes to the next")
{
    TwoBoxes form;
    CHECK(form.Focused() == nullptr);
    form.first.SetFocus();
    CHECK(form.log.Take() == "enter:first");
    form.first.SetFocus();
    CHECK(form.log.Take() == "");
    form.second.SetFocus();
    CHECK(form.log.Take() == "leave:first enter:second");
    CHECK(form.Focused() == &form.second);
}

TEST_CASE("A routine that keeps the focus has it; the control it was going to is neither entered nor left")
{
    TwoBoxes form;
    form.first.SetFocus();
    form.log.Take();
    form.first.LostFocus = [&] {
        form.log("leave:first");
        form.first.SetFocus();
    };
    form.second.SetFocus();
    CHECK(form.log.Take() == "leave:first enter:first");
    CHECK(form.Focused() == &form.first);

    form.first.LostFocus = [&] { form.third.SetFocus(); };
    form.second.SetFocus();
    CHECK(form.log.Take() == "enter:third");
    CHECK(form.Focused() == &form.third);
}

TEST_CASE("A routine that passes the focus on as it comes has passed it on")
{
    TwoBoxes form;
    Log seen;
    LoggedView view(seen);
    form.SetView(&view);
    form.second.GotFocus = [&] { form.third.SetFocus(); };
    form.second.SetFocus();
    CHECK(form.Focused() == &form.third);
    CHECK(seen.Take() == "focus:third");
}

TEST_CASE("Dropping the focus leaves the control and gives the focus to nobody")
{
    TwoBoxes form;
    form.first.SetFocus();
    form.log.Take();
    form.DropFocus(form.first);
    CHECK(form.log.Take() == "leave:first");
    CHECK(form.Focused() == nullptr);
    form.second.SetFocus();
    form.log.Take();
    form.DropFocus(form.first);
    CHECK(form.log.Take() == "leave:first");
    CHECK(form.Focused() == &form.second);

    form.second.LostFocus = [&] { form.second.SetFocus(); };
    form.DropFocus(form.second);
    CHECK(form.Focused() == &form.second);
}

TEST_CASE("The observer is told of what changes, and of nothing that stays")
{
    TwoBoxes form;
    Log seen;
    LoggedView view(seen);
    form.SetView(&view);

    form.first.SetCaption("First");
    form.first.SetEnabled(true);
    form.first.SetVisible(true);
    form.first.SetReadOnly(false);
    form.SetCaption("Two");
    form.SetEnabled(true);
    form.SetVisible(false);
    CHECK(seen.Take() == "");

    form.first.SetCaption("Name");
    form.first.SetEnabled(false);
    form.first.SetVisible(false);
    form.first.SetReadOnly(true);
    form.first.SetNote("days");
    CHECK(seen.Take() == "changed:first changed:first changed:first changed:first changed:first");
    CHECK(form.first.Note() == "days");
    form.SetCaption("Three");
    form.SetEnabled(false);
    form.SetVisible(true);
    CHECK(seen.Take() == "form:frmTwo form:frmTwo form:frmTwo");
    form.first.SetFocus();
    CHECK(seen.Take() == "focus:first");
}

TEST_CASE("A form is not seen before it is shown, and knows what Enter and Escape press")
{
    TwoBoxes form;
    CHECK_FALSE(form.Visible());
    CHECK(form.Enabled());
    CHECK(form.DefaultButton() == nullptr);
    CHECK(form.CancelButton() == nullptr);
    Button ok(&form, "btnOk");
    form.SetDefaultButton(ok);
    form.SetCancelButton(ok);
    CHECK(form.DefaultButton() == &ok);
    CHECK(form.CancelButton() == &ok);
}

TEST_CASE("Every kind of control has its name")
{
    const std::pair<ControlKind, const char*> names[] = {{ControlKind::TextBox, "TextBox"},
                                                         {ControlKind::MaskedBox, "MaskedBox"},
                                                         {ControlKind::RichTextBox, "RichTextBox"},
                                                         {ControlKind::ComboBox, "ComboBox"},
                                                         {ControlKind::ListBox, "ListBox"},
                                                         {ControlKind::CheckBox, "CheckBox"},
                                                         {ControlKind::OptionButton, "OptionButton"},
                                                         {ControlKind::DatePicker, "DatePicker"},
                                                         {ControlKind::Label, "Label"},
                                                         {ControlKind::Button, "Button"},
                                                         {ControlKind::Tabs, "Tabs"},
                                                         {ControlKind::Grid, "Grid"},
                                                         {ControlKind::Picture, "Picture"}};
    for (const auto& [kind, name] : names)
        CHECK(std::string(NameOf(kind)) == name);
}
