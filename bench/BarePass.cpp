#include "bench/BarePass.h"

#include "values/Numbers.h"

#include <algorithm>

namespace rovanta::bench {

BarePass::BarePass(BareDatabase& database, const std::string& type)
    : busType(database, "SELECT Type FROM Bus WHERE ID = ?"),
      clearPool(database, std::string("DELETE FROM tmpInvoiceList WHERE TourID = ? AND Type = '") + type + "'"),
      fillPool(database, std::string("INSERT INTO tmpInvoiceList (InvoiceID, TourID, Type) SELECT ID, TourID, Type "
                                     "FROM Invoice WHERE TourID = ? AND Type = '") +
                             type + "'"),
      clearLines(database, std::string("DELETE FROM InvoiceItems WHERE TourID = ? AND Type = '") + type + "'"),
      nextReusable(database, std::string("SELECT *, rowid FROM tmpInvoiceList WHERE TourID = ? AND Type = '") + type +
                                 "' ORDER BY InvoiceID LIMIT 1"),
      takeReusable(database, "DELETE FROM tmpInvoiceList WHERE rowid = ?"),
      head(database, "SELECT * FROM Invoice WHERE ID = ?"),
      update(database, std::string("UPDATE Invoice SET TourID = ?, CustomerID = ?, InvoiceDate = ?, DueDate = ?, "
                                   "SubTotal = ?, Tax = ?, InvoiceTotal = ?, Type = '") +
                           type +
                           "', EnteredBy = 'office', EnteredDate = ?, Notes = ?, NeedsUpdated = 'YES' WHERE ID = ?"),
      anyHead(database, "SELECT * FROM Invoice LIMIT 1"),
      insert(database, std::string("INSERT INTO Invoice (TourID, CustomerID, InvoiceDate, DueDate, SubTotal, Tax, "
                                   "InvoiceTotal, Type, EnteredBy, EnteredDate, Paid) VALUES (?, ?, ?, ?, ?, ?, ?, '") +
                           type + "', 'office', ?, 0)"),
      line(database, std::string("INSERT INTO InvoiceItems VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, '") +
                         type + "', ?, ?, ?)"),
      leftovers(
          database,
          std::string(
              "SELECT * FROM Invoice WHERE ID IN (SELECT InvoiceID FROM tmpInvoiceList WHERE TourID = ? AND Type = '") +
              type + "')"),
      dropLines(database, std::string("DELETE FROM InvoiceItems WHERE InvoiceID IN (SELECT InvoiceID FROM "
                                      "tmpInvoiceList WHERE TourID = ? AND Type = '") +
                              type + "')"),
      leftPayments(database, std::string("SELECT * FROM InvoicePayments WHERE InvoiceID IN (SELECT InvoiceID FROM "
                                         "tmpInvoiceList WHERE TourID = ? AND Type = '") +
                                 type + "')"),
      invoiceList(database, "SELECT * FROM Invoice WHERE TourID = ? ORDER BY InvoiceDate, ID"),
      paymentList(database, "SELECT * FROM InvoicePayments WHERE InvoiceID IN (SELECT ID FROM Invoice WHERE TourID = "
                            "?) ORDER BY PaymentDate, InvoiceID")
{
}

void BarePass::ReadAll(BareStatement& statement, sqlite3_int64 tour)
{
    statement.Bind(1, tour);
    while (statement.Step())
        ReadRow(statement);
    statement.Reset();
}

sqlite3_int64 BarePass::WriteHead(sqlite3_int64 tour, sqlite3_int64 customer, const PlannedInvoice& invoice,
                                  const std::string& now)
{
    nextReusable.Bind(1, tour);
    const bool reused = nextReusable.Step();
    const sqlite3_int64 reusedID = reused ? nextReusable.Whole(0) : 0;
    const sqlite3_int64 poolRow = reused ? nextReusable.Whole(3) : 0;
    nextReusable.Reset();
    if (reused) {
        takeReusable.Bind(1, poolRow);
        takeReusable.RunOnce();
        head.Bind(1, reusedID);
        head.Step();
        ReadRow(head);
        head.Reset();
    } else {
        if (anyHead.Step())
            ReadRow(anyHead);
        anyHead.Reset();
    }
    BareStatement& write = reused ? update : insert;
    const std::string due = ToLongIsoText(invoice.due);
    write.Bind(1, tour);
    write.Bind(2, customer);
    write.Bind(3, std::string_view(due));
    write.Bind(4, std::string_view(due));
    write.Bind(5, invoice.totals.subTotal);
    write.Bind(6, invoice.totals.tax);
    write.Bind(7, invoice.totals.total);
    write.Bind(8, std::string_view(now));
    const std::string notes = "Invoice Recreated: " + now;
    if (reused) {
        write.Bind(9, std::string_view(notes));
        write.Bind(10, reusedID);
    }
    write.RunOnce();
    return reused ? reusedID : write.LastRow();
}

void BarePass::WriteLine(sqlite3_int64 invoiceID, int row, sqlite3_int64 tour, const InvoiceLine& planned)
{
    line.Bind(1, invoiceID);
    line.Bind(2, sqlite3_int64{row});
    line.Bind(3, tour);
    line.Bind(4, planned.qty1);
    line.Bind(5, planned.qty2);
    line.Bind(6, std::string_view(planned.uom));
    line.Bind(7, std::string_view(planned.description));
    line.Bind(8, Round(planned.rate, 2));
    line.Bind(9, Round(planned.Extended(), 2));
    line.Bind(10, static_cast<sqlite3_int64>(std::stoll(planned.busID)));
    line.Bind(11, std::string_view(planned.other));
    line.Bind(12, std::string_view(planned.busType));
    line.Bind(13, std::string_view(planned.acct));
    line.Bind(14, sqlite3_int64{planned.orderField});
    line.Bind(15, sqlite3_int64{planned.taxable});
    if (planned.busType.empty()) {
        line.BindNull(16);
        line.BindNull(17);
    } else {
        line.Bind(16, std::string_view(ToLongIsoText(std::max(planned.periodStart, planned.itemStart))));
        line.Bind(17, std::string_view(ToLongIsoText(std::min(planned.periodEnd, planned.itemEnd))));
    }
    line.RunOnce();
}

void BarePass::Run(sqlite3_int64 tour, sqlite3_int64 customer, const std::vector<std::string>& busIDs,
                   const std::vector<PlannedInvoice>& invoices, const std::string& now)
{
    for (BareStatement* statement : {&clearPool, &fillPool, &clearLines}) {
        statement->Bind(1, tour);
        statement->RunOnce();
    }
    for (const std::string& busID : busIDs) {
        busType.Bind(1, static_cast<sqlite3_int64>(std::stoll(busID)));
        busType.Step();
        busType.Text(0);
        busType.Reset();
    }
    for (const PlannedInvoice& invoice : invoices) {
        const sqlite3_int64 id = WriteHead(tour, customer, invoice, now);
        int row = 0;
        for (const InvoiceLine& planned : invoice.lines)
            WriteLine(id, ++row, tour, planned);
    }
    ReadAll(leftovers, tour);
    dropLines.Bind(1, tour);
    dropLines.RunOnce();
    ReadAll(leftPayments, tour);
    clearPool.Bind(1, tour);
    clearPool.RunOnce();
    ReadAll(invoiceList, tour);
    ReadAll(paymentList, tour);
}

}
