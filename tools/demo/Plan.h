#pragma once

#include "values/DateTime.h"

#include <cstdint>

namespace rovanta::demo {

/// What decides a demo office to the last byte.
struct Plan {
    std::uint64_t seed = 1;
    /// How many times the 60 vehicles, 40 drivers, 150 customers and 700 tours.
    int scale = 1;
    /// The day on which the office stands still: tours before it are over, tours after it are booked ahead.
    DateTime today = DateTime::Of(2026, 11, 16);

    int Vehicles() const { return 60 * scale; }
    int Drivers() const { return 40 * scale; }
    int Customers() const { return 150 * scale; }
    int Owners() const { return 14 * scale; }
    int Tours() const { return 700 * scale; }

    /// Tours begin within these three years.
    DateTime FirstDay() const { return AddMonths(today, -30); }
    DateTime LastDay() const { return AddMonths(today, 6); }
};

}
