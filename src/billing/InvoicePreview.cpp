#include "billing/InvoicePreview.h"

#include "values/Numbers.h"

#include <stdexcept>

namespace rovanta {

const char* NameOf(PassEffect effect)
{
    switch (effect) {
    case PassEffect::Make:
        return "Make";
    case PassEffect::Change:
        return "Change";
    case PassEffect::Keep:
        return "Keep";
    case PassEffect::Remove:
        return "Remove";
    }
    throw std::logic_error("NameOf: no such effect of a pass");
}

/// Totals are compared as they are stored, by the cent.
static bool SameCents(double a, double b)
{
    return Round(a, 2) == Round(b, 2);
}

static PreviewRow RowOf(const PlannedInvoice& invoice)
{
    PreviewRow row;
    row.periodStart = invoice.periodStart;
    row.periodEnd = invoice.periodEnd;
    row.due = invoice.due;
    row.newTotal = invoice.totals.total;
    return row;
}

std::vector<PreviewRow> PreviewPass(const std::vector<PlannedInvoice>& planned,
                                    const std::vector<FormerInvoice>& former)
{
    std::vector<PreviewRow> rows;
    for (std::size_t i = 0; i < planned.size(); ++i) {
        PreviewRow row = RowOf(planned[i]);
        if (i < former.size()) {
            const bool same = SameCents(former[i].total, planned[i].totals.total) && former[i].due == planned[i].due;
            row.effect = same ? PassEffect::Keep : PassEffect::Change;
            row.number = former[i].number;
            row.oldTotal = former[i].total;
        }
        rows.push_back(std::move(row));
    }
    for (std::size_t i = planned.size(); i < former.size(); ++i) {
        PreviewRow row;
        row.effect = PassEffect::Remove;
        row.number = former[i].number;
        row.due = former[i].due;
        row.oldTotal = former[i].total;
        rows.push_back(std::move(row));
    }
    return rows;
}

}
