#pragma once

#include "tools/demo/Dice.h"

#include <span>
#include <string>
#include <string_view>

namespace rovanta::demo {

/// A city that a coach can stop in.
struct Place {
    std::string_view city;
    std::string_view state;
    std::string_view zip; ///< the first three places of its code
    double latitude;
    double longitude;
    std::string_view areaCode;
};

std::span<const Place> AllPlaces();
/// The place where the company keeps its coaches.
const Place& HomePlace();

/// "City, ST".
std::string CityState(const Place& place);
/// Whole miles by road, judged from the great circle.
int RoadMiles(const Place& from, const Place& to);
/// A believable next stop: one of the nearer places, seldom a far one, never the same.
const Place& NextStop(const Place& from, Dice& dice);

}
