#include "bench/BarePass.h"

#include "values/Numbers.h"

#include <algorithm>

namespace rovanta::bench {

/// The rows of a tour that are of the pass's type.
static std::string OfPass(const std::string& type)
{
    return R"(WHERE "TourID" = $1 AND "Type" = ')" + type + "'";
}

static std::string InPool(const std::string& type)
{
    return R"(IN (SELECT "InvoiceID" FROM "tmpInvoiceList" )" + OfPass(type) + ")";
}

BarePass::BarePass(BareDatabase& database, const std::string& type)
    : busType(database, R"(SELECT "Type" FROM "Bus" WHERE "ID" = $1)"),
      clearPool(database, R"(DELETE FROM "tmpInvoiceList" )" + OfPass(type)),
      fillPool(database, R"(INSERT INTO "tmpInvoiceList" ("InvoiceID", "TourID", "Type")
                            SELECT "ID", "TourID", "Type" FROM "Invoice" )" +
                             OfPass(type)),
      clearLines(database, R"(DELETE FROM "InvoiceItems" )" + OfPass(type)),
      nextReusable(database, "SELECT *, " + database.RowKey() + R"( FROM "tmpInvoiceList" )" + OfPass(type) +
                                 R"( ORDER BY "InvoiceID" NULLS FIRST LIMIT 1)"),
      takeReusable(database, R"(DELETE FROM "tmpInvoiceList" WHERE )" + database.RowKey() + " = $1"),
      head(database, R"(SELECT * FROM "Invoice" WHERE "ID" = $1)"),
      update(database, R"(UPDATE "Invoice" SET "TourID" = $1, "CustomerID" = $2, "InvoiceDate" = $3, "DueDate" = $4,
                          "SubTotal" = $5, "Tax" = $6, "InvoiceTotal" = $7, "Type" = ')" +
                           type +
                           R"(', "EnteredBy" = 'office', "EnteredDate" = $8, "Notes" = $9, "NeedsUpdated" = 'YES'
                          WHERE "ID" = $10)"),
      anyHead(database, R"(SELECT * FROM "Invoice" LIMIT 1)"),
      insert(database, R"(INSERT INTO "Invoice" ("TourID", "CustomerID", "InvoiceDate", "DueDate", "SubTotal", "Tax",
                          "InvoiceTotal", "Type", "EnteredBy", "EnteredDate", "Paid")
                          VALUES ($1, $2, $3, $4, $5, $6, $7, ')" +
                           type + "', 'office', $8, 0)" + database.ReturningKey()),
      line(database, R"(INSERT INTO "InvoiceItems" VALUES ($1, $2, $3, $4, $5, $6, $7, $8, $9, $10, $11, $12, $13, $14,
                        ')" +
                         type + "', $15, $16, $17)"),
      leftovers(database, R"(SELECT * FROM "Invoice" WHERE "ID" )" + InPool(type)),
      dropLines(database, R"(DELETE FROM "InvoiceItems" WHERE "InvoiceID" )" + InPool(type)),
      leftPayments(database, R"(SELECT * FROM "InvoicePayments" WHERE "InvoiceID" )" + InPool(type)),
      invoiceList(database, R"(SELECT * FROM "Invoice" WHERE "TourID" = $1 ORDER BY "InvoiceDate" NULLS FIRST, "ID")"),
      paymentList(database, R"(SELECT * FROM "InvoicePayments" WHERE "InvoiceID" IN (SELECT "ID" FROM "Invoice"
                               WHERE "TourID" = $1) ORDER BY "PaymentDate" NULLS FIRST, "InvoiceID" NULLS FIRST)")
{
}

void BarePass::ReadAll(BareStatement& statement, std::int64_t tour)
{
    statement.Bind(1, tour);
    while (statement.Step())
        statement.Row();
    statement.Reset();
}

std::int64_t BarePass::WriteHead(std::int64_t tour, std::int64_t customer, const PlannedInvoice& invoice,
                                 const std::string& now)
{
    nextReusable.Bind(1, tour);
    const bool reused = nextReusable.Step();
    const std::int64_t reusedID = reused ? nextReusable.Whole(0) : 0;
    const BareRow poolRow = reused ? nextReusable.Row() : BareRow{};
    nextReusable.Reset();
    if (reused) {
        takeReusable.BindRow({poolRow.back()});
        takeReusable.RunOnce();
        head.Bind(1, reusedID);
        head.Step();
        head.Row();
        head.Reset();
    } else {
        if (anyHead.Step())
            anyHead.Row();
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
    if (!reused)
        return write.RunForKey();
    write.RunOnce();
    return reusedID;
}

void BarePass::WriteLine(std::int64_t invoiceID, int row, std::int64_t tour, const InvoiceLine& planned)
{
    line.Bind(1, invoiceID);
    line.Bind(2, std::int64_t{row});
    line.Bind(3, tour);
    line.Bind(4, planned.qty1);
    line.Bind(5, planned.qty2);
    line.Bind(6, std::string_view(planned.uom));
    line.Bind(7, std::string_view(planned.description));
    line.Bind(8, Round(planned.rate, 2));
    line.Bind(9, Round(planned.Extended(), 2));
    line.Bind(10, static_cast<std::int64_t>(std::stoll(planned.busID)));
    line.Bind(11, std::string_view(planned.other));
    line.Bind(12, std::string_view(planned.busType));
    line.Bind(13, std::string_view(planned.acct));
    line.Bind(14, std::int64_t{planned.orderField});
    line.Bind(15, std::int64_t{planned.taxable});
    if (planned.busType.empty()) {
        line.BindNull(16);
        line.BindNull(17);
    } else {
        line.Bind(16, std::string_view(ToLongIsoText(std::max(planned.periodStart, planned.itemStart))));
        line.Bind(17, std::string_view(ToLongIsoText(std::min(planned.periodEnd, planned.itemEnd))));
    }
    line.RunOnce();
}

void BarePass::Run(std::int64_t tour, std::int64_t customer, const std::vector<std::string>& busIDs,
                   const std::vector<PlannedInvoice>& invoices, const std::string& now)
{
    for (BareStatement* statement : {&clearPool, &fillPool, &clearLines}) {
        statement->Bind(1, tour);
        statement->RunOnce();
    }
    for (const std::string& busID : busIDs) {
        busType.Bind(1, static_cast<std::int64_t>(std::stoll(busID)));
        busType.Step();
        busType.Text(0);
        busType.Reset();
    }
    for (const PlannedInvoice& invoice : invoices) {
        const std::int64_t id = WriteHead(tour, customer, invoice, now);
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
