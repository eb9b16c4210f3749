#include "billing/MonthlyInvoices.h"

#include "tests/billing/Invoices_fixture.h"
#include "values/Numbers.h"

#include <doctest/doctest.h>

#include <iterator>

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

TEST_CASE("Each monthly line bears its own words, account, order and taxable flag")
{
    BilledItem item = MonthlyItem("3/1/2026", "3/31/2026");
    SetRate(item, BilledCharge::DOT, 100, 0);
    SetRate(item, BilledCharge::Satellite, 200, 0);
    SetRate(item, BilledCharge::Internet, 300, 0);
    struct Case {
        const char* other;
        const char* acct;
        int orderField;
        Taxable::Index taxable;
        double extended;
    };
    const Case cases[] = {{"Silver Arrow", "Truck and Trailer Lease", 1, Taxable::Bus, 30000},
                          {"Silver Arrow - DOT/IFTA Fees", "DOT Fee", 5, Taxable::DOT, 100},
                          {"Silver Arrow - Satellite/Internet", "Satellite", 6, Taxable::Satellite, 200},
                          {"Silver Arrow - Driver Services", "Driver Services", 7, Taxable::Internet, 300}};
    for (std::size_t flag = 0; flag < Taxable::Count; ++flag) {
        TaxRules rules;
        rules.taxRate = 10;
        rules.taxable[flag] = true;
        const auto invoices = PlanMonthlyInvoices(Months("3/1/2026", "3/31/2026", "3/1/2026"), {item}, rules);
        REQUIRE(invoices.size() == 1);
        REQUIRE(invoices[0].lines.size() == std::size(cases));
        for (std::size_t i = 0; i < std::size(cases); ++i) {
            const InvoiceLine& line = invoices[0].lines[i];
            CHECK(line.other == cases[i].other);
            CHECK(line.acct == cases[i].acct);
            CHECK(line.orderField == cases[i].orderField);
            CHECK(line.Extended() == cases[i].extended);
            CHECK(line.taxable == (cases[i].taxable == static_cast<Taxable::Index>(flag)));
            CHECK(line.busType.empty() == (i != 0));
        }
    }
}

TEST_CASE("The months of a span are the calendar months that it touches")
{
    CHECK(MonthlyPeriods(Months("2/10/2026", "4/5/2026", "2/10/2026")) == 3);
    CHECK(MonthlyPeriods(Months("1/31/2026", "2/1/2026", "1/31/2026")) == 2);
    CHECK(MonthlyPeriods(Months("3/1/2026", "3/31/2026", "3/1/2026")) == 1);
    CHECK(MonthlyPeriods(Months("12/1/2025", "1/31/2026", "12/1/2025")) == 2);
    CHECK(PlanMonthlyInvoices(Months("4/1/2026", "2/28/2026", "4/1/2026"), {MonthlyItem("2/1/2026", "4/30/2026")}, {})
              .empty());
}

TEST_CASE("A rounded quantity may differ from a fee of the same rate in its last cents")
{
    BilledItem item = MonthlyItem("2/10/2026", "2/28/2026");
    SetRate(item, BilledCharge::DOT, 30000, 0);
    const auto invoices = PlanMonthlyInvoices(Months("2/10/2026", "2/28/2026", "2/10/2026"), {item}, {});
    CHECK(Round(invoices[0].lines[0].Extended(), 2) == 20357.1);
    CHECK(Round(invoices[0].lines[1].Extended(), 2) == 20357.14);
}
