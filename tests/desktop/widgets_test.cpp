#include "desktop/FormWindow.h"
#include "desktop/binders/Binder.h"
#include "desktop/binders/DateBox.h"
#include "tests/desktop/SampleForm.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QtTest/QTest>

#include <doctest/doctest.h>

using namespace rovanta;

namespace {

/// The sample form in a window that has the keyboard.
struct Desk {
    Desk() : window(form, SampleLayout(), gate)
    {
        gate.settle = [this] { window.Flush(); };
        gate.tellFailure = [this](const std::string& text) { failure = text; };
        window.resize(window.sizeHint());
        window.show();
        window.activateWindow();
        REQUIRE(QTest::qWaitForWindowActive(&window));
    }

    template <class Kind>
    Kind& Widget(const char* control)
    {
        return dynamic_cast<Kind&>(window.BinderOf(control)->Widget());
    }

    SampleForm form;
    EventGate gate;
    FormWindow window;
    std::string failure;
};

}

TEST_CASE("A money box formats on leaving and keeps the unrounded number")
{
    Desk desk;
    auto& rate = desk.Widget<QLineEdit>("txtRate");
    desk.form.txtRate = 1.0 / 3;
    desk.window.Flush();
    CHECK(rate.text() == "$0.33");
    rate.setFocus();
    CHECK(rate.text() == "0.333333333333333");
    CHECK(rate.selectedText() == rate.text());
    QTest::keyClick(&rate, Qt::Key_Tab);
    CHECK(rate.text() == "$0.33");
    CHECK(desk.form.txtRate.Text() == "0.333333333333333");
}

TEST_CASE("What is typed into a money box counts letter by letter and is taken for its number on leaving")
{
    Desk desk;
    auto& rate = desk.Widget<QLineEdit>("txtRate");
    rate.setFocus();
    QTest::keyClicks(&rate, "$1,234.5");
    CHECK(desk.form.txtRate.Text() == "$1,234.5");
    CHECK(desk.form.log.back() == "rate $1,234.5");
    QTest::keyClick(&rate, Qt::Key_Tab);
    CHECK(desk.form.txtRate.Text() == "1234.5");
    CHECK(rate.text() == "$1,234.50");
}

TEST_CASE("A text that is no number stays as it was typed")
{
    Desk desk;
    auto& rate = desk.Widget<QLineEdit>("txtRate");
    rate.setFocus();
    QTest::keyClicks(&rate, "to be told");
    QTest::keyClick(&rate, Qt::Key_Tab);
    CHECK(rate.text() == "to be told");
    CHECK(desk.form.txtRate.Number() == 0);
}

TEST_CASE("A percent and a telephone show their pictures")
{
    Desk desk;
    desk.form.txtShare = 0.125;
    desk.form.txtPhone = "6155550100";
    desk.window.Flush();
    CHECK(desk.Widget<QLineEdit>("txtShare").text() == "12.5%");
    CHECK(desk.Widget<QLineEdit>("txtPhone").text() == "(615) 555-0100");
    CHECK(desk.Widget<QLineEdit>("txtShare").alignment().testFlag(Qt::AlignRight));
}

TEST_CASE("Drawing the boxes never reaches the logic")
{
    Desk desk;
    desk.form.log.clear();
    desk.form.txtRate = 7.0;
    desk.form.cmbCustomer.SetListIndex(2);
    const auto before = desk.form.log;
    desk.window.Flush();
    QTest::qWait(20);
    CHECK(desk.form.log == before);
}

TEST_CASE("A click into a box selects its whole content, and coming by the keyboard too")
{
    Desk desk;
    desk.form.txtName = "Blue Harbor";
    desk.window.Flush();
    auto& name = desk.Widget<QLineEdit>("txtName");
    QTest::mouseClick(&name, Qt::LeftButton, {}, QPoint(20, 10));
    QTest::qWait(5);
    CHECK(name.selectedText() == "Blue Harbor");
    CHECK(desk.form.Focused() == &desk.form.txtName);
    QTest::keyClick(&name, Qt::Key_Tab);
    CHECK(desk.form.Focused() == &desk.form.txtCity);
    CHECK_FALSE(name.hasSelectedText());
}

TEST_CASE("Where a screen takes the keys of a combo, every character goes to it and none is typed")
{
    Desk desk;
    auto& customer = desk.Widget<QComboBox>("cmbCustomer");
    CHECK_FALSE(customer.isEditable());
    customer.setFocus();
    QTest::keyClicks(&customer, "co p");
    QTest::keyClick(&customer, Qt::Key_Backspace);
    CHECK(desk.form.typed == "co p\b");
    CHECK(customer.currentIndex() == -1);
    CHECK(desk.form.log.empty());
}

TEST_CASE("A type-ahead combo is emptied by the Delete key and shows a text beyond its list")
{
    Desk desk;
    auto& customer = desk.Widget<QComboBox>("cmbCustomer");
    desk.form.cmbCustomer.SetListIndex(0);
    desk.window.Flush();
    CHECK(customer.currentText() == "Amber Lane");
    customer.setFocus();
    QTest::keyClick(&customer, Qt::Key_Delete);
    CHECK(desk.form.cmbCustomer.ListIndex() == -1);
    CHECK(customer.currentIndex() == -1);
    CHECK(customer.placeholderText() == " ");
    desk.form.cmbCustomer = "Somebody Else";
    desk.window.Flush();
    CHECK(customer.placeholderText() == "Somebody Else");
}

TEST_CASE("An empty combo stays empty when its list is filled anew")
{
    Desk desk;
    desk.form.cmbState.Clear();
    for (const char* state : {"AK", "AZ"})
        desk.form.cmbState.AddItem(state);
    desk.window.Flush();
    CHECK(desk.Widget<QComboBox>("cmbState").currentIndex() == -1);
    desk.form.cmbCustomer.ClearPair();
    desk.form.cmbCustomer.AddPair("Dune Road", "9");
    desk.window.Flush();
    CHECK(desk.Widget<QComboBox>("cmbCustomer").currentIndex() == -1);
    CHECK(desk.Widget<QComboBox>("cmbCustomer").itemText(0) == "Dune Road");
}

TEST_CASE("A pick from the list fires the choice, also of the entry that stands")
{
    Desk desk;
    auto& customer = desk.Widget<QComboBox>("cmbCustomer");
    emit customer.activated(1);
    emit customer.activated(1);
    CHECK(desk.form.log == std::vector<std::string>{"customer 2", "customer 2"});
}

TEST_CASE("A combo without type-ahead can be typed in, and an entry typed is chosen")
{
    Desk desk;
    auto& type = desk.Widget<QComboBox>("cmbType");
    REQUIRE(type.isEditable());
    type.setFocus();
    QTest::keyClicks(type.lineEdit(), "per d");
    CHECK(desk.form.cmbType.ListIndex() == -1);
    CHECK(type.lineEdit()->text() == "per d");
    QTest::keyClicks(type.lineEdit(), "ay");
    CHECK(desk.form.cmbType.ListIndex() == 0);
    CHECK(type.lineEdit()->text() == "Per Day");
}

TEST_CASE("A date is typed as people write it, with or without its year")
{
    Desk desk;
    auto& start = desk.Widget<DateBox>("dtStart");
    start.setFocus();
    QTest::keyClicks(start.lineEdit(), "4/6/2027");
    CHECK(desk.form.dtStart.Value() == DateTime::Of(2027, 4, 6));
    start.lineEdit()->selectAll();
    QTest::keyClicks(start.lineEdit(), "12/5/26");
    CHECK(desk.form.dtStart.Value() == DateTime::Of(2027, 4, 6));
    QTest::keyClick(&start, Qt::Key_Tab);
    CHECK(desk.form.dtStart.Value() == DateTime::Of(2026, 12, 5));
    CHECK(start.lineEdit()->text() == "12/5/2026");
    start.setFocus();
    QTest::keyClicks(start.lineEdit(), "1/31");
    QTest::keyClick(&start, Qt::Key_Tab);
    CHECK(desk.form.dtStart.Value() == DateTime::Of(2026, 1, 31));
}

TEST_CASE("A text that is no date goes back to the one that stood")
{
    Desk desk;
    auto& start = desk.Widget<DateBox>("dtStart");
    start.setFocus();
    QTest::keyClicks(start.lineEdit(), "2/30/2026");
    QTest::keyClick(&start, Qt::Key_Tab);
    CHECK(desk.form.dtStart.Value() == DateTime::Of(2026, 3, 2));
    CHECK(start.lineEdit()->text() == "3/2/2026");
}

TEST_CASE("Arrow keys move a date by days and Page keys by months, and its time of day stays")
{
    Desk desk;
    desk.form.dtStart = DateTime::Of(2026, 1, 31, 8, 30);
    desk.window.Flush();
    auto& start = desk.Widget<DateBox>("dtStart");
    start.setFocus();
    QTest::keyClick(&start, Qt::Key_Up);
    CHECK(desk.form.dtStart.Value() == DateTime::Of(2026, 2, 1, 8, 30));
    QTest::keyClick(&start, Qt::Key_Down);
    QTest::keyClick(&start, Qt::Key_PageUp);
    CHECK(desk.form.dtStart.Value() == DateTime::Of(2026, 2, 28, 8, 30));
}

TEST_CASE("Enter presses the default button and Escape the cancel button, from any box")
{
    Desk desk;
    auto& name = desk.Widget<QLineEdit>("txtName");
    name.setFocus();
    desk.form.log.clear();
    QTest::keyClick(&name, Qt::Key_Return);
    CHECK(desk.form.log == std::vector<std::string>{"save"});
    QTest::keyClick(&desk.Widget<QPushButton>("btnSave"), Qt::Key_Escape);
    CHECK(desk.form.log.back() == "exit");
}

TEST_CASE("Enter in a money box takes its number before the button is pressed")
{
    Desk desk;
    std::string seen;
    desk.form.btnSave.Click = [&] { seen = desk.form.txtRate.Text(); };
    auto& rate = desk.Widget<QLineEdit>("txtRate");
    rate.setFocus();
    QTest::keyClicks(&rate, "$2,000");
    QTest::keyClick(&rate, Qt::Key_Return);
    CHECK(seen == "2000");
}

TEST_CASE("Enter in a text of several lines begins a new line")
{
    Desk desk;
    auto& notes = desk.Widget<QPlainTextEdit>("txtNotes");
    notes.setFocus();
    QTest::keyClicks(&notes, "one");
    QTest::keyClick(&notes, Qt::Key_Return);
    QTest::keyClicks(&notes, "two");
    CHECK(desk.form.txtNotes.Text() == "one\r\ntwo");
    CHECK(desk.form.log.empty());
}

TEST_CASE("A button that is off takes neither Enter nor a click")
{
    Desk desk;
    desk.form.btnSave.SetEnabled(false);
    desk.window.Flush();
    auto& name = desk.Widget<QLineEdit>("txtName");
    name.setFocus();
    QTest::keyClick(&name, Qt::Key_Return);
    QTest::mouseClick(&desk.Widget<QPushButton>("btnSave"), Qt::LeftButton);
    CHECK(desk.form.log.empty());
}

TEST_CASE("A disabled form takes nothing")
{
    Desk desk;
    auto& name = desk.Widget<QLineEdit>("txtName");
    name.setFocus();
    desk.form.SetEnabled(false);
    desk.window.Flush();
    QTest::keyClicks(&name, "abc");
    QTest::mouseClick(&desk.Widget<QPushButton>("btnExit"), Qt::LeftButton);
    QTest::mouseClick(&desk.Widget<QCheckBox>("chkInactive"), Qt::LeftButton, {}, QPoint(8, 8));
    QTest::keyClick(&desk.window, Qt::Key_Escape);
    CHECK(desk.form.txtName.IsEmpty());
    CHECK_FALSE(desk.form.chkInactive.IsChecked());
    CHECK(desk.form.log.empty());
    desk.form.SetEnabled(true);
    desk.window.Flush();
    QTest::keyClick(&desk.window, Qt::Key_Escape);
    CHECK(desk.form.log == std::vector<std::string>{"exit"});
}

TEST_CASE("A box for reading alone takes no letters and is passed over by the Tab key")
{
    Desk desk;
    desk.form.txtCity.SetReadOnly(true);
    desk.window.Flush();
    auto& city = desk.Widget<QLineEdit>("txtCity");
    QTest::keyClicks(&city, "abc");
    CHECK(desk.form.txtCity.IsEmpty());
    auto& name = desk.Widget<QLineEdit>("txtName");
    name.setFocus();
    QTest::keyClick(&name, Qt::Key_Tab);
    CHECK(desk.form.Focused() == &desk.form.cmbState);
}

TEST_CASE("One option of a group is on, and none may be")
{
    Desk desk;
    auto& contract = desk.Widget<QRadioButton>("optContract");
    auto& client = desk.Widget<QRadioButton>("optClient");
    CHECK_FALSE(contract.isChecked());
    CHECK_FALSE(client.isChecked());
    QTest::mouseClick(&contract, Qt::LeftButton, {}, QPoint(8, 8));
    CHECK(desk.form.optContract.Value());
    QTest::mouseClick(&client, Qt::LeftButton, {}, QPoint(8, 8));
    CHECK_FALSE(contract.isChecked());
    CHECK(client.isChecked());
    CHECK(desk.form.optClient.Value());
}

TEST_CASE("The screen's word on a tick stands against the click")
{
    Desk desk;
    desk.form.chkInactive.Click = [&] { desk.form.chkInactive = false; };
    auto& box = desk.Widget<QCheckBox>("chkInactive");
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, 8));
    CHECK_FALSE(desk.form.chkInactive.IsChecked());
    CHECK_FALSE(box.isChecked());
}

TEST_CASE("A box that refuses to be left gets the keyboard back, and the button is not pressed")
{
    Desk desk;
    desk.form.txtDelay.LostFocus = [&] {
        if (desk.form.txtDelay.Val() < 1)
            desk.form.txtDelay.SetFocus();
    };
    auto& delay = desk.Widget<QLineEdit>("txtDelay");
    QTest::mouseClick(&delay, Qt::LeftButton, {}, QPoint(10, 10));
    QTest::qWait(5);
    QTest::keyClicks(&delay, "0.5");
    QTest::keyClick(&delay, Qt::Key_Tab);
    CHECK(delay.hasFocus());
    QTest::mouseClick(&desk.Widget<QPushButton>("btnSave"), Qt::LeftButton);
    QTest::qWait(5);
    CHECK(desk.form.log.empty());
    CHECK(delay.hasFocus());
    delay.selectAll();
    QTest::keyClicks(&delay, "2");
    QTest::mouseClick(&desk.Widget<QPushButton>("btnSave"), Qt::LeftButton);
    CHECK(desk.form.log == std::vector<std::string>{"save"});
}

TEST_CASE("The logic may move the keyboard to another box")
{
    Desk desk;
    desk.form.btnExit.Click = [&] { desk.form.txtZip.SetFocus(); };
    QTest::mouseClick(&desk.Widget<QPushButton>("btnExit"), Qt::LeftButton);
    CHECK(desk.Widget<QLineEdit>("txtZip").hasFocus());
}

TEST_CASE("A list picks by click and by key")
{
    Desk desk;
    desk.form.SSTab1.SetPage(1);
    desk.window.Flush();
    auto& list = desk.Widget<QListView>("lstImages");
    int clicks = 0;
    desk.form.lstImages.Click = [&] { ++clicks; };
    const QRect second = list.visualRect(list.model()->index(1, 0));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second.center());
    CHECK(desk.form.lstImages.ListIndex() == 1);
    CHECK(clicks == 1);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second.center());
    CHECK(clicks == 2);
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Down);
    CHECK(desk.form.lstImages.ListIndex() == 2);
    CHECK(clicks == 3);
}

TEST_CASE("A page comes to the front by its tab and by the logic")
{
    Desk desk;
    auto& tabs = desk.Widget<QTabWidget>("SSTab1");
    QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {}, tabs.tabBar()->tabRect(1).center());
    CHECK(desk.form.SSTab1.Page() == 1);
    desk.form.SSTab1.SetPage(0);
    desk.window.Flush();
    CHECK(tabs.currentIndex() == 0);
}

TEST_CASE("A control that goes takes its words along and comes back with them")
{
    Desk desk;
    desk.form.txtDelay.SetVisible(false);
    desk.form.txtCity.SetCaption("Town");
    desk.window.Flush();
    bool town = false;
    for (const QLabel* label : desk.window.findChildren<QLabel*>()) {
        CHECK_FALSE((label->isVisible() && label->text() == "(Seconds)"));
        town = town || (label->isVisible() && label->text().remove('&') == "Town");
    }
    CHECK(town);
    desk.form.txtDelay.SetVisible(true);
    desk.window.Flush();
    CHECK(desk.Widget<QLineEdit>("txtDelay").isVisible());
}

TEST_CASE("An access key goes to the box of its caption")
{
    Desk desk;
    const AccessKey* key = desk.window.Keys().Find(desk.form.txtZip);
    REQUIRE(key);
    QTest::keyClick(&desk.window, static_cast<Qt::Key>(key->letter), Qt::AltModifier);
    CHECK(desk.Widget<QLineEdit>("txtZip").hasFocus());
}

TEST_CASE("A failure in an act is told and ends the program, and nothing runs after it")
{
    Desk desk;
    int code = -1;
    desk.gate.exit = [&](int exitCode) { code = exitCode; };
    desk.form.btnSave.Click = [] { throw std::runtime_error("Incorrect syntax near 'a'."); };
    QTest::mouseClick(&desk.Widget<QPushButton>("btnSave"), Qt::LeftButton);
    CHECK(desk.failure == "Incorrect syntax near 'a'.");
    CHECK(code == 1);
    QTest::mouseClick(&desk.Widget<QPushButton>("btnExit"), Qt::LeftButton);
    CHECK(desk.form.log.empty());
}

TEST_CASE("A picture that cannot be shown says so in words")
{
    Desk desk;
    CHECK(desk.Widget<QLabel>("imgPic").text() == "No picture");
}

TEST_CASE("A layout that names a stranger is refused")
{
    SampleForm form;
    EventGate gate;
    CHECK_THROWS_AS(FormWindow(form, Column{"txtName", "txtStranger"}, gate), std::logic_error);
}
