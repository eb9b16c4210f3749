#pragma once

#include "bench/BareDatabase.h"
#include "billing/InvoicePlan.h"

namespace rovanta::bench {

/// What a pass does at the database, statement by statement, in plain C API calls. The invoices are worked out
/// beforehand: the database's part alone is measured here.
class BarePass {
public:
    /// `type` is the word of the pass: "Daily" or "Monthly".
    explicit BarePass(BareDatabase& database, const std::string& type = "Daily");

    void Run(std::int64_t tour, std::int64_t customer, const std::vector<std::string>& busIDs,
             const std::vector<PlannedInvoice>& invoices, const std::string& now);

private:
    std::int64_t WriteHead(std::int64_t tour, std::int64_t customer, const PlannedInvoice& invoice,
                           const std::string& now);
    void WriteLine(std::int64_t invoiceID, int row, std::int64_t tour, const InvoiceLine& line);
    void ReadAll(BareStatement& statement, std::int64_t tour);

    BareStatement busType, clearPool, fillPool, clearLines, nextReusable, takeReusable;
    BareStatement head, update, anyHead, insert, line;
    BareStatement leftovers, dropLines, leftPayments, invoiceList, paymentList;
};

}
