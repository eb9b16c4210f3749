#include "tools/demo/Route.h"

#include "values/Numbers.h"

#include <algorithm>

namespace rovanta::demo {

/// Legs and running hours as the route screen works them out: the running hours of a stop reach back to the first stop
/// that ended no more than eight days before.
static void MeasureLegs(Route& route)
{
    constexpr double milesAnHour = 54;
    constexpr int windowDays = 8;
    for (std::size_t i = 0; i < route.size(); ++i) {
        Stop& stop = route[i];
        stop.miles = i == 0 ? 0 : RoadMiles(*route[i - 1].place, *stop.place);
        stop.hours = Round(stop.miles / milesAnHour, 2);
        std::size_t begin = 0;
        while (begin < i && DateDiff("d", route[begin].to, stop.from) > windowDays)
            ++begin;
        stop.running = 0;
        for (std::size_t j = begin; j <= i; ++j)
            stop.running += route[j].hours;
        stop.running = Round(stop.running, 2);
    }
}

Route MakeRoute(DateTime first, DateTime last, Dice& dice)
{
    Route route;
    const Place* place = dice.Chance(35) ? &HomePlace() : &dice.Pick(AllPlaces());
    for (DateTime day = first; day <= last;) {
        const DateTime to = std::min(AddDays(day, dice.Chance(65) ? 0 : dice.Between(1, 2)), last);
        route.push_back({place, day, to, 0, 0, 0});
        place = &NextStop(*place, dice);
        day = AddDays(to, 1);
    }
    MeasureLegs(route);
    return route;
}

Route PartOfRoute(const Route& route, DateTime first, DateTime last)
{
    Route part;
    for (const Stop& stop : route)
        if (stop.from >= first && stop.to <= last)
            part.push_back(stop);
    MeasureLegs(part);
    return part;
}

int TotalMiles(const Route& route)
{
    int miles = 0;
    for (const Stop& stop : route)
        miles += stop.miles;
    return miles;
}

double TotalHours(const Route& route)
{
    double hours = 0;
    for (const Stop& stop : route)
        hours += stop.hours;
    return Round(hours, 2);
}

}
