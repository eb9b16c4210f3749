#include "master/frmCompanyInfo.h"

#include "frame/App.h"
#include "values/Text.h"

#include <array>

namespace rovanta {

// The captions are those that people know the charges by; some columns still bear the names of earlier charges.
// Kept on purpose: the flags run out of order near the end, and "Tolsl" is what the screen says.
static constexpr auto chargeDefinitions = std::to_array<ChargeDefinition>({
    {0, "Bus/Trailer", nullptr, nullptr, "", "Bus", "BusContract"},
    {1, "Driver/Add. Driver", nullptr, nullptr, "", "Driver", "DriverContract"},
    {2, "DOT/IFTA", "txtDOTRate", "DOTRate", "Rate/Day", "DOT", "DOTContract"},
    {3, "Satellite", "txtSatelliteRate", "SatelliteRate", "Rate/Day", "Satellite", "SatelliteContract"},
    {4, "Internet", "txtInternetRate", "InternetRate", "Rate/Day", "Internet", "InternetContract"},
    {5, "Hotel Buy Out", "txtHotelBuyOutRate", "HotelBuyOutRate", "Rate/Day", "Hotel", "HotelBuyOutContract"},
    {6, "Interior Clean", "txtSuppliesRate", "SuppliesRate", "Rate/Wk", "Supplies", "SuppliesContract"},
    {7, "Bus Wash", "txtBusWashRate", "BusWashRate", "Rate/Wk", "BusWash", "BusWashContract"},
    {8, "Linens", "txtLinenRate", "LinenRate", "Rate/Wk", "Linen", "LinenContract"},
    {9, "Generator Svc.", "txtGeneratorRate", "GeneratorRate", "Rate/Wk", "Generator", "GeneratorContract"},
    {10, "Fuel Est.", "txtFuelRate", "FuelRate", "Rate/Mi", "Fuel", "FuelContract"},
    {11, "Engine Svc.", "txtEngineRate", "EngineRate", "Rate/Mi", "Engine", "EngineContract"},
    {13, "End of Tour Cleaning", "txtCleaningTotal", "CleaningTotal", "", "Cleaning", "CleaningContract"},
    {14, "Permits/Tolsl/Parking", "txtPermitTotal", "PermitTotal", "", "Permit", "PermitContract"},
    {15, "Overdrives", "txtMiscTotal", "MiscTotal", "", "Misc", "MiscContract"},
    {12, "Flights/Other", "txtCarpetTotal", "CarpetTotal", "", "Carpet", "CarpetContract"},
    {16, "Wraps/Other", "txtPayrollFeeRate", "PayrollFeeRate", "", "PayrollFee", "PayrollFeeContract"},
    {17, "Co-Driver", "txtAdminFeeRate", "AdminFeeRate", "", "Admin", "AdminContract"},
});

ChargeDefaults::ChargeDefaults(Form* form, const ChargeDefinition& definition)
    : definition(definition), payer(form, definition.optionStem, definition.caption),
      chkTax(form, "chkTax(" + std::to_string(definition.taxIndex) + ")", "Taxable")
{
    if (!definition.amountBox)
        return;
    amount.emplace(form, definition.amountBox, definition.caption);
    amount->SetNote(definition.unit);
}

static std::string TaxColumn(const ChargeDefinition& definition)
{
    return "Tax" + std::to_string(definition.taxIndex);
}

void ChargeDefaults::Load(Recordset& company)
{
    if (amount)
        ShowNumber(*amount, company.Fields(definition.amountColumn));
    payer.Choose(company.Fields(definition.payerColumn).TextOrEmpty());
    ShowFlag(chkTax, company.Fields(TaxColumn(definition)));
}

void ChargeDefaults::Save(Recordset& company) const
{
    if (amount)
        company.Fields(definition.amountColumn) = amount->Number();
    company.Fields(definition.payerColumn) = payer.Word();
    company.Fields(TaxColumn(definition)) = chkTax.IsChecked();
}

frmCompanyInfo::frmCompanyInfo(App& app) : Screen(app, screenName, "Company Setup")
{
    txtKeyPressDelay.SetNote("(Seconds)");
    for (const ChargeDefinition& definition : chargeDefinitions)
        charges.emplace_back(this, definition);
    UseTypeAhead(cmbState);
    txtKeyPressDelay.LostFocus = [this] { txtKeyPressDelay_LostFocus(); };
    btnSave.Click = [this] { btnSave_Click(); };
    btnExit.Click = [this] { Close(); };
    LoadCompany();
}

std::vector<TextColumn> frmCompanyInfo::TextColumns()
{
    return {{"Address1", txtAddress1}, {"Address2", txtAddress2}, {"City", txtCity},   {"Zip", txtZip},
            {"Phone", txtPhone},       {"Fax", txtFax},           {"Email", txtEmail}, {"Website", txtWebsite}};
}

Recordset frmCompanyInfo::OpenCompany()
{
    return Recordset("SELECT TOP 1 * FROM Company", Database());
}

void frmCompanyInfo::LoadCompany()
{
    const Hourglass hourglass(app);
    FillStates(cmbState, Database());
    Recordset company = OpenCompany();
    if (company.Eof())
        return;
    txtCompany = company.Fields("Name").Text();
    ShowTexts(company, TextColumns());
    ShowChoice(cmbState, company.Fields("State"));
    ShowText(txtKeyPressDelay, company.Fields("KeyPressDelay"));
    ShowText(txtTaxRate, company.Fields("TaxRate"));
    for (ChargeDefaults& charge : charges)
        charge.Load(company);
}

void frmCompanyInfo::btnSave_Click()
{
    if (!HasRequired(app, !txtCompany.IsEmpty() && !cmbState.IsEmpty(), "Name and State Required."))
        return;
    Recordset company = OpenCompany();
    if (company.Eof()) {
        company.AddNew();
        // The mail settings have no box here, and the defaults are read with no guard against NULL.
        for (const char* column : {"MaintenanceEmail", "EmailFromAddress", "EmailFromName", "EmailServer",
                                   "EmailServerUser", "EmailServerPassword"})
            company.Fields(column) = "";
    }
    WriteCompany(company);
    company.Update();
    company.Close();
    Close();
    app.LoadCompanyDefaults();
}

void frmCompanyInfo::WriteCompany(Recordset& company)
{
    company.Fields("Name") = Trim(txtCompany.Text());
    WriteTexts(company, TextColumns());
    company.Fields("State") = cmbState.Text();
    company.Fields("KeyPressDelay") = txtKeyPressDelay.Val();
    company.Fields("TaxRate") = txtTaxRate.Val();
    for (const ChargeDefaults& charge : charges)
        charge.Save(company);
}

void frmCompanyInfo::txtKeyPressDelay_LostFocus()
{
    if (txtKeyPressDelay.Val() >= 1)
        return;
    app.Say("Quantity must be greater than 0.", "Invalid Entry");
    txtKeyPressDelay.SetFocus();
}

}
