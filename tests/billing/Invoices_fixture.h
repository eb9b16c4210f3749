#pragma once

#include "billing/InvoicePlan.h"

#include <string>

namespace rovanta {

/// One vehicle of a tour with all charges paid by contract and 0.
inline BilledItem ItemOfTour(const std::string& bus, const char* start, const char* end)
{
    BilledItem item;
    for (ChargeFigures& charge : item.charges)
        charge.byContract = true;
    item.busName = bus;
    item.busID = "7";
    item.busType = "Bus";
    item.start = ToDate(start);
    item.end = ToDate(end);
    item.rateType = "Per Day";
    return item;
}

inline void SetRate(BilledItem& item, BilledCharge charge, double rate, double total)
{
    item[charge].rate = rate;
    item[charge].total = total;
}

}
