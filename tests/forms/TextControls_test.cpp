#include <doctest/doctest.h>

#include "forms/Log.h"
#include "forms/TextControls.h"
#include "values/Errors.h"

using namespace rovanta;
using namespace rovanta::tests;

TEST_CASE("Writing to a box fires its change, writing what it holds fires nothing")
{
    Form form("frm", "");
    TextBox box(&form, "txt");
    Log log;
    box.Change = [&] { log("change:" + box.Text()); };
    box = "a";
    box = "a";
    box = "";
    CHECK(log.Take() == "change:a change:");
    CHECK(box.IsEmpty());
    box = 1234.5;
    CHECK(box.Text() == "1234.5");
    box = 0.1 + 0.2;
    CHECK(box.Text() == "0.3");
}

TEST_CASE("A change inside a change sees the new text, and its own writing counts")
{
    Form form("frm", "");
    TextBox box(&form, "txt");
    Log log;
    box.Change = [&] {
        log(box.Text());
        if (box.Text().find('\'') != std::string::npos)
            box = "clean";
    };
    box = "O'Hara";
    CHECK(log.Take() == "O'Hara clean");
    CHECK(box.Text() == "clean");
}

TEST_CASE("The value of a box is its leading number")
{
    Form form("frm", "");
    TextBox box(&form, "txt");
    const std::pair<const char*, double> table[] = {{"", 0},        {"12", 12}, {"12abc", 12},
                                                    {"-1.5", -1.5}, {"abc", 0}, {"$5", 0}};
    for (const auto& [text, number] : table) {
        CAPTURE(text);
        box = text;
        CHECK(box.Val() == number);
    }
}

TEST_CASE("A box may have several lines, and hide what it holds")
{
    Form form("frm", "");
    TextBox box(&form, "txt", Visibility::Hidden);
    CHECK_FALSE(box.Visible());
    CHECK(box.Lines() == 1);
    CHECK_FALSE(box.Secret());
    box.SetLines(4);
    box.SetSecret();
    CHECK(box.Lines() == 4);
    CHECK(box.Secret());
    RichTextBox rich(&form, "rtb");
    rich = "{\\rtf1 x}";
    CHECK(rich.Text() == "{\\rtf1 x}");
}

TEST_CASE("A money box holds the unrounded number and shows it rounded under its picture")
{
    Form form("frm", "");
    MoneyBox box(&form, "txt");
    box = 1234.5678;
    CHECK(box.Text() == "1234.5678");
    CHECK(box.Display() == "$1,234.57");
    CHECK(box.Number() == 1234.5678);
    box = -5.0;
    CHECK(box.Display() == "($5.00)");
    box = "";
    CHECK(box.Display() == "");
    CHECK(box.Number() == 0);
    CHECK(box.Val() == 0);
}

TEST_CASE("What is typed in a money box becomes the plain number when the focus leaves")
{
    Form form("frm", "");
    MoneyBox box(&form, "txt");
    Log log;
    box.Change = [&] { log("change:" + box.Text()); };
    box.LostFocus = [&] { log("leave:" + box.Text()); };
    const std::pair<const char*, const char*> table[] = {
        {"$1,234.50", "1234.5"}, {"1,000", "1000"}, {"($5.00)", "-5"}, {"$0.10", "0.1"}};
    for (const auto& [typed, plain] : table) {
        box = typed;
        log.Take();
        form.DropFocus(box);
        CHECK(log.Take() == std::string("change:") + plain + " leave:" + plain);
    }
    for (const char* stays : {"12.3456", "", "abc", "$abc", "1,2,x", "-7"}) {
        CAPTURE(stays);
        box = stays;
        log.Take();
        form.DropFocus(box);
        CHECK(log.Take() == std::string("leave:") + stays);
    }
}

TEST_CASE("A percent box shows a hundredfold; a typed percent becomes its fraction")
{
    Form form("frm", "");
    PercentBox box(&form, "txt");
    box = 0.125;
    CHECK(box.Display() == "12.5%");
    box = "7.5%";
    form.DropFocus(box);
    CHECK(box.Text() == "0.075");
    CHECK(box.Display() == "7.5%");
    CHECK(box.Number() == 0.075);
}

TEST_CASE("A telephone box shows ten digits with their signs and anything else as it was typed")
{
    Form form("frm", "");
    PhoneBox box(&form, "txt");
    box = "6155550100";
    CHECK(box.Display() == "(615) 555-0100");
    for (const char* other : {"", "615555010", "61555501000", "615-555-0100", "615555010x", "(615) 555-0100"}) {
        box = other;
        form.DropFocus(box);
        CHECK(box.Text() == other);
        CHECK(box.Display() == other);
    }
}

TEST_CASE("A label shows what is written to it")
{
    Form form("frm", "");
    Label label(&form, "lbl", "Before");
    CHECK(label.Caption() == "Before");
    label = "After";
    CHECK(label.Caption() == "After");
}
