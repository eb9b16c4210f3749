#pragma once

#include "values/DateTime.h"

#include <optional>

namespace rovanta {

/// The machine's clock, or a frozen one, so that a run can be repeated to the letter.
class Clock {
public:
    /// The machine's clock in local time.
    Clock() = default;
    explicit Clock(std::optional<DateTime> frozen) : frozen(frozen) {}

    void Freeze(DateTime now) { frozen = now; }

    DateTime Now() const;
    DateTime Today() const { return Now().DateOnly(); }
    /// Seconds since midnight, with fractions on the machine's clock.
    double Timer() const;

private:
    std::optional<DateTime> frozen;
};

}
