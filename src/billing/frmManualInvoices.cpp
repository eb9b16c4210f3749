#include "billing/frmManualInvoices.h"

#include "billing/ManualInvoice.h"
#include "frame/App.h"
#include "frame/RecordLoading.h"
#include "tours/frmRentalEntry.h"
#include "values/Format.h"
#include "values/Numbers.h"

namespace rovanta {

/// The columns of the grid of lines.
namespace LineCol {
enum Index {
    Qty,
    UoM,
    Description,
    Rate,
    RateExt,
    Acct,
    Tax,
    BusID,
    StartDate,
    EndDate,
    Qty2,
    BusType,
    Other,
    OrderField,
    Row,
    Count
};
}

frmManualInvoices::frmManualInvoices(App& app) : Screen(app, screenName, "Manual Invoices")
{
    for (TextControl* box : std::initializer_list<TextControl*>{&txtInvoiceNumber, &txtTourID, &txtClient, &txtTourName,
                                                                &txtSubtotal, &txtTax, &txtTotal})
        box->SetReadOnly(true);
    txtNotes.SetLines(2);
    for (ComboBox* combo : {&cmbUoM, &cmbAcct, static_cast<ComboBox*>(&cmbBus)})
        UseTypeAhead(*combo);
    SetCancelButton(btnCancel);
    txtQty.Change = [this] { CalculateExtension(); };
    txtRate.Change = [this] { CalculateExtension(); };
    cmbAcct.Click = [this] { cmbAcct_Click(); };
    cmbAcct.Change = [this] { cmbAcct_Click(); };
    btnAdd.Click = [this] { btnAdd_Click(); };
    btnDelete.Click = [this] { btnDelete_Click(); };
    vsfgInvoiceItems.Click = [this] { LoadLine(); };
    btnSave.Click = [this] { btnSave_Click(); };
    btnCancel.Click = [this] { Leave(); };
    Unload = [this] { Leave(); };

    FillLists();
    PrepareForm();
}

void frmManualInvoices::FillLists()
{
    for (const char* unit : {"Day", "Each", "Week", "Month"})
        cmbUoM.AddItem(unit);
    for (const ManualAccount& account : ManualAccounts()) {
        cmbAcct.AddItem(std::string(account.name));
        cmbTax.AddItem(IsTaxedByDefault(account, app.company.DefaultTaxable) ? "1" : "0");
    }
    FillPair(cmbBus, "SELECT ID,Name FROM Bus ORDER BY Name", Database());
}

void frmManualInvoices::PrepareForm()
{
    for (TextControl* box : std::initializer_list<TextControl*>{&txtInvoiceNumber, &txtTourID, &txtCustomerID,
                                                                &txtClient, &txtTourName, &txtNotes})
        box->SetText("");
    dtInvoiceDate = app.clock.Today();
    dtDueDate = app.clock.Today();
    txtInvoiceType = "Manual";
    BuildGrid();
    ClearPanel();
    ShowTotals();
}

void frmManualInvoices::BuildGrid()
{
    Grid& grid = vsfgInvoiceItems;
    grid.SetRows(0);
    grid.SetCols(LineCol::Count);
    grid.AddItem("Qty\tUoM\tDescription\tRate\tRate Ext\tAcct\tTax\tBusID\tStart Date\tEnd Date\tQty 2\tBus "
                 "Type\tOther\tOrder\tRow");
    grid.SetFixedRows(1);
    for (int col = LineCol::Tax; col < LineCol::Count; ++col)
        grid.SetColHidden(col, true);
    for (const int col : {LineCol::Rate, LineCol::RateExt}) {
        grid.SetColFormat(col, moneySumPicture);
        grid.SetColAlignment(col, CellAlignment::Right);
    }
}

void frmManualInvoices::ClearPanel()
{
    for (TextControl* box : std::initializer_list<TextControl*>{&txtRow, &txtQty, &txtDescription, &txtRate,
                                                                &txtRateExt, &txtBusType, &txtOther, &txtOrderField})
        box->SetText("");
    // The extension of a line typed here is its quantity times its rate, so the second quantity of the invoice is one.
    txtQty2 = "1";
    for (ComboBox* combo : {&cmbUoM, &cmbAcct, static_cast<ComboBox*>(&cmbBus)})
        combo->SetListIndex(-1);
    dtStartDate = app.clock.Today();
    dtEndDAte = app.clock.Today();
    dtStartDate.SetEnabled(false);
    dtEndDAte.SetEnabled(false);
    txtRateExt = "";
}

void frmManualInvoices::NewInvoiceForTour(const std::string& tourID)
{
    txtTourID = tourID;
    Recordset tour(Statement{"SELECT Tour.ID AS TourID,Tour.CustomerID AS CustomerID,Customer.Name AS CustomerName,"
                             "Tour.TourName AS TourName FROM Tour LEFT JOIN Customer ON Tour.CustomerID = Customer.ID "
                             "WHERE Tour.ID = "} +
                       Key(tourID),
                   Database());
    if (tour.Eof())
        return;
    txtClient = tour.Fields("CustomerName").TextOrEmpty();
    txtTourName = tour.Fields("TourName").TextOrEmpty();
    txtCustomerID = tour.Fields("CustomerID").TextOrEmpty();
}

void frmManualInvoices::LoadInvoice(const std::string& invoiceID)
{
    Recordset invoice(Statement{"SELECT * FROM Invoice WHERE ID = "} + Key(invoiceID), Database());
    txtInvoiceNumber = invoice.Fields("ID").Text();
    dtInvoiceDate = invoice.Fields("InvoiceDate").Date();
    dtDueDate = invoice.Fields("DueDate").Date();
    txtInvoiceType = invoice.Fields("Type").TextOrEmpty();
    txtNotes = invoice.Fields("Notes").TextOrEmpty();
    NewInvoiceForTour(invoice.Fields("TourID").Text());
    BuildGrid();
    Recordset line(Statement{"SELECT * FROM InvoiceItems WHERE InvoiceID = "} + Key(invoiceID) + " ORDER BY Row",
                   Database());
    for (; !line.Eof(); line.MoveNext())
        AddLine(line);
    ClearPanel();
    ShowTotals();
}

void frmManualInvoices::AddLine(Recordset& line)
{
    const double extended = line.Fields("PriceExt").NumberOrZero();
    const double tax = line.Fields("Taxable").IsTrue() ? app.company.CompanyTaxRate / 100 * extended : 0;
    vsfgInvoiceItems.AddCells({ToText(line.Fields("Qty1").NumberOrZero()), line.Fields("UoM").TextOrEmpty(),
                               line.Fields("Description").TextOrEmpty(), ToText(line.Fields("Rate").NumberOrZero()),
                               ToText(extended), line.Fields("Acct").TextOrEmpty(), ToText(tax),
                               line.Fields("BusID").TextOrEmpty(), line.Fields("StartDate").TextOrEmpty(),
                               line.Fields("EndDate").TextOrEmpty(), ToText(line.Fields("Qty2").NumberOrZero()),
                               line.Fields("BusType").TextOrEmpty(), line.Fields("Other").TextOrEmpty(),
                               line.Fields("OrderField").TextOrEmpty(), line.Fields("Row").TextOrEmpty()});
}

void frmManualInvoices::CalculateExtension()
{
    txtRateExt = txtQty.Val() * txtRate.Val();
}

void frmManualInvoices::cmbAcct_Click()
{
    const bool dates = BearsDates(cmbAcct.Text());
    dtStartDate.SetEnabled(dates);
    dtEndDAte.SetEnabled(dates);
}

void frmManualInvoices::btnAdd_Click()
{
    const bool complete = !txtRate.IsEmpty() && !txtRateExt.IsEmpty() && !cmbAcct.IsEmpty() &&
                          !txtDescription.IsEmpty() && !cmbUoM.IsEmpty() && !txtQty.IsEmpty();
    if (!complete) {
        app.Say("You must fill in all information before Adding to invoice.", "Not Enought Info");
        return;
    }
    const bool taxed = cmbTax.List(cmbAcct.ListIndex()) == "1";
    const bool dates = BearsDates(cmbAcct.Text());
    const std::vector<std::string> cells = {txtQty.Text(),
                                            cmbUoM.Text(),
                                            txtDescription.Text(),
                                            txtRate.Text(),
                                            txtRateExt.Text(),
                                            cmbAcct.Text(),
                                            ToText(taxed ? app.company.CompanyTaxRate / 100 * txtRateExt.Val() : 0),
                                            cmbBus.Key(),
                                            dates ? ToText(dtStartDate.Value()) : "",
                                            dates ? ToText(dtEndDAte.Value()) : "",
                                            txtQty2.Text(),
                                            BusTypeFor(txtBusType.Text(), cmbAcct.Text()),
                                            txtOther.Text(),
                                            txtOrderField.Text(),
                                            txtRow.Text()};
    int row = CLng(txtRow.Val());
    if (txtRow.IsEmpty()) {
        row = vsfgInvoiceItems.Rows();
        vsfgInvoiceItems.AddItem("");
    }
    for (int col = 0; col < LineCol::Count; ++col)
        vsfgInvoiceItems.SetTextMatrix(row, col, cells[static_cast<std::size_t>(col)]);
    ClearPanel();
    ShowTotals();
}

void frmManualInvoices::btnDelete_Click()
{
    if (!vsfgInvoiceItems.HasCurrentRow())
        return;
    vsfgInvoiceItems.RemoveItem(vsfgInvoiceItems.Row());
    ClearPanel();
    ShowTotals();
}

void frmManualInvoices::LoadLine()
{
    const int row = vsfgInvoiceItems.MouseRow();
    if (row < 1 || row >= vsfgInvoiceItems.Rows())
        return;
    const auto cell = [&](int col) -> const std::string& { return vsfgInvoiceItems.TextMatrix(row, col); };
    txtQty = cell(LineCol::Qty);
    cmbUoM = cell(LineCol::UoM);
    txtDescription = cell(LineCol::Description);
    txtRate = cell(LineCol::Rate);
    // Quantity and rate have just computed it anew; the line's own extension counts its second quantity too.
    txtRateExt = cell(LineCol::RateExt);
    cmbAcct = cell(LineCol::Acct);
    cmbBus.SelectKey(cell(LineCol::BusID));
    dtStartDate = ParseDate(cell(LineCol::StartDate)).value_or(app.clock.Today());
    dtEndDAte = ParseDate(cell(LineCol::EndDate)).value_or(app.clock.Today());
    txtQty2 = cell(LineCol::Qty2);
    txtBusType = cell(LineCol::BusType);
    txtOther = cell(LineCol::Other);
    txtOrderField = cell(LineCol::OrderField);
    txtRow = std::to_string(row);
}

void frmManualInvoices::ShowTotals()
{
    double subtotal = 0;
    double tax = 0;
    for (int row = 1; row < vsfgInvoiceItems.Rows(); ++row) {
        subtotal += Round(Val(vsfgInvoiceItems.TextMatrix(row, LineCol::RateExt)), 2);
        tax += Round(Val(vsfgInvoiceItems.TextMatrix(row, LineCol::Tax)), 2);
    }
    txtSubtotal = subtotal;
    txtTax = tax;
    txtTotal = subtotal + tax;
}

void frmManualInvoices::btnSave_Click()
{
    // Kept on purpose: a grid emptied by delete saves nothing, and the old lines stay.
    if (vsfgInvoiceItems.Rows() <= 1)
        return;
    Hourglass wait(app);
    const bool existing = !txtInvoiceNumber.IsEmpty();
    const std::string invoiceID = SaveHead();
    txtInvoiceNumber = invoiceID;
    if (existing)
        Database().Execute(Statement{"DELETE FROM InvoiceItems WHERE InvoiceID = "} + Key(invoiceID));
    SaveLines(invoiceID);
    if (app.openFlags.RentalEntryOpen) {
        auto* tour = app.Find<frmRentalEntry>();
        tour->LoadTourInvoices();
        tour->LoadTourPayments();
    }
    Leave();
}

std::string frmManualInvoices::SaveHead()
{
    Recordset head;
    if (!txtInvoiceNumber.IsEmpty()) {
        head.Open(Statement{"SELECT * FROM Invoice WHERE ID = "} + Key(txtInvoiceNumber.Text()), Database());
        head.Fields("NeedsUpdated") = "YES";
    } else {
        head.Open("SELECT TOP 1 * FROM Invoice", Database());
        head.AddNew();
        head.Fields("Paid") = 0;
        head.Fields("EnteredBy") = app.session.CurrentUsername;
        head.Fields("EnteredDate") = app.clock.Now();
    }
    head.Fields("TourID") = txtTourID.Text();
    head.Fields("CustomerID") = txtCustomerID.Text();
    head.Fields("InvoiceDate") = dtInvoiceDate.Value();
    head.Fields("DueDate") = dtDueDate.Value();
    head.Fields("SubTotal") = txtSubtotal.Val();
    head.Fields("Tax") = txtTax.Val();
    head.Fields("InvoiceTotal") = txtTotal.Val();
    head.Fields("Type") = txtInvoiceType.Text();
    head.Fields("Notes") = txtNotes.Text();
    head.Update();
    return head.Fields("ID").Text();
}

/// A date of a direct INSERT: the quoted text, or the bare word where there is none.
static Statement DateOrNull(const std::string& date)
{
    return date.empty() ? Statement{"Null"} : Statement{"'"} + DateText(ToDate(date)) + "'";
}

void frmManualInvoices::SaveLines(const std::string& invoiceID)
{
    for (int row = 1; row < vsfgInvoiceItems.Rows(); ++row) {
        const auto cell = [&](int col) -> const std::string& { return vsfgInvoiceItems.TextMatrix(row, col); };
        const std::string& bus = cell(LineCol::BusID);
        Database().Execute(Statement{"INSERT INTO InvoiceItems VALUES("} + Key(invoiceID) + "," + Key(row) + "," +
                           Key(txtTourID.Text()) + "," + Number(Val(cell(LineCol::Qty))) + "," +
                           Number(Val(cell(LineCol::Qty2))) + ",'" + Text(cell(LineCol::UoM)) + "','" +
                           Text(cell(LineCol::Description)) + "'," + Number(Round(Val(cell(LineCol::Rate)), 2)) + "," +
                           Number(Round(Val(cell(LineCol::RateExt)), 2)) + "," +
                           (bus.empty() ? Statement{"Null"} : Statement{} + Key(bus)) + ",'" +
                           Text(cell(LineCol::Other)) + "','" + Text(cell(LineCol::BusType)) + "','" +
                           Text(cell(LineCol::Acct)) + "'," + Number(Val(cell(LineCol::OrderField))) + ",'" +
                           Text(txtInvoiceType.Text()) + "'," + Flag(Val(cell(LineCol::Tax)) != 0) + "," +
                           DateOrNull(cell(LineCol::StartDate)) + "," + DateOrNull(cell(LineCol::EndDate)) + ")");
    }
}

void frmManualInvoices::Leave()
{
    if (auto* tour = app.Find<frmRentalEntry>())
        tour->SetEnabled(true);
    SetVisible(false);
}

}
