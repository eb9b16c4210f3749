#include "tools/demo/Places.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numbers>
#include <vector>

namespace rovanta::demo {

std::span<const Place> AllPlaces()
{
    static constexpr auto places = std::to_array<Place>({
        {"Franklin", "TN", "370", 35.925, -86.869, "615"},        {"Nashville", "TN", "372", 36.163, -86.782, "615"},
        {"Memphis", "TN", "381", 35.150, -90.049, "901"},         {"Knoxville", "TN", "379", 35.961, -83.921, "865"},
        {"Atlanta", "GA", "303", 33.749, -84.388, "404"},         {"Birmingham", "AL", "352", 33.519, -86.810, "205"},
        {"New Orleans", "LA", "701", 29.951, -90.072, "504"},     {"Houston", "TX", "770", 29.760, -95.370, "713"},
        {"Dallas", "TX", "752", 32.777, -96.797, "214"},          {"Austin", "TX", "787", 30.267, -97.743, "512"},
        {"San Antonio", "TX", "782", 29.424, -98.494, "210"},     {"Tulsa", "OK", "741", 36.154, -95.993, "918"},
        {"Oklahoma City", "OK", "731", 35.468, -97.516, "405"},   {"Little Rock", "AR", "722", 34.746, -92.290, "501"},
        {"St. Louis", "MO", "631", 38.627, -90.199, "314"},       {"Kansas City", "MO", "641", 39.100, -94.579, "816"},
        {"Omaha", "NE", "681", 41.257, -95.935, "402"},           {"Des Moines", "IA", "503", 41.587, -93.625, "515"},
        {"Minneapolis", "MN", "554", 44.978, -93.265, "612"},     {"Milwaukee", "WI", "532", 43.039, -87.907, "414"},
        {"Chicago", "IL", "606", 41.878, -87.630, "312"},         {"Indianapolis", "IN", "462", 39.768, -86.158, "317"},
        {"Louisville", "KY", "402", 38.253, -85.759, "502"},      {"Cincinnati", "OH", "452", 39.103, -84.512, "513"},
        {"Columbus", "OH", "432", 39.961, -82.999, "614"},        {"Cleveland", "OH", "441", 41.499, -81.694, "216"},
        {"Detroit", "MI", "482", 42.331, -83.046, "313"},         {"Grand Rapids", "MI", "495", 42.963, -85.668, "616"},
        {"Toronto", "ON", "M5V", 43.653, -79.383, "416"},         {"Montreal", "QC", "H3B", 45.502, -73.567, "514"},
        {"Buffalo", "NY", "142", 42.886, -78.878, "716"},         {"Albany", "NY", "122", 42.653, -73.757, "518"},
        {"New York", "NY", "100", 40.713, -74.006, "212"},        {"Boston", "MA", "021", 42.360, -71.059, "617"},
        {"Providence", "RI", "029", 41.824, -71.413, "401"},      {"Portland", "ME", "041", 43.659, -70.257, "207"},
        {"Philadelphia", "PA", "191", 39.953, -75.164, "215"},    {"Pittsburgh", "PA", "152", 40.441, -79.996, "412"},
        {"Baltimore", "MD", "212", 39.290, -76.612, "410"},       {"Washington", "DC", "200", 38.907, -77.037, "202"},
        {"Richmond", "VA", "232", 37.541, -77.436, "804"},        {"Raleigh", "NC", "276", 35.779, -78.638, "919"},
        {"Charlotte", "NC", "282", 35.227, -80.843, "704"},       {"Asheville", "NC", "288", 35.595, -82.551, "828"},
        {"Charleston", "SC", "294", 32.776, -79.931, "843"},      {"Jacksonville", "FL", "322", 30.332, -81.656, "904"},
        {"Orlando", "FL", "328", 28.538, -81.379, "407"},         {"Tampa", "FL", "336", 27.951, -82.457, "813"},
        {"Miami", "FL", "331", 25.762, -80.192, "305"},           {"Denver", "CO", "802", 39.739, -104.990, "303"},
        {"Salt Lake City", "UT", "841", 40.761, -111.891, "801"}, {"Albuquerque", "NM", "871", 35.084, -106.650, "505"},
        {"El Paso", "TX", "799", 31.762, -106.485, "915"},        {"Phoenix", "AZ", "850", 33.448, -112.074, "602"},
        {"Tucson", "AZ", "857", 32.223, -110.975, "520"},         {"Las Vegas", "NV", "891", 36.170, -115.140, "702"},
        {"Reno", "NV", "895", 39.530, -119.814, "775"},           {"San Diego", "CA", "921", 32.716, -117.161, "619"},
        {"Los Angeles", "CA", "900", 34.052, -118.244, "213"},    {"Fresno", "CA", "937", 36.738, -119.787, "559"},
        {"San Francisco", "CA", "941", 37.775, -122.419, "415"},  {"Sacramento", "CA", "958", 38.582, -121.494, "916"},
        {"Portland", "OR", "972", 45.515, -122.678, "503"},       {"Seattle", "WA", "981", 47.606, -122.332, "206"},
        {"Vancouver", "BC", "V6B", 49.283, -123.121, "604"},      {"Boise", "ID", "837", 43.615, -116.202, "208"},
        {"Billings", "MT", "591", 45.783, -108.501, "406"},       {"Calgary", "AB", "T2P", 51.045, -114.057, "403"},
        {"Fargo", "ND", "581", 46.877, -96.790, "701"},           {"Sioux Falls", "SD", "571", 43.545, -96.731, "605"},
    });
    return places;
}

const Place& HomePlace()
{
    return AllPlaces().front();
}

std::string CityState(const Place& place)
{
    return std::string(place.city) + ", " + std::string(place.state);
}

static double GreatCircleMiles(const Place& from, const Place& to)
{
    constexpr double radian = std::numbers::pi / 180;
    constexpr double earthRadius = 3958.8;
    const double latitudes = std::sin((to.latitude - from.latitude) * radian / 2);
    const double longitudes = std::sin((to.longitude - from.longitude) * radian / 2);
    const double chord = latitudes * latitudes +
                         std::cos(from.latitude * radian) * std::cos(to.latitude * radian) * longitudes * longitudes;
    return 2 * earthRadius * std::asin(std::sqrt(chord));
}

int RoadMiles(const Place& from, const Place& to)
{
    // Roads are a sixth longer than the crow's flight, as measured against a road atlas.
    return static_cast<int>(std::lround(GreatCircleMiles(from, to) * 1.17));
}

/// All other places, the nearest first.
static std::vector<const Place*> NearestFirst(const Place& from)
{
    std::vector<const Place*> others;
    for (const Place& place : AllPlaces())
        if (&place != &from)
            others.push_back(&place);
    std::stable_sort(others.begin(), others.end(),
                     [&](const Place* a, const Place* b) { return RoadMiles(from, *a) < RoadMiles(from, *b); });
    return others;
}

const Place& NextStop(const Place& from, Dice& dice)
{
    // Routes ask for it thousands of times, and the places never move.
    static const auto nearest = [] {
        std::map<const Place*, std::vector<const Place*>> lists;
        for (const Place& place : AllPlaces())
            lists[&place] = NearestFirst(place);
        return lists;
    }();
    const int reach = dice.Chance(90) ? 9 : 24;
    return *nearest.at(&from)[static_cast<std::size_t>(dice.Between(0, reach))];
}

}
