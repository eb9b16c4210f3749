#include "tours/frmRentalEntry.h"

#include "billing/frmCreateInvoices.h"
#include "billing/frmManualInvoices.h"
#include "frame/App.h"
#include "frame/Reports.h"
#include "values/Format.h"
#include "values/Numbers.h"

#include <algorithm>

namespace rovanta {

/// The back colour of the rows of totals.
static constexpr Color totalsColor = 0xE0E0E0;

void frmRentalEntry::WireBilling()
{
    btnCalculate.Click = [this] { btnCalculate_Click(); };
    btnManualInvoice.Click = [this] { btnManualInvoice_Click(); };
    btnEditInvoice.Click = [this] { EditSelectedInvoice(); };
    vsfgInvoices.DoubleClick = [this] { EditSelectedInvoice(); };
    btnDeleteInvoice.Click = [this] { btnDeleteInvoice_Click(); };
    btnDeletePayment.Click = [this] { btnDeletePayment_Click(); };
    btnPrintInvoices.Click = [this] { btnPrintInvoices_Click(); };
    btnBuggyUp.Click = [this] { MoveItem(-1); };
    btnBuggyDown.Click = [this] { MoveItem(1); };
    WireReports();
}

void frmRentalEntry::WireReports()
{
    const auto wire = [this](Button& button, const char* permission) {
        button.Click = [this, &button, permission] {
            if (app.Permit(permission, Denial::viewReport))
                RunReport(app, button.Caption(), {txtID.Text()});
        };
    };
    wire(btnQuoteSheet, "Lease Agreement Report");
    wire(btnPickupSheet, "Driver Pickup Report");
    wire(btnOnBoardLease, "Onboard Lease Agreement Report");
    wire(btnCCAuthorization, "Lease Agreement Report");
    wire(btnInvestorReport, "Investor Report");
    wire(btnLeaseAgreement, "Lease Agreement Report");
}

static void BuildGrid(Grid& grid, std::string_view heading, int cols)
{
    grid.SetRows(0);
    grid.SetCols(cols);
    grid.AddItem(heading);
    grid.SetFixedRows(1);
}

void frmRentalEntry::BuildBillingGrids()
{
    BuildGrid(vsfgInvoices,
              "Invoice\tInvoice Date\tDue Date\tSubtotal\tTax\tTotal\tPaid\tBalance\tType\tNotes\tEntered", 11);
    BuildGrid(vsfgPayments, "ID\tPayment Date\tInvoice\tMethod\tAmount\tNote\tEntered", 7);
}

void frmRentalEntry::LoadTourInvoices()
{
    BuildGrid(vsfgInvoices,
              "Invoice\tInvoice Date\tDue Date\tSubtotal\tTax\tTotal\tPaid\tBalance\tType\tNotes\tEntered", 11);
    if (txtID.IsEmpty())
        return;
    Recordset invoice(Statement{"SELECT * FROM Invoice WHERE TourID = "} + Key(txtID.Text()) +
                          " ORDER BY InvoiceDate,ID",
                      Database());
    for (; !invoice.Eof(); invoice.MoveNext()) {
        const double total = invoice.Fields("InvoiceTotal").NumberOrZero();
        const double paid = invoice.Fields("Paid").NumberOrZero();
        vsfgInvoices.AddCells(
            {invoice.Fields("ID").Text(), FormatText(invoice.Fields("InvoiceDate").TextOrEmpty(), datePicture),
             FormatText(invoice.Fields("DueDate").TextOrEmpty(), datePicture),
             ToText(invoice.Fields("Subtotal").NumberOrZero()), ToText(invoice.Fields("Tax").NumberOrZero()),
             ToText(total), ToText(paid), ToText(total - paid), invoice.Fields("Type").TextOrEmpty(),
             invoice.Fields("Notes").TextOrEmpty(), WhoAndWhen(invoice, "EnteredBy", "EnteredDate")});
    }
    for (int col = 3; col <= 7; ++col) {
        vsfgInvoices.SetColFormat(col, moneyCellPicture);
        vsfgInvoices.SetColAlignment(col, CellAlignment::Right);
    }
    if (vsfgInvoices.Rows() > 1)
        vsfgInvoices.Subtotal("Totals", {3, 4, 5, 6, 7}, moneySumPicture, totalsColor, SubtotalPlace::Above);
    vsfgInvoices.AutoSize(0, vsfgInvoices.Cols() - 1);
}

void frmRentalEntry::LoadTourPayments()
{
    BuildGrid(vsfgPayments, "ID\tPayment Date\tInvoice\tMethod\tAmount\tNote\tEntered", 7);
    if (txtID.IsEmpty())
        return;
    Recordset payment(
        Statement{"SELECT * FROM InvoicePayments WHERE InvoiceID IN (SELECT ID FROM Invoice WHERE TourID = "} +
            Key(txtID.Text()) + ") ORDER BY PaymentDate,InvoiceID",
        Database());
    for (; !payment.Eof(); payment.MoveNext())
        vsfgPayments.AddCells({payment.Fields("ID").Text(), payment.Fields("PaymentDate").TextOrEmpty(),
                               payment.Fields("InvoiceID").TextOrEmpty(), payment.Fields("PaymentMethod").TextOrEmpty(),
                               ToText(payment.Fields("Amount").NumberOrZero()), payment.Fields("Note").TextOrEmpty(),
                               WhoAndWhen(payment, "EnteredBy", "EnteredDate")});
    for (int col = 0; col < vsfgPayments.Cols(); ++col)
        vsfgPayments.SetColAlignment(col, CellAlignment::Center);
    vsfgPayments.SetColFormat(4, moneySumPicture);
    if (vsfgPayments.Rows() > 1)
        vsfgPayments.Subtotal("Totals", {4}, moneySumPicture, totalsColor, SubtotalPlace::Above);
    vsfgPayments.AutoSize(0, vsfgPayments.Cols() - 1);
}

bool frmRentalEntry::HasSavedTour()
{
    if (!txtID.IsEmpty())
        return true;
    app.Say("You must save the current tour or select a tour before creating invoices.", "No Tour Selected",
            MessageIcon::Exclamation);
    return false;
}

void frmRentalEntry::btnCalculate_Click()
{
    if (!HasSavedTour())
        return;
    SetEnabled(false);
    app.Open<frmCreateInvoices>().PrepareInvoiceDialog(txtID.Text());
}

void frmRentalEntry::btnManualInvoice_Click()
{
    if (!HasSavedTour())
        return;
    SetEnabled(false);
    auto& invoice = app.Open<frmManualInvoices>();
    invoice.PrepareForm();
    invoice.NewInvoiceForTour(txtID.Text());
}

/// Whether a row of an invoice or a payment is selected: neither the heading nor the row of totals is one.
static bool HasRecord(const Grid& grid)
{
    return grid.HasCurrentRow() && !grid.IsSubtotal(grid.Row());
}

void frmRentalEntry::EditSelectedInvoice()
{
    if (!HasRecord(vsfgInvoices))
        return;
    auto& invoice = app.Open<frmManualInvoices>();
    invoice.PrepareForm();
    invoice.LoadInvoice(vsfgInvoices.TextMatrix(vsfgInvoices.Row(), 0));
}

void frmRentalEntry::btnDeleteInvoice_Click()
{
    if (!HasRecord(vsfgInvoices))
        return;
    if (!app.Ask("Are you sure you want to permanently delete the selected invoice?", "Delete Confirmation"))
        return;
    const std::string invoiceID = vsfgInvoices.TextMatrix(vsfgInvoices.Row(), 0);
    Database().Execute(
        Statement{"INSERT INTO QBInvoicesToBeDeleted (InvoiceID,QBID,GJQBID) (SELECT ID,QBID,GJQBID FROM "
                  "Invoice WHERE ID = "} +
        Key(invoiceID) + " AND QBID <> '')");
    Database().Execute(Statement{"DELETE FROM Invoice WHERE ID = "} + Key(invoiceID));
    Database().Execute(Statement{"DELETE FROM InvoiceItems WHERE InvoiceID = "} + Key(invoiceID));
    // Kept on purpose: the payments that go with the invoice are not queued for removal from the accounting file.
    Database().Execute(Statement{"DELETE FROM InvoicePayments WHERE InvoiceID = "} + Key(invoiceID));
    LoadTourInvoices();
    LoadTourPayments();
}

void frmRentalEntry::btnDeletePayment_Click()
{
    if (!HasRecord(vsfgPayments))
        return;
    if (!app.Ask("Are you sure you want to permanently delete the selected payment?", "Delete Confirmation"))
        return;
    const int row = vsfgPayments.Row();
    const std::string paymentID = vsfgPayments.TextMatrix(row, 0);
    Database().Execute(Statement{"UPDATE Invoice SET Paid = Paid - "} + Number(Val(vsfgPayments.TextMatrix(row, 4))) +
                       " WHERE ID = " + Key(vsfgPayments.TextMatrix(row, 2)));
    Database().Execute(Statement{"INSERT INTO QBPaymentsToBeDeleted (PaymentID,QBID) (SELECT ID,QBID FROM "
                                 "InvoicePayments WHERE ID = "} +
                       Key(paymentID) + " AND QBID <> '')");
    Database().Execute(Statement{"DELETE FROM InvoicePayments WHERE ID = "} + Key(paymentID));
    LoadTourInvoices();
    LoadTourPayments();
}

void frmRentalEntry::btnPrintInvoices_Click()
{
    std::vector<std::string> invoices;
    const int first = std::min(vsfgInvoices.Row(), vsfgInvoices.RowSel());
    const int last = std::max(vsfgInvoices.Row(), vsfgInvoices.RowSel());
    for (int row = std::max(first, vsfgInvoices.FixedRows()); row <= last; ++row) {
        if (!vsfgInvoices.IsSubtotal(row))
            invoices.push_back(vsfgInvoices.TextMatrix(row, 0));
    }
    RunReport(app, "Invoice", invoices);
}

/// Moves the selected vehicle one place up or down. Its number belongs to the place and stays.
void frmRentalEntry::MoveItem(int step)
{
    const int row = vsfgItems.Row();
    const int other = row + step;
    if (!vsfgItems.HasCurrentRow() || other < 1 || other >= vsfgItems.Rows())
        return;
    SwapItemRows(vsfgItems, row, other);
    // The line in hand goes with its vehicle, or its update would overwrite the neighbour.
    if (txtTourItemID.Text() == std::to_string(row))
        txtTourItemID = std::to_string(other);
    else if (txtTourItemID.Text() == std::to_string(other))
        txtTourItemID = std::to_string(row);
    vsfgItems.Select(other, vsfgItems.Col());
}

}
