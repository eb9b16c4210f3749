#include "billing/InvoicePreview.h"

#include <doctest/doctest.h>

using namespace rovanta;

static PlannedInvoice Planned(const char* due, double total)
{
    PlannedInvoice invoice;
    invoice.due = ToDate(due);
    invoice.periodStart = ToDate(due);
    invoice.periodEnd = AddDays(invoice.periodStart, 6);
    invoice.totals.total = total;
    return invoice;
}

TEST_CASE("A first pass makes every invoice and knows no number yet")
{
    const auto rows = PreviewPass({Planned("3/2/2026", 100), Planned("3/9/2026", 50.5)}, {});
    REQUIRE(rows.size() == 2);
    CHECK(rows[1].effect == PassEffect::Make);
    CHECK(rows[1].number.empty());
    CHECK_FALSE(rows[1].oldTotal);
    CHECK(rows[1].newTotal == 50.5);
    CHECK(ToText(*rows[1].periodEnd) == "3/15/2026");
}

TEST_CASE("A second pass takes the former numbers in their order, lowest first")
{
    const std::vector<FormerInvoice> former = {
        {"11", ToDate("3/2/2026"), 100}, {"12", ToDate("3/9/2026"), 100}, {"15", ToDate("3/16/2026"), 100}};
    const auto rows = PreviewPass({Planned("3/2/2026", 100.001), Planned("3/9/2026", 100.01)}, former);
    REQUIRE(rows.size() == 3);
    CHECK(rows[0].effect == PassEffect::Keep);
    CHECK(rows[0].number == "11");
    CHECK(rows[1].effect == PassEffect::Change);
    CHECK(rows[1].oldTotal == 100);
    CHECK(rows[2].effect == PassEffect::Remove);
    CHECK(rows[2].number == "15");
    CHECK_FALSE(rows[2].newTotal);
    CHECK_FALSE(rows[2].periodStart);
}

TEST_CASE("Another due date is a change though the total stays")
{
    const auto rows = PreviewPass({Planned("3/2/2026", 100)}, {{"11", ToDate("3/3/2026"), 100}});
    CHECK(rows[0].effect == PassEffect::Change);
}

TEST_CASE("A pass that makes nothing removes all, and one without former invoices nothing")
{
    CHECK(PreviewPass({}, {{"11", ToDate("3/3/2026"), 100}})[0].effect == PassEffect::Remove);
    CHECK(PreviewPass({}, {}).empty());
}
