#include "app/Screens.h"
#include "desktop/AccessKeys.h"
#include "desktop/layouts/Layouts.h"
#include "forms/ChoiceControls.h"
#include "tests/support/TestApp.h"

#include <doctest/doctest.h>

#include <map>
#include <set>

using namespace rovanta;
using namespace rovanta::tests;

/// How often each control stands in a layout.
static std::map<std::string, int> Standing(const Node& layout)
{
    std::map<std::string, int> standing;
    VisitControls(layout, [&](const Node& node) { ++standing[node.text]; });
    return standing;
}

/// What is wrong with a layout, judged by its screen; one line each.
static std::string Faults(const Form& form, const Node& layout)
{
    std::string faults;
    std::map<std::string, int> standing = Standing(layout);
    for (const Control* control : form.Controls()) {
        const int count = standing[control->Name()];
        if (control->Visible() && count != 1)
            faults += control->Name() + " is visible and stands " + std::to_string(count) + " times\n";
        if (!control->Visible() && count > 0)
            faults += control->Name() + " is hidden and stands in the layout\n";
    }
    for (const auto& [name, count] : standing) {
        if (!form.FindControl(name))
            faults += name + " is no control of the screen\n";
    }
    return faults;
}

static void GatherNames(const Node& node, std::set<std::string>& names)
{
    if (node.kind == NodeKind::Caption || node.kind == NodeKind::Note)
        names.insert(node.text);
    for (const Node& child : node.children)
        GatherNames(child, names);
}

static std::string KeyFaults(const Form& form, const Node& layout)
{
    const AccessKeys keys(form, layout);
    std::map<char, std::string> owners;
    std::string faults;
    const auto claim = [&](const AccessKey* key, const std::string& owner, const std::string& caption) {
        if (!key)
            return;
        if (!owners.emplace(key->letter, owner).second)
            faults += owner + " and " + owners[key->letter] + " share " + key->letter + "\n";
        if (menuLetters.find(key->letter) != std::string_view::npos)
            faults += owner + " takes the letter of a menu\n";
        const char marked = key->position < caption.size() ? caption[key->position] : '\0';
        if (std::toupper(static_cast<unsigned char>(marked)) != key->letter)
            faults += owner + " marks another letter than its key\n";
    };
    for (const Control* control : form.Controls()) {
        if (const auto* tabs = dynamic_cast<const Tabs*>(control)) {
            for (std::size_t page = 0; page < tabs->Captions().size(); ++page)
                claim(keys.FindPage(*tabs, page), tabs->Captions()[page], PlainCaption(tabs->Captions()[page]));
        } else {
            claim(keys.Find(*control), control->Name(), PlainCaption(control->Caption()));
        }
    }
    return faults;
}

TEST_CASE("Every screen has a layout, the main window excepted, and every layout a screen")
{
    for (const auto& [name, factory] : AllScreens()) {
        if (name != "MDI")
            CHECK_MESSAGE(AllLayouts().contains(name), "no layout: " << name);
    }
    for (const auto& [name, layout] : AllLayouts())
        CHECK_MESSAGE(AllScreens().contains(name), "no screen: " << name);
}

TEST_CASE("A layout shows every visible control of its screen once and no hidden one")
{
    const TestOffice office;
    TestApp desk(office);
    desk.SignIn();
    for (const auto& [name, layout] : AllLayouts()) {
        const Screen& screen = desk.app.Open(name);
        const std::string faults = Faults(screen, layout());
        CHECK_MESSAGE(faults.empty(), name << ":\n" << faults);
        std::set<std::string> named;
        GatherNames(layout(), named);
        for (const std::string& control : named)
            CHECK_MESSAGE(screen.FindControl(control), name << " has no control " << control);
    }
}

TEST_CASE("Access keys are unique in a screen and leave the menus theirs")
{
    const TestOffice office;
    TestApp desk(office);
    desk.SignIn();
    for (const auto& [name, layout] : AllLayouts()) {
        const std::string faults = KeyFaults(desk.app.Open(name), layout());
        CHECK_MESSAGE(faults.empty(), name << ":\n" << faults);
    }
}

namespace {

struct SmallForm : Form {
    SmallForm() : Form("frmSmall", "Small") {}
    TextBox txtName{this, "txtName", "Name"};
    TextBox txtID{this, "txtID", Visibility::Hidden};
    Button btnNew{this, "btnNew", "New"};
    Button btnSave{this, "btnSave", "Save && Send"};
};

}

TEST_CASE("A layout that forgets, doubles, invents or shows what is hidden is told")
{
    const SmallForm form;
    CHECK(Faults(form, Column{"txtName", "btnNew", "btnSave"}).empty());
    CHECK(Faults(form, Column{"txtName", "btnNew"}) == "btnSave is visible and stands 0 times\n");
    CHECK(Faults(form, Column{"txtName", "btnNew", "btnSave", Row{"btnNew"}}) ==
          "btnNew is visible and stands 2 times\n");
    CHECK(Faults(form, Column{"txtName", "txtID", "btnNew", "btnSave"}) ==
          "txtID is hidden and stands in the layout\n");
    CHECK(Faults(form, Column{"txtName", "btnNew", "btnSave", "btnOther"}) == "btnOther is no control of the screen\n");
    CHECK_THROWS_AS(LayoutOf("frmSmall"), std::logic_error);
}

TEST_CASE("Buttons come before boxes for their letters, and the second takes another")
{
    const SmallForm form;
    const AccessKeys keys(form, Column{"txtName", "btnNew", "btnSave"});
    REQUIRE(keys.Find(form.btnNew));
    CHECK(keys.Find(form.btnNew)->letter == 'N');
    // N goes to the button, A, M and E are menus.
    CHECK(keys.Find(form.txtName) == nullptr);
    REQUIRE(keys.Find(form.btnSave));
    CHECK(keys.Find(form.btnSave)->letter == 'S');
    CHECK(PlainCaption(form.btnSave.Caption()) == "Save & Send");
}

TEST_CASE("The entries of a menu get letters as long as there are some")
{
    const auto keys = KeysOfMenu({"Open", "Options", "Oo", "O"});
    CHECK(keys[0]->letter == 'O');
    CHECK(keys[1]->letter == 'P');
    CHECK_FALSE(keys[2].has_value());
    CHECK_FALSE(keys[3].has_value());
}
