#include "tools/demo/Company.h"
#include "tools/demo/Tours.h"
#include "tours/TourItemGrid.h"

#include "values/Numbers.h"

namespace rovanta::demo {

namespace {

constexpr int longTourDays = 56;

/// What a driver costs, a vehicle's rate and the defaults of the company, by the kind of vehicle.
void SetRates(TourLine& line, Dice& dice)
{
    TourItemFigures& figures = line.figures;
    const Vehicle& vehicle = *line.vehicle;
    for (const LineColumns& charge : ItemLines())
        figures.payer[charge.line] = DefaultPayer(charge.line);
    figures.rate[Line::Bus] =
        figures.busRateType == RateType::PerDay ? vehicle.dayRate : Round(vehicle.dayRate * 30 * 0.8 / 100, 0) * 100;
    if (line.driver)
        figures.rate[Line::Driver] = line.driver->dayRate;
    if (line.addDriver)
        figures.rate[Line::AddDriver] = line.addDriver->dayRate;
    if (vehicle.IsTrailer())
        return;
    for (const Line charge : {Line::DOT, Line::Fuel, Line::Engine})
        figures.rate[charge] = DefaultRate(charge);
    if (figures.dotRateType == RateType::PerMonth)
        figures.rate[Line::DOT] = 300;
    if (vehicle.IsTruck())
        return;
    const bool perMonth = figures.satelliteRateType == RateType::PerMonth;
    figures.rate[Line::Satellite] = perMonth ? 750 : DefaultRate(Line::Satellite);
    figures.rate[Line::Internet] = perMonth ? 500 : DefaultRate(Line::Internet);
    for (const Line charge : {Line::HotelBuyOut, Line::Supplies, Line::BusWash, Line::Linen, Line::Generator})
        figures.rate[charge] = DefaultRate(charge);
    figures.total[Line::Cleaning] = dice.Chance(70) ? DefaultRate(Line::Cleaning) : 0;
}

void SetExtras(TourLine& line, Dice& dice)
{
    auto& total = line.figures.total;
    if (line.vehicle->IsTrailer())
        return;
    if (dice.Chance(25))
        total[Line::Permit] = 25.0 * dice.Between(3, 16);
    if (dice.Chance(20)) {
        const int count = dice.Between(1, 4);
        total[Line::Misc] = 150.0 * count;
        line.overdrives = std::to_string(count) + (count == 1 ? " overdrive" : " overdrives");
    }
    if (dice.Chance(12)) {
        total[Line::Carpet] = 5.0 * dice.Between(38, 110);
        line.flights = "Driver flight home";
    }
    if (line.vehicle->IsCoach() && dice.Chance(4)) {
        total[Line::PayrollFee] = 2400;
        line.wraps = "Album wrap";
    }
    if (line.addDriver && dice.Chance(40)) {
        total[Line::Admin] = 37.5 * dice.Between(10, 40);
        line.coDriver = "Co-driver on long drives";
    }
}

void SetPayers(TourLine& line, const Tour& tour, Dice& dice)
{
    auto& payer = line.figures.payer;
    if (tour.allInclusive) {
        for (const LineColumns& charge : ItemLines())
            payer[charge.line] = PaidBy::Contract;
        return;
    }
    if (dice.Chance(20))
        payer[Line::Fuel] = PaidBy::DriverCollect;
    if (dice.Chance(15))
        payer[Line::Driver] = payer[Line::AddDriver] = PaidBy::ClientResp;
    if (dice.Chance(30))
        payer[Line::HotelBuyOut] = PaidBy::ClientResp;
    if (dice.Chance(35))
        payer[Line::Permit] = PaidBy::Contract;
}

}

void PriceLine(TourLine& line)
{
    line.billed = CalculateBilledSpan(line.span);
    TourItemFigures& figures = line.figures;
    figures.travelIn = line.span.travelIn;
    figures.travelOut = line.span.travelOut;
    figures.billedDays = line.billed.billedDays;
    figures.busDays = figures.satelliteDays = figures.internetDays = line.billed.billedDays;
    figures.busMonths = figures.satelliteMonths = figures.internetMonths = line.billed.billedMonths;
    figures.totalMiles = TotalMiles(line.route);
    line.price = PriceTourItem(figures);
}

void RateLine(TourLine& line, const Tour& tour, Dice& dice)
{
    // The vehicles of one tour are priced alike, so the first line decides.
    const bool longTour = DateDiff("d", tour.start, tour.end) + 1 >= longTourDays;
    const bool perMonth = tour.lines.empty() ? longTour && dice.Chance(35) : tour.lines.front().PerMonth();
    TourItemFigures& figures = line.figures;
    figures.busRateType = figures.dotRateType = figures.satelliteRateType = figures.internetRateType =
        perMonth ? RateType::PerMonth : RateType::PerDay;
    SetRates(line, dice);
    SetExtras(line, dice);
    SetPayers(line, tour, dice);
    PriceLine(line);
    const double commission = figures.rate[Line::Bus] * line.vehicle->commissionPercent;
    (perMonth ? line.commissionPerMonth : line.commissionPerDay) = commission;
}

}
