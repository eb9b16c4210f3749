#include "tours/TourItemPricing.h"

#include "values/Errors.h"
#include "values/Numbers.h"

#include <doctest/doctest.h>

#include <array>
#include <string>
#include <vector>

using namespace rovanta;

static BilledSpan Span(const char* start, const char* end, double discount = 0, double travelIn = 0,
                       double travelOut = 0)
{
    return CalculateBilledSpan({ToDate(start), ToDate(end), discount, travelIn, travelOut});
}

TEST_CASE("Billed days count both ends, take the free days off and add the travel days")
{
    CHECK(Span("3/2/2026", "3/11/2026").tourDays == 10);
    CHECK(Span("3/2/2026", "3/11/2026").billedDays == 10);
    CHECK(Span("3/2/2026", "3/11/2026", 2, 1, 3).tourDays == 10);
    CHECK(Span("3/2/2026", "3/11/2026", 2, 1, 3).billedDays == 12);
    CHECK(Span("3/2/2026", "3/2/2026").billedDays == 1);
    CHECK(Span("2/28/2024", "3/1/2024").tourDays == 3);
    CHECK(Span("2/28/2025", "3/1/2025").tourDays == 2);
}

TEST_CASE("An end before its start gives figures of zero or below, and nothing stops it")
{
    CHECK(Span("3/11/2026", "3/10/2026").tourDays == 0);
    CHECK(Span("3/11/2026", "3/2/2026").tourDays == -8);
    CHECK(Span("3/11/2026", "3/2/2026").billedDays == -8);
    CHECK(Span("3/11/2026", "1/2/2026").billedMonths < 0);
}

TEST_CASE("Billed months count whole months as one and parts by the month's own length")
{
    struct Case {
        const char* start;
        const char* end;
        double months;
    };
    const std::vector<Case> cases = {
        {"1/10/2026", "1/20/2026", 0.35}, // 22/31 - 2 + 20/31 + 1
        {"1/1/2026", "1/31/2026", 1.00},   {"2/1/2026", "2/28/2026", 1.00},
        {"2/1/2024", "2/29/2024", 1.00},   {"2/1/2026", "3/31/2026", 2.00},
        {"1/1/2026", "12/31/2026", 12.00}, {"1/15/2026", "2/14/2026", 1.05}, // 17/31 + 14/28
        {"1/15/2024", "2/14/2024", 1.03},                                    // 17/31 + 14/29
        {"2/10/2026", "4/5/2026", 1.85},                                     // 19/28 + 1 + 5/30
        {"12/16/2025", "1/15/2026", 1.00},                                   // 16/31 + 15/31
        {"12/31/2025", "1/1/2026", 0.06},                                    // 1/31 + 1/31
        {"6/30/2026", "6/30/2026", 0.03},
    };
    for (const Case& each : cases) {
        CAPTURE(each.start);
        CAPTURE(each.end);
        CHECK(Span(each.start, each.end).billedMonths == doctest::Approx(each.months).epsilon(1e-12));
    }
}

TEST_CASE("February counts by the year divisible by four alone")
{
    CHECK(Span("2/1/2028", "2/29/2028").billedMonths == 1);
    // The start month of 2100 is held for 29 days long, and there is no such last day.
    CHECK_THROWS_AS(Span("2/1/2100", "3/31/2100"), RunTimeError);
    CHECK(Span("1/1/2100", "2/28/2100").billedMonths == doctest::Approx(1.97)); // 28/29
}

/// A bus on the road with every rate set to a number that tells its line.
static TourItemFigures Figures(double billedDays, RateType type = RateType::PerDay)
{
    TourItemFigures figures;
    figures.billedDays = billedDays;
    figures.busDays = figures.satelliteDays = figures.internetDays = billedDays;
    figures.busMonths = figures.satelliteMonths = figures.internetMonths = 2.5;
    figures.busRateType = figures.dotRateType = figures.satelliteRateType = figures.internetRateType = type;
    return figures;
}

TEST_CASE("Bus, DOT, satellite and internet follow their own rate type and their own count")
{
    TourItemFigures figures = Figures(10);
    figures.rate[Line::Bus] = 900;
    figures.rate[Line::DOT] = 10;
    figures.rate[Line::Satellite] = 7;
    figures.rate[Line::Internet] = 3;
    figures.satelliteDays = 8;
    figures.internetDays = 4;
    auto total = PriceTourItem(figures).total;
    CHECK(total[Line::Bus] == 9000);
    CHECK(total[Line::DOT] == 100);
    CHECK(total[Line::Satellite] == 56);
    CHECK(total[Line::Internet] == 12);

    figures.busRateType = figures.dotRateType = RateType::PerMonth;
    figures.satelliteRateType = RateType::PerMonth;
    total = PriceTourItem(figures).total;
    CHECK(total[Line::Bus] == 2250);
    CHECK(total[Line::DOT] == 25);
    CHECK(total[Line::Satellite] == 17.5);
    CHECK(total[Line::Internet] == 12);
}

TEST_CASE("A bus count typed over drives the bus and the DOT line and leaves the drivers alone")
{
    TourItemFigures figures = Figures(10);
    figures.busDays = 12;
    figures.rate[Line::Bus] = 100;
    figures.rate[Line::DOT] = 5;
    figures.rate[Line::Driver] = 250;
    figures.rate[Line::AddDriver] = 200;
    const auto total = PriceTourItem(figures).total;
    CHECK(total[Line::Bus] == 1200);
    CHECK(total[Line::DOT] == 60);
    CHECK(total[Line::Driver] == 2500);
    CHECK(total[Line::AddDriver] == 2000);
}

TEST_CASE("Drivers are paid by the day also on a monthly line")
{
    TourItemFigures figures = Figures(10, RateType::PerMonth);
    figures.rate[Line::Driver] = 250;
    CHECK(PriceTourItem(figures).total[Line::Driver] == 2500);
}

TEST_CASE("Hotel nights are the travel days but the first of each side")
{
    struct Case {
        double in;
        double out;
        double nights;
    };
    const std::vector<Case> cases = {{0, 0, 0}, {1, 0, 0},  {1, 1, 0},   {2, 0, 1},   {3, 2, 3},
                                     {0, 4, 3}, {-3, 2, 1}, {2.5, 0, 2}, {3.5, 0, 2}, {2.5, 2.5, 4}};
    for (const Case& each : cases) {
        CAPTURE(each.in);
        CAPTURE(each.out);
        TourItemFigures figures = Figures(10);
        figures.travelIn = each.in;
        figures.travelOut = each.out;
        figures.rate[Line::HotelBuyOut] = 120;
        CHECK(PriceTourItem(figures).total[Line::HotelBuyOut] == 120 * each.nights);
    }
}

TEST_CASE("More hotel nights than a 16-bit integer holds fail")
{
    TourItemFigures figures = Figures(10);
    figures.travelIn = 32768;
    CHECK_NOTHROW(PriceTourItem(figures));
    figures.travelIn = 32769;
    CHECK_THROWS_WITH(PriceTourItem(figures), "Overflow");
    figures.travelIn = 20000;
    figures.travelOut = 20000;
    CHECK_THROWS_AS(PriceTourItem(figures), RunTimeError);
}

TEST_CASE(
    "Weekly charges: cleaning is pro-rated below a week, wash and linen cost nothing, the generator takes begun weeks")
{
    struct Case {
        double days;
        double supplies;
        double wash;
        double generator;
    };
    const std::vector<Case> cases = {
        {0, 0, 0, 0},  {1, 1.0 / 7, 0, 1}, {6, 6.0 / 7, 0, 1},   {7, 1, 1, 1},   {8, 1, 1, 2},    {13, 1, 1, 2},
        {14, 2, 2, 2}, {15, 2, 2, 3},      {6.5, 6.5 / 7, 0, 1}, {7.5, 1, 1, 2}, {20.5, 2, 2, 3}, {-3, -3.0 / 7, 0, 0}};
    for (const Case& each : cases) {
        CAPTURE(each.days);
        TourItemFigures figures = Figures(each.days);
        for (const Line line : {Line::Supplies, Line::BusWash, Line::Linen, Line::Generator})
            figures.rate[line] = 70;
        const auto total = PriceTourItem(figures).total;
        CHECK(total[Line::Supplies] == doctest::Approx(70 * each.supplies));
        CHECK(total[Line::BusWash] == 70 * each.wash);
        CHECK(total[Line::Linen] == 70 * each.wash);
        CHECK(total[Line::Generator] == 70 * each.generator);
    }
}

TEST_CASE("Half days round to the even whole number before the weeks are counted")
{
    TourItemFigures figures = Figures(13.5); // rounds to 14
    figures.rate[Line::BusWash] = 35;
    CHECK(PriceTourItem(figures).total[Line::BusWash] == 70);
    figures = Figures(12.5); // rounds to 12
    figures.rate[Line::BusWash] = 35;
    CHECK(PriceTourItem(figures).total[Line::BusWash] == 35);
}

TEST_CASE("Fuel and engine service are by the mile")
{
    TourItemFigures figures = Figures(10);
    figures.totalMiles = 1234.5;
    figures.rate[Line::Fuel] = 1.25;
    figures.rate[Line::Engine] = 0.1;
    const auto total = PriceTourItem(figures).total;
    CHECK(total[Line::Fuel] == 1543.125); // not rounded
    CHECK(total[Line::Engine] == doctest::Approx(123.45));
}

TEST_CASE("Typed totals go through as they stand")
{
    TourItemFigures figures = Figures(10);
    figures.rate[Line::Admin] = 77;
    for (const Line line : {Line::Carpet, Line::Cleaning, Line::Permit, Line::Misc, Line::PayrollFee, Line::Admin})
        figures.total[line] = 100 + static_cast<int>(line);
    const auto total = PriceTourItem(figures).total;
    for (const Line line : {Line::Carpet, Line::Cleaning, Line::Permit, Line::Misc, Line::PayrollFee, Line::Admin})
        CHECK(total[line] == 100 + static_cast<int>(line));
}

/// Every line's total is a power of two, so that a sum tells which lines stand in it.
static TourItemFigures PowersOfTwo()
{
    TourItemFigures figures = Figures(7);
    figures.travelIn = 2;
    figures.totalMiles = 1;
    figures.busMonths = 1;
    for (std::size_t i = 0; i < lineCount; ++i) {
        const auto line = static_cast<Line>(i);
        const double wanted = static_cast<double>(1U << i);
        figures.total[line] = wanted;
        figures.rate[line] = wanted;
    }
    for (const Line line : {Line::Bus, Line::Driver, Line::AddDriver, Line::DOT, Line::Satellite, Line::Internet})
        figures.rate[line] /= 7;
    return figures;
}

TEST_CASE("Eleven lines stand in the sums and eight in none")
{
    const auto bit = [](Line line) { return static_cast<double>(1U << static_cast<unsigned>(line)); };
    double eleven = 0;
    for (const Line line : {Line::Bus, Line::Driver, Line::AddDriver, Line::HotelBuyOut, Line::Fuel, Line::Engine,
                            Line::Carpet, Line::Permit, Line::Misc, Line::Admin, Line::PayrollFee})
        eleven += bit(line);
    TourItemFigures figures = PowersOfTwo();
    for (const PaidBy payer : {PaidBy::Contract, PaidBy::DriverCollect, PaidBy::ClientResp}) {
        for (std::size_t i = 0; i < lineCount; ++i)
            figures.payer[static_cast<Line>(i)] = payer;
        const TourItemPrice price = PriceTourItem(figures);
        CHECK(price.budget == doctest::Approx(eleven));
        CHECK(price.contract == doctest::Approx(payer == PaidBy::Contract ? eleven : 0));
        CHECK(price.driver == doctest::Approx(payer == PaidBy::DriverCollect ? eleven : 0));
        CHECK(price.client == doctest::Approx(payer == PaidBy::ClientResp ? eleven : 0));
    }
}

TEST_CASE("Each line goes to the sum of its own payer")
{
    const auto bit = [](Line line) { return static_cast<double>(1U << static_cast<unsigned>(line)); };
    for (const Line single : {Line::Bus, Line::Driver, Line::AddDriver, Line::HotelBuyOut, Line::Fuel, Line::Engine,
                              Line::Carpet, Line::Permit, Line::Misc, Line::Admin, Line::PayrollFee}) {
        TourItemFigures figures = PowersOfTwo();
        for (std::size_t i = 0; i < lineCount; ++i)
            figures.payer[static_cast<Line>(i)] = PaidBy::Contract;
        figures.payer[single] = PaidBy::DriverCollect;
        const TourItemPrice price = PriceTourItem(figures);
        CHECK(price.driver == doctest::Approx(bit(single)));
        CHECK(price.contract + price.driver == doctest::Approx(price.budget));
        CHECK(price.client == 0);
    }
}

TEST_CASE("A bus's commission is its percent of the lease, or its flat amount when the percent is zero")
{
    CHECK(CommissionOfBus(1000, 55, 0.125).amount == 125);
    CHECK(CommissionOfBus(1000, 55, 0.125).percent == 0.125);
    CHECK(CommissionOfBus(1000, 55, 0).amount == 55);
    CHECK(CommissionOfBus(1000, 55, 0).percent == 0);
}
