#include "tours/frmRentalEntry.h"

#include "frame/App.h"
#include "frame/SharedRoutines.h"
#include "values/Numbers.h"

namespace rovanta {

void frmRentalEntry::BuildPanel()
{
    charges = {
        {Line::Bus, &txtBusRate, &txtBusTotal, &optBus, -1, Charge::Bus},
        {Line::Driver, &txtDriverRate, &txtDriverTotal, &optDriver, -1, Charge::Driver},
        {Line::AddDriver, &txtAddDriverRate, &txtAddDriverTotal, &optAddDriver, -1, Charge::Driver},
        {Line::DOT, &txtDOTRate, &txtDOTTotal, &optDOT, Charge::DOT, Charge::DOT},
        {Line::Satellite, &txtSatelliteRate, &txtSatelliteTotal, &optSatellite, Charge::Satellite, Charge::Satellite},
        {Line::Internet, &txtInternetRate, &txtInternetTotal, &optInternet, Charge::Internet, Charge::Internet},
        {Line::HotelBuyOut, &txtHotelBuyOutRate, &txtHotelBuyOutTotal, &optHotelBuyOut, Charge::HotelBuyOut,
         Charge::HotelBuyOut},
        {Line::Supplies, &txtSuppliesRate, &txtSuppliesTotal, &optSupplies, Charge::Supplies, Charge::Supplies},
        {Line::BusWash, &txtBusWashRate, &txtBusWashTotal, &optBusWash, Charge::BusWash, Charge::BusWash},
        {Line::Linen, &txtLinenRate, &txtLinenTotal, &optLinen, Charge::Linen, Charge::Linen},
        {Line::Generator, &txtGeneratorRate, &txtGeneratorTotal, &optGenerator, Charge::Generator, Charge::Generator},
        {Line::Fuel, &txtFuelRate, &txtFuelTotal, &optFuel, Charge::Fuel, Charge::Fuel},
        {Line::Engine, &txtEngineRate, &txtEngineTotal, &optEngine, Charge::Engine, Charge::Engine},
        {Line::Carpet, nullptr, &txtCarpetTotal, &optCarpet, Charge::Carpet, Charge::Carpet},
        {Line::Cleaning, nullptr, &txtCleaningTotal, &optCleaning, Charge::Cleaning, Charge::Cleaning},
        {Line::Permit, nullptr, &txtPermitTotal, &optPermit, Charge::Permit, Charge::Permit},
        {Line::Misc, nullptr, &txtMiscTotal, &optMisc, Charge::Misc, Charge::Misc},
        {Line::PayrollFee, nullptr, &txtPayrollFeeTotal, &optPayrollFee, Charge::PayrollFee, Charge::PayrollFee},
        {Line::Admin, &txtAdminFeeRate, &txtAdminTotal, &optAdmin, Charge::Admin, Charge::Admin},
    };
    panelTexts = {{&txtPriceNotes, ItemCol::PriceNotes},
                  {&txtMiscDesc, ItemCol::MiscDesc},
                  {&txtMisc2Desc, ItemCol::Misc2Desc},
                  {&txtMisc3Desc, ItemCol::Misc3Desc},
                  {&txtMisc4Desc, ItemCol::Misc4Desc},
                  {&txtPickupDate, ItemCol::PickupDate},
                  {&txtPickupLocation, ItemCol::PickupLocation},
                  {&txtPickupAddress, ItemCol::PickupAddress},
                  {&txtPickupCity, ItemCol::PickupCity},
                  {&txtPickupZip, ItemCol::PickupZip},
                  {&txtPickupPhone, ItemCol::PickupPhone},
                  {&txtPickupContact, ItemCol::PickupContacts},
                  {&txtHotelRoom, ItemCol::HotelRoomAtPickup},
                  {&txtFirstDrive, ItemCol::FirstDrive},
                  {&txtEndDate, ItemCol::EndingDate},
                  {&txtEndLocation, ItemCol::EndingLocation},
                  {&txtEndAddress, ItemCol::EndingAddress},
                  {&txtEndCity, ItemCol::EndingCity},
                  {&txtEndZip, ItemCol::EndingZip},
                  {&txtEndPhone, ItemCol::EndingPhone},
                  {&txtMinBunks, ItemCol::MinimumBunks},
                  {&txtPassengers, ItemCol::Passengers},
                  {&txtPickupNote, ItemCol::PickupNotes}};
}

void frmRentalEntry::WirePricing()
{
    WireDayBlock();
    for (const ChargeBoxes& charge : charges) {
        if (charge.rate)
            charge.rate->Change = [this] { CalculateTourItem(); };
        charge.total->Change = [this] { CalculateTourItem(); };
        for (OptionButton* option : charge.payer->group.Members())
            option->Click = [this] { CalculateTourItem(); };
    }
    txtTotalMiles.Change = [this] { CalculateTourItem(); };
    txtBusRate.Change = [this] { txtBusRate_Change(); };
    cmbBusRateType.Click = [this] { cmbBusRateType_Change(); };
    cmbBusRateType.Change = [this] { cmbBusRateType_Change(); };
    for (ComboBox* type : {&cmbDOTRateType, &cmbSatelliteRateType, &cmbInternetRateType}) {
        type->Click = [this] { CalculateTourItem(); };
        type->Change = [this] { CalculateTourItem(); };
    }
    cmbBus.Click = [this] { cmbBus_Click(); };
    btnGetMiles.Click = [this] { btnGetMiles_Click(); };
}

void frmRentalEntry::WireDayBlock()
{
    const auto dateChanged = [this] {
        DaysChanged();
        ShowPickupCaption();
    };
    dtStart.Change = dateChanged;
    dtEnd.Change = dateChanged;
    for (TextBox* box : {&txtDiscountDays, &txtTravelIn, &txtTravelOut, &txtTourDays})
        box->Change = [this] { DaysChanged(); };
    txtBilledDays.Change = [this] { txtBilledDays_Change(); };
    txtBilledMonths.Change = [this] { txtBilledMonths_Change(); };
    for (TextBox* box : {&txtBusDays, &txtBusMonths, &txtSatDays, &txtSatMonths, &txtIntDays, &txtIntMonths})
        box->Change = [this] { CalculateTourItem(); };
}

void frmRentalEntry::DaysChanged()
{
    if (calculating)
        return;
    billedDaysTyped = false;
    billedMonthsTyped = false;
    CalculateTourItem();
}

void frmRentalEntry::txtBilledDays_Change()
{
    billedDaysTyped = billedDaysTyped || !calculating;
    for (TextBox* copy : {&txtBusDays, &txtSatDays, &txtIntDays})
        *copy = txtBilledDays.Text();
    CalculateTourItem();
}

void frmRentalEntry::txtBilledMonths_Change()
{
    billedMonthsTyped = billedMonthsTyped || !calculating;
    for (TextBox* copy : {&txtBusMonths, &txtSatMonths, &txtIntMonths})
        *copy = txtBilledMonths.Text();
    CalculateTourItem();
}

/// Prices the line in hand. The boxes that it writes call it again; the flag lets only the outermost call through.
void frmRentalEntry::CalculateTourItem()
{
    if (calculating)
        return;
    calculating = true;
    const BilledSpan span = CalculateBilledSpan(
        {dtStart.Value(), dtEnd.Value(), txtDiscountDays.Val(), txtTravelIn.Val(), txtTravelOut.Val()});
    txtTourDays = span.tourDays;
    if (!billedDaysTyped)
        txtBilledDays = span.billedDays;
    if (!billedMonthsTyped)
        txtBilledMonths = span.billedMonths;
    const TourItemPrice price = PriceTourItem(ReadFigures());
    for (const ChargeBoxes& charge : charges) {
        const bool typed = charge.rate == nullptr || charge.line == Line::Admin;
        if (!typed)
            *charge.total = price.total[charge.line];
    }
    txtBusBudget = price.budget;
    txtBusContract = price.contract;
    txtBusClient = price.client;
    txtBusDriver = price.driver;
    SumTourTotals();
    calculating = false;
}

static RateType RateTypeOf(const ComboBox& combo)
{
    return combo.Text() == "Per Day" ? RateType::PerDay : RateType::PerMonth;
}

TourItemFigures frmRentalEntry::ReadFigures() const
{
    TourItemFigures figures;
    figures.travelIn = txtTravelIn.Val();
    figures.travelOut = txtTravelOut.Val();
    figures.billedDays = txtBilledDays.Val();
    figures.busDays = txtBusDays.Val();
    figures.busMonths = txtBusMonths.Val();
    figures.satelliteDays = txtSatDays.Val();
    figures.satelliteMonths = txtSatMonths.Val();
    figures.internetDays = txtIntDays.Val();
    figures.internetMonths = txtIntMonths.Val();
    figures.totalMiles = txtTotalMiles.Val();
    figures.busRateType = RateTypeOf(cmbBusRateType);
    figures.dotRateType = RateTypeOf(cmbDOTRateType);
    figures.satelliteRateType = RateTypeOf(cmbSatelliteRateType);
    figures.internetRateType = RateTypeOf(cmbInternetRateType);
    for (const ChargeBoxes& charge : charges) {
        figures.rate[charge.line] = charge.rate ? charge.rate->Val() : 0;
        figures.total[charge.line] = charge.total->Val();
        figures.payer[charge.line] = PaidByWord(charge.payer->Word());
    }
    return figures;
}

double frmRentalEntry::SumOfColumn(int col) const
{
    double sum = 0;
    for (int row = 1; row < vsfgItems.Rows(); ++row)
        sum += Val(vsfgItems.TextMatrix(row, col));
    return sum;
}

/// The tour's totals sum the rows of the grid and not the line in hand, so they lag the panel until its update.
void frmRentalEntry::SumTourTotals()
{
    if (LoadingTour)
        return;
    txtTotalTourBudget = SumOfColumn(ItemCol::BusBudget);
    txtTotalContract = SumOfColumn(ItemCol::BusContract);
    txtTotalDriver = SumOfColumn(ItemCol::BusDriver);
    txtTotalClient = SumOfColumn(ItemCol::BusClient);
}

void frmRentalEntry::ClearTourItem()
{
    // The panel is to stay blank: nothing is priced until the next change of a box.
    calculating = true;
    txtTourItemID = "";
    dtStart = app.clock.Today();
    dtEnd = app.clock.Today();
    for (TextBox* box :
         {&txtDiscountDays, &txtTravelIn, &txtTravelOut, &txtTourDays, &txtBilledDays, &txtBilledMonths, &txtBusDays,
          &txtBusMonths, &txtSatDays, &txtSatMonths, &txtIntDays, &txtIntMonths, &txtTotalMiles})
        *box = "";
    for (const PanelText& text : panelTexts)
        text.box->SetText("");
    for (ComboBox* combo : {&cmbBusRateType, &cmbDOTRateType, &cmbSatelliteRateType, &cmbInternetRateType,
                            static_cast<ComboBox*>(&cmbBus), static_cast<ComboBox*>(&cmbDriver), &cmbAddDriver,
                            &cmbPickupState, &cmbEndState})
        combo->SetListIndex(-1);
    for (const ChargeBoxes& charge : charges) {
        if (charge.rate)
            *charge.rate = "";
        *charge.total = "";
    }
    for (MoneyBox* box : {&txtBusBudget, &txtBusContract, &txtBusDriver, &txtBusClient})
        *box = "";
    lblPickupCaption = "";
    ApplyDefaults();
    billedDaysTyped = false;
    billedMonthsTyped = false;
    calculating = false;
}

void frmRentalEntry::ApplyDefaults()
{
    for (const ChargeBoxes& charge : charges) {
        charge.payer->Choose(app.company.DefaultPayers[static_cast<std::size_t>(charge.defaultPayer)]);
        if (charge.defaultRate < 0)
            continue;
        const double rate = app.company.DefaultRates[static_cast<std::size_t>(charge.defaultRate)];
        if (charge.rate)
            *charge.rate = rate;
        if (!charge.rate || charge.line == Line::Admin)
            *charge.total = rate;
    }
    txtCommission = "0";
    txtCommissionPerMonth = "0";
}

void frmRentalEntry::txtBusRate_Change()
{
    CalculateTourItem();
    CalculateCommission();
}

void frmRentalEntry::cmbBusRateType_Change()
{
    for (ComboBox* type : {&cmbDOTRateType, &cmbSatelliteRateType, &cmbInternetRateType})
        *type = cmbBusRateType.Text();
    CalculateTourItem();
    CalculateCommission();
}

/// Kept on purpose: a bus with a flat amount has a percent of 0, so its commission falls to 0 as soon as the rate
/// changes.
void frmRentalEntry::CalculateCommission()
{
    if (!IsNumeric(txtBusRate.Text()))
        return;
    const double commission = txtBusRate.Val() * Val(cmbBusCommRatePercent.List(cmbBus.ListIndex()));
    if (cmbBusRateType.Text() == "Per Day") {
        txtCommission = commission;
        txtCommissionPerMonth = 0;
    } else if (cmbBusRateType.Text() == "Per Month") {
        txtCommission = 0;
        txtCommissionPerMonth = commission;
    }
}

void frmRentalEntry::cmbBus_Click()
{
    ShowPickupCaption();
    if (cmbBus.ListIndex() < 0)
        return;
    const double amount = Val(cmbBusCommRate.List(cmbBus.ListIndex()));
    if (amount != 0)
        txtCommission = amount;
    else if (!txtBusRate.IsEmpty())
        txtCommission = txtBusRate.Val() * Val(cmbBusCommRatePercent.List(cmbBus.ListIndex()));
    else
        txtCommission = "0";
}

void frmRentalEntry::ShowPickupCaption()
{
    lblPickupCaption = cmbBus.IsEmpty() ? std::string{}
                                        : cmbBus.Text() + " - " + ToText(dtStart.Value()) + "-" + ToText(dtEnd.Value());
}

void frmRentalEntry::btnGetMiles_Click()
{
    if (txtID.IsEmpty() || cmbBus.IsEmpty()) {
        app.Say("No Tour/Bus selected. You must select a tour and bus before retrieving Route Mileage.", "No Tour");
        return;
    }
    const std::int32_t miles = GetRouteMileage(app, txtID.Text(), cmbBus.Key());
    if (miles >= 0)
        txtTotalMiles = std::to_string(miles);
    else
        app.Say("There is no route entered for the selected Bus/Tour.", "No Route");
}

}
