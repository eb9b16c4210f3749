#include "master/frmBusEntry.h"

#include "frame/App.h"
#include "frame/SharedRoutines.h"
#include "values/Text.h"

namespace rovanta {

static const std::string noDriver = "N/A";

frmBusEntry::frmBusEntry(App& app) : Screen(app, screenName, "Truck/Trailer Entry/Edit")
{
    txtNotes.SetLines(4);
    UseTypeAhead(cmbBus);
    UseTypeAhead(cmbState);
    UseTypeAhead(cmbOwner);
    cmbBus.Click = [this] { cmbBus_Click(); };
    cmbOwner.Click = [this] { cmbOwner.id.SetListIndex(cmbOwner.ListIndex()); };
    btnNew.Click = [this] { btnNew_Click(); };
    btnSave.Click = [this] { btnSave_Click(); };
    btnExit.Click = [this] { Close(); };
    lstImages.Click = [this] { lstImages_Click(); };
    btnLoadPic.Click = [this] { btnLoadPic_Click(); };
    btnAddImage.Click = [this] { btnAddImage_Click(); };
    btnRemove.Click = [this] { btnRemove_Click(); };
    FillBusLists();
}

void frmBusEntry::OpenRecord(const std::string& key)
{
    cmbBus.id = key;
    cmbBus.SetListIndex(cmbBus.id.ListIndex());
}

std::vector<TextColumn> frmBusEntry::TextColumns()
{
    return {{"Model", txtModel},
            {"VIN", txtVIN},
            {"Tag", txtTag},
            {"Bunks", txtBunks},
            {"Notes", txtNotes},
            {"FrontSatAccessCard", txtFrontSatAccCard},
            {"RearSatAccessCard", txtRearSatAccCard},
            {"InternetCard", txtInternetCard},
            {"DriverXMID", txtDriverXMID}};
}

void frmBusEntry::FillBusLists()
{
    const Hourglass hourglass(app);
    FillDrivers();
    FillStates(cmbState, Database());
    FillCombo(cmbType, "SELECT Name FROM BusType ORDER BY Name", Database());
    // Inactive vehicles are listed too.
    FillPair(cmbBus, "SELECT ID,Name FROM Bus ORDER BY Name", Database());
    FillPair(cmbOwner, "SELECT ID,Name FROM Owner ORDER BY Name", Database());
}

void frmBusEntry::FillDrivers()
{
    cmbDriver.ClearPair();
    cmbAddDriver.Clear();
    cmbDriver.AddPair(noDriver, noDriver);
    AddPairs(cmbDriver, "SELECT ID,Name,DefaultRate FROM Driver WHERE Inactive = 0 ORDER BY Name", Database());
    for (const std::string& name : cmbDriver.Entries())
        cmbAddDriver.AddItem(name);
}

void frmBusEntry::cmbBus_Click()
{
    LoadBus();
}

void frmBusEntry::LoadBus()
{
    if (cmbBus.IsEmpty()) {
        ClearForm();
        return;
    }
    Recordset bus = FindRecord("Bus", cmbBus.Key(), Database());
    if (bus.Eof()) {
        ClearForm();
        return;
    }
    txtID = bus.Fields("ID").Text();
    txtName = bus.Fields("Name").Text();
    ShowTexts(bus, TextColumns());
    ShowChoice(cmbType, bus.Fields("Type"));
    ShowChoice(cmbState, bus.Fields("State"));
    ShowOwner(bus.Fields("OwnerID"));
    ShowNumber(txtLease, bus.Fields("Lease"));
    ShowNumber(txtCommPercent, bus.Fields("CommPercent"));
    ShowNumber(txtCommAmount, bus.Fields("CommAmount"));
    ShowNumber(txtSatellite, bus.Fields("Satellite"));
    ShowNumber(txtInternet, bus.Fields("Internet"));
    ShowDriver(cmbDriver, bus.Fields("DefaultDriver"));
    ShowDriver(cmbAddDriver, bus.Fields("DefaultAddDriver"));
    ShowFlag(chkInactive, bus.Fields("Inactive"));
    ClearPicture();
    FillImages();
}

void frmBusEntry::ShowOwner(const Field& owner)
{
    if (owner.Number() == 0) {
        // Kept on purpose: "NA" is no owner of the list, so the twin keeps what it held, and a save stores that.
        cmbOwner = "NA";
        return;
    }
    cmbOwner.id = owner.Text();
    cmbOwner.SetListIndex(cmbOwner.id.ListIndex());
}

void frmBusEntry::ShowDriver(ComboBox& combo, const Field& driver)
{
    if (driver.IsNull()) {
        combo.SetListIndex(-1);
        return;
    }
    const std::string key = driver.Text();
    if (cmbDriver.id.IndexOf(key) < 0) {
        // The driver has become inactive since: the three lists take the row at their end.
        const std::string name = GetDriverName(app, key);
        cmbDriver.AddPair(name, key);
        cmbAddDriver.AddItem(name);
    }
    cmbDriver.id = key;
    combo.SetListIndex(cmbDriver.id.ListIndex());
}

void frmBusEntry::btnNew_Click()
{
    txtID = "";
    ClearForm();
    txtName.SetFocus();
}

void frmBusEntry::btnSave_Click()
{
    if (!MaySave(app, "Bus/Trailer Entry/Edit") ||
        !HasRequired(app, !txtName.IsEmpty() && !cmbType.IsEmpty() && !cmbOwner.IsEmpty(),
                     "Bus/Trailer Name, Owner, and Type are required before saving."))
        return;
    Recordset bus = RecordToSave(app, "Bus", txtID.Text(), Tracking::DateEntered);
    WriteBus(bus);
    bus.Update();
    txtID = bus.Fields("ID").Text();
    bus.Close();
    cmbBus.SetListIndex(-1);
    ClearForm();
    FillBusLists();
}

void frmBusEntry::WriteBus(Recordset& bus)
{
    bus.Fields("Name") = Trim(txtName.Text());
    WriteTexts(bus, TextColumns());
    bus.Fields("Type") = cmbType.Text();
    bus.Fields("State") = cmbState.Text();
    bus.Fields("OwnerID") = cmbOwner.id.Text();
    bus.Fields("Lease") = txtLease.Number();
    bus.Fields("CommPercent") = txtCommPercent.Number();
    bus.Fields("CommAmount") = txtCommAmount.Number();
    bus.Fields("Satellite") = txtSatellite.Number();
    bus.Fields("Internet") = txtInternet.Number();
    bus.Fields("DefaultDriver") = DriverKey(cmbDriver);
    bus.Fields("DefaultAddDriver") = DriverKey(cmbAddDriver);
    bus.Fields("Inactive") = chkInactive.Value();
}

Value frmBusEntry::DriverKey(const ComboBox& combo) const
{
    if (combo.IsEmpty() || combo.Text() == noDriver)
        return Null{};
    return cmbDriver.id.List(combo.ListIndex());
}

void frmBusEntry::ClearForm()
{
    txtID = "";
    txtName = "";
    ClearTexts(TextColumns());
    for (ComboBox* combo : {&cmbType, &cmbState, &cmbAddDriver, static_cast<ComboBox*>(&cmbDriver), &cmbDriver.id,
                            static_cast<ComboBox*>(&cmbOwner), &cmbOwner.id})
        combo->SetListIndex(-1);
    for (MaskedBox* box : {static_cast<MaskedBox*>(&txtLease), static_cast<MaskedBox*>(&txtCommPercent),
                           static_cast<MaskedBox*>(&txtCommAmount), static_cast<MaskedBox*>(&txtSatellite),
                           static_cast<MaskedBox*>(&txtInternet)})
        *box = "";
    chkInactive = false;
    ClearPicture();
    FillImages();
}

}
