#include "tours/frmRentalEntry.h"

#include "frame/App.h"
#include "values/Numbers.h"
#include "values/Text.h"

namespace rovanta {

void frmRentalEntry::WireItems()
{
    cmbBus.LostFocus = [this] { CheckScheduleConflict(); };
    dtStart.LostFocus = [this] { CheckScheduleConflict(); };
    dtEnd.LostFocus = [this] { CheckScheduleConflict(); };
    vsfgItems.Click = [this] { LoadTourItem(); };
    btnUpdate.Click = [this] { UpdateTourItem(); };
    btnUpdate2.Click = [this] { UpdateTourItem(); };
    btnRemove.Click = [this] { btnRemove_Click(); };
    btnNewBus.Click = [this] { btnNewBus_Click(); };
}

void frmRentalEntry::FillBuses()
{
    for (ComboBox* list : {&cmbBusRate, &cmbBusCommRate, &cmbBusCommRatePercent})
        list->Clear();
    cmbBus.ClearPair();
    Recordset bus("SELECT ID,Name,Lease,CommAmount,CommPercent FROM Bus WHERE Inactive = 0 ORDER BY Name", Database());
    for (; !bus.Eof(); bus.MoveNext()) {
        const double lease = bus.Fields("Lease").NumberOrZero();
        const BusCommission commission =
            CommissionOfBus(lease, bus.Fields("CommAmount").NumberOrZero(), bus.Fields("CommPercent").NumberOrZero());
        cmbBus.AddPair(bus.Fields("Name").TextOrEmpty(), bus.Fields("ID").Text());
        cmbBusRate.AddItem(ToText(lease));
        cmbBusCommRate.AddItem(ToText(commission.amount));
        cmbBusCommRatePercent.AddItem(ToText(commission.percent));
    }
}

void frmRentalEntry::FillDrivers()
{
    cmbDriver.ClearPair();
    cmbAddDriver.Clear();
    cmbDriverRate.Clear();
    Recordset driver("SELECT ID,Name,DefaultRate FROM Driver WHERE Inactive = 0 ORDER BY Name", Database());
    for (; !driver.Eof(); driver.MoveNext()) {
        const std::string name = driver.Fields("Name").TextOrEmpty();
        cmbDriver.AddPair(name, driver.Fields("ID").Text());
        cmbAddDriver.AddItem(name);
        cmbDriverRate.AddItem(driver.Fields("DefaultRate").IsNull() ? "0.00"
                                                                    : ToText(driver.Fields("DefaultRate").Number()));
    }
}

/// Warns of every other committed tour that holds the bus in the same span. It warns and nothing more.
void frmRentalEntry::CheckScheduleConflict()
{
    if (cmbBus.IsEmpty())
        return;
    Statement query{"SELECT Tour.ID AS TourID,Customer.Name AS CustomerName,TourName,StartDate,EndDate,TourItems.ID AS "
                    "ItemID,Tour.Status AS TourStatus FROM ((TourItems LEFT JOIN Tour ON TourItems.TourID = Tour.ID) "
                    "LEFT JOIN Customer ON Tour.CustomerID = Customer.ID) WHERE "};
    if (!txtID.IsEmpty())
        query += Statement{"Tour.ID <> "} + Key(txtID.Text()) + " AND ";
    query += Statement{"Tour.Status <> 'Quote - Closed' AND Tour.Status <> 'Quote - Active' AND TourItems.StartDate <= "
                       "'"} +
             DateText(dtEnd.Value()) + "' AND TourItems.EndDate >= '" + DateText(dtStart.Value()) +
             "' AND TourItems.BusID = " + Key(cmbBus.Key()) + " ORDER BY Customer.Name, Tour.TourName";
    Recordset conflict(query, Database());
    if (conflict.Eof())
        return;
    std::string text = "The following Tours conflict with the selection: ";
    text += lineBreak;
    for (; !conflict.Eof(); conflict.MoveNext()) {
        text += "     " + conflict.Fields("CustomerName").TextOrEmpty() + " - " +
                conflict.Fields("TourName").TextOrEmpty() + " - " + conflict.Fields("StartDate").Text() + "-" +
                conflict.Fields("EndDate").Text();
        text += lineBreak;
    }
    app.Say(text, "Schedule Conflict");
}

void frmRentalEntry::UpdateTourItem()
{
    if (!app.Permit("Tour Entry/Edit", Denial::updateRecord))
        return;
    if (cmbBus.IsEmpty() || txtBilledDays.IsEmpty()) {
        app.Say("Bus/Trailer Name and Billed Days are required before updating.", "Required Fields");
        return;
    }
    int row = vsfgItems.Rows();
    if (!txtTourItemID.IsEmpty()) {
        row = CLng(txtTourItemID.Val());
        vsfgItems.RemoveItem(row);
    }
    vsfgItems.AddCells({}, row);
    WritePanelIntoRow(row);
    RenumberItems(vsfgItems);
    FormatItemGrid(vsfgItems);
    SSTab1.SetPage(0);
    ClearTourItem();
    PresetFromLastRow();
}

void frmRentalEntry::WritePanelIntoRow(int row)
{
    const auto cell = [&](int col, const std::string& text) { vsfgItems.SetTextMatrix(row, col, text); };
    cell(ItemCol::BusName, cmbBus.Text());
    cell(ItemCol::BusID, cmbBus.Key());
    cell(ItemCol::StartDate, ToText(dtStart.Value()));
    cell(ItemCol::EndDate, ToText(dtEnd.Value()));
    cell(ItemCol::DriverName, cmbDriver.Text());
    cell(ItemCol::DriverID, cmbDriver.IsEmpty() ? "" : cmbDriver.Key());
    cell(ItemCol::AddDriverName, cmbAddDriver.Text());
    cell(ItemCol::AddDriverID, cmbAddDriver.IsEmpty() ? "" : cmbDriver.id.List(cmbAddDriver.ListIndex()));
    for (const auto& [box, col] : PanelNumbers())
        cell(col, box->Text());
    for (const auto& [combo, col] : PanelChoices())
        cell(col, combo->Text());
    for (const PanelText& text : panelTexts)
        cell(text.col, text.box->Text());
    for (const LineColumns& line : ItemLines()) {
        const ChargeBoxes& charge = charges[static_cast<std::size_t>(line.line)];
        if (line.rate >= 0)
            cell(line.rate, charge.rate->Text());
        cell(line.total, charge.total->Text());
        cell(line.payer, charge.payer->Word());
    }
    // The co-driver's total alone is rounded on its way into the grid.
    cell(ItemLines()[static_cast<std::size_t>(Line::Admin)].total, ToText(Round(txtAdminTotal.Val(), 2)));
}

std::vector<std::pair<TextControl*, int>> frmRentalEntry::PanelNumbers()
{
    return {{&txtBusBudget, ItemCol::BusBudget},
            {&txtBusContract, ItemCol::BusContract},
            {&txtBusDriver, ItemCol::BusDriver},
            {&txtBusClient, ItemCol::BusClient},
            {&txtDiscountDays, ItemCol::DiscountedDays},
            {&txtTravelIn, ItemCol::TravelDaysIn},
            {&txtTravelOut, ItemCol::TravelDaysOut},
            {&txtTourDays, ItemCol::TourDays},
            {&txtBilledDays, ItemCol::BilledDays},
            {&txtBilledMonths, ItemCol::BilledMonths},
            {&txtTotalMiles, ItemCol::TotalMileage},
            {&txtCommission, ItemCol::Commission},
            {&txtCommissionPerMonth, ItemCol::CommissionPerMonth}};
}

std::vector<std::pair<ComboBox*, int>> frmRentalEntry::PanelChoices()
{
    return {{&cmbBusRateType, ItemCol::BusRateType},
            {&cmbDOTRateType, ItemCol::DOTRateType},
            {&cmbSatelliteRateType, ItemCol::SatelliteRateType},
            {&cmbInternetRateType, ItemCol::InternetRateType},
            {&cmbPickupState, ItemCol::PickupState},
            {&cmbEndState, ItemCol::EndingState}};
}

/// A click on a vehicle's row brings it back into the panel. Writing a box fires its change as a typed value does, so
/// the line is priced as the panel fills.
void frmRentalEntry::LoadTourItem()
{
    const int row = vsfgItems.MouseRow();
    if (row < 1 || row >= vsfgItems.Rows())
        return;
    billedDaysTyped = false;
    billedMonthsTyped = false;
    txtTourItemID = vsfgItems.TextMatrix(row, ItemCol::Row);
    dtStart = ToDate(vsfgItems.TextMatrix(row, ItemCol::StartDate));
    dtEnd = ToDate(vsfgItems.TextMatrix(row, ItemCol::EndDate));
    ShowBusOfRow(row);
    ShowDriverOfRow(cmbDriver, row, ItemCol::DriverName, ItemCol::DriverID);
    ShowDriverOfRow(cmbAddDriver, row, ItemCol::AddDriverName, ItemCol::AddDriverID);
    ShowDaysOfRow(row);
    ShowChargesOfRow(row);
    for (const PanelText& text : panelTexts)
        text.box->SetText(vsfgItems.TextMatrix(row, text.col));
    txtCommission = vsfgItems.TextMatrix(row, ItemCol::Commission);
    txtCommissionPerMonth = vsfgItems.TextMatrix(row, ItemCol::CommissionPerMonth);
    CalculateTourItem();
    SSTab1.SetPage(1);
}

void frmRentalEntry::ShowBusOfRow(int row)
{
    const std::string& name = vsfgItems.TextMatrix(row, ItemCol::BusName);
    if (cmbBus.IndexOf(name) < 0) {
        // The bus has become inactive since the line was written; all parallel lists grow, to stay in step.
        cmbBus.AddPair(name, vsfgItems.TextMatrix(row, ItemCol::BusID));
        cmbBusRate.AddItem("0");
        cmbBusCommRate.AddItem("0");
        cmbBusCommRatePercent.AddItem("0");
    }
    cmbBus = name;
}

void frmRentalEntry::ShowDriverOfRow(ComboBox& combo, int row, int nameCol, int idCol)
{
    const std::string& name = vsfgItems.TextMatrix(row, nameCol);
    if (!name.empty() && combo.IndexOf(name) < 0) {
        cmbDriver.AddPair(name, vsfgItems.TextMatrix(row, idCol));
        cmbAddDriver.AddItem(name);
        cmbDriverRate.AddItem("0.00");
    }
    combo = name;
}

void frmRentalEntry::ShowDaysOfRow(int row)
{
    const auto cell = [&](int col) -> const std::string& { return vsfgItems.TextMatrix(row, col); };
    txtDiscountDays = cell(ItemCol::DiscountedDays);
    txtTravelIn = cell(ItemCol::TravelDaysIn);
    txtTravelOut = cell(ItemCol::TravelDaysOut);
    txtTotalMiles = cell(ItemCol::TotalMileage);
    txtPriceNotes = cell(ItemCol::PriceNotes);
    txtBusRate = cell(ItemLines()[static_cast<std::size_t>(Line::Bus)].rate);
    for (const auto& [combo, col] : PanelChoices())
        combo->SetListIndex(combo->IndexOf(cell(col)));
    CalculateTourItem();
    // What was typed over on the line before must not price this one.
    for (TextBox* days : {&txtBusDays, &txtSatDays, &txtIntDays})
        *days = txtBilledDays.Text();
    for (TextBox* months : {&txtBusMonths, &txtSatMonths, &txtIntMonths})
        *months = txtBilledMonths.Text();
    // The day copies come from the stored figures and not from the billed days, so that a typed count survives.
    const auto daysOf = [&](Line line, TextBox& days) {
        const LineColumns& columns = ItemLines()[static_cast<std::size_t>(line)];
        const double rate = Val(cell(columns.rate));
        if (rate != 0)
            days = Val(cell(columns.total)) / rate;
    };
    daysOf(Line::Bus, txtBusDays);
    daysOf(Line::Satellite, txtSatDays);
    daysOf(Line::Internet, txtIntDays);
}

void frmRentalEntry::ShowChargesOfRow(int row)
{
    for (const LineColumns& line : ItemLines()) {
        const ChargeBoxes& charge = charges[static_cast<std::size_t>(line.line)];
        if (line.rate >= 0)
            *charge.rate = vsfgItems.TextMatrix(row, line.rate);
        *charge.total = vsfgItems.TextMatrix(row, line.total);
        charge.payer->Choose(vsfgItems.TextMatrix(row, line.payer));
    }
    txtAdminTotal = Round(Val(vsfgItems.TextMatrix(row, ItemLines()[static_cast<std::size_t>(Line::Admin)].total)), 2);
}

void frmRentalEntry::btnRemove_Click()
{
    if (txtTourItemID.IsEmpty())
        return;
    vsfgItems.RemoveItem(CLng(txtTourItemID.Val()));
    RenumberItems(vsfgItems);
    ClearTourItem();
    SumTourTotals();
}

void frmRentalEntry::btnNewBus_Click()
{
    ClearTourItem();
    PresetFromLastRow();
    SSTab1.SetPage(1);
}

/// A second bus on the same run needs only its rates.
void frmRentalEntry::PresetFromLastRow()
{
    const int last = vsfgItems.Rows() - 1;
    if (last < 1)
        return;
    dtStart = ToDate(vsfgItems.TextMatrix(last, ItemCol::StartDate));
    dtEnd = ToDate(vsfgItems.TextMatrix(last, ItemCol::EndDate));
    txtDiscountDays = vsfgItems.TextMatrix(last, ItemCol::DiscountedDays);
    txtTravelIn = vsfgItems.TextMatrix(last, ItemCol::TravelDaysIn);
    txtTravelOut = vsfgItems.TextMatrix(last, ItemCol::TravelDaysOut);
    txtTotalMiles = vsfgItems.TextMatrix(last, ItemCol::TotalMileage);
    CalculateTourItem();
}

}
