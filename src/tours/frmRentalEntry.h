#pragma once

#include "frame/PayerOptions.h"
#include "frame/RecordLoading.h"
#include "frame/Screen.h"
#include "tours/TourItemGrid.h"
#include "tours/TourItemPricing.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace rovanta {

/// The Tour screen: head, vehicles with their prices, invoices and payments of one booking.
class frmRentalEntry : public Screen {
public:
    static constexpr const char* screenName = "frmRentalEntry";
    explicit frmRentalEntry(App& app);

    // The head of the tour.
    ComboPair cmbTour{this, "cmbTour", "Select Tour"};
    TextBox txtID{this, "txtID", Visibility::Hidden};
    ComboPair cmbCustomer{this, "cmbCustomer", "Customer"};
    TextBox txtTour{this, "txtTour", "Tour Name"};
    ComboBox cmbStatus{this, "cmbStatus", "Status"};
    CheckBox chkAllInclusive{this, "chkAllInclusive", "All Inclusive"};
    MoneyBox txtTotalTourBudget{this, "txtTotalTourBudget", "Tour Budget"};
    MoneyBox txtTotalContract{this, "txtTotalContract", "Included In Contract"};
    MoneyBox txtTotalDriver{this, "txtTotalDriver", "Driver Collect"};
    MoneyBox txtTotalClient{this, "txtTotalClient", "Client Resp."};
    Label lblEnteredBy{this, "lblEnteredBy"};
    Label lblEditedBy{this, "lblEditedBy"};
    Button btnSave{this, "btnSave", "Save"};
    Button btnNew{this, "btnNew", "New"};
    Button btnExit{this, "btnExit", "Exit"};
    Button btnQuoteSheet{this, "btnQuoteSheet", "Quote Sheet"};
    Button btnPickupSheet{this, "btnPickupSheet", "Pickup Sheet"};
    Button btnOnBoardLease{this, "btnOnBoardLease", "On-Board Lease"};
    Button btnCCAuthorization{this, "btnCCAuthorization", "CC Authorization"};
    Button btnInvestorReport{this, "btnInvestorReport", "Investor Report"};
    Button btnLeaseAgreement{this, "btnLeaseAgreement", "Lease Agreement"};

    Tabs SSTab1{this, "SSTab1", {"Tour", "Pricing", "Pickup", "Invoices"}};

    // Page "Tour".
    TextBox txtAddress1{this, "txtAddress1", "Address 1"};
    TextBox txtAddress2{this, "txtAddress2", "Address 2"};
    TextBox txtCity{this, "txtCity", "City"};
    ComboBox cmbState{this, "cmbState", "State"};
    TextBox txtZip{this, "txtZip", "Zip"};
    TextBox txtContact1{this, "txtContact1", "Contact 1"};
    PhoneBox txtPhone1{this, "txtPhone1", "Phone 1"};
    PhoneBox txtCell1{this, "txtCell1", "Cell 1"};
    PhoneBox txtFax1{this, "txtFax1", "Fax 1"};
    TextBox txtEmail1{this, "txtEmail1", "Email 1"};
    TextBox txtEmail1a{this, "txtEmail1a", "Additional Emails 1"};
    TextBox txtContact2{this, "txtContact2", "Contact 2"};
    PhoneBox txtPhone2{this, "txtPhone2", "Phone 2"};
    PhoneBox txtCell2{this, "txtCell2", "Cell 2"};
    PhoneBox txtFax2{this, "txtFax2", "Fax 2"};
    TextBox txtEmail2{this, "txtEmail2", "Email 2"};
    TextBox txtEmail2a{this, "txtEmail2a", "Additional Emails 2"};
    TextBox txtNotes{this, "txtNotes", "Notes"};
    Grid vsfgItems{this, "vsfgItems", "Buses/Trailers"};
    Button btnNewBus{this, "btnNewBus", "New Bus"};
    Button btnBuggyUp{this, "btnBuggyUp", "Move Up"};
    Button btnBuggyDown{this, "btnBuggyDown", "Move Down"};

    // Page "Pricing": the line in hand.
    TextBox txtTourItemID{this, "txtTourItemID", Visibility::Hidden};
    ComboPair cmbBus{this, "cmbBus", "Bus/Trailer"};
    ComboBox cmbBusRate{this, "cmbBusRate", Visibility::Hidden};
    ComboBox cmbBusCommRate{this, "cmbBusCommRate", Visibility::Hidden};
    ComboBox cmbBusCommRatePercent{this, "cmbBusCommRatePercent", Visibility::Hidden};
    ComboPair cmbDriver{this, "cmbDriver", "Driver"};
    ComboBox cmbDriverRate{this, "cmbDriverRate", Visibility::Hidden};
    ComboBox cmbAddDriver{this, "cmbAddDriver", "Add. Driver"};
    DatePicker dtStart{this, "dtStart", "Start Date"};
    DatePicker dtEnd{this, "dtEnd", "End Date"};
    TextBox txtDiscountDays{this, "txtDiscountDays", "Discount Days"};
    TextBox txtTravelIn{this, "txtTravelIn", "Travel Days In"};
    TextBox txtTravelOut{this, "txtTravelOut", "Travel Days Out"};
    TextBox txtTourDays{this, "txtTourDays", "Tour Days"};
    TextBox txtBilledDays{this, "txtBilledDays", "Billed Days"};
    TextBox txtBilledMonths{this, "txtBilledMonths", "Billed Months"};
    TextBox txtBusDays{this, "txtBusDays", "Bus Days"};
    TextBox txtBusMonths{this, "txtBusMonths", "Bus Months"};
    TextBox txtSatDays{this, "txtSatDays", "Satellite Days"};
    TextBox txtSatMonths{this, "txtSatMonths", "Satellite Months"};
    TextBox txtIntDays{this, "txtIntDays", "Internet Days"};
    TextBox txtIntMonths{this, "txtIntMonths", "Internet Months"};
    TextBox txtTotalMiles{this, "txtTotalMiles", "Total Miles"};
    Button btnGetMiles{this, "btnGetMiles", "Get Miles"};
    TextBox txtPriceNotes{this, "txtPriceNotes", "Price Notes"};

    MoneyBox txtBusRate{this, "txtBusRate", "Bus"};
    ComboBox cmbBusRateType{this, "cmbBusRateType"};
    MoneyBox txtBusTotal{this, "txtBusTotal"};
    PayerOptions optBus{this, "Bus", "Bus"};
    MoneyBox txtDriverRate{this, "txtDriverRate", "Driver"};
    MoneyBox txtDriverTotal{this, "txtDriverTotal"};
    PayerOptions optDriver{this, "Driver", "Driver"};
    MoneyBox txtAddDriverRate{this, "txtAddDriverRate", "Add. Driver"};
    MoneyBox txtAddDriverTotal{this, "txtAddDriverTotal"};
    PayerOptions optAddDriver{this, "AddDriver", "Add. Driver"};
    MoneyBox txtDOTRate{this, "txtDOTRate", "DOT/IFTA"};
    ComboBox cmbDOTRateType{this, "cmbDOTRateType"};
    MoneyBox txtDOTTotal{this, "txtDOTTotal"};
    PayerOptions optDOT{this, "DOT", "DOT/IFTA"};
    MoneyBox txtSatelliteRate{this, "txtSatelliteRate", "Satellite"};
    ComboBox cmbSatelliteRateType{this, "cmbSatelliteRateType"};
    MoneyBox txtSatelliteTotal{this, "txtSatelliteTotal"};
    PayerOptions optSatellite{this, "Satellite", "Satellite"};
    MoneyBox txtInternetRate{this, "txtInternetRate", "Internet"};
    ComboBox cmbInternetRateType{this, "cmbInternetRateType"};
    MoneyBox txtInternetTotal{this, "txtInternetTotal"};
    PayerOptions optInternet{this, "Internet", "Internet"};
    MoneyBox txtHotelBuyOutRate{this, "txtHotelBuyOutRate", "Hotel Buy Out"};
    MoneyBox txtHotelBuyOutTotal{this, "txtHotelBuyOutTotal"};
    PayerOptions optHotelBuyOut{this, "HotelBuyOut", "Hotel Buy Out"};
    MoneyBox txtSuppliesRate{this, "txtSuppliesRate", "Interior Clean"};
    MoneyBox txtSuppliesTotal{this, "txtSuppliesTotal"};
    PayerOptions optSupplies{this, "Supplies", "Interior Clean"};
    MoneyBox txtBusWashRate{this, "txtBusWashRate", "Bus Wash"};
    MoneyBox txtBusWashTotal{this, "txtBusWashTotal"};
    PayerOptions optBusWash{this, "BusWash", "Bus Wash"};
    MoneyBox txtLinenRate{this, "txtLinenRate", "Linens"};
    MoneyBox txtLinenTotal{this, "txtLinenTotal"};
    PayerOptions optLinen{this, "Linen", "Linens"};
    MoneyBox txtGeneratorRate{this, "txtGeneratorRate", "Generator Svc."};
    MoneyBox txtGeneratorTotal{this, "txtGeneratorTotal"};
    PayerOptions optGenerator{this, "Generator", "Generator Svc."};
    MoneyBox txtFuelRate{this, "txtFuelRate", "Fuel Est."};
    MoneyBox txtFuelTotal{this, "txtFuelTotal"};
    PayerOptions optFuel{this, "Fuel", "Fuel Est."};
    MoneyBox txtEngineRate{this, "txtEngineRate", "Engine Svc."};
    MoneyBox txtEngineTotal{this, "txtEngineTotal"};
    PayerOptions optEngine{this, "Engine", "Engine Svc."};
    TextBox txtMisc2Desc{this, "txtMisc2Desc", "Flights/Other"};
    MoneyBox txtCarpetTotal{this, "txtCarpetTotal"};
    PayerOptions optCarpet{this, "Carpet", "Flights/Other"};
    MoneyBox txtCleaningTotal{this, "txtCleaningTotal", "End of Tour Cleaning"};
    PayerOptions optCleaning{this, "Cleaning", "End of Tour Cleaning"};
    MoneyBox txtPermitTotal{this, "txtPermitTotal", "Permits/Tolls/Parking"};
    PayerOptions optPermit{this, "Permit", "Permits/Tolls/Parking"};
    TextBox txtMiscDesc{this, "txtMiscDesc", "Overdrives"};
    MoneyBox txtMiscTotal{this, "txtMiscTotal"};
    PayerOptions optMisc{this, "Misc", "Overdrives"};
    TextBox txtMisc3Desc{this, "txtMisc3Desc", "Wraps/Other"};
    MoneyBox txtPayrollFeeTotal{this, "txtPayrollFeeTotal"};
    PayerOptions optPayrollFee{this, "PayrollFee", "Wraps/Other"};
    TextBox txtMisc4Desc{this, "txtMisc4Desc", "Co-Driver"};
    MoneyBox txtAdminFeeRate{this, "txtAdminFeeRate"};
    MoneyBox txtAdminTotal{this, "txtAdminTotal"};
    PayerOptions optAdmin{this, "Admin", "Co-Driver"};

    MoneyBox txtBusBudget{this, "txtBusBudget", "Bus Budget"};
    MoneyBox txtBusContract{this, "txtBusContract", "Bus Contract Amt."};
    MoneyBox txtBusDriver{this, "txtBusDriver", "Bus Driver Collect Amt."};
    MoneyBox txtBusClient{this, "txtBusClient", "Bus Client Amt."};
    MoneyBox txtCommission{this, "txtCommission", "Commission/Day"};
    MoneyBox txtCommissionPerMonth{this, "txtCommissionPerMonth", "Commission/Month"};
    Button btnUpdate{this, "btnUpdate", "Update"};
    Button btnRemove{this, "btnRemove", "Remove"};

    // Page "Pickup" of the line in hand.
    Label lblPickupCaption{this, "lblPickupCaption"};
    TextBox txtPickupDate{this, "txtPickupDate", "Pickup Date"};
    TextBox txtPickupLocation{this, "txtPickupLocation", "Location"};
    TextBox txtPickupAddress{this, "txtPickupAddress", "Address"};
    TextBox txtPickupCity{this, "txtPickupCity", "City"};
    ComboBox cmbPickupState{this, "cmbPickupState", "State"};
    TextBox txtPickupZip{this, "txtPickupZip", "Zip"};
    PhoneBox txtPickupPhone{this, "txtPickupPhone", "Phone"};
    TextBox txtPickupContact{this, "txtPickupContact", "Contact"};
    TextBox txtHotelRoom{this, "txtHotelRoom", "Hotel Room At Pickup"};
    TextBox txtFirstDrive{this, "txtFirstDrive", "First Drive"};
    TextBox txtEndDate{this, "txtEndDate", "Ending Date"};
    TextBox txtEndLocation{this, "txtEndLocation", "Location"};
    TextBox txtEndAddress{this, "txtEndAddress", "Address"};
    TextBox txtEndCity{this, "txtEndCity", "City"};
    ComboBox cmbEndState{this, "cmbEndState", "State"};
    TextBox txtEndZip{this, "txtEndZip", "Zip"};
    PhoneBox txtEndPhone{this, "txtEndPhone", "Phone"};
    TextBox txtMinBunks{this, "txtMinBunks", "Minimum Bunks"};
    TextBox txtPassengers{this, "txtPassengers", "Passengers"};
    TextBox txtPickupNote{this, "txtPickupNote", "Notes"};
    Button btnUpdate2{this, "btnUpdate2", "Update"};

    // Page "Invoices".
    Grid vsfgInvoices{this, "vsfgInvoices", "Invoices"};
    Grid vsfgPayments{this, "vsfgPayments", "Payments"};
    Button btnCalculate{this, "btnCalculate", "Create Invoices"};
    Button btnManualInvoice{this, "btnManualInvoice", "Manual Invoice"};
    Button btnEditInvoice{this, "btnEditInvoice", "Edit Invoice"};
    Button btnDeleteInvoice{this, "btnDeleteInvoice", "Delete Invoice"};
    Button btnPrintInvoices{this, "btnPrintInvoices", "Print Invoices"};
    Button btnDeletePayment{this, "btnDeletePayment", "Delete Payment"};

    /// Loads the tour of that key into the screen.
    void LoadTour(const std::string& tourID);
    void OpenRecord(const std::string& key) override { LoadTour(key); }
    void LoadTourInvoices();
    void LoadTourPayments();

private:
    /// The boxes of one charge; a charge without a rate of its own has none.
    struct ChargeBoxes {
        Line line;
        MoneyBox* rate;
        MoneyBox* total;
        PayerOptions* payer;
        int defaultRate;  ///< index of the company's default, -1 for none
        int defaultPayer; ///< index of the company's default payer
    };
    /// A control of the panel and the grid column that it fills by its text.
    struct PanelText {
        TextControl* box;
        int col;
    };

    // frmRentalEntry.cpp: head of the tour.
    void WireHead();
    std::vector<TextColumn> HeadTexts();
    static std::string WhoAndWhen(Recordset& row, const char* who, const char* when);
    void FillLists();
    void LoadTourList();
    void ClearTour();
    void ShowTourHead(Recordset& tour);
    void ShowTourItems(const std::string& tourID);
    void LoadCustomerDefaults();
    void cmbTour_Click();
    void cmbStatus_Change();
    void btnNew_Click();

    // frmRentalEntry.Saving.cpp
    void btnSave_Click();
    bool SaveTour();
    bool BusesHaveChanged() const;
    void RememberBuses();
    void RememberRename();
    void SaveTourHead();
    void QueueDropMail();
    void SaveTourItems();
    void AskToRecalculate(bool busesChanged);

    // frmRentalEntry.Pricing.cpp: the panel of the line in hand.
    void BuildPanel();
    void WirePricing();
    void WireDayBlock();
    void CalculateTourItem();
    TourItemFigures ReadFigures() const;
    double SumOfColumn(int col) const;
    void SumTourTotals();
    void ClearTourItem();
    void ApplyDefaults();
    void DaysChanged();
    void txtBilledDays_Change();
    void txtBilledMonths_Change();
    void txtBusRate_Change();
    void cmbBusRateType_Change();
    void CalculateCommission();
    void cmbBus_Click();
    void ShowPickupCaption();
    void btnGetMiles_Click();

    // frmRentalEntry.Items.cpp: the line between panel and grid.
    void WireItems();
    void FillBuses();
    void FillDrivers();
    void CheckScheduleConflict();
    void UpdateTourItem();
    void WritePanelIntoRow(int row);
    std::vector<std::pair<TextControl*, int>> PanelNumbers();
    std::vector<std::pair<ComboBox*, int>> PanelChoices();
    void LoadTourItem();
    void ShowBusOfRow(int row);
    void ShowDriverOfRow(ComboBox& combo, int row, int nameCol, int idCol);
    void ShowDaysOfRow(int row);
    void ShowChargesOfRow(int row);
    void btnRemove_Click();
    void btnNewBus_Click();
    void PresetFromLastRow();

    // frmRentalEntry.Billing.cpp
    void WireBilling();
    void BuildBillingGrids();
    bool HasSavedTour();
    void btnCalculate_Click();
    void btnManualInvoice_Click();
    void EditSelectedInvoice();
    void btnDeleteInvoice_Click();
    void btnDeletePayment_Click();
    void btnPrintInvoices_Click();
    void WireReports();
    void MoveItem(int step);

    std::vector<ChargeBoxes> charges;
    std::vector<PanelText> panelTexts;

    bool LoadingTour = false;
    bool revertingStatus = false;
    bool choosingTour = false;
    std::string OriginalStatus;
    std::string OriginalTourName;
    std::vector<std::string> OriginalBusNames;

    bool calculating = false;
    // A count that a person typed stands until a date or a day box changes.
    bool billedDaysTyped = false;
    bool billedMonthsTyped = false;
};

}
