#include "billing/InvoiceWriter.h"

#include "frame/App.h"
#include "frame/SharedRoutines.h"
#include "values/Format.h"
#include "values/Numbers.h"
#include "values/Text.h"

#include <algorithm>

namespace rovanta {

void InvoiceWriter::SetUpPool()
{
    const Statement tour = Statement{"WHERE TourID = "} + Key(pass.tourID) + " AND Type = '" + Text(pass.type) + "'";
    app.AppConnection.Execute(Statement{"DELETE FROM tmpInvoiceList "} + tour);
    app.AppConnection.Execute(Statement{"INSERT INTO tmpInvoiceList (InvoiceID, TourID, Type) (SELECT ID,TourID,Type "
                                        "FROM Invoice "} +
                              tour + ")");
    app.AppConnection.Execute(Statement{"DELETE FROM InvoiceItems "} + tour);
}

std::optional<std::string> InvoiceWriter::NextReusableInvoice()
{
    Recordset pool(Statement{"SELECT TOP 1 * FROM tmpInvoiceList WHERE TourID = "} + Key(pass.tourID) +
                       " AND Type = '" + Text(pass.type) + "' ORDER BY InvoiceID",
                   app.AppConnection);
    if (pool.Eof())
        return std::nullopt;
    std::string invoiceID = pool.Fields("InvoiceID").Text();
    pool.Delete();
    return invoiceID;
}

std::string InvoiceWriter::WriteHead(const PlannedInvoice& invoice)
{
    const DateTime now = app.clock.Now();
    Recordset head;
    if (const auto reused = NextReusableInvoice()) {
        head.Open(Statement{"SELECT * FROM Invoice WHERE ID = "} + Key(*reused), app.AppConnection);
        head.Fields("Notes") = "Invoice Recreated: " + ToText(now);
        // The mark tells the accounting sync that an invoice it may hold has changed. What was paid stays.
        head.Fields("NeedsUpdated") = "YES";
    } else {
        head.Open("SELECT TOP 1 * FROM Invoice", app.AppConnection);
        head.AddNew();
        head.Fields("Paid") = 0;
    }
    head.Fields("TourID") = pass.tourID;
    head.Fields("CustomerID") = pass.customerID;
    head.Fields("InvoiceDate") = invoice.due;
    head.Fields("DueDate") = invoice.due;
    head.Fields("SubTotal") = invoice.totals.subTotal;
    head.Fields("Tax") = invoice.totals.tax;
    head.Fields("InvoiceTotal") = invoice.totals.total;
    head.Fields("Type") = pass.type;
    head.Fields("EnteredBy") = app.session.CurrentUsername;
    head.Fields("EnteredDate") = now;
    head.Update();
    return head.Fields("ID").Text();
}

void InvoiceWriter::Write(const PlannedInvoice& invoice)
{
    const std::string invoiceID = WriteHead(invoice);
    int row = 0;
    for (const InvoiceLine& line : invoice.lines)
        WriteLine(invoiceID, ++row, line);
}

void InvoiceWriter::WriteLine(const std::string& invoiceID, int row, const InvoiceLine& line)
{
    Statement insert = Statement{"INSERT INTO InvoiceItems VALUES("} + Key(invoiceID) + "," + Key(row) + "," +
                       Key(pass.tourID) + "," + Number(line.qty1) + "," + Number(line.qty2) + ",'" + Text(line.uom) +
                       "','" + Text(line.description) + "'," + Number(Round(line.rate, 2)) + "," +
                       Number(Round(line.Extended(), 2)) + "," + Key(line.busID) + ",'" + Text(line.other) + "','" +
                       Text(line.busType) + "','" + Text(line.acct) + "'," + Key(line.orderField) + ",'" +
                       Text(pass.type) + "'," + Flag(line.taxable);
    if (line.busType.empty())
        insert += ",NULL,NULL)";
    else
        insert += Statement{",'"} + DateText(std::max(line.periodStart, line.itemStart)) + "','" +
                  DateText(std::min(line.periodEnd, line.itemEnd)) + "')";
    app.AppConnection.Execute(insert);
}

Statement InvoiceWriter::InPool() const
{
    return Statement{"IN (SELECT InvoiceID FROM tmpInvoiceList WHERE TourID = "} + Key(pass.tourID) + " AND Type = '" +
           Text(pass.type) + "')";
}

void InvoiceWriter::RemoveLeftoverInvoices()
{
    RemoveInvoices();
    app.AppConnection.Execute(Statement{"DELETE FROM InvoiceItems WHERE InvoiceID "} + InPool());
    RemovePayments();
    app.AppConnection.Execute(Statement{"DELETE FROM tmpInvoiceList WHERE TourID = "} + Key(pass.tourID) +
                              " AND Type = '" + Text(pass.type) + "'");
}

void InvoiceWriter::RemoveInvoices()
{
    Recordset invoice(Statement{"SELECT * FROM Invoice WHERE ID "} + InPool(), app.AppConnection);
    if (invoice.Eof())
        return;
    std::string text = "The following invoices will be deleted from Rovanta and marked to be removed from QB:";
    text += lineBreak;
    for (; !invoice.Eof(); invoice.MoveNext()) {
        const std::string invoiceID = invoice.Fields("ID").Text();
        text += "\t" + invoiceID + "\t" + FormatText(invoice.Fields("InvoiceDate").TextOrEmpty(), datePicture) + "\t" +
                Format(invoice.Fields("InvoiceTotal").NumberOrZero(), moneyCellPicture);
        text += lineBreak;
        if (!invoice.Fields("QBID").IsNull())
            app.AppConnection.Execute(Statement{"INSERT INTO QBInvoicesToBeDeleted (InvoiceID,QBID,GJQBID) VALUES("} +
                                      Key(invoiceID) + ",'" + Text(invoice.Fields("QBID").Text()) + "','" +
                                      Text(invoice.Fields("GJQBID").TextOrEmpty()) + "')");
        invoice.Delete();
    }
    app.Say(text, "Invoices Deleted");
}

void InvoiceWriter::RemovePayments()
{
    Recordset payment(Statement{"SELECT * FROM InvoicePayments WHERE InvoiceID "} + InPool(), app.AppConnection);
    for (; !payment.Eof(); payment.MoveNext()) {
        if (!payment.Fields("QBID").IsNull())
            app.AppConnection.Execute(Statement{"INSERT INTO QBPaymentsToBeDeleted (PaymentID,QBID) VALUES("} +
                                      Key(payment.Fields("ID").Text()) + ",'" + Text(payment.Fields("QBID").Text()) +
                                      "')");
        payment.Delete();
    }
}

}
