#pragma once

#include "billing/InvoicePlan.h"
#include "frame/PayerOptions.h"
#include "tours/TourItemGrid.h"
#include "values/Numbers.h"

#include <string>

namespace rovanta {

/// One vehicle of a tour as the working grid holds it, all charges paid by contract and 0.
inline BilledItem ItemOfTour(const std::string& bus, const char* start, const char* end)
{
    BilledItem item;
    item.cells.resize(ItemCol::Count);
    for (const LineColumns& line : ItemLines()) {
        item.cells[static_cast<std::size_t>(line.payer)] = Payer::contract;
        item.cells[static_cast<std::size_t>(line.total)] = "0";
    }
    item.busName = bus;
    item.busID = "7";
    item.busType = "Bus";
    item.start = ToDate(start);
    item.end = ToDate(end);
    item.rateType = "Per Day";
    return item;
}

inline void SetRate(BilledItem& item, Line line, double rate, double total)
{
    const LineColumns& columns = ItemLines()[static_cast<std::size_t>(line)];
    if (columns.rate >= 0)
        item.cells[static_cast<std::size_t>(columns.rate)] = ToText(rate);
    item.cells[static_cast<std::size_t>(columns.total)] = ToText(total);
}

inline void SetPayer(BilledItem& item, Line line, const std::string& word)
{
    item.cells[static_cast<std::size_t>(ItemLines()[static_cast<std::size_t>(line)].payer)] = word;
}

}
