#pragma once

#include "forms/Grid.h"
#include "store/Recordset.h"
#include "tours/TourItemPricing.h"

#include <span>
#include <string>
#include <vector>

namespace rovanta {

/// The columns of the working grid `vsfgItems`, one row per vehicle.
namespace ItemCol {
enum Index {
    Row = 0,
    BusName = 1,
    BusID = 2,
    StartDate = 3,
    EndDate = 4,
    DriverName = 5,
    DriverID = 6,
    AddDriverName = 7,
    AddDriverID = 8,
    BusBudget = 9,
    BusContract = 10,
    BusDriver = 11,
    BusClient = 12,
    DiscountedDays = 13,
    TravelDaysIn = 14,
    TravelDaysOut = 15,
    TourDays = 16,
    BilledDays = 17,
    BilledMonths = 18,
    TotalMileage = 19,
    PriceNotes = 20,
    BusRateType = 22,
    DOTRateType = 32,
    SatelliteRateType = 36,
    InternetRateType = 40,
    MiscDesc = 70,
    PickupDate = 77,
    PickupLocation,
    PickupAddress,
    PickupCity,
    PickupState,
    PickupZip,
    PickupPhone,
    PickupContacts,
    HotelRoomAtPickup,
    FirstDrive,
    EndingDate,
    EndingLocation,
    EndingAddress,
    EndingCity,
    EndingState,
    EndingZip,
    EndingPhone,
    MinimumBunks,
    Passengers,
    PickupNotes,
    Commission = 97,
    CommissionPerMonth = 98,
    Misc2Desc = 99,
    Misc3Desc = 100,
    Misc4Desc = 101,
    Count = 102
};
}

/// What a column of the grid holds and how it goes to the table.
enum class ItemKind { Text, Number, Money, Date, OptionalDate, Key, OptionalKey };

/// A grid column that mirrors a column of `TourItems`.
struct ItemColumn {
    int col;
    const char* column;
    const char* caption;
    ItemKind kind;
};

/// Where a charge stands in the grid; -1 for a column that the charge does not have.
struct LineColumns {
    Line line;
    const char* stem; ///< of its payer flags: `<stem>Contract`, `<stem>Driver`, `<stem>Client`
    int rate;
    int total;
    int payer;
};

std::span<const ItemColumn> ItemColumns();
/// The nineteen charges in the order of `Line`.
std::span<const LineColumns> ItemLines();

/// Builds the empty grid with its headings.
void BuildItemGrid(Grid& grid);
/// Hides what the eye does not need and sets the money pictures and the fixed part.
void FormatItemGrid(Grid& grid);
/// Adds one row from a record of `TourItems` joined with `BusName`, `DvrName` and `AddDvrName`.
void AddItemRow(Grid& grid, Recordset& item);
/// Writes one grid row into a new record of `TourItems`. Numbers go through leading-number parsing.
void WriteItemRow(const Grid& grid, int row, Recordset& item);
/// Writes the rows' numbers into column 0, from 1.
void RenumberItems(Grid& grid);
/// Changes places of two rows but for their numbers.
void SwapItemRows(Grid& grid, int row, int other);

/// The payer's word in the grid and on the panel.
const std::string& WordOf(PaidBy payer);
PaidBy PaidByWord(const std::string& word);

}
