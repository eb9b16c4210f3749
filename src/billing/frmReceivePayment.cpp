#include "billing/frmReceivePayment.h"

#include "frame/App.h"
#include "frame/RecordLoading.h"
#include "tours/frmRentalEntry.h"

namespace rovanta {

frmReceivePayment::frmReceivePayment(App& app) : Screen(app, screenName, "Receive Payments")
{
    txtInvoiceBalance.SetReadOnly(true);
    txtNewBalance.SetReadOnly(true);
    for (ComboBox* combo : {static_cast<ComboBox*>(&cmbCustomer), &cmbInvoice, &cmbPaymentMethod})
        UseTypeAhead(*combo);
    SetDefaultButton(btnSave);
    SetCancelButton(btnExit);
    cmbCustomer.Click = [this] { cmbCustomer_Click(); };
    cmbInvoice.Click = [this] { cmbInvoice_Click(); };
    txtPaymentAmount.Change = [this] { txtPaymentAmount_Change(); };
    btnSave.Click = [this] { btnSave_Click(); };
    btnExit.Click = [this] { Close(); };

    FillPair(cmbCustomer, "SELECT ID,Name FROM Customer ORDER BY Name", Database());
    for (const char* method : {"Cash", "Check", "Visa", "MC", "AmEx", "Disc", "Other"})
        cmbPaymentMethod.AddItem(method);
    dtDate = app.clock.Today();
    ClearPaymentForm();
}

void frmReceivePayment::ClearPaymentForm()
{
    cmbInvoice.Clear();
    cmbPaymentMethod.SetListIndex(-1);
    txtCheckNumber = "";
    txtInvoiceBalance = 0;
    txtPaymentAmount = 0;
    txtNewBalance = 0;
}

void frmReceivePayment::cmbCustomer_Click()
{
    ClearPaymentForm();
    if (cmbCustomer.ListIndex() < 0)
        return;
    // An overpaid invoice has a balance below zero and is listed too.
    FillCombo(cmbInvoice,
              Statement{"SELECT ID FROM Invoice WHERE CustomerID = "} + Key(cmbCustomer.Key()) +
                  " AND InvoiceTotal - Paid <> 0",
              Database());
}

void frmReceivePayment::cmbInvoice_Click()
{
    if (cmbInvoice.IsEmpty())
        return;
    Recordset invoice(
        Statement{"SELECT InvoiceTotal - Paid As Total FROM Invoice Where ID = "} + Key(cmbInvoice.Text()), Database());
    const double total = invoice.Fields("Total").Number();
    txtInvoiceBalance = total;
    txtNewBalance = total - txtPaymentAmount.Val();
}

void frmReceivePayment::txtPaymentAmount_Change()
{
    if (txtPaymentAmount.IsEmpty())
        txtPaymentAmount = 0;
    txtNewBalance = txtInvoiceBalance.Val() - txtPaymentAmount.Val();
}

void frmReceivePayment::btnSave_Click()
{
    // A negative amount passes: it is a refund.
    const bool complete =
        !cmbCustomer.IsEmpty() && !cmbPaymentMethod.IsEmpty() && !cmbInvoice.IsEmpty() && txtPaymentAmount.Val() != 0;
    if (!HasRequired(app, complete, "You must select a Customer, Invoice, Payment Type, and Payment Amount."))
        return;
    Recordset payment("SELECT TOP 1 * FROM InvoicePayments", Database());
    payment.AddNew();
    payment.Fields("InvoiceID") = cmbInvoice.Text();
    payment.Fields("PaymentDate") = dtDate.Value();
    payment.Fields("Amount") = txtPaymentAmount.Val();
    payment.Fields("PaymentMethod") = cmbPaymentMethod.Text();
    payment.Fields("Note") = txtCheckNumber.Text();
    payment.Fields("EnteredBy") = app.session.CurrentUsername;
    payment.Fields("EnteredDate") = app.clock.Now();
    payment.Update();
    RaisePaid();
    ClearPaymentForm();
    cmbCustomer.SetListIndex(-1);
    if (!app.openFlags.RentalEntryOpen)
        return;
    auto* tour = app.Find<frmRentalEntry>();
    tour->LoadTourInvoices();
    tour->LoadTourPayments();
}

/// The raise is a statement and not a read and a write, so two desks cannot lose each other's payment.
void frmReceivePayment::RaisePaid()
{
    Database().Execute(Statement{"UPDATE Invoice SET Paid = Paid + "} + Number(txtPaymentAmount.Val()) +
                       " WHERE ID = " + Key(cmbInvoice.Text()));
}

}
