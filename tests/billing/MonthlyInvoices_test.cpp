#include "billing/MonthlyInvoices.h"

#include "tests/billing/Invoices_fixture.h"

#include <doctest/doctest.h>

using namespace rovanta;

static MonthlyBilling Months(const char* first, const char* last, const char* due)
{
    return {ToDate(first), ToDate(last), ToDate(due)};
}

static BilledItem MonthlyItem(const char* start, const char* end)
{
    BilledItem item = ItemOfTour("Silver Arrow", start, end);
    item.rateType = "Per Month";
    SetRate(item, BilledCharge::Bus, 30000, 0);
    return item;
}

TEST_CASE("Each calendar month that the span touches bills its share of the month")
{
    const auto invoices =
        PlanMonthlyInvoices(Months("2/10/2026", "4/5/2026", "2/10/2026"), {MonthlyItem("2/10/2026", "4/5/2026")}, {});
    REQUIRE(invoices.size() == 3);
    CHECK(invoices[0].lines[0].qty2 == 0.67857); // 19/28, five places
    CHECK(invoices[1].lines[0].qty2 == 1);
    CHECK(invoices[2].lines[0].qty2 == 0.16667);
    CHECK(invoices[0].lines[0].description == "Silver Arrow (2/10/2026 - 2/28/2026)");
    CHECK(invoices[1].lines[0].description == "Silver Arrow (3/1/2026 - 3/31/2026)");
    CHECK(invoices[2].lines[0].description == "Silver Arrow (4/1/2026 - 4/5/2026)");
    CHECK(ToText(invoices[2].due) == "4/10/2026");
    const auto leap =
        PlanMonthlyInvoices(Months("2/10/2024", "4/5/2024", "2/10/2024"), {MonthlyItem("2/10/2024", "4/5/2024")}, {});
    CHECK(leap[0].lines[0].qty2 == 0.68966); // 20/29
}

TEST_CASE("A first due date on the 31st falls back in short months and stays there")
{
    const auto invoices =
        PlanMonthlyInvoices(Months("1/31/2026", "4/30/2026", "1/31/2026"), {MonthlyItem("1/31/2026", "4/30/2026")}, {});
    REQUIRE(invoices.size() == 4);
    CHECK(ToText(invoices[0].due) == "1/31/2026");
    CHECK(ToText(invoices[1].due) == "2/28/2026");
    CHECK(ToText(invoices[2].due) == "3/28/2026");
}

TEST_CASE("The fees are billed beside the bus, without rounded quantities and under their own words")
{
    BilledItem item = MonthlyItem("2/10/2026", "2/28/2026");
    SetRate(item, BilledCharge::DOT, 100, 0);
    SetRate(item, BilledCharge::Satellite, 200, 0);
    SetRate(item, BilledCharge::Internet, 300, 0);
    const auto invoices = PlanMonthlyInvoices(Months("2/10/2026", "2/28/2026", "2/10/2026"), {item}, {});
    REQUIRE(invoices.size() == 1);
    const auto& lines = invoices[0].lines;
    REQUIRE(lines.size() == 4);
    CHECK(lines[1].qty2 == 19.0 / 28);
    CHECK(lines[1].description == "DOT/IFTA Fee (Silver Arrow)");
    CHECK(lines[2].description == "Satellite/Internet (Silver Arrow)");
    CHECK(lines[3].description == "Driver Services (Silver Arrow)");
    CHECK(lines[3].acct == "Driver Services");
    CHECK(lines[3].busType.empty());
    CHECK(lines[0].uom == "Months");
}

TEST_CASE("Daily items are skipped whole, a month without days gives no line, and without lines no invoice arises")
{
    BilledItem daily = MonthlyItem("2/1/2026", "2/28/2026");
    daily.rateType = "Per Day";
    CHECK(PlanMonthlyInvoices(Months("2/1/2026", "2/28/2026", "2/1/2026"), {daily}, {}).empty());
    const auto invoices =
        PlanMonthlyInvoices(Months("1/1/2026", "3/31/2026", "1/1/2026"),
                            {MonthlyItem("1/5/2026", "1/9/2026"), MonthlyItem("3/1/2026", "3/2/2026")}, {});
    REQUIRE(invoices.size() == 2);
    CHECK(ToText(invoices[1].due) == "3/1/2026");
}

TEST_CASE("Travel days are not added to a month")
{
    BilledItem item = MonthlyItem("2/10/2026", "2/28/2026");
    item.travelIn = 5;
    const auto invoices = PlanMonthlyInvoices(Months("2/5/2026", "2/28/2026", "2/5/2026"), {item}, {});
    CHECK(invoices[0].lines[0].qty2 == 0.67857);
}

TEST_CASE("Nobody but the contract's payer is billed by the month")
{
    BilledItem item = MonthlyItem("2/10/2026", "2/28/2026");
    item[BilledCharge::Bus].byContract = false;
    CHECK(PlanMonthlyInvoices(Months("2/10/2026", "2/28/2026", "2/10/2026"), {item}, {}).empty());
}
