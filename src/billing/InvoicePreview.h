#pragma once

#include "billing/InvoicePlan.h"

#include <optional>
#include <string>
#include <vector>

namespace rovanta {

/// An auto-invoice of an earlier pass, as it stands in the table.
struct FormerInvoice {
    std::string number;
    DateTime due;
    double total = 0;
};

/// What a pass would do with one invoice.
enum class PassEffect { Make, Change, Keep, Remove };

const char* NameOf(PassEffect effect);

struct PreviewRow {
    PassEffect effect = PassEffect::Make;
    std::string number;                  ///< empty for an invoice that has none yet
    std::optional<DateTime> periodStart; ///< none for an invoice that goes
    std::optional<DateTime> periodEnd;
    DateTime due;
    std::optional<double> oldTotal;
    std::optional<double> newTotal;
};

/// What a pass over `planned` would do when `former`, in the order of their numbers, stand in its pool: it uses their
/// numbers again, lowest first, makes what is missing and removes what is left. An invoice of the same total and due
/// date counts as kept.
std::vector<PreviewRow> PreviewPass(const std::vector<PlannedInvoice>& planned,
                                    const std::vector<FormerInvoice>& former);

}
