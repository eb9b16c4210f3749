#include "master/frmBusEntry.h"

#include "store/DatabaseError.h"
#include "support/TestApp.h"

#include <doctest/doctest.h>

using namespace rovanta;
using namespace rovanta::tests;

namespace {

/// Two owners, three drivers of whom one is inactive, and a bus.
struct Desk : TestApp {
    explicit Desk(const TestOffice& office, const std::string& user = "admin") : TestApp(office)
    {
        SignIn(user);
        Execute("INSERT INTO Owner (Name,Inactive) VALUES ('Prairie Coaches',0),('Lakeside Coaches',1)");
        Execute("INSERT INTO Driver (Name,Inactive) VALUES ('Moe Miles',0),('Al Axle',0),('Ida Idle',1)");
        Execute(
            "INSERT INTO Bus (Name,Type,Model,VIN,OwnerID,Bunks,Lease,CommAmount,CommPercent,Satellite,Internet,"
            "Inactive,DefaultDriver,EnteredBy) VALUES ('Coach 12','Bus','H3-45','VIN12',1,12,1200.5,0,0.125,80,60,0,"
            "1,'carl')");
    }
    frmBusEntry& Screen() { return app.Open<frmBusEntry>(); }
};

using Names = std::vector<std::string>;

}

TEST_CASE("The lists of the vehicle screen: active drivers behind N/A, all vehicles, all owners")
{
    const TestOffice office;
    Desk desk(office);
    desk.Execute("UPDATE Bus SET Inactive = 1");
    frmBusEntry& screen = desk.Screen();
    CHECK(screen.cmbDriver.Entries() == Names{"N/A", "Al Axle", "Moe Miles"});
    CHECK(screen.cmbAddDriver.Entries() == screen.cmbDriver.Entries());
    CHECK(screen.cmbDriver.id.Entries() == Names{"N/A", "2", "1"});
    CHECK(screen.cmbDriver.id.Name() == "cmbDriverID");
    CHECK(screen.cmbBus.Entries() == Names{"Coach 12"});
    CHECK(screen.cmbOwner.Entries() == Names{"Lakeside Coaches", "Prairie Coaches"});
    CHECK(screen.cmbType.IndexOf("Trailer") >= 0);
    CHECK(screen.cmbState.IndexOf("TN") >= 0);
    CHECK(screen.SSTab1.Captions() == Names{"Truck Info", "Documents", "Fleet Tracker"});
    CHECK(desk.host.hourglass == 0);
}

TEST_CASE("Picking a vehicle shows its record")
{
    const TestOffice office;
    Desk desk(office);
    frmBusEntry& screen = desk.Screen();
    screen.cmbBus.PressKey("c");
    CHECK(screen.txtID.Text() == "1");
    CHECK(screen.txtName.Text() == "Coach 12");
    CHECK(screen.cmbType.Text() == "Bus");
    CHECK(screen.txtModel.Text() == "H3-45");
    CHECK(screen.txtVIN.Text() == "VIN12");
    CHECK(screen.txtTag.IsEmpty());
    CHECK(screen.cmbState.ListIndex() == -1);
    CHECK(screen.cmbOwner.Text() == "Prairie Coaches");
    CHECK(screen.txtBunks.Text() == "12");
    CHECK(screen.txtLease.Display() == "$1,200.50");
    CHECK(screen.txtCommPercent.Display() == "12.5%");
    CHECK(screen.txtCommAmount.Display() == "$0.00");
    CHECK(screen.txtSatellite.Number() == 80);
    CHECK(screen.txtInternet.Number() == 60);
    CHECK(screen.cmbDriver.Text() == "Moe Miles");
    CHECK(screen.cmbAddDriver.ListIndex() == -1);
    CHECK_FALSE(screen.chkInactive.IsChecked());
}

TEST_CASE("A new vehicle is saved whole, and the form stands blank behind it")
{
    const TestOffice office;
    Desk desk(office);
    frmBusEntry& screen = desk.Screen();
    screen.txtName = " Coach 7 ";
    screen.cmbType = "Sub-Lease Bus";
    screen.txtModel = "X3";
    screen.txtVIN = "V7";
    screen.txtTag = "T7";
    screen.cmbState = "TN";
    screen.cmbOwner.PressKey("l");
    screen.txtBunks = "10";
    screen.txtLease = "$2,500.00";
    screen.txtCommPercent = "15.0%";
    screen.txtCommAmount = "12.345";
    screen.txtNotes = "No smoking";
    screen.txtFrontSatAccCard = "F1";
    screen.txtRearSatAccCard = "R1";
    screen.txtInternetCard = "I1";
    screen.txtDriverXMID = "XM1";
    screen.cmbDriver = "N/A";
    screen.cmbAddDriver = "Al Axle";
    screen.chkInactive = true;
    screen.btnSave.Click.Fire();
    CHECK(desk.host.messages.empty());
    CHECK(
        desk.Rows("SELECT Name,Type,Model,VIN,Tag,State,OwnerID,Bunks,Lease,CommPercent,CommAmount,Satellite,Internet "
                  "FROM Bus WHERE ID = 2") == "Coach 7|Sub-Lease Bus|X3|V7|T7|TN|2|10|2500|0.15|12.345|0|0");
    CHECK(desk.Rows("SELECT Notes,FrontSatAccessCard,RearSatAccessCard,InternetCard,DriverXMID,DefaultDriver,"
                    "DefaultAddDriver,Inactive,EnteredBy,DateEntered FROM Bus WHERE ID = 2") ==
          "No smoking|F1|R1|I1|XM1|NULL|2|True|admin|3/2/2026 9:00:00 AM");
    CHECK(screen.txtID.IsEmpty());
    CHECK(screen.txtName.IsEmpty());
    CHECK(screen.txtLease.IsEmpty());
    CHECK(screen.cmbOwner.IsEmpty());
    CHECK(screen.cmbOwner.id.IsEmpty());
    CHECK(screen.cmbBus.ListIndex() == -1);
    CHECK(screen.cmbBus.Entries() == Names{"Coach 12", "Coach 7"});
}

TEST_CASE("N/A and an empty driver combo are saved as NULL")
{
    const TestOffice office;
    Desk desk(office);
    desk.Execute("UPDATE Bus SET DefaultDriver = 1, DefaultAddDriver = 2");
    frmBusEntry& screen = desk.Screen();
    screen.cmbBus.Pick(0);
    CHECK(screen.cmbAddDriver.Text() == "Al Axle");
    screen.cmbDriver = "N/A";
    screen.cmbAddDriver.SetListIndex(-1);
    screen.btnSave.Click.Fire();
    CHECK(desk.Rows("SELECT DefaultDriver,DefaultAddDriver,EnteredBy FROM Bus") == "NULL|NULL|carl");
}

TEST_CASE("A default driver who has become inactive shows at the end of the three lists")
{
    const TestOffice office;
    Desk desk(office);
    desk.Execute("UPDATE Bus SET DefaultDriver = 3, DefaultAddDriver = 3");
    frmBusEntry& screen = desk.Screen();
    screen.cmbBus.Pick(0);
    CHECK(screen.cmbDriver.Entries() == Names{"N/A", "Al Axle", "Moe Miles", "Ida Idle"});
    CHECK(screen.cmbAddDriver.Entries() == screen.cmbDriver.Entries());
    CHECK(screen.cmbDriver.id.Entries() == Names{"N/A", "2", "1", "3"});
    CHECK(screen.cmbDriver.Text() == "Ida Idle");
    CHECK(screen.cmbAddDriver.Text() == "Ida Idle");
    CHECK(screen.cmbDriver.id.Text() == "3");
    screen.btnSave.Click.Fire();
    CHECK(desk.Rows("SELECT DefaultDriver,DefaultAddDriver FROM Bus") == "3|3");
    CHECK(screen.cmbDriver.Entries() == Names{"N/A", "Al Axle", "Moe Miles"});
}

TEST_CASE("A vehicle without an owner shows NA, and a save stores what the hidden list held")
{
    const TestOffice office;
    Desk desk(office);
    desk.Execute("INSERT INTO Bus (Name,Type,OwnerID,Lease,CommAmount,CommPercent,Satellite,Internet,Inactive) VALUES "
                 "('Stray','Bus',0,0,0,0,0,0,0)");
    frmBusEntry& screen = desk.Screen();
    screen.OpenRecord("2");
    CHECK(screen.cmbOwner.Text() == "NA");
    CHECK(screen.cmbOwner.ListIndex() == -1);
    screen.btnSave.Click.Fire();
    CHECK(desk.Rows("SELECT OwnerID FROM Bus WHERE ID = 2") == "0");
    screen.OpenRecord("1");
    screen.OpenRecord("2");
    screen.btnSave.Click.Fire();
    CHECK(desk.Rows("SELECT OwnerID FROM Bus WHERE ID = 2") == "1");
}

TEST_CASE("An owner who is in no list leaves nothing behind when the form is cleared")
{
    const TestOffice office;
    Desk desk(office);
    desk.Execute("UPDATE Bus SET OwnerID = 77");
    frmBusEntry& screen = desk.Screen();
    screen.cmbBus.Pick(0);
    CHECK(screen.cmbOwner.ListIndex() == -1);
    CHECK(screen.cmbOwner.IsEmpty());
    screen.btnNew.Click.Fire();
    CHECK(screen.cmbOwner.id.IsEmpty());
}

TEST_CASE("A vehicle without a type or a state shows none of the vehicle before it")
{
    const TestOffice office;
    Desk desk(office);
    desk.Execute("UPDATE Bus SET State = 'TN'");
    desk.Execute("INSERT INTO Bus (Name,Type,State,OwnerID,Lease,CommAmount,CommPercent,Satellite,Internet,Inactive) "
                 "VALUES ('Stray',NULL,'',1,0,0,0,0,0,0)");
    frmBusEntry& screen = desk.Screen();
    screen.OpenRecord("1");
    CHECK(screen.cmbState.Text() == "TN");
    screen.OpenRecord("2");
    CHECK(screen.cmbState.ListIndex() == -1);
    CHECK(screen.cmbType.IsEmpty());
}

TEST_CASE("A vehicle without a name, a type or an owner is not saved")
{
    const TestOffice office;
    Desk desk(office);
    frmBusEntry& screen = desk.Screen();
    const std::string refusal = "Required Fields: Bus/Trailer Name, Owner, and Type are required before saving.";
    screen.cmbType = "Bus";
    screen.cmbOwner.Pick(0);
    screen.btnSave.Click.Fire();
    CHECK(desk.host.TakeMessages() == refusal);
    screen.txtName = "Coach 7";
    screen.cmbType.SetListIndex(-1);
    screen.btnSave.Click.Fire();
    CHECK(desk.host.TakeMessages() == refusal);
    screen.cmbType = "Bus";
    screen.cmbOwner.SetListIndex(-1);
    screen.btnSave.Click.Fire();
    CHECK(desk.host.TakeMessages() == refusal);
    CHECK(desk.Rows("SELECT COUNT(*) FROM Bus") == "1");
}

TEST_CASE("A vehicle is saved by nobody who may only view it")
{
    const TestOffice office;
    Desk desk(office, "clerk");
    desk.Grant("clerk", "Bus/Trailer View");
    frmBusEntry& screen = desk.Screen();
    screen.cmbBus.Pick(0);
    screen.txtName = "Mine";
    screen.btnSave.Click.Fire();
    CHECK(desk.host.TakeMessages() == "Invalid Permission: You do not have permission to save this record.");
    CHECK(desk.Rows("SELECT Name FROM Bus") == "Coach 12");
}

TEST_CASE("New empties the vehicle's form; an unknown key leaves it empty")
{
    const TestOffice office;
    Desk desk(office);
    frmBusEntry& screen = desk.Screen();
    screen.OpenRecord("99");
    CHECK(screen.txtID.IsEmpty());
    screen.OpenRecord("1");
    screen.btnNew.Click.Fire();
    CHECK(screen.txtID.IsEmpty());
    CHECK(screen.txtName.IsEmpty());
    CHECK(screen.txtLease.IsEmpty());
    CHECK(screen.cmbDriver.ListIndex() == -1);
    CHECK(screen.Focused() == &screen.txtName);
    screen.OpenRecord("99");
    CHECK(screen.cmbBus.ListIndex() == -1);
    CHECK(screen.txtName.IsEmpty());
}

TEST_CASE("A vehicle's amount that is NULL ends the program and names the column")
{
    const TestOffice office;
    Desk desk(office);
    desk.Execute("UPDATE Bus SET Satellite = NULL");
    frmBusEntry& screen = desk.Screen();
    CHECK_THROWS_WITH_AS(screen.cmbBus.Pick(0), doctest::Contains("Satellite"), RunTimeError);
}

TEST_CASE("Bunks that are no number, and a name beyond its column, end the program with nothing written")
{
    const TestOffice office;
    Desk desk(office);
    frmBusEntry& screen = desk.Screen();
    screen.cmbBus.Pick(0);
    screen.txtModel = "Changed";
    screen.txtBunks = "a dozen";
    CHECK_THROWS_AS(screen.btnSave.Click.Fire(), DatabaseError);
    screen.txtBunks = "12";
    screen.txtName = std::string(101, 'x');
    CHECK_THROWS_WITH_AS(screen.btnSave.Click.Fire(), doctest::Contains("truncated"), DatabaseError);
    CHECK(desk.Rows("SELECT Name,Model,Bunks FROM Bus") == "Coach 12|H3-45|12");
}

TEST_CASE("A vehicle whose bunks are left empty is saved")
{
    const TestOffice office;
    Desk desk(office);
    frmBusEntry& screen = desk.Screen();
    screen.cmbBus.Pick(0);
    screen.txtBunks = "";
    screen.btnSave.Click.Fire();
    CHECK(desk.Rows("SELECT Bunks FROM Bus") == "0");
}
