#include "bench/BenchOffice.h"

#include "app/OfficeMaker.h"
#include "bench/BareDatabase.h"
#include "tools/demo/Company.h"
#include "tools/demo/RowWriter.h"
#include "tools/demo/TourRows.h"

#include <unistd.h>

namespace rovanta::bench {

namespace {

using namespace demo;

TourLine LineOf(const Tour& tour, const Fleet& fleet, Dice& dice)
{
    TourLine line;
    line.vehicle = &fleet.vehicles[static_cast<std::size_t>(dice.Between(0, 39))];
    line.driver = &dice.Pick(fleet.drivers);
    line.span = {tour.start, tour.end, 0, 0, 0};
    RateLine(line, tour, dice);
    return line;
}

/// A line that every daily period bills by the same eight charges' worth of lines: bus, driver, fuel and engine.
TourLine LongLine(const Tour& tour, const Fleet& fleet, int number, Dice& dice)
{
    TourLine line = LineOf(tour, fleet, dice);
    line.vehicle = &fleet.vehicles[static_cast<std::size_t>(number)];
    TourItemFigures& figures = line.figures;
    figures.busRateType = figures.dotRateType = figures.satelliteRateType = figures.internetRateType = RateType::PerDay;
    figures.rate[Line::Bus] = 800;
    for (const Line charge : {Line::Bus, Line::Driver, Line::Fuel, Line::Engine})
        figures.payer[charge] = PaidBy::Contract;
    for (const Line charge : {Line::Carpet, Line::Cleaning, Line::Permit, Line::Misc, Line::PayrollFee, Line::Admin})
        figures.total[charge] = 0;
    figures.rate[Line::HotelBuyOut] = 0;
    line.route = {{&HomePlace(), tour.start, tour.start, 0, 0, 0}, {&HomePlace(), tour.end, tour.end, 30000, 500, 500}};
    PriceLine(line);
    return line;
}

/// A line of three days of which the bus alone is billed, so that a pass writes about as many invoices as lines.
TourLine ShortLine(const Tour& tour, const Fleet& fleet, int number, Dice& dice)
{
    Tour part = tour;
    part.start = AddDays(tour.start, number * BenchOffice::yearTourStep);
    part.end = AddDays(part.start, 2);
    TourLine line = LongLine(part, fleet, number, dice);
    for (const Line charge : {Line::Driver, Line::Fuel, Line::Engine})
        line.figures.payer[charge] = PaidBy::ClientResp;
    return line;
}

Tour MakeTour(int id, const Customers& customers, const Fleet& fleet, Dice& dice)
{
    Tour tour;
    tour.id = id;
    tour.customer = &dice.Pick(customers.all);
    tour.name = "Benchmark Tour " + std::to_string(id);
    tour.status = Status::signedContract;
    tour.start = AddDays(DateTime::Of(2016, 1, 1), dice.Between(0, 3900));
    tour.end = AddDays(tour.start, dice.Between(3, 40));
    tour.entered = AddDays(tour.start, -30);
    tour.enteredBy = "office";
    if (id == BenchOffice::largeTour) {
        for (int i = 0; i < BenchOffice::largeTourLines; ++i)
            tour.lines.push_back(LineOf(tour, fleet, dice));
    } else if (id == BenchOffice::longTour) {
        tour.end = AddDays(tour.start, BenchOffice::longTourDays - 1);
        for (int i = 0; i < BenchOffice::longTourLines; ++i)
            tour.lines.push_back(LongLine(tour, fleet, i, dice));
    } else if (id == BenchOffice::yearTour) {
        tour.end = AddDays(tour.start, BenchOffice::yearTourLines * BenchOffice::yearTourStep - 1);
        for (int i = 0; i < BenchOffice::yearTourLines; ++i)
            tour.lines.push_back(ShortLine(tour, fleet, i, dice));
    } else {
        tour.lines.push_back(LineOf(tour, fleet, dice));
    }
    return tour;
}

void Furnish(Connection& connection)
{
    demo::Plan plan;
    const Fleet fleet = MakeFleet(plan);
    AddTables(connection, {fleet.ownerRows, fleet.driverRows, fleet.vehicleRows});
    plan.scale = BenchOffice::customers / demo::Plan{}.Customers() + 1;
    Customers customers = MakeCustomers(plan);
    customers.all.resize(BenchOffice::customers);
    customers.rows.rows.resize(BenchOffice::customers);
    AddRows(connection, customers.rows);
    MakeCoDriverTable(connection);
    Dice dice(plan.seed, "bench");
    constexpr int toursAtOnce = 1000;
    for (int first = 1; first <= BenchOffice::tours; first += toursAtOnce) {
        std::vector<Tour> tours;
        for (int id = first; id < first + toursAtOnce; ++id)
            tours.push_back(MakeTour(id, customers, fleet, dice));
        AddTables(connection, MakeTourRows(plan, fleet, tours));
    }
    Recordset company("SELECT TOP 1 * FROM Company", connection);
    SetFields(company, CompanyRow());
    company.Update();
}

}

BenchOffice::BenchOffice(const std::filesystem::path& parent, const std::string& connection)
    : folder(parent / ("bench-office-" + std::to_string(getpid())))
{
    OfficePlan plan;
    plan.folder = folder;
    plan.connection = connection;
    plan.user = "office";
    plan.password = "word";
    plan.furnish = [](Connection& database, const Configuration&) { Furnish(database); };
    CreateOffice(plan);
    BareDatabase(ConnectionText()).KeepHouse();
}

std::string BenchOffice::ConnectionText() const
{
    return ReadConfigFile(ConfigPath()).ConnectionString;
}

BenchOffice::~BenchOffice()
{
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

}
