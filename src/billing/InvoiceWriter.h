#pragma once

#include "billing/InvoicePlan.h"

#include "store/Statement.h"

#include <optional>
#include <string>

namespace rovanta {

class App;

/// Whose invoices a pass writes, and under which type word: "Daily" or "Monthly".
struct InvoicePass {
    std::string tourID;
    std::string customerID;
    std::string type;
};

/// Carries the invoices of a pass into the tables: the former auto-invoices of the tour become a pool whose numbers are
/// used again, lowest first; what the pass no longer needs is removed and queued for the accounting file. Nothing but
/// auto-invoices of this type is touched. No transaction guards it: a rerun repairs a broken pass.
class InvoiceWriter {
public:
    InvoiceWriter(App& app, InvoicePass pass) : app(app), pass(std::move(pass)) {}

    /// Fills the pool `tmpInvoiceList` and deletes the lines of the former auto-invoices.
    void SetUpPool();
    /// Writes one invoice with its lines under a number of the pool or a new one.
    void Write(const PlannedInvoice& invoice);
    /// Deletes what is left in the pool, tells the person, and queues what the accounting file knows.
    void RemoveLeftoverInvoices();

private:
    /// The lowest number in the pool, taken out of it.
    std::optional<std::string> NextReusableInvoice();
    std::string WriteHead(const PlannedInvoice& invoice);
    void WriteLine(const std::string& invoiceID, int row, const InvoiceLine& line);
    void RemoveInvoices();
    void RemovePayments();
    /// The condition that names the invoices still in the pool.
    Statement InPool() const;

    App& app;
    InvoicePass pass;
};

}
