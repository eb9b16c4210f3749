#include "tours/frmRentalEntry.h"

#include "billing/frmCreateInvoices.h"
#include "frame/App.h"
#include "values/Format.h"
#include "values/Numbers.h"

namespace rovanta {

/// The back colour of the rows of totals.
static constexpr Color totalsColor = 0xE0E0E0;

void frmRentalEntry::WireBilling()
{
    btnCalculate.Click = [this] { btnCalculate_Click(); };
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

void frmRentalEntry::btnCalculate_Click()
{
    if (txtID.IsEmpty()) {
        app.Say("You must save the current tour or select a tour before creating invoices.", "No Tour Selected",
                MessageIcon::Exclamation);
        return;
    }
    SetEnabled(false);
    app.Open<frmCreateInvoices>().PrepareInvoiceDialog(txtID.Text());
}

}
