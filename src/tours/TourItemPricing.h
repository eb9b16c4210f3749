#pragma once

#include "values/DateTime.h"

#include <array>
#include <cstddef>

namespace rovanta {

/// The charges of a tour line, in the order of the grid.
enum class Line {
    Bus,
    Driver,
    AddDriver,
    DOT,
    Satellite,
    Internet,
    HotelBuyOut,
    Supplies,
    BusWash,
    Linen,
    Generator,
    Fuel,
    Engine,
    Carpet,
    Cleaning,
    Permit,
    Misc,
    PayrollFee,
    Admin
};
inline constexpr std::size_t lineCount = 19;

enum class RateType { PerDay, PerMonth };
enum class PaidBy { Contract, DriverCollect, ClientResp };

/// One figure for each charge.
template <class T>
class PerLine {
public:
    T& operator[](Line line) { return figures[static_cast<std::size_t>(line)]; }
    const T& operator[](Line line) const { return figures[static_cast<std::size_t>(line)]; }

private:
    std::array<T, lineCount> figures{};
};

/// The span of a line and what counts its days.
struct TourSpan {
    DateTime start; ///< first tour day
    DateTime end;   ///< last tour day, counted too
    double discountDays = 0;
    double travelIn = 0;
    double travelOut = 0;
};

struct BilledSpan {
    double tourDays = 0;
    double billedDays = 0;
    double billedMonths = 0; ///< two decimals
};

/// Tour days with both ends counted, billed days, and billed months where a part of a month counts by its own length.
/// An end before its start gives figures of 0 or below; nothing stops it.
BilledSpan CalculateBilledSpan(const TourSpan& span);

/// What prices one vehicle. Rates and totals are money; the totals of Carpet, Cleaning, Permit, Misc, PayrollFee and
/// Admin are typed and go through, all others are computed.
struct TourItemFigures {
    double travelIn = 0;
    double travelOut = 0;
    double billedDays = 0;
    double busDays = 0;
    double busMonths = 0;
    double satelliteDays = 0;
    double satelliteMonths = 0;
    double internetDays = 0;
    double internetMonths = 0;
    double totalMiles = 0;
    RateType busRateType = RateType::PerMonth; ///< anything but "Per Day" counts as months, a blank too
    RateType dotRateType = RateType::PerMonth;
    RateType satelliteRateType = RateType::PerMonth;
    RateType internetRateType = RateType::PerMonth;
    PerLine<double> rate;
    PerLine<double> total;
    PerLine<PaidBy> payer;
};

/// The charges of a line, unrounded, and its sums by payer.
struct TourItemPrice {
    PerLine<double> total;
    double budget = 0;
    double contract = 0;
    double client = 0;
    double driver = 0;
};

/// Prices one vehicle. Throws Overflow when the hotel nights exceed a 16-bit integer.
TourItemPrice PriceTourItem(const TourItemFigures& figures);

/// What a bus pays in commission.
struct BusCommission {
    double amount = 0;  ///< of the bus's own lease, or its flat amount
    double percent = 0; ///< 0 for a bus with a flat amount
};

/// The commission of a vehicle from its sheet: `Lease` times `CommPercent`, or `CommAmount` when the percent is 0.
BusCommission CommissionOfBus(double lease, double commAmount, double commPercent);

}
