#pragma once

#include "frame/Company.h"
#include "values/DateTime.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace rovanta {

/// The charges that the passes can bill.
enum class BilledCharge {
    Bus,
    Driver,
    AddDriver,
    DOT,
    Satellite,
    Internet,
    HotelBuyOut,
    Fuel,
    Engine,
    Carpet,
    Permit,
    Misc,
    PayrollFee,
    Admin
};
inline constexpr std::size_t billedChargeCount = 14;

/// One charge of a vehicle: what it costs, whether the contract pays it (nothing else is ever invoiced), and the words
/// that a person gave it.
struct ChargeFigures {
    double rate = 0;
    double total = 0;
    bool byContract = false;
    std::string description;
};

/// One vehicle of a tour as the invoice passes see it.
struct BilledItem {
    std::string busName;
    std::string busID;
    std::string busType;
    std::string driverName;
    std::string addDriverName;
    DateTime start;
    DateTime end;
    double travelIn = 0;
    double billedDays = 0;
    std::string rateType;
    std::array<ChargeFigures, billedChargeCount> charges;

    ChargeFigures& operator[](BilledCharge charge) { return charges[static_cast<std::size_t>(charge)]; }
    const ChargeFigures& operator[](BilledCharge charge) const { return charges[static_cast<std::size_t>(charge)]; }
};

/// One line of an invoice.
struct InvoiceLine {
    double qty1 = 1;
    double qty2 = 1;
    std::string uom;
    std::string description;
    double rate = 0; ///< unrounded; rounded to cents where it is stored
    std::string busID;
    std::string other;
    std::string busType; ///< on lines that carry dates only
    std::string acct;
    int orderField = 0;
    DateTime periodStart;
    DateTime periodEnd;
    DateTime itemStart;
    DateTime itemEnd;
    bool taxable = false;

    /// Quantities times rate, unrounded.
    double Extended() const { return qty1 * qty2 * rate; }
};

struct InvoiceTotals {
    double subTotal = 0;
    double tax = 0;
    double total = 0;
};

/// One invoice that a pass makes.
struct PlannedInvoice {
    DateTime due; ///< invoice date and due date
    DateTime periodStart;
    DateTime periodEnd;
    InvoiceTotals totals;
    std::vector<InvoiceLine> lines;
};

/// What the company's settings add to a pass.
struct TaxRules {
    double taxRate = 0; ///< percent
    std::array<bool, Taxable::Count> taxable{};
};

/// Subtotal and tax, each rounded to cents per line before adding.
InvoiceTotals TotalsOf(const std::vector<InvoiceLine>& lines, double taxRate);

/// The number of days in the overlap of two spans, both ends counted; 0 when they do not touch.
std::int64_t OverlapDays(DateTime periodStart, DateTime periodEnd, DateTime itemStart, DateTime itemEnd);

}
