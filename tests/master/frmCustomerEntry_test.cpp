#include "master/frmCustomerEntry.h"

#include "master/frmCustomerEntry2.h"
#include "store/DatabaseError.h"
#include "support/TestApp.h"

#include <doctest/doctest.h>

using namespace rovanta;
using namespace rovanta::tests;

namespace {

struct Desk : TestApp {
    explicit Desk(const TestOffice& office, const std::string& user = "admin") : TestApp(office) { SignIn(user); }
    frmCustomerEntry2& Screen() { return app.Open<frmCustomerEntry2>(); }
};

void AddCustomer(TestApp& desk, const std::string& name)
{
    desk.Execute("INSERT INTO Customer (Name,LegalName,Inactive) VALUES ('" + name + "','" + name + " LLC',0)");
}

}

TEST_CASE("A new customer is saved with who and when, and the form stands ready for the next")
{
    const TestOffice office;
    Desk desk(office);
    frmCustomerEntry2& screen = desk.Screen();
    screen.txtName = "  The Blue Herons ";
    screen.txtLegalName = "Blue Herons Touring LLC";
    screen.txtAddress1 = "1 Reed Ln";
    screen.txtCity = "Memphis";
    screen.cmbState = "TN";
    screen.txtDOT = "DOT 77";
    screen.txtEmail1a = "a@x.example;b@x.example";
    screen.txtPhone2 = "6155550123";
    screen.chkInactive = true;
    screen.btnSave.Click.Fire();
    CHECK(desk.host.messages.empty());
    CHECK(desk.Rows("SELECT Name,LegalName,Address1,City,State,DOT,Email1a,Phone2,Inactive,Zip,EnteredBy,DateEntered "
                    "FROM Customer") ==
          "The Blue Herons|Blue Herons Touring LLC|1 Reed Ln|Memphis|TN|DOT 77|a@x.example;b@x.example|6155550123|True|"
          "|admin|3/2/2026 9:00:00 AM");
    CHECK(screen.txtID.IsEmpty());
    CHECK(screen.txtName.IsEmpty());
    CHECK(screen.cmbState.ListIndex() == -1);
    CHECK_FALSE(screen.chkInactive.IsChecked());
    CHECK(screen.cmbCustomer.ListIndex() == -1);
    CHECK(screen.cmbCustomer.Entries() == std::vector<std::string>{"The Blue Herons"});
    CHECK(screen.cmbCustomer.id.Entries() == std::vector<std::string>{"1"});
    CHECK(desk.host.hourglass == 0);
}

TEST_CASE("Every box of the four manager blocks reaches its own column and comes back")
{
    const TestOffice office;
    Desk desk(office);
    frmCustomerEntry2& screen = desk.Screen();
    screen.txtName = "Herons";
    screen.txtLegalName = "Herons LLC";
    const std::vector<std::string> stems = {"Name",  "Contact", "Address", "City",  "Zip",
                                            "Phone", "Cell",    "Fax",     "Email", "Website"};
    for (const std::string digit : {"3", "4", "5", "6"}) {
        for (const std::string& stem : stems)
            dynamic_cast<TextControl&>(*screen.FindControl("txt" + stem + digit)).SetText(stem + "-" + digit);
        dynamic_cast<ComboBox&>(*screen.FindControl("cmbState" + digit)).SetListIndex(std::stoi(digit));
    }
    screen.btnSave.Click.Fire();
    for (const std::string digit : {"3", "4", "5", "6"}) {
        for (const std::string& stem : stems)
            CHECK(desk.Rows("SELECT " + stem + digit + " FROM Customer") == stem + "-" + digit);
        CHECK(desk.Rows("SELECT State" + digit + " FROM Customer") == screen.cmbState.List(std::stoi(digit)));
    }
    screen.cmbCustomer.Pick(0);
    for (const std::string digit : {"3", "4", "5", "6"}) {
        for (const std::string& stem : stems)
            CHECK(dynamic_cast<TextControl&>(*screen.FindControl("txt" + stem + digit)).Text() == stem + "-" + digit);
        CHECK(dynamic_cast<ComboBox&>(*screen.FindControl("cmbState" + digit)).ListIndex() == std::stoi(digit));
    }
}

TEST_CASE("Picking a customer shows the record, and a save edits it in place without touching who made it")
{
    const TestOffice office;
    Desk desk(office);
    AddCustomer(desk, "Zebra");
    AddCustomer(desk, "Alder");
    desk.Execute("UPDATE Customer SET City = NULL, State = 'TN', Email1 = 'z@x.example', Inactive = 1, Notes = 'vip', "
                 "EnteredBy = 'carl', DateEntered = '1/15/2024 2:30:00 PM' WHERE Name = 'Zebra'");
    frmCustomerEntry2& screen = desk.Screen();
    CHECK(screen.cmbCustomer.Entries() == std::vector<std::string>{"Alder", "Zebra"});
    screen.cmbCustomer.Pick(1);
    CHECK(screen.txtID.Text() == "1");
    CHECK(screen.txtName.Text() == "Zebra");
    CHECK(screen.txtLegalName.Text() == "Zebra LLC");
    CHECK(screen.txtCity.IsEmpty());
    CHECK(screen.cmbState.Text() == "TN");
    CHECK(screen.txtEmail1.Text() == "z@x.example");
    CHECK(screen.chkInactive.IsChecked());
    CHECK(screen.lblEnteredBy.Caption() == "carl - 1/15/2024 2:30:00 PM");
    screen.txtName = "Zebra Crossing";
    screen.btnSave.Click.Fire();
    CHECK(desk.Rows("SELECT ID,Name,Notes,EnteredBy,DateEntered FROM Customer WHERE ID = 1") ==
          "1|Zebra Crossing|vip|carl|1/15/2024 2:30:00 PM");
    CHECK(desk.Rows("SELECT COUNT(*) FROM Customer") == "2");
    CHECK(screen.lblEnteredBy.Caption().empty());
}

TEST_CASE("The customer is found by the first letters of its name")
{
    const TestOffice office;
    Desk desk(office);
    AddCustomer(desk, "Alder");
    AddCustomer(desk, "Birch");
    frmCustomerEntry2& screen = desk.Screen();
    screen.cmbCustomer.PressKey("b");
    CHECK(screen.txtName.Text() == "Birch");
    screen.cmbState.PressKey("w");
    screen.cmbState.PressKey("y");
    CHECK(screen.cmbState.Text() == "WY");
    screen.managers[3].cmbState.PressKey("k");
    CHECK(screen.managers[3].cmbState.Text() == "KS");
}

TEST_CASE("A customer without a name or a legal name is not saved")
{
    const TestOffice office;
    Desk desk(office);
    frmCustomerEntry2& screen = desk.Screen();
    const std::string refusal = "Required Fields: Customer Name and Legal Name is required before saving.";
    screen.txtName = "Herons";
    screen.btnSave.Click.Fire();
    CHECK(desk.host.TakeMessages() == refusal);
    screen.txtName = "";
    screen.txtLegalName = "Herons LLC";
    screen.btnSave.Click.Fire();
    CHECK(desk.host.TakeMessages() == refusal);
    CHECK(screen.txtLegalName.Text() == "Herons LLC");
    CHECK(desk.Rows("SELECT COUNT(*) FROM Customer") == "0");
}

TEST_CASE("A customer is saved by nobody who lacks the right, and the right is asked before the required fields")
{
    const TestOffice office;
    Desk desk(office, "clerk");
    frmCustomerEntry2& screen = desk.Screen();
    screen.btnSave.Click.Fire();
    REQUIRE(desk.host.messages.size() == 1);
    CHECK(desk.host.messages[0].icon == MessageIcon::Exclamation);
    CHECK(desk.host.TakeMessages() == "Invalid Permission: You do not have permission to save this record.");
    desk.Grant("clerk", "Customer Entry/Edit");
    screen.txtName = "Herons";
    screen.txtLegalName = "Herons LLC";
    screen.btnSave.Click.Fire();
    CHECK(desk.Rows("SELECT Name,EnteredBy FROM Customer") == "Herons|clerk");
}

TEST_CASE("Apostrophes are taken out of a customer's two names as they are typed")
{
    const TestOffice office;
    Desk desk(office);
    frmCustomerEntry2& screen = desk.Screen();
    screen.txtName = "Rock 'n' Roll";
    CHECK(desk.host.TakeMessages() == "Invalid Input: You cannot use apostrophe in Artist names.");
    CHECK(screen.txtName.Text() == "Rock n Roll");
    screen.txtLegalName = "O'Hara LLC";
    CHECK(desk.host.TakeMessages() == "Invalid Input: You cannot use apostrophe in Legal Names.");
    CHECK(screen.txtLegalName.Text() == "OHara LLC");
    screen.txtContact1 = "Pat O'Brien";
    CHECK(desk.host.messages.empty());
    screen.btnSave.Click.Fire();
    CHECK(desk.Rows("SELECT Name,LegalName FROM Customer WHERE Contact1 LIKE 'Pat O%'") == "Rock n Roll|OHara LLC");
}

TEST_CASE("Opening the screen with a key shows that customer, and with an unknown key nothing")
{
    const TestOffice office;
    Desk desk(office);
    AddCustomer(desk, "Same Name");
    AddCustomer(desk, "Same Name");
    frmCustomerEntry2& screen = desk.Screen();
    screen.OpenRecord("2");
    CHECK(screen.txtID.Text() == "2");
    screen.OpenRecord("1");
    CHECK(screen.txtID.Text() == "1");
    screen.OpenRecord("99");
    CHECK(screen.txtID.IsEmpty());
    CHECK(screen.cmbCustomer.ListIndex() == -1);
}

TEST_CASE("New empties the form for another customer")
{
    const TestOffice office;
    Desk desk(office);
    AddCustomer(desk, "Alder");
    frmCustomerEntry2& screen = desk.Screen();
    screen.cmbCustomer.Pick(0);
    screen.btnNew.Click.Fire();
    CHECK(screen.txtID.IsEmpty());
    CHECK(screen.txtName.IsEmpty());
    CHECK(screen.Focused() == &screen.txtName);
    screen.txtName = "Birch";
    screen.txtLegalName = "Birch LLC";
    screen.btnSave.Click.Fire();
    CHECK(desk.Rows("SELECT Name FROM Customer ORDER BY ID") == "Alder\nBirch");
}

TEST_CASE("A customer deleted at another desk: picking it empties the form, saving it ends the program")
{
    const TestOffice office;
    Desk desk(office);
    AddCustomer(desk, "Alder");
    AddCustomer(desk, "Birch");
    frmCustomerEntry2& screen = desk.Screen();
    screen.cmbCustomer.Pick(0);
    desk.Execute("DELETE FROM Customer");
    CHECK_THROWS_AS(screen.btnSave.Click.Fire(), DatabaseError);
    CHECK(desk.Rows("SELECT COUNT(*) FROM Customer") == "0");
    screen.cmbCustomer.Pick(1);
    CHECK(screen.txtID.IsEmpty());
    CHECK(screen.txtName.IsEmpty());
}

TEST_CASE("A text beyond its column ends the program and writes nothing of the customer")
{
    const TestOffice office;
    Desk desk(office);
    frmCustomerEntry2& screen = desk.Screen();
    screen.txtName = "Herons";
    screen.txtLegalName = std::string(101, 'x');
    CHECK_THROWS_WITH_AS(screen.btnSave.Click.Fire(), doctest::Contains("truncated"), DatabaseError);
    CHECK(desk.Rows("SELECT COUNT(*) FROM Customer") == "0");
}

TEST_CASE("The older customer form keeps its own columns alone")
{
    const TestOffice office;
    Desk desk(office);
    auto& screen = desk.app.Open<frmCustomerEntry>();
    screen.txtName = " O'Hara ";
    screen.txtAddress1 = "1 Reed Ln";
    screen.cmbState = "TN";
    screen.txtFax2 = "6155550123";
    screen.btnSave.Click.Fire();
    CHECK(
        desk.Rows("SELECT Address1,State,Fax2,Inactive,LegalName,Email1a,Name3,EnteredBy,DateEntered FROM Customer") ==
        "1 Reed Ln|TN|6155550123|False|NULL|NULL|NULL|admin|3/2/2026 9:00:00 AM");
    CHECK(desk.host.messages.empty());
    REQUIRE(screen.cmbCustomer.Entries() == std::vector<std::string>{"O'Hara"});
    desk.Execute("UPDATE Customer SET LegalName = 'O Hara LLC', City = 'Memphis'");
    screen.cmbCustomer.PressKey("o");
    CHECK(screen.txtName.Text() == "O'Hara");
    CHECK(screen.txtCity.Text() == "Memphis");
    screen.txtCity = "Nashville";
    screen.cmbState.PressKey("o");
    screen.btnSave.Click.Fire();
    CHECK(desk.Rows("SELECT City,State,LegalName FROM Customer") == "Nashville|OH|O Hara LLC");
}

TEST_CASE("The older customer form refuses a save without the right or without a name")
{
    const TestOffice office;
    Desk desk(office, "clerk");
    auto& screen = desk.app.Open<frmCustomerEntry>();
    screen.txtName = "Herons";
    screen.btnSave.Click.Fire();
    CHECK(desk.host.TakeMessages() == "Invalid Permission: You do not have permission to save this record.");
    desk.Grant("clerk", "Customer Entry/Edit");
    screen.txtName = "";
    screen.btnSave.Click.Fire();
    CHECK(desk.host.TakeMessages() == "Required Fields: Customer Name is required before saving.");
    CHECK(desk.Rows("SELECT COUNT(*) FROM Customer") == "0");
}
