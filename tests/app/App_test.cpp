#include <doctest/doctest.h>

#include "frame/MDI.h"
#include "frame/SharedRoutines.h"
#include "frame/frmAbout.h"
#include "support/TestApp.h"
#include "values/Errors.h"
#include "values/Numbers.h"

using namespace rovanta;
using namespace rovanta::tests;

TEST_CASE("A start shows the main window with the sign-in box before it")
{
    const TestOffice office;
    TestApp desk(office);
    const auto screens = desk.app.Screens();
    REQUIRE(screens.size() == 2);
    CHECK(screens[0]->Caption() == "Rovanta - Larkfield Production");
    CHECK(screens[1]->Caption() == "Login");
    CHECK(desk.app.DriverDayFee == 30);
    CHECK(desk.app.company.OwnerEngineShare == 0.9);
    CHECK(desk.host.TakeMessages() == "");
}

TEST_CASE("An empty company table brings its screen up before the main window, and the start goes on")
{
    const TestOffice office;
    TestApp(office).Execute("DELETE FROM Company");
    TestApp desk(office);
    const auto screens = desk.app.Screens();
    REQUIRE(screens.size() == 3);
    CHECK(screens[0]->Name() == "frmCompanyInfo");
    CHECK(screens[1]->Name() == "MDI");
    CHECK(screens[2]->Name() == "frmLogin");
    CHECK(desk.app.company.CompanyName == "");
    CHECK(desk.app.company.OwnerEngineShare == 0);
}

TEST_CASE("The company row goes to the company's variables, column by column")
{
    const TestOffice office;
    TestApp(office).Execute(
        "UPDATE Company SET Name = 'Larkfield', KeyPressDelay = 1.5, TaxRate = 9.25, FuelRate = 1.25, "
        "AdminFeeRate = 40, MiscTotal = 7, BusContract = 'Contract', DriverContract = 'Driver Collect', "
        "SatelliteContract = 'Client Resp', Tax0 = 1, Tax1 = 0, Tax17 = 1");
    TestApp desk(office);
    const Company& company = desk.app.company;
    CHECK(company.CompanyName == "Larkfield");
    CHECK(company.KeyPressDelay == 1.5);
    CHECK(company.CompanyTaxRate == 9.25);
    CHECK(company.DefaultRates[Charge::Fuel] == 1.25);
    CHECK(company.DefaultRates[Charge::Admin] == 40);
    CHECK(company.DefaultRates[Charge::Misc] == 7);
    CHECK(company.DefaultPayers[Charge::Bus] == "Contract");
    CHECK(company.DefaultPayers[Charge::Driver] == "Driver Collect");
    CHECK(company.DefaultPayers[Charge::Satellite] == "Client Resp");
    CHECK(company.DefaultTaxable[Taxable::Bus]);
    CHECK_FALSE(company.DefaultTaxable[Taxable::Driver]);
    CHECK(company.DefaultTaxable[Taxable::Admin]);
}

TEST_CASE("A company column without a value ends the start with its name")
{
    const TestOffice office;
    TestApp(office).Execute("UPDATE Company SET Tax3 = NULL");
    CHECK_THROWS_WITH_AS(TestApp{office}, "Invalid use of Null: Tax3", RunTimeError);
}

TEST_CASE("The sign-in keeps who it is")
{
    const TestOffice office;
    TestApp desk(office);
    desk.SignIn("CLERK");
    CHECK(desk.app.session.CurrentUsername == "clerk");
    CHECK(desk.app.session.CurrentUserType == "User");
    CHECK(ToText(desk.app.session.CurrentUserID) == desk.Rows("SELECT ID FROM [User] WHERE Username = 'clerk'"));
}

TEST_CASE("A right counts by its name and user; the exact type Admin passes all")
{
    const TestOffice office;
    TestApp desk(office);
    desk.SignIn("clerk");
    CHECK_FALSE(desk.app.HasPermission("Tour View"));
    desk.Grant("admin", "Tour View");
    CHECK_FALSE(desk.app.HasPermission("Tour View"));
    desk.Grant("clerk", "Tour View");
    CHECK(desk.app.HasPermission("Tour View"));
    CHECK(desk.app.HasPermission("tour view"));
    CHECK_FALSE(desk.app.HasPermission("Tour Entry/Edit"));
    CHECK(desk.app.HasEitherPermission("Tour Entry/Edit", "Tour View"));
    CHECK_FALSE(desk.app.HasPermission("No Such Right"));
    for (const auto& [type, passes] :
         {std::pair{"Admin", true}, std::pair{"admin", false}, std::pair{"Admin ", false}}) {
        desk.app.session.CurrentUserType = type;
        CHECK(desk.app.HasPermission("No Such Right") == passes);
    }
}

TEST_CASE("A second copy on the machine says so and ends; the first goes on")
{
    const TestOffice office;
    const std::string machine = "app-" + std::to_string(getpid());
    SilentHost host;
    App first(host, AllScreens(), {office.ConfigPath(), machine, {}});
    first.Start();
    App second(host, AllScreens(), {office.ConfigPath(), machine, {}});
    CHECK_THROWS_AS(second.Start(), ProgramEnd);
    CHECK(host.TakeMessages() == "Application Already Running: This application is already running.");
    CHECK(second.Screens().empty());
    CHECK(first.Find<frmLogin>() != nullptr);
}

TEST_CASE("A screen is loaded once; closing it fires its unload and lets its routine end first")
{
    const TestOffice office;
    TestApp desk(office);
    Screen& about = desk.app.Open("frmAbout");
    CHECK(&desk.app.Open("frmAbout") == &about);
    CHECK_THROWS_AS(desk.app.Open("frmNone"), std::logic_error);
    CHECK_THROWS_AS(about.OpenRecord("1"), std::logic_error);
    int unloads = 0;
    about.Unload = [&] { ++unloads; };
    desk.app.Unload(about);
    desk.app.Unload(about);
    CHECK(unloads == 1);
    CHECK(desk.app.Find("frmAbout") == nullptr);
    CHECK_FALSE(about.Visible());
    desk.app.DropClosed();
    CHECK(desk.app.Open("frmAbout").Visible());
    CHECK(desk.app.Find("frmAbout") != nullptr);
}

TEST_CASE("A screen's unload may open and close other screens")
{
    const TestOffice office;
    TestApp desk(office);
    Screen& about = desk.app.Open("frmAbout");
    about.Unload = [&] {
        desk.app.Unload(*desk.app.Find("frmLogin"));
        for (const char* screen : {"frmCustomerEntry", "frmCustomerEntry2", "frmCustomerNavigator", "frmBusEntry"})
            desk.app.Open(screen);
    };
    desk.app.Unload(about);
    CHECK(desk.app.Find("frmAbout") == nullptr);
    CHECK(desk.app.Find("frmLogin") == nullptr);
    CHECK(desk.app.Screens().size() == 5);
}

TEST_CASE("The look-ups that screens share")
{
    const TestOffice office;
    TestApp desk(office);
    desk.Execute("INSERT INTO Bus (Name,Type) VALUES ('Silver Arrow','Trailer')");
    desk.Execute("INSERT INTO Bus (Name) VALUES ('Untyped')");
    desk.Execute("INSERT INTO Driver (Name) VALUES ('Lee Marsh')");
    desk.Execute("INSERT INTO Driver (Name) VALUES ('Kim Doyle')");
    desk.Execute("INSERT INTO Driver (Inactive) VALUES (0)");
    desk.Execute("INSERT INTO TourItems (ID,TourID,BusID,DriverID,AddDriverID,BusRate,Commission,CommissionPerMonth) "
                 "VALUES (1,5,1,1,2,800,80,200)");
    desk.Execute("INSERT INTO TourItems (ID,TourID,BusID,DriverID,BusRate) VALUES (2,5,2,2,0)");
    desk.Execute("INSERT INTO TourItems (ID,TourID) VALUES (3,5)");
    desk.Execute("INSERT INTO TourRoute (TourID,BusID,TotalMileage) VALUES (5,1,1234)");
    desk.Execute("INSERT INTO Invoice (TourID) VALUES (5)");
    App& app = desk.app;

    CHECK(GetBusType(app, "1") == "Trailer");
    CHECK(GetBusType(app, "2") == "");
    CHECK(GetBusType(app, "99") == "?");
    CHECK_THROWS_AS(GetBusType(app, ""), RunTimeError);
    CHECK_THROWS_AS(GetBusType(app, "1 OR 1=1"), RunTimeError);
    CHECK(GetDriverName(app, "1") == "Lee Marsh");
    CHECK(GetDriverName(app, "3") == "");
    CHECK(GetDriverName(app, "99") == "");
    CHECK(GetRouteMileage(app, "5", "1") == 1234);
    CHECK(GetRouteMileage(app, "5", "2") == -1);
    CHECK(GetTourItemDrivers(app, "5", "1") == "Lee Marsh / Kim Doyle");
    CHECK(GetTourItemDrivers(app, "5", "2") == "Kim Doyle");
    CHECK(GetTourItemDrivers(app, "5", "3") == "");
    CHECK(GetTourItemDrivers(app, "5", "9") == "");
    CHECK(GetTourItemBusName(app, "5", "1") == "Silver Arrow");
    CHECK(GetTourItemBusName(app, "5", "3") == "");
    CHECK(CommissionPercentDaily(app, "5", "1") == 0.1);
    CHECK(CommissionPercentMonthly(app, "5", "1") == 0.25);
    CHECK(CommissionPercentDaily(app, "5", "77") == 0);
    CHECK_THROWS_AS(CommissionPercentDaily(app, "5", "2"), RunTimeError);
    CHECK(GetInvoiceTourID(app, "1") == "5");
    CHECK(GetInvoiceTourID(app, "99") == "");
}

TEST_CASE("An invoice and a payment keep the accounting's numbers")
{
    const TestOffice office;
    TestApp desk(office);
    desk.Execute("INSERT INTO Invoice (TourID,NeedsUpdated) VALUES (5,'YES')");
    desk.Execute("INSERT INTO InvoicePayments (InvoiceID) VALUES (1)");
    UpdateInvoiceQBIDs(desk.app, "1", "A-1", "J-1");
    CHECK(desk.Rows("SELECT QBID,NeedsUpdated,GJQBID FROM Invoice") == "A-1|NULL|J-1");
    UpdatePaymentQBID(desk.app, "1", "P-1");
    CHECK(desk.Rows("SELECT QBID FROM InvoicePayments") == "P-1");
    CHECK_THROWS_AS(UpdatePaymentQBID(desk.app, "1", "O'Hara"), RunTimeError);
}

TEST_CASE("The current miles of a bus are made once and then brought up to date")
{
    const TestOffice office;
    TestApp desk(office);
    desk.SignIn("clerk");
    CHECK(CheckCurrentMiles(desk.app, "1", "0"));
    SetCurrentMiles(desk.app, "1", "1000");
    desk.app.clock.Freeze(DateTime::Of(2026, 3, 5, 10, 0, 0));
    SetCurrentMiles(desk.app, "1", "2000.5");
    CHECK(desk.Rows("SELECT BusID,BusFleetTrackerFieldID,FieldValue,EnteredDate,EnteredBy,EditedDate,EditedBy FROM "
                    "BusFleetTracker") == "1|30|2000.5|3/2/2026 9:00:00 AM|clerk|3/5/2026 10:00:00 AM|clerk");
    CHECK(CheckCurrentMiles(desk.app, "1", "2000.5"));
    CHECK(CheckCurrentMiles(desk.app, "1", "2001 miles"));
    CHECK_FALSE(CheckCurrentMiles(desk.app, "1", "2000"));
    CHECK_FALSE(CheckCurrentMiles(desk.app, "1", ""));
    SetCurrentMiles(desk.app, "1", "many");
    CHECK_THROWS_AS(CheckCurrentMiles(desk.app, "1", "1"), RunTimeError);
}

TEST_CASE("Dropping a table that is missing is no failure, and a name that is none drops nothing")
{
    const TestOffice office;
    TestApp desk(office);
    desk.Execute("CREATE TABLE tmpList (ID int)");
    DropTable(desk.app, "tmpList");
    CHECK_THROWS_AS(desk.Rows("SELECT * FROM tmpList"), RunTimeError);
    CHECK_NOTHROW(DropTable(desk.app, "tmpList"));
    CHECK_NOTHROW(DropTable(desk.app, "tmpList; DROP TABLE Tour"));
    CHECK(desk.Rows("SELECT COUNT(ID) AS N FROM Tour") == "0");
}
