#include "master/frmCustomerNavigator.h"

#include "frame/MDI.h"
#include "master/frmCustomerEntry2.h"
#include "store/DatabaseError.h"
#include "support/TestApp.h"

#include <doctest/doctest.h>

using namespace rovanta;
using namespace rovanta::tests;

namespace {

/// Two customers with a tour each and one without; the first tour has two contacts, the second none.
struct Desk : TestApp {
    explicit Desk(const TestOffice& office) : TestApp(office)
    {
        SignIn();
        Execute(
            "INSERT INTO Customer (Name,Contact1,Address1,City,State,Zip,Phone1,Fax1,Email1,Notes,Name4,Cell5,City6) "
            "VALUES ('Herons','Ann Reed','1 Reed Ln','Memphis','TN','38101','9015550111','9015550112',"
            "'ann@x.example','pays late','Bluebird Mgmt','6155550199','Boise')");
        Execute("INSERT INTO Customer (Name,Contact1) VALUES ('Alders','Bob Wood')");
        Execute("INSERT INTO Customer (Name,Contact1) VALUES ('Homebodies','Cy Couch')");
        Execute("INSERT INTO Tour (CustomerID,TourName,Contact2,Address1) VALUES (1,'Fall Run','Dee Day','9 Dock St')");
        Execute("INSERT INTO Tour (CustomerID,TourName) VALUES (2,'Spring Run')");
        Execute("INSERT INTO TourContacts (TourID,ContactType,Name,Contact,Address,City,State,Zip,Phone,Cell,Fax,Email,"
                "Notes) VALUES (1,'Venue','Hall One','Eve Hall','5 Main St','Reno','NV','89501','1','2','3',"
                "'eve@x.example','back door')");
        Execute("INSERT INTO TourContacts (TourID,ContactType,Name,Contact) VALUES (1,'Promoter','Big Shows','Gil')");
    }
    frmCustomerNavigator& Screen() { return app.Open<frmCustomerNavigator>(); }
};

std::string LineOf(const Grid& grid, int row)
{
    std::string line;
    for (int column = 0; column < grid.Cols(); ++column)
        line += (column > 0 ? "|" : "") + grid.TextMatrix(row, column);
    return line;
}

/// "Tour/Type/Company" of the rows that a search found.
std::string Found(frmCustomerNavigator& screen)
{
    screen.btnFind.Click.Fire();
    const Grid& grid = screen.vsfgContacts;
    std::string rows;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
        rows += grid.TextMatrix(row, 4) + "/" + grid.TextMatrix(row, 5) + "/" + grid.TextMatrix(row, 6) + "\n";
    return rows;
}

/// Finds with one box filled and empties it again.
std::string FoundBy(frmCustomerNavigator& screen, TextBox& box, const std::string& text)
{
    box = text;
    const std::string rows = Found(screen);
    box = "";
    return rows;
}

const std::string venue = "Fall Run/Venue/Hall One\n";
const std::string promoter = "Fall Run/Promoter/Big Shows\n";
const std::string spring = "Spring Run//\n";
const std::string alders = "Spring Run/Customer/Alders\n";
const std::string herons = "Fall Run/Customer/Herons\n";

}

TEST_CASE("Without a filled field all tours are found, twice over, and no customer without a tour")
{
    const TestOffice office;
    Desk desk(office);
    frmCustomerNavigator& screen = desk.Screen();
    CHECK(Found(screen) == spring + promoter + venue + alders + herons);
}

TEST_CASE("A row shows its keys, its contact and the address in one line")
{
    const TestOffice office;
    Desk desk(office);
    frmCustomerNavigator& screen = desk.Screen();
    const Grid& grid = screen.vsfgContacts;
    CHECK(grid.Rows() == 1);
    CHECK(LineOf(grid, 0) ==
          "TourContactID|CustomerID|TourID|Customer|Tour|Type|Company|Contact|Address|Phone|Cell|Fax|"
          "Email");
    screen.btnFind.Click.Fire();
    CHECK(LineOf(grid, 1) == "|2|2|Alders|Spring Run||||, ,  ||||");
    CHECK(LineOf(grid, 3) ==
          "1|1|1|Herons|Fall Run|Venue|Hall One|Eve Hall|5 Main St, Reno, NV 89501|1|2|3|eve@x.example");
    CHECK(LineOf(grid, 5) == "|1|1|Herons|Fall Run|Customer|Herons|Ann Reed|1 Reed Ln, Memphis, TN 38101|9015550111||"
                             "9015550112|ann@x.example");
    for (int column = 0; column < grid.Cols(); ++column)
        CHECK(grid.ColHidden(column) == (column < 3));
    CHECK(grid.Row() == 1);
    CHECK(grid.FixedRows() == 1);
    CHECK(desk.host.hourglass == 0);
}

TEST_CASE("A tab within a text stays in its own cell")
{
    const TestOffice office;
    Desk desk(office);
    desk.Execute("UPDATE Tour SET TourName = 'Fall\tRun' WHERE ID = 1");
    frmCustomerNavigator& screen = desk.Screen();
    screen.btnFind.Click.Fire();
    CHECK(screen.vsfgContacts.TextMatrix(3, 4) == "Fall\tRun");
    CHECK(screen.vsfgContacts.TextMatrix(3, 5) == "Venue");
    CHECK(screen.vsfgContacts.TextMatrix(5, 5) == "Customer");
}

TEST_CASE("Each search field asks for its own columns in both lists")
{
    const TestOffice office;
    Desk desk(office);
    frmCustomerNavigator& screen = desk.Screen();
    CHECK(FoundBy(screen, screen.txtName, "hall") == venue);
    CHECK(FoundBy(screen, screen.txtName, "bluebird") == herons);
    CHECK(FoundBy(screen, screen.txtContact, "eve") == venue);
    CHECK(FoundBy(screen, screen.txtContact, "dee") == promoter + venue);
    CHECK(FoundBy(screen, screen.txtContact, "dock st") == promoter + venue);
    CHECK(FoundBy(screen, screen.txtContact, "ann reed") == herons);
    CHECK(FoundBy(screen, screen.txtCity, "reno") == venue);
    CHECK(FoundBy(screen, screen.txtCity, "boise") == herons);
    CHECK(FoundBy(screen, screen.txtPhone, "5550199") == herons);
    CHECK(FoundBy(screen, screen.txtPhone, "3") == venue);
    CHECK(FoundBy(screen, screen.txtTour, "spring") == spring + alders);
    CHECK(FoundBy(screen, screen.txtNotes, "back door") == venue);
    CHECK(FoundBy(screen, screen.txtNotes, "pays") == herons);
    CHECK(FoundBy(screen, screen.txtTour, "nowhere").empty());
}

TEST_CASE("Customer and state narrow both lists, the type the tour contacts alone")
{
    const TestOffice office;
    Desk desk(office);
    frmCustomerNavigator& screen = desk.Screen();
    CHECK(screen.cmbCustomer.Entries() == std::vector<std::string>{"Alders", "Herons", "Homebodies"});
    CHECK(screen.cmbType.IndexOf("Venue") >= 0);
    screen.cmbCustomer.Pick(1);
    CHECK(Found(screen) == promoter + venue + herons);
    screen.cmbType = "Venue";
    CHECK(Found(screen) == venue + herons);
    screen.cmbState = "NV";
    CHECK(Found(screen) == venue);
    screen.cmbState = "TN";
    CHECK(Found(screen) == herons);
    screen.btnClear.Click.Fire();
    screen.cmbType = "Venue";
    CHECK(Found(screen) == venue + alders + herons);
}

TEST_CASE("Clear empties every field and leaves the heading")
{
    const TestOffice office;
    Desk desk(office);
    frmCustomerNavigator& screen = desk.Screen();
    screen.cmbCustomer.Pick(1);
    screen.cmbType = "Venue";
    screen.cmbState = "TN";
    for (TextBox* box :
         {&screen.txtName, &screen.txtContact, &screen.txtCity, &screen.txtPhone, &screen.txtTour, &screen.txtNotes})
        *box = "e";
    screen.btnFind.Click.Fire();
    screen.btnClear.Click.Fire();
    CHECK(screen.vsfgContacts.Rows() == 1);
    CHECK(screen.vsfgContacts.TextMatrix(0, 3) == "Customer");
    CHECK(Found(screen) == spring + promoter + venue + alders + herons);
}

TEST_CASE("An apostrophe in a search box ends the program with a syntax error")
{
    const TestOffice office;
    Desk desk(office);
    frmCustomerNavigator& screen = desk.Screen();
    screen.txtTour = "O'Hara";
    CHECK_THROWS_WITH_AS(screen.btnFind.Click.Fire(), doctest::Contains("Incorrect syntax near"), DatabaseError);
}

TEST_CASE("A right press selects the data row under the mouse and brings up the pop-up; the heading brings none")
{
    const TestOffice office;
    Desk desk(office);
    frmCustomerNavigator& screen = desk.Screen();
    screen.btnFind.Click.Fire();
    screen.vsfgContacts.SetMouse(0, 4);
    screen.vsfgContacts.RightClick.Fire();
    screen.vsfgContacts.SetMouse(-1, -1);
    screen.vsfgContacts.RightClick.Fire();
    CHECK(desk.host.popups.empty());
    screen.vsfgContacts.SetMouse(3, 7);
    screen.vsfgContacts.RightClick.Fire();
    CHECK(desk.host.popups == std::vector<std::string>{"Popup"});
    CHECK(screen.vsfgContacts.Row() == 3);
    CHECK(screen.vsfgContacts.Col() == 7);
    desk.app.Find<MDI>()->menu.Find("OpenCustomer")->Click.Fire();
    auto* customer = desk.app.Find<frmCustomerEntry2>();
    REQUIRE(customer != nullptr);
    CHECK(customer->txtName.Text() == "Herons");
    CHECK(customer->cmbCustomer.Text() == "Herons");
}

TEST_CASE("The pop-up refuses a row without a customer, and a user without the right even there")
{
    const TestOffice office;
    Desk desk(office);
    desk.Execute("INSERT INTO Tour (TourName) VALUES ('Orphan')");
    frmCustomerNavigator& screen = desk.Screen();
    MenuItem& openCustomer = *desk.app.Find<MDI>()->menu.Find("OpenCustomer");
    openCustomer.Click.Fire();
    CHECK(desk.host.TakeMessages() == "No Customer: No Customer for this selection.");
    screen.txtTour = "Orphan";
    screen.btnFind.Click.Fire();
    openCustomer.Click.Fire();
    CHECK(desk.host.TakeMessages() == "No Customer: No Customer for this selection.");
    desk.app.session.CurrentUserType = "User";
    desk.app.session.CurrentUserID = 2;
    openCustomer.Click.Fire();
    CHECK(desk.host.TakeMessages() == "Invalid Permission: You do not have permission to view this record.");
    CHECK(desk.app.Find<frmCustomerEntry2>() == nullptr);
    desk.Grant("clerk", "Customer View");
    openCustomer.Click.Fire();
    CHECK(desk.host.TakeMessages() == "No Customer: No Customer for this selection.");
}

TEST_CASE("Exit closes the search")
{
    const TestOffice office;
    Desk desk(office);
    desk.Screen().btnExit.Click.Fire();
    CHECK(desk.app.Find<frmCustomerNavigator>() == nullptr);
}
