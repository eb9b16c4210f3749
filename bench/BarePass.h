#pragma once

#include "bench/BareTour.h"
#include "billing/InvoicePlan.h"

namespace rovanta::bench {

/// What a pass does at the database, statement by statement, in plain C API calls. The invoices are worked out
/// beforehand: the database's part alone is measured here.
class BarePass {
public:
    /// `type` is the word of the pass: "Daily" or "Monthly".
    explicit BarePass(BareDatabase& database, const std::string& type = "Daily");

    void Run(sqlite3_int64 tour, sqlite3_int64 customer, const std::vector<std::string>& busIDs,
             const std::vector<PlannedInvoice>& invoices, const std::string& now);

private:
    sqlite3_int64 WriteHead(sqlite3_int64 tour, sqlite3_int64 customer, const PlannedInvoice& invoice,
                            const std::string& now);
    void WriteLine(sqlite3_int64 invoiceID, int row, sqlite3_int64 tour, const InvoiceLine& line);
    void ReadAll(BareStatement& statement, sqlite3_int64 tour);

    BareStatement busType, clearPool, fillPool, clearLines, nextReusable, takeReusable;
    BareStatement head, update, anyHead, insert, line;
    BareStatement leftovers, dropLines, leftPayments, invoiceList, paymentList;
};

}
