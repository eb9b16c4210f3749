#include "tours/frmRentalEntry.h"

#include "frame/App.h"
#include "frame/RecordLoading.h"
#include "values/Numbers.h"
#include "values/Text.h"

namespace rovanta {

frmRentalEntry::frmRentalEntry(App& app) : Screen(app, screenName, "Tour Entry/Edit")
{
    txtNotes.SetLines(3);
    txtPriceNotes.SetLines(3);
    txtPickupNote.SetLines(3);
    SetCancelButton(btnExit);
    BuildPanel();
    WireHead();
    WirePricing();
    WireItems();
    WireBilling();
    Unload = [this] { this->app.openFlags.RentalEntryOpen = false; };

    app.openFlags.RentalEntryOpen = true;
    Hourglass wait(app);
    FillLists();
    ClearTour();
    ClearTourItem();
    LoadTourList();
}

void frmRentalEntry::WireHead()
{
    for (ComboBox* combo :
         {static_cast<ComboBox*>(&cmbTour), static_cast<ComboBox*>(&cmbCustomer), &cmbStatus, &cmbState,
          static_cast<ComboBox*>(&cmbBus), static_cast<ComboBox*>(&cmbDriver), &cmbAddDriver, &cmbBusRateType,
          &cmbDOTRateType, &cmbSatelliteRateType, &cmbInternetRateType, &cmbPickupState, &cmbEndState})
        UseTypeAhead(*combo);
    cmbTour.Click = [this] { cmbTour_Click(); };
    cmbCustomer.Click = [this] { LoadCustomerDefaults(); };
    cmbCustomer.Change = [this] { LoadCustomerDefaults(); };
    cmbStatus.Click = [this] { cmbStatus_Change(); };
    cmbStatus.Change = [this] { cmbStatus_Change(); };
    btnSave.Click = [this] { btnSave_Click(); };
    btnNew.Click = [this] { btnNew_Click(); };
    btnExit.Click = [this] { Close(); };
}

std::vector<TextColumn> frmRentalEntry::HeadTexts()
{
    return {{"TourName", txtTour},     {"Notes", txtNotes},   {"Address1", txtAddress1}, {"Address2", txtAddress2},
            {"City", txtCity},         {"Zip", txtZip},       {"Contact1", txtContact1}, {"Phone1", txtPhone1},
            {"Fax1", txtFax1},         {"Email1", txtEmail1}, {"Email1a", txtEmail1a},   {"Cell1", txtCell1},
            {"Contact2", txtContact2}, {"Phone2", txtPhone2}, {"Fax2", txtFax2},         {"Email2", txtEmail2},
            {"Email2a", txtEmail2a},   {"Cell2", txtCell2}};
}

void frmRentalEntry::FillLists()
{
    Connection& database = Database();
    for (ComboBox* states : {&cmbState, &cmbPickupState, &cmbEndState})
        FillStates(*states, database);
    FillPair(cmbCustomer, "SELECT ID,Name FROM Customer ORDER BY Name", database);
    cmbStatus.Clear();
    Recordset statuses("SELECT * FROM TourStatus ORDER BY Status", database);
    for (; !statuses.Eof(); statuses.MoveNext())
        cmbStatus.AddItem(statuses.Fields("Status").TextOrEmpty());
    dtStart = app.clock.Today();
    dtEnd = app.clock.Today();
    FillBuses();
    FillDrivers();
    for (ComboBox* combo : {&cmbBusRateType, &cmbDOTRateType, &cmbSatelliteRateType, &cmbInternetRateType}) {
        combo->AddItem("Per Day");
        combo->AddItem("Per Month");
    }
}

void frmRentalEntry::LoadTourList()
{
    choosingTour = true;
    cmbTour.ClearPair();
    Recordset tours("SELECT Customer.Name AS CustomerName,Tour.ID,TourName FROM Tour LEFT JOIN Customer ON "
                    "Tour.CustomerID = Customer.ID ORDER BY Customer.Name,TourName",
                    Database());
    for (; !tours.Eof(); tours.MoveNext())
        cmbTour.AddPair(tours.Fields("CustomerName").TextOrEmpty() + " - " + tours.Fields("TourName").TextOrEmpty(),
                        tours.Fields("ID").Text());
    if (!txtID.IsEmpty())
        cmbTour.SelectKey(txtID.Text());
    choosingTour = false;
}

void frmRentalEntry::cmbTour_Click()
{
    if (!choosingTour && cmbTour.ListIndex() >= 0)
        LoadTour(cmbTour.Key());
}

void frmRentalEntry::LoadTour(const std::string& tourID)
{
    Hourglass wait(app);
    LoadingTour = true;
    ClearTour();
    ClearTourItem();
    Recordset tour(Statement{"SELECT * FROM Tour WHERE ID = "} + Key(tourID), Database());
    if (!tour.Eof()) {
        ShowTourHead(tour);
        ShowTourItems(tourID);
    }
    FormatItemGrid(vsfgItems);
    LoadTourInvoices();
    LoadTourPayments();
    txtTotalDriver = SumOfColumn(ItemCol::BusDriver);
    LoadingTour = false;
}

void frmRentalEntry::ShowTourHead(Recordset& tour)
{
    txtID = tour.Fields("ID").Text();
    choosingTour = true;
    cmbTour.SelectKey(txtID.Text());
    choosingTour = false;
    // The customer comes first, for choosing it copies the customer's own address, which the tour's then replaces.
    cmbCustomer.SelectKey(tour.Fields("CustomerID").TextOrEmpty());
    ShowTexts(tour, HeadTexts());
    ShowChoice(cmbStatus, tour.Fields("Status"));
    ShowChoice(cmbState, tour.Fields("State"));
    ShowFlag(chkAllInclusive, tour.Fields("AllInclusive"));
    txtTotalTourBudget = tour.Fields("TotalTourBudget").NumberOrZero();
    txtTotalContract = tour.Fields("IncludedInContract").NumberOrZero();
    txtTotalClient = tour.Fields("ClientResp").NumberOrZero();
    lblEnteredBy = WhoAndWhen(tour, "EnteredBy", "DateEntered");
    lblEditedBy = WhoAndWhen(tour, "EditedBy", "DateEdited");
    OriginalStatus = cmbStatus.Text();
    OriginalTourName = txtTour.Text();
}

std::string frmRentalEntry::WhoAndWhen(Recordset& row, const char* who, const char* when)
{
    const std::string name = row.Fields(who).TextOrEmpty();
    const std::string date = row.Fields(when).TextOrEmpty();
    return name.empty() && date.empty() ? std::string{} : name + " - " + date;
}

void frmRentalEntry::ShowTourItems(const std::string& tourID)
{
    Recordset items(Statement{"SELECT TourItems.*,Bus.Name AS BusName,Driver.Name AS DvrName,AddDvr.Name AS AddDvrName "
                              "FROM (((TourItems LEFT JOIN Bus ON TourItems.BusID = Bus.ID) LEFT JOIN Driver ON "
                              "TourItems.DriverID = Driver.ID) LEFT JOIN Driver AddDvr ON TourItems.AddDriverID = "
                              "AddDvr.ID) WHERE TourItems.TourID = "} +
                        Key(tourID) + " ORDER BY TourItems.ID",
                    Database());
    for (; !items.Eof(); items.MoveNext())
        AddItemRow(vsfgItems, items);
    RememberBuses();
}

void frmRentalEntry::ClearTour()
{
    txtID = "";
    cmbCustomer.SetListIndex(-1);
    const bool wasLoading = std::exchange(LoadingTour, true);
    cmbStatus.SetListIndex(-1);
    LoadingTour = wasLoading;
    ClearTexts(HeadTexts());
    cmbState.SetListIndex(-1);
    chkAllInclusive = false;
    for (MoneyBox* total : {&txtTotalTourBudget, &txtTotalContract, &txtTotalDriver, &txtTotalClient})
        *total = "";
    lblEnteredBy = "";
    lblEditedBy = "";
    OriginalStatus.clear();
    OriginalTourName.clear();
    OriginalBusNames.clear();
    BuildItemGrid(vsfgItems);
    FormatItemGrid(vsfgItems);
    BuildBillingGrids();
}

void frmRentalEntry::LoadCustomerDefaults()
{
    if (cmbCustomer.IsEmpty() || cmbCustomer.ListIndex() < 0)
        return;
    Recordset customer(Statement{"SELECT * FROM Customer WHERE ID = "} + Key(cmbCustomer.Key()), Database());
    if (customer.Eof())
        return;
    for (const TextColumn& text : std::initializer_list<TextColumn>{{"Address1", txtAddress1},
                                                                    {"Address2", txtAddress2},
                                                                    {"City", txtCity},
                                                                    {"Zip", txtZip},
                                                                    {"Contact1", txtContact1},
                                                                    {"Phone1", txtPhone1},
                                                                    {"Fax1", txtFax1},
                                                                    {"Email1", txtEmail1},
                                                                    {"Email1a", txtEmail1a},
                                                                    {"Contact2", txtContact2},
                                                                    {"Phone2", txtPhone2},
                                                                    {"Fax2", txtFax2},
                                                                    {"Email2", txtEmail2},
                                                                    {"Email2a", txtEmail2a},
                                                                    {"Phone1", txtPickupPhone},
                                                                    {"Phone1", txtEndPhone},
                                                                    {"Contact1", txtPickupContact}})
        ShowText(text.box, customer.Fields(text.column));
    ShowChoice(cmbState, customer.Fields("State"));
}

void frmRentalEntry::cmbStatus_Change()
{
    const bool hasInvoices = vsfgInvoices.Rows() > 2;
    const bool contract = cmbStatus.Text().find("Contract") != std::string::npos;
    if (!hasInvoices || contract || LoadingTour || revertingStatus)
        return;
    app.Say("You cannot change the status of this tour to quote until all invoices have been removed.",
            "Cannot Change Status");
    revertingStatus = true;
    cmbStatus = OriginalStatus;
    revertingStatus = false;
}

void frmRentalEntry::btnNew_Click()
{
    choosingTour = true;
    cmbTour.SetListIndex(-1);
    choosingTour = false;
    ClearTour();
    ClearTourItem();
    cmbCustomer.SetFocus();
}

}
