#include "master/frmCompanyInfo.h"

#include "frame/MDI.h"
#include "store/DatabaseError.h"
#include "support/TestApp.h"

#include <doctest/doctest.h>

using namespace rovanta;
using namespace rovanta::tests;

namespace {

template <class Kind>
Kind& ControlOf(Form& form, const std::string& name)
{
    auto* control = dynamic_cast<Kind*>(form.FindControl(name));
    REQUIRE_MESSAGE(control != nullptr, name);
    return *control;
}

/// A desk whose user stands before the company screen.
struct Desk : TestApp {
    explicit Desk(const TestOffice& office) : TestApp(office) { SignIn(); }
    frmCompanyInfo& Screen() { return app.Open<frmCompanyInfo>(); }
};

}

TEST_CASE("The company screen shows the row of the company")
{
    const TestOffice office;
    Desk desk(office);
    desk.Execute("UPDATE Company SET Name = 'Larkfield Production', Address1 = '12 Mill Rd', Address2 = NULL, City = "
                 "'Nashville', State = 'TN', Zip = '37201', Phone = '6155550100', Website = 'larkfield.example', Email "
                 "= 'office@larkfield.example', KeyPressDelay = 1.5, TaxRate = 9.25, FuelRate = 0.58, MiscTotal = 75, "
                 "FuelContract = 'Driver Collect', BusContract = 'Contract', AdminContract = 'Client Resp', Tax12 = 1");
    frmCompanyInfo& screen = desk.Screen();
    CHECK(screen.txtCompany.Text() == "Larkfield Production");
    CHECK(screen.txtAddress1.Text() == "12 Mill Rd");
    CHECK(screen.txtAddress2.IsEmpty());
    CHECK(screen.txtCity.Text() == "Nashville");
    CHECK(screen.cmbState.List(screen.cmbState.ListIndex()) == "TN");
    CHECK(screen.txtZip.Text() == "37201");
    CHECK(screen.txtPhone.Display() == "(615) 555-0100");
    CHECK(screen.txtWebsite.Text() == "larkfield.example");
    CHECK(screen.txtEmail.Text() == "office@larkfield.example");
    CHECK(screen.txtKeyPressDelay.Text() == "1.5");
    CHECK(screen.txtTaxRate.Text() == "9.25");
    CHECK(ControlOf<MoneyBox>(screen, "txtFuelRate").Display() == "$0.58");
    CHECK(ControlOf<MoneyBox>(screen, "txtMiscTotal").Display() == "$75.00");
    CHECK(ControlOf<OptionButton>(screen, "optFuelDriver").Value());
    CHECK(ControlOf<OptionButton>(screen, "optBusContract").Value());
    CHECK(ControlOf<OptionButton>(screen, "optAdminClient").Value());
    CHECK(ControlOf<CheckBox>(screen, "chkTax(12)").IsChecked());
    CHECK_FALSE(ControlOf<CheckBox>(screen, "chkTax(15)").IsChecked());
    CHECK(desk.host.hourglass == 0);
    CHECK(desk.host.hourglassShown == 1);
}

TEST_CASE("The charges stand from top to bottom in their order, each with its own flag")
{
    const TestOffice office;
    Desk desk(office);
    std::string rows;
    for (const ChargeDefaults& charge : desk.Screen().charges) {
        rows += charge.chkTax.Name() + " " + charge.payer.contract.Note() + "|" +
                (charge.amount ? charge.amount->Name() + " " + charge.amount->Note() : "-") + "|" +
                charge.payer.client.Name() + "\n";
        CHECK(charge.chkTax.Caption() == "Taxable");
        CHECK(charge.payer.client.Caption() == "Client Resp.");
    }
    CHECK(rows == "chkTax(0) Bus/Trailer|-|optBusClient\n"
                  "chkTax(1) Driver/Add. Driver|-|optDriverClient\n"
                  "chkTax(2) DOT/IFTA|txtDOTRate Rate/Day|optDOTClient\n"
                  "chkTax(3) Satellite|txtSatelliteRate Rate/Day|optSatelliteClient\n"
                  "chkTax(4) Internet|txtInternetRate Rate/Day|optInternetClient\n"
                  "chkTax(5) Hotel Buy Out|txtHotelBuyOutRate Rate/Day|optHotelClient\n"
                  "chkTax(6) Interior Clean|txtSuppliesRate Rate/Wk|optSuppliesClient\n"
                  "chkTax(7) Bus Wash|txtBusWashRate Rate/Wk|optBusWashClient\n"
                  "chkTax(8) Linens|txtLinenRate Rate/Wk|optLinenClient\n"
                  "chkTax(9) Generator Svc.|txtGeneratorRate Rate/Wk|optGeneratorClient\n"
                  "chkTax(10) Fuel Est.|txtFuelRate Rate/Mi|optFuelClient\n"
                  "chkTax(11) Engine Svc.|txtEngineRate Rate/Mi|optEngineClient\n"
                  "chkTax(13) End of Tour Cleaning|txtCleaningTotal |optCleaningClient\n"
                  "chkTax(14) Permits/Tolsl/Parking|txtPermitTotal |optPermitClient\n"
                  "chkTax(15) Overdrives|txtMiscTotal |optMiscClient\n"
                  "chkTax(12) Flights/Other|txtCarpetTotal |optCarpetClient\n"
                  "chkTax(16) Wraps/Other|txtPayrollFeeRate |optPayrollFeeClient\n"
                  "chkTax(17) Co-Driver|txtAdminFeeRate |optAdminClient\n");
}

TEST_CASE("Every amount, payer and flag of the company screen reaches its own column and no other")
{
    const TestOffice office;
    Desk desk(office);
    frmCompanyInfo& screen = desk.Screen();
    screen.cmbState = "TN";
    double amount = 1;
    int word = 0;
    for (ChargeDefaults& charge : screen.charges) {
        if (charge.amount)
            *charge.amount = amount++;
        (word % 3 == 0 ? charge.payer.contract : word % 3 == 1 ? charge.payer.driver : charge.payer.client) = true;
        charge.chkTax = word % 2 == 1;
        ++word;
    }
    screen.btnSave.Click.Fire();
    CHECK(desk.Rows("SELECT DOTRate,SatelliteRate,InternetRate,HotelBuyOutRate,SuppliesRate,BusWashRate,LinenRate,"
                    "GeneratorRate,FuelRate,EngineRate,CleaningTotal,PermitTotal,MiscTotal,CarpetTotal,PayrollFeeRate,"
                    "AdminFeeRate FROM Company") == "1|2|3|4|5|6|7|8|9|10|11|12|13|14|15|16");
    CHECK(desk.Rows("SELECT BusContract,DriverContract,DOTContract,SatelliteContract,InternetContract,"
                    "HotelBuyOutContract FROM Company") ==
          "Contract|Driver Collect|Client Resp|Contract|Driver Collect|Client Resp");
    CHECK(desk.Rows("SELECT SuppliesContract,BusWashContract,LinenContract,GeneratorContract,FuelContract,"
                    "EngineContract FROM Company") ==
          "Contract|Driver Collect|Client Resp|Contract|Driver Collect|Client Resp");
    CHECK(desk.Rows("SELECT CleaningContract,PermitContract,MiscContract,CarpetContract,PayrollFeeContract,"
                    "AdminContract FROM Company") ==
          "Contract|Driver Collect|Client Resp|Contract|Driver Collect|Client Resp");
    CHECK(desk.Rows("SELECT Tax0,Tax1,Tax2,Tax3,Tax12,Tax13,Tax14,Tax15,Tax16,Tax17 FROM Company") ==
          "False|True|False|True|True|False|True|False|False|True");
}

TEST_CASE("Saving the company closes the screen and lets the new defaults hold at once")
{
    const TestOffice office;
    Desk desk(office);
    frmCompanyInfo& screen = desk.Screen();
    screen.txtCompany = " Larkfield ";
    screen.cmbState = "TN";
    screen.txtKeyPressDelay = "2";
    screen.txtTaxRate = "9.25";
    ControlOf<MoneyBox>(screen, "txtMiscTotal") = "$1,250.50";
    ControlOf<OptionButton>(screen, "optMiscDriver") = true;
    ControlOf<CheckBox>(screen, "chkTax(15)") = true;
    screen.btnSave.Click.Fire();
    CHECK(desk.app.Find<frmCompanyInfo>() == nullptr);
    CHECK(desk.app.company.CompanyName == "Larkfield");
    CHECK(desk.app.company.CompanyState == "TN");
    CHECK(desk.app.company.KeyPressDelay == 2);
    CHECK(desk.app.company.CompanyTaxRate == 9.25);
    CHECK(desk.app.company.DefaultRates[Charge::Misc] == 1250.5);
    CHECK(desk.app.company.DefaultPayers[Charge::Misc] == "Driver Collect");
    CHECK(desk.app.company.DefaultTaxable[Taxable::Misc]);
    CHECK_FALSE(desk.app.company.DefaultTaxable[Taxable::Carpet]);
    CHECK(desk.Rows("SELECT COUNT(*) FROM Company") == "1");
}

TEST_CASE("A company without a name or a state is not saved")
{
    const TestOffice office;
    Desk desk(office);
    frmCompanyInfo& screen = desk.Screen();
    screen.cmbState = "TN";
    screen.txtCompany = "";
    screen.btnSave.Click.Fire();
    CHECK(desk.host.TakeMessages() == "Required Fields: Name and State Required.");
    screen.txtCompany = "Larkfield";
    screen.cmbState.SetListIndex(-1);
    screen.btnSave.Click.Fire();
    REQUIRE(desk.host.messages.size() == 1);
    CHECK(desk.host.messages[0].icon == MessageIcon::None);
    CHECK(desk.host.TakeMessages() == "Required Fields: Name and State Required.");
    CHECK(desk.app.Find<frmCompanyInfo>() == &screen);
    CHECK(desk.Rows("SELECT Name,State FROM Company") == "New Company|");
}

TEST_CASE("Leaving the typing delay with less than a second brings the focus back")
{
    const TestOffice office;
    Desk desk(office);
    frmCompanyInfo& screen = desk.Screen();
    for (const char* refused : {"0.99", "0", "", "-3", "soon"}) {
        screen.txtKeyPressDelay.SetFocus();
        screen.txtKeyPressDelay = refused;
        screen.txtTaxRate.SetFocus();
        CHECK(desk.host.TakeMessages() == "Invalid Entry: Quantity must be greater than 0.");
        CHECK(screen.Focused() == &screen.txtKeyPressDelay);
    }
    screen.txtKeyPressDelay = "1";
    screen.txtTaxRate.SetFocus();
    CHECK(desk.host.messages.empty());
    CHECK(screen.Focused() == &screen.txtTaxRate);
}

TEST_CASE("A payer word that nobody knows shows as the client's and is saved as such")
{
    const TestOffice office;
    Desk desk(office);
    desk.Execute("UPDATE Company SET State = 'TN', LinenContract = 'Label', FuelContract = NULL");
    frmCompanyInfo& screen = desk.Screen();
    CHECK(ControlOf<OptionButton>(screen, "optLinenClient").Value());
    CHECK(ControlOf<OptionButton>(screen, "optFuelClient").Value());
    screen.btnSave.Click.Fire();
    CHECK(desk.Rows("SELECT LinenContract,FuelContract FROM Company") == "Client Resp|Client Resp");
}

TEST_CASE("An empty company table brings up the company screen before the main window, and a save adds the row")
{
    const TestOffice office;
    {
        TestApp first(office);
        first.Execute("DELETE FROM Company");
    }
    TestApp desk(office);
    REQUIRE(desk.app.Screens().front()->Name() == "frmCompanyInfo");
    CHECK_FALSE(desk.app.Find<MDI>()->menu.CanPick("CompanyInfo"));
    auto& screen = *desk.app.Find<frmCompanyInfo>();
    CHECK(screen.txtCompany.IsEmpty());
    CHECK(screen.txtKeyPressDelay.IsEmpty());
    CHECK(screen.cmbState.ListCount() > 50);
    screen.txtCompany = "Larkfield Production";
    screen.cmbState = "TN";
    screen.txtKeyPressDelay = "1";
    screen.btnSave.Click.Fire();
    CHECK(desk.app.company.CompanyName == "Larkfield Production");
    CHECK(desk.app.company.DefaultPayers[Charge::Bus] == "Client Resp");
    CHECK(desk.Rows("SELECT Name,State,EmailServer,FuelRate FROM Company") == "Larkfield Production|TN||0");
}

TEST_CASE("A save of the company leaves the mail settings alone")
{
    const TestOffice office;
    Desk desk(office);
    desk.Execute("UPDATE Company SET State = 'TN', EmailServer = 'mail.example', MaintenanceEmail = 'shop@example'");
    desk.Screen().btnSave.Click.Fire();
    CHECK(desk.Rows("SELECT EmailServer,MaintenanceEmail FROM Company") == "mail.example|shop@example");
}

TEST_CASE("Exit leaves the company as it was")
{
    const TestOffice office;
    Desk desk(office);
    frmCompanyInfo& screen = desk.Screen();
    screen.txtCompany = "Another";
    screen.btnExit.Click.Fire();
    CHECK(desk.app.Find<frmCompanyInfo>() == nullptr);
    CHECK(desk.Rows("SELECT Name FROM Company") == "New Company");
}

TEST_CASE("An amount of the company that is NULL, and a name beyond its column, end the program with nothing written")
{
    const TestOffice office;
    Desk desk(office);
    frmCompanyInfo& screen = desk.Screen();
    screen.cmbState = "TN";
    screen.txtCompany = std::string(101, 'x');
    screen.txtCity = "Nashville";
    CHECK_THROWS_AS(screen.btnSave.Click.Fire(), DatabaseError);
    CHECK(desk.Rows("SELECT Name,City FROM Company") == "New Company|");
    screen.btnExit.Click.Fire();
    desk.app.DropClosed();
    desk.Execute("UPDATE Company SET FuelRate = NULL");
    CHECK_THROWS_WITH_AS(desk.app.Open<frmCompanyInfo>(), doctest::Contains("FuelRate"), RunTimeError);
}

TEST_CASE("The state of the company is found by its first letters")
{
    const TestOffice office;
    Desk desk(office);
    frmCompanyInfo& screen = desk.Screen();
    screen.cmbState.PressKey("t");
    CHECK(screen.cmbState.Text() == "TN");
}
