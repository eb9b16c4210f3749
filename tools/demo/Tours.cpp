#include "tools/demo/Tours.h"

#include "tools/demo/Calendar.h"
#include "tools/demo/Names.h"

#include <algorithm>
#include <array>

namespace rovanta::demo {

namespace {

/// How busy the road is in each month, in percent of the busiest.
constexpr std::array roadByMonth = {35, 55, 80, 90, 95, 100, 100, 95, 90, 85, 60, 40};

/// Of how many tours one takes a vehicle that is out already: the double bookings that the office is warned of.
constexpr int doubleBookingEvery = 40;

/// Books tours until the plan is full.
class Booker {
public:
    Booker(const Plan& plan, const Fleet& fleet, const Customers& customers)
        : plan(plan), fleet(fleet), customers(customers), dice(plan.seed, "tours"), names(dice),
          vehicleCalendar(fleet.vehicles.size()), driverCalendar(fleet.drivers.size()),
          customerCalendar(customers.all.size())
    {
    }

    std::vector<Tour> Book();

private:
    Tour Draft();
    DateTime StartDay();
    int Length();
    const char* StatusAt(DateTime start, DateTime end);
    void NoteWhen(Tour& tour);
    void AddLines(Tour& tour);
    void AddLine(Tour& tour, const Vehicle& vehicle, const TourSpan& whole, const Route& route);
    template <class Fits>
    const Vehicle* FindVehicle(const TourSpan& span, bool quote, Fits fits);
    const Driver* FindDriver(const TourLine& line);
    const Customer* FindCustomer(DateTime start, DateTime end);

    const Plan& plan;
    const Fleet& fleet;
    const Customers& customers;
    Dice dice;
    Names names;
    Calendar vehicleCalendar;
    Calendar driverCalendar;
    Calendar customerCalendar;
    int drafts = 0;
    bool doubleBooking = false;
};

std::vector<Tour> Booker::Book()
{
    std::vector<Tour> tours;
    while (static_cast<int>(tours.size()) < plan.Tours()) {
        Tour tour = Draft();
        if (!tour.lines.empty())
            tours.push_back(std::move(tour));
    }
    std::stable_sort(tours.begin(), tours.end(), [](const Tour& a, const Tour& b) { return a.entered < b.entered; });
    for (std::size_t i = 0; i < tours.size(); ++i)
        tours[i].id = static_cast<int>(i) + 1;
    return tours;
}

Tour Booker::Draft()
{
    doubleBooking = ++drafts % doubleBookingEvery == 0;
    Tour tour;
    tour.start = StartDay();
    tour.end = AddDays(tour.start, Length() - 1);
    tour.status = StatusAt(tour.start, tour.end);
    tour.customer = FindCustomer(tour.start, tour.end);
    if (!tour.customer)
        return tour;
    tour.name = names.Tour(tour.start.Year());
    tour.allInclusive = dice.Chance(12);
    tour.notes = dice.Chance(18) ? "Tour manager asks for the newest coach; don't swap without a call." : "";
    NoteWhen(tour);
    AddLines(tour);
    if (!tour.lines.empty() && !tour.IsQuote())
        customerCalendar.Book(static_cast<std::size_t>(tour.customer->id) - 1, tour.start, tour.end);
    return tour;
}

DateTime Booker::StartDay()
{
    const auto days = static_cast<int>(DateDiff("d", plan.FirstDay(), plan.LastDay()));
    for (;;) {
        const DateTime day = AddDays(plan.FirstDay(), dice.Between(0, days));
        if (dice.Chance(roadByMonth[static_cast<std::size_t>(day.Month()) - 1]))
            return day;
    }
}

int Booker::Length()
{
    switch (dice.Weighted({15, 38, 35, 12})) {
    case 0:
        return dice.Between(2, 5);
    case 1:
        return dice.Between(7, 16);
    case 2:
        return dice.Between(18, 45);
    default:
        return dice.Between(50, 90);
    }
}

const char* Booker::StatusAt(DateTime start, DateTime end)
{
    constexpr std::array words = {Status::closed,         Status::quote,      Status::verbal, Status::committed,
                                  Status::signedContract, Status::dispatched, Status::other};
    const auto daysAhead = DateDiff("d", plan.today, start);
    if (end < plan.today)
        return words[dice.Weighted({20, 1, 1, 2, 60, 14, 2})];
    if (daysAhead <= 0)
        return words[dice.Weighted({8, 2, 2, 3, 50, 32, 3})];
    if (daysAhead <= 60)
        return words[dice.Weighted({8, 18, 10, 15, 45, 2, 2})];
    return words[dice.Weighted({6, 30, 20, 24, 17, 0, 3})];
}

/// A tour is entered weeks or months before it starts, and never after the day on which the office stands still.
void Booker::NoteWhen(Tour& tour)
{
    DateTime day = AddDays(tour.start, -dice.Between(20, 150));
    if (day >= plan.today)
        day = AddDays(plan.today, -dice.Between(1, 40));
    tour.entered = DateAdd("n", dice.Between(8 * 60, 17 * 60), day);
    tour.enteredBy = dice.Chance(70) ? "office" : "desk";
    if (dice.Chance(60)) {
        const DateTime later = DateAdd("n", dice.Between(8 * 60, 17 * 60), AddDays(day, dice.Between(1, 20)));
        if (later < plan.today)
            tour.edited = later;
    }
}

const Customer* Booker::FindCustomer(DateTime start, DateTime end)
{
    constexpr int tries = 12;
    const int last = static_cast<int>(customers.all.size()) - 1;
    for (int i = 0; i < tries; ++i) {
        // The lower of two throws: some acts are on the road every season, others once.
        const int one = dice.Between(0, last);
        const auto who = static_cast<std::size_t>(std::min(one, dice.Between(0, last)));
        if (customerCalendar.IsFree(who, start, end))
            return &customers.all[who];
    }
    return nullptr;
}

template <class Fits>
const Vehicle* Booker::FindVehicle(const TourSpan& span, bool quote, Fits fits)
{
    const DateTime first = AddDays(span.start, -static_cast<int>(span.travelIn));
    const DateTime last = AddDays(span.end, static_cast<int>(span.travelOut));
    const std::size_t count = fleet.vehicles.size();
    const auto begin = static_cast<std::size_t>(dice.Between(0, static_cast<int>(count) - 1));
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t which = (begin + i) % count;
        const Vehicle& vehicle = fleet.vehicles[which];
        if (vehicle.inactive || !fits(vehicle))
            continue;
        const bool free = vehicleCalendar.IsFree(which, first, last);
        if (!quote && free == doubleBooking)
            continue;
        if (!quote)
            vehicleCalendar.Book(which, first, last);
        doubleBooking = false;
        return &vehicle;
    }
    return nullptr;
}

void Booker::AddLines(Tour& tour)
{
    TourSpan span{tour.start, tour.end, 0, 0, 0};
    span.travelIn = dice.Between(0, 3);
    span.travelOut = dice.Between(0, 2);
    const Route route = MakeRoute(tour.start, tour.end, dice);
    const auto add = [&](auto fits) {
        if (const Vehicle* vehicle = FindVehicle(span, tour.IsQuote(), fits))
            AddLine(tour, *vehicle, span, route);
    };
    const int coaches = dice.Between(1, tour.customer->coaches);
    for (int i = 0; i < coaches; ++i)
        add([](const Vehicle& vehicle) { return vehicle.IsCoach(); });
    if (tour.lines.empty())
        return;
    if (dice.Chance(35))
        add([](const Vehicle& vehicle) { return vehicle.IsTrailer(); });
    if (dice.Chance(9))
        add([](const Vehicle& vehicle) { return vehicle.IsTruck(); });
}

void Booker::AddLine(Tour& tour, const Vehicle& vehicle, const TourSpan& whole, const Route& route)
{
    TourLine line;
    line.vehicle = &vehicle;
    line.span = whole;
    const auto days = static_cast<int>(DateDiff("d", tour.start, tour.end)) + 1;
    // A further vehicle may join later.
    if (!tour.lines.empty() && days > 12 && dice.Chance(15))
        line.span.start = AddDays(line.span.start, dice.Between(2, 6));
    line.span.discountDays = days > 9 && dice.Chance(12) ? dice.Between(1, 2) : 0;
    line.route = PartOfRoute(route, line.span.start, line.span.end);
    if (!vehicle.IsTrailer() && (!tour.IsQuote() || dice.Chance(20))) {
        line.driver = FindDriver(line);
        if (line.driver && days > 20 && dice.Chance(15))
            line.addDriver = FindDriver(line);
    }
    RateLine(line, tour, dice);
    tour.lines.push_back(std::move(line));
}

const Driver* Booker::FindDriver(const TourLine& line)
{
    const std::size_t count = fleet.drivers.size();
    const auto begin = static_cast<std::size_t>(dice.Between(0, static_cast<int>(count) - 1));
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t which = (begin + i) % count;
        const Driver& driver = fleet.drivers[which];
        if (driver.inactive || !driverCalendar.IsFree(which, line.FirstDay(), line.LastDay()))
            continue;
        driverCalendar.Book(which, line.FirstDay(), line.LastDay());
        return &driver;
    }
    return nullptr;
}

}

DateTime Tour::LatestEnd() const
{
    DateTime latest = end;
    for (const TourLine& line : lines)
        latest = std::max(latest, line.span.end);
    return latest;
}

std::vector<Tour> MakeTours(const Plan& plan, const Fleet& fleet, const Customers& customers)
{
    return Booker(plan, fleet, customers).Book();
}

}
