#pragma once

#include "tools/demo/Customers.h"
#include "tools/demo/Fleet.h"
#include "tools/demo/Plan.h"
#include "tools/demo/Route.h"
#include "tours/TourItemPricing.h"

#include <optional>
#include <string>
#include <vector>

namespace rovanta::demo {

namespace Status {
inline constexpr const char* quote = "Quote - Active";
inline constexpr const char* closed = "Quote - Closed";
inline constexpr const char* verbal = "Contract - Verbal";
inline constexpr const char* committed = "Contract - Committed";
inline constexpr const char* signedContract = "Contract - Signed";
inline constexpr const char* dispatched = "Contract - Dispatched";
inline constexpr const char* other = "Other";
}

/// One vehicle on a tour with its price. Vehicles and drivers stand in the fleet, which outlives the tours.
struct TourLine {
    const Vehicle* vehicle = nullptr;
    const Driver* driver = nullptr;
    const Driver* addDriver = nullptr;
    TourSpan span;
    BilledSpan billed;
    TourItemFigures figures;
    TourItemPrice price;
    double commissionPerDay = 0;
    double commissionPerMonth = 0;
    std::string overdrives; ///< the description of the Misc charge, as the next three of theirs
    std::string flights;
    std::string wraps;
    std::string coDriver;
    Route route;

    DateTime FirstDay() const { return AddDays(span.start, -static_cast<int>(span.travelIn)); }
    DateTime LastDay() const { return AddDays(span.end, static_cast<int>(span.travelOut)); }
    bool PerMonth() const { return figures.busRateType == RateType::PerMonth; }
};

struct Tour {
    int id = 0;
    const Customer* customer = nullptr;
    std::string name;
    std::string status;
    DateTime start;
    DateTime end;
    DateTime entered;
    std::optional<DateTime> edited;
    std::string enteredBy;
    std::string notes;
    bool allInclusive = false;
    std::vector<TourLine> lines;

    bool IsQuote() const { return status == Status::quote || status == Status::closed; }
    DateTime LatestEnd() const;
};

/// The tours in the order in which they were entered, priced by the program's own rules.
std::vector<Tour> MakeTours(const Plan& plan, const Fleet& fleet, const Customers& customers);

/// Prices a line from its span, rates and payers.
void PriceLine(TourLine& line);
/// Fills rates, payers and typed amounts of a line and prices it.
void RateLine(TourLine& line, const Tour& tour, Dice& dice);

}
