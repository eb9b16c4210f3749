#pragma once

#include "tools/demo/Places.h"
#include "values/DateTime.h"

#include <string>
#include <vector>

namespace rovanta::demo {

/// One stop of a coach, with the leg from the stop before.
struct Stop {
    const Place* place = nullptr;
    DateTime from;
    DateTime to;
    int miles = 0;
    double hours = 0;
    double running = 0; ///< hours within the window that the drivers' limit looks at
};

using Route = std::vector<Stop>;

/// Stops from the first day to the last, one or two nights each.
Route MakeRoute(DateTime first, DateTime last, Dice& dice);
/// The stops that a vehicle takes part in which is on the tour from `first` to `last` only.
Route PartOfRoute(const Route& route, DateTime first, DateTime last);
int TotalMiles(const Route& route);
double TotalHours(const Route& route);

}
