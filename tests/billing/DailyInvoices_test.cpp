#include "billing/DailyInvoices.h"

#include "tests/billing/Invoices_fixture.h"
#include "values/Errors.h"

#include <doctest/doctest.h>

#include <set>

using namespace rovanta;

static DailyBilling Weekly(const char* firstBill, const char* lastDay, double days = 7)
{
    DailyBilling billing;
    billing.firstBillDate = ToDate(firstBill);
    billing.firstDueDate = DateAdd("d", -days, billing.firstBillDate);
    billing.lastDay = ToDate(lastDay);
    billing.daysPerBill = days;
    return billing;
}

/// Ten days on the road, March 2 to 11, at 900 a day.
static BilledItem TenDays()
{
    BilledItem item = ItemOfTour("Silver Arrow", "3/2/2026", "3/11/2026");
    item.billedDays = 10;
    SetRate(item, BilledCharge::Bus, 900, 9000);
    return item;
}

TEST_CASE("Ten days billed by seven make two invoices of seven and three days")
{
    BilledItem item = TenDays();
    SetRate(item, BilledCharge::Fuel, 1, 600);
    const auto invoices = PlanDailyInvoices(Weekly("3/2/2026", "3/11/2026"), {item}, {});
    REQUIRE(invoices.size() == 2);
    CHECK(ToText(invoices[0].due) == "2/23/2026");
    CHECK(ToText(invoices[1].due) == "3/2/2026");
    REQUIRE(invoices[0].lines.size() == 2);
    CHECK(invoices[0].lines[0].qty2 == 7);
    CHECK(invoices[0].lines[0].uom == "Days");
    CHECK(invoices[0].lines[0].description == "Silver Arrow (3/2/2026 - 3/8/2026)");
    CHECK(invoices[0].lines[0].acct == "Truck and Trailer Lease");
    CHECK(invoices[0].lines[0].busType == "Bus");
    CHECK(invoices[1].lines[0].qty2 == 3);
    CHECK(invoices[1].lines[0].description == "Silver Arrow (3/9/2026 - 3/11/2026)");
    CHECK(invoices[0].lines[1].description == "1/2 of Fuel");
    CHECK(invoices[1].lines[1].description == "2/2 of Fuel");
    CHECK(invoices[1].lines[1].rate == 300);
    CHECK(invoices[1].lines[1].acct == "Fuel Surcharge.");
    CHECK(invoices[1].lines[1].busType.empty());
    CHECK(invoices[0].totals.subTotal == 6600);
    CHECK(invoices[1].totals.subTotal == 3000);
}

TEST_CASE("The first billed day is the start less the travel days in")
{
    BilledItem item = TenDays();
    item.travelIn = 2;
    item.billedDays = 12;
    SetRate(item, BilledCharge::Bus, 900, 10800);
    SetRate(item, BilledCharge::Driver, 250, 3000);
    item.driverName = "Lee Marsh";
    const auto invoices = PlanDailyInvoices(Weekly("2/28/2026", "3/11/2026"), {item}, {});
    REQUIRE(invoices.size() == 2);
    CHECK(invoices[0].lines[0].description == "Silver Arrow (2/28/2026 - 3/6/2026)");
    CHECK(invoices[1].lines[0].qty2 == 5);
    CHECK(invoices[0].lines[1].description == "Lee Marsh (2/28/2026 - 3/6/2026)");
    CHECK(invoices[0].lines[1].other == "Silver Arrow - Lee Marsh");
    CHECK(invoices[0].lines[1].acct == "Hotel Buyout");
    CHECK(invoices[0].lines[1].orderField == 4);
}

TEST_CASE("The bus line's days rest on its total, the drivers' on the billed days")
{
    BilledItem item = TenDays();
    SetRate(item, BilledCharge::Bus, 900, 7200); // eight days by the total
    SetRate(item, BilledCharge::Driver, 100, 1000);
    const auto invoices = PlanDailyInvoices(Weekly("3/2/2026", "3/11/2026"), {item}, {});
    REQUIRE(invoices.size() == 2);
    CHECK(invoices[1].lines[0].qty2 == 1);
    CHECK(invoices[1].lines[0].description == "Silver Arrow (3/9/2026 - 3/9/2026)");
    CHECK(invoices[1].lines[1].qty2 == 3);
}

TEST_CASE("A quotient that misses a whole day by a hair still counts it")
{
    BilledItem item = TenDays();
    SetRate(item, BilledCharge::Bus, 100.18, 1001.8); // 9.999999999999998 days
    const auto invoices = PlanDailyInvoices(Weekly("3/2/2026", "3/11/2026"), {item}, {});
    CHECK(invoices.back().lines[0].qty2 == 3);
}

TEST_CASE("Only what the contract pays is invoiced, and nothing with a rate of zero")
{
    BilledItem item = TenDays();
    SetRate(item, BilledCharge::Driver, 250, 2500);
    item[BilledCharge::Driver].byContract = false;
    SetRate(item, BilledCharge::Fuel, 1, 600);
    item[BilledCharge::Fuel].byContract = false;
    const auto invoices = PlanDailyInvoices(Weekly("3/2/2026", "3/11/2026"), {item}, {});
    REQUIRE(invoices.size() == 2);
    CHECK(invoices[0].lines.size() == 1);

    SetRate(item, BilledCharge::Bus, 0, 0);
    CHECK(PlanDailyInvoices(Weekly("3/2/2026", "3/11/2026"), {item}, {}).empty());
}

TEST_CASE("A monthly item with a bus rate is billed by the day too")
{
    BilledItem item = TenDays();
    item.rateType = "Per Month";
    CHECK(PlanDailyInvoices(Weekly("3/2/2026", "3/11/2026"), {item}, {}).size() == 2);
}

TEST_CASE("The monthly fees are never billed by this pass")
{
    BilledItem item = TenDays();
    SetRate(item, BilledCharge::Bus, 0, 0);
    for (const BilledCharge charge : {BilledCharge::DOT, BilledCharge::Satellite, BilledCharge::Internet})
        SetRate(item, charge, 10, 100);
    CHECK(PlanDailyInvoices(Weekly("3/2/2026", "3/11/2026"), {item}, {}).empty());
}

static BilledItem WithLumps()
{
    BilledItem item = TenDays();
    item[BilledCharge::Misc].description = "Night drives";
    item[BilledCharge::Carpet].description = "Flights";
    item[BilledCharge::PayrollFee].description = "Wrap";
    item[BilledCharge::Admin].description = "Second driver";
    SetRate(item, BilledCharge::HotelBuyOut, 120, 240);
    SetRate(item, BilledCharge::Carpet, 0, 100);
    SetRate(item, BilledCharge::Permit, 0, 85.25);
    SetRate(item, BilledCharge::Misc, 0, 50);
    SetRate(item, BilledCharge::PayrollFee, 0, 40);
    SetRate(item, BilledCharge::Admin, 0, 30);
    return item;
}

TEST_CASE("Split equally, each bill bears its share of the other charges with the fraction in its text")
{
    const auto invoices = PlanDailyInvoices(Weekly("3/2/2026", "3/11/2026"), {WithLumps()}, {});
    REQUIRE(invoices.size() == 2);
    const auto& lines = invoices[1].lines;
    REQUIRE(lines.size() == 7);
    CHECK(lines[1].description == "2/2 of Hotel Buy Out");
    CHECK(lines[2].description == "2/2 of Other - (Flights) (Silver Arrow)");
    CHECK(lines[3].description == "2/2 of Permits/Tolls/Parking");
    CHECK(lines[3].rate == 42.625);
    CHECK(lines[3].acct == "Tolls");
    CHECK(lines[4].description == "2/2 of Overdrives - (Night drives) (Silver Arrow)");
    CHECK(lines[4].other == "Silver Arrow - Gratuities");
    CHECK(lines[5].description == "2/2 of Other - (Wrap) (Silver Arrow)");
    CHECK(lines[6].description == "2/2 of Other - (Second driver) (Silver Arrow)");
    CHECK(lines[6].orderField == 21);
}

TEST_CASE("On a final bill, the other charges stand whole on the last invoice alone")
{
    DailyBilling billing = Weekly("3/2/2026", "3/11/2026");
    billing.otherCharges = OtherCharges::OnFinalBill;
    const auto invoices = PlanDailyInvoices(billing, {WithLumps()}, {});
    REQUIRE(invoices.size() == 2);
    CHECK(invoices[0].lines.size() == 1);
    REQUIRE(invoices[1].lines.size() == 7);
    CHECK(invoices[1].lines[1].description == "Hotel Buy Out");
    CHECK(invoices[1].lines[3].description == "Permits/Tolls/Parking");
    CHECK(invoices[1].lines[3].rate == 85.25);
    CHECK(invoices[1].lines[6].description == "Other - (Second driver) (Silver Arrow)");
}

TEST_CASE("The number of periods is the whole days over the days per bill, plus one")
{
    CHECK(DailyPeriods(Weekly("3/2/2026", "3/8/2026")) == 1);
    CHECK(DailyPeriods(Weekly("3/2/2026", "3/9/2026")) == 2); // the last day on a period's first day
    CHECK(DailyPeriods(Weekly("3/2/2026", "3/2/2026")) == 1);
    CHECK(DailyPeriods(Weekly("3/2/2026", "3/1/2026")) == 1);
    CHECK(DailyPeriods(Weekly("3/2/2026", "2/20/2026")) == 0);
    CHECK(DailyPeriods(Weekly("3/2/2026", "3/11/2026", 1)) == 10);
    CHECK_THROWS_WITH(DailyPeriods(Weekly("3/2/2026", "3/11/2026", 0)), "Division by zero");
    CHECK_THROWS_WITH(DailyPeriods(Weekly("1/1/1900", "1/1/2020", 1)), "Overflow");
}

TEST_CASE("The last day on a period's first day makes one more invoice of one day")
{
    BilledItem item = ItemOfTour("Silver Arrow", "3/2/2026", "3/9/2026");
    SetRate(item, BilledCharge::Bus, 900, 7200);
    const auto invoices = PlanDailyInvoices(Weekly("3/2/2026", "3/9/2026"), {item}, {});
    REQUIRE(invoices.size() == 2);
    CHECK(invoices[1].lines[0].qty2 == 1);
}

TEST_CASE("Days before the first bill date are never billed")
{
    const auto invoices = PlanDailyInvoices(Weekly("3/5/2026", "3/11/2026"), {TenDays()}, {});
    REQUIRE(invoices.size() == 1);
    CHECK(invoices[0].lines[0].qty2 == 7);
    CHECK(invoices[0].lines[0].description == "Silver Arrow (3/5/2026 - 3/11/2026)");
}

TEST_CASE("A period in which no line arises makes no invoice")
{
    BilledItem early = ItemOfTour("Silver Arrow", "3/2/2026", "3/4/2026");
    SetRate(early, BilledCharge::Bus, 900, 2700);
    BilledItem late = ItemOfTour("Blue Comet", "3/23/2026", "3/24/2026");
    SetRate(late, BilledCharge::Bus, 800, 1600);
    const auto invoices = PlanDailyInvoices(Weekly("3/2/2026", "3/24/2026"), {early, late}, {});
    REQUIRE(invoices.size() == 2);
    CHECK(ToText(invoices[1].due) == "3/16/2026");
}

TEST_CASE("A leap day is a day like any other")
{
    BilledItem item = ItemOfTour("Silver Arrow", "2/26/2024", "3/3/2024");
    SetRate(item, BilledCharge::Bus, 900, 6300);
    const auto invoices = PlanDailyInvoices(Weekly("2/26/2024", "3/3/2024"), {item}, {});
    REQUIRE(invoices.size() == 1);
    CHECK(invoices[0].lines[0].qty2 == 7);
}

TEST_CASE("A negative span bills its shares but no days")
{
    BilledItem item = ItemOfTour("Silver Arrow", "3/11/2026", "3/2/2026");
    item.billedDays = -8;
    SetRate(item, BilledCharge::Bus, 900, -7200);
    SetRate(item, BilledCharge::Fuel, 1, 600);
    const auto invoices = PlanDailyInvoices(Weekly("3/11/2026", "3/2/2026"), {item}, {});
    CHECK(invoices.empty()); // not one period
    const auto one = PlanDailyInvoices(Weekly("3/11/2026", "3/10/2026"), {item}, {});
    REQUIRE(one.size() == 1);
    CHECK(one[0].lines.size() == 1);
    CHECK(one[0].lines[0].description == "1/1 of Fuel");
}

TEST_CASE("Tax and subtotal round per line, half to even, before they are added")
{
    InvoiceLine line;
    line.rate = 10.005;
    line.taxable = true;
    const InvoiceTotals totals = TotalsOf({line, line}, 10);
    CHECK(totals.tax == 2.00);
    CHECK(totals.subTotal == doctest::Approx(20.00).epsilon(0.001));
    line.rate = 0.125;
    CHECK(TotalsOf({line}, 100).tax == 0.12);
    line.rate = 0.375;
    CHECK(TotalsOf({line}, 100).subTotal == 0.38);
    line.taxable = false;
    CHECK(TotalsOf({line}, 100).tax == 0);
    CHECK(TotalsOf({}, 100).total == 0);
}

TEST_CASE("Each charge asks its own taxable flag")
{
    BilledItem item = WithLumps();
    item.driverName = "Lee Marsh";
    item.addDriverName = "Kim Doyle";
    SetRate(item, BilledCharge::Driver, 250, 2500);
    SetRate(item, BilledCharge::AddDriver, 200, 2000);
    SetRate(item, BilledCharge::Fuel, 1, 600);
    SetRate(item, BilledCharge::Engine, 1, 60);
    const std::vector<Taxable::Index> flags = {Taxable::Bus,    Taxable::Driver,      Taxable::Driver, Taxable::Fuel,
                                               Taxable::Engine, Taxable::HotelBuyOut, Taxable::Carpet, Taxable::Permit,
                                               Taxable::Misc,   Taxable::PayrollFee,  Taxable::Admin};
    for (std::size_t flag = 0; flag < Taxable::Count; ++flag) {
        TaxRules rules;
        rules.taxRate = 9.25;
        rules.taxable[flag] = true;
        const auto invoices = PlanDailyInvoices(Weekly("3/2/2026", "3/11/2026"), {item}, rules);
        REQUIRE(invoices.size() == 2);
        REQUIRE(invoices[0].lines.size() == flags.size());
        for (std::size_t i = 0; i < flags.size(); ++i)
            CHECK(invoices[0].lines[i].taxable == (flags[i] == static_cast<Taxable::Index>(flag)));
    }
}

TEST_CASE("Each line bears its own words, account and order, item after item")
{
    BilledItem item = WithLumps();
    item.driverName = "Lee Marsh";
    item.addDriverName = "Kim Doyle";
    SetRate(item, BilledCharge::Driver, 250, 2500);
    SetRate(item, BilledCharge::AddDriver, 200, 2000);
    SetRate(item, BilledCharge::Fuel, 1, 600);
    SetRate(item, BilledCharge::Engine, 1, 60);
    BilledItem second = TenDays();
    second.busName = "Blue Comet";
    const auto invoices = PlanDailyInvoices(Weekly("3/2/2026", "3/8/2026"), {item, second}, {});
    REQUIRE(invoices.size() == 1);
    struct Case {
        const char* description;
        const char* other;
        const char* acct;
        int orderField;
        double extended;
    };
    const std::vector<Case> cases = {
        {"Silver Arrow (3/2/2026 - 3/8/2026)", "Silver Arrow", "Truck and Trailer Lease", 1, 6300},
        {"Lee Marsh (3/2/2026 - 3/8/2026)", "Silver Arrow - Lee Marsh", "Hotel Buyout", 4, 1750},
        {"Kim Doyle (3/2/2026 - 3/8/2026)", "Silver Arrow - Kim Doyle", "Hotel Buyout", 5, 1400},
        {"1/1 of Fuel", "Silver Arrow - Fuel", "Fuel Surcharge.", 14, 600},
        {"1/1 of Engine Service", "Silver Arrow - Fuel Surcharge", "Fuel Surcharge.", 15, 60},
        {"1/1 of Hotel Buy Out", "Silver Arrow - Hotel Buy Out", "Hotel Buyout", 9, 240},
        {"1/1 of Other - (Flights) (Silver Arrow)", "Silver Arrow - Other", "Other", 16, 100},
        {"1/1 of Permits/Tolls/Parking", "Silver Arrow - Permits/Tolls/Parking", "Tolls", 18, 85.25},
        {"1/1 of Overdrives - (Night drives) (Silver Arrow)", "Silver Arrow - Gratuities", "Gratuities", 19, 50},
        {"1/1 of Other - (Wrap) (Silver Arrow)", "Silver Arrow - Other", "Other", 20, 40},
        {"1/1 of Other - (Second driver) (Silver Arrow)", "Silver Arrow - Other", "Other", 21, 30},
        {"Blue Comet (3/2/2026 - 3/8/2026)", "Blue Comet", "Truck and Trailer Lease", 1, 6300},
    };
    const auto& lines = invoices[0].lines;
    REQUIRE(lines.size() == cases.size());
    for (std::size_t i = 0; i < cases.size(); ++i) {
        CHECK(lines[i].description == cases[i].description);
        CHECK(lines[i].other == cases[i].other);
        CHECK(lines[i].acct == cases[i].acct);
        CHECK(lines[i].orderField == cases[i].orderField);
        CHECK(lines[i].Extended() == cases[i].extended);
        CHECK(lines[i].qty1 == 1);
        CHECK(lines[i].uom == (i < 3 || i == 11 ? "Days" : "Each"));
        CHECK(lines[i].busType.empty() == (i != 0 && i != 11));
    }
}

TEST_CASE("Bills of another length than a week fall due by that length")
{
    const auto invoices = PlanDailyInvoices(Weekly("3/2/2026", "3/11/2026", 4), {TenDays()}, {});
    REQUIRE(invoices.size() == 3);
    CHECK(ToText(invoices[0].due) == "2/26/2026");
    CHECK(ToText(invoices[2].due) == "3/6/2026");
    CHECK(ToText(invoices[2].periodEnd) == "3/13/2026");
    CHECK(invoices[2].lines[0].qty2 == 2);
}

TEST_CASE("Overlapping days count both ends and are zero where the spans do not touch")
{
    const auto days = [](const char* ps, const char* pe, const char* is, const char* ie) {
        return OverlapDays(ToDate(ps), ToDate(pe), ToDate(is), ToDate(ie));
    };
    CHECK(days("3/1/2026", "3/7/2026", "3/1/2026", "3/7/2026") == 7);
    CHECK(days("3/1/2026", "3/7/2026", "3/7/2026", "3/9/2026") == 1);
    CHECK(days("3/1/2026", "3/7/2026", "3/8/2026", "3/9/2026") == 0);
    CHECK(days("3/1/2026", "3/7/2026", "2/1/2026", "2/28/2026") == 0);
    CHECK(days("3/1/2026", "3/7/2026", "2/1/2026", "4/28/2026") == 7);
    CHECK(days("3/1/2026", "3/7/2026", "3/3/2026", "3/4/2026") == 2);
}
