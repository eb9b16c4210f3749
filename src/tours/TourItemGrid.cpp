#include "tours/TourItemGrid.h"

#include "frame/PayerOptions.h"
#include "values/Format.h"
#include "values/Numbers.h"

#include <array>

namespace rovanta {

std::span<const ItemColumn> ItemColumns()
{
    using enum ItemKind;
    static constexpr auto columns = std::to_array<ItemColumn>({
        {ItemCol::BusID, "BusID", "BusID", Key},
        {ItemCol::StartDate, "StartDate", "Start Date", Date},
        {ItemCol::EndDate, "EndDate", "End Date", Date},
        {ItemCol::DriverID, "DriverID", "DriverID", OptionalKey},
        {ItemCol::AddDriverID, "AddDriverID", "AddDriverID", OptionalKey},
        {ItemCol::BusBudget, "TourBudget", "Bus Budget", Money},
        {ItemCol::BusContract, "IncludedInContract", "Bus Contract Amt.", Money},
        {ItemCol::BusDriver, "DriverCollect", "Bus Driver Collect Amt.", Money},
        {ItemCol::BusClient, "ClientResp", "Bus Client Amt.", Money},
        {ItemCol::DiscountedDays, "DiscountedDays", "Discount Days", Number},
        {ItemCol::TravelDaysIn, "TravelDaysIn", "Travel Days In", Number},
        {ItemCol::TravelDaysOut, "TravelDaysOut", "Travel Days Out", Number},
        {ItemCol::TourDays, "TourDays", "Tour Days", Number},
        {ItemCol::BilledDays, "BilledDays", "Billed Days", Number},
        {ItemCol::BilledMonths, "BilledMonths", "Billed Months", Number},
        {ItemCol::TotalMileage, "TotalMileage", "Total Miles", Number},
        {ItemCol::PriceNotes, "PriceNotes", "Price Notes", Text},
        {21, "BusRate", "Bus Rate", Money},
        {ItemCol::BusRateType, "BusRateType", "Rate Type", Text},
        {23, "BusTotal", "Bus Total", Money},
        {25, "DriverRate", "Driver Rate", Money},
        {26, "DriverTotal", "Driver Total", Money},
        {28, "AddDriverRate", "Add. Driver Rate", Money},
        {29, "AddDriverTotal", "Add. Driver Total", Money},
        {31, "DOTRate", "DOT Rate", Money},
        {ItemCol::DOTRateType, "DOTRateType", "Rate Type", Text},
        {33, "DOTTotal", "DOT Total", Money},
        {35, "SatelliteRate", "Satellite Rate", Money},
        {ItemCol::SatelliteRateType, "SatelliteRateType", "Rate Type", Text},
        {37, "SatelliteTotal", "Satellite Total", Money},
        {39, "InternetRate", "Internet Rate", Money},
        {ItemCol::InternetRateType, "InternetRateType", "Rate Type", Text},
        {41, "InternetTotal", "Internet Total", Money},
        {43, "HotelBuyOutRate", "Hotel Buy Out Rate", Money},
        {44, "HotelBuyOutTotal", "Hotel Buy Out Total", Money},
        {46, "SuppliesRate", "Interior Clean Rate", Money},
        {47, "SuppliesTotal", "Interior Clean Rate Total", Money},
        {49, "BusWashRate", "Bus Wash Rate", Money},
        {50, "BusWashTotal", "Bus Wash Total", Money},
        {52, "LinenRate", "Linen Rate", Money},
        {53, "LinenTotal", "Linen Total", Money},
        {55, "GeneratorRate", "Generator Rate", Money},
        {56, "GeneratorTotal", "Generator Total", Money},
        {58, "FuelRate", "Fuel Rate", Money},
        {59, "FuelTotal", "Fuel Total", Money},
        {61, "EngineRate", "Engine Rate", Money},
        {62, "EngineTotal", "Engine Total", Money},
        {64, "CarpetTotal", "Misc. Total", Money},
        {66, "CleaningTotal", "Cleaning Total", Money},
        {68, "PermitTotal", "Permits Total", Money},
        {ItemCol::MiscDesc, "MiscDesc", "Misc. Desc.", Text},
        {71, "MiscTotal", "Misc. Total", Money},
        {73, "PayrollFeeTotal", "Payroll Fee Total", Money},
        {75, "AdminTotal", "Admin Total", Money},
        {ItemCol::PickupDate, "PickupDate", "Pickup Date", OptionalDate},
        {ItemCol::PickupLocation, "PickupLocation", "Pickup Location", Text},
        {ItemCol::PickupAddress, "PickupAddress", "Pickup Address", Text},
        {ItemCol::PickupCity, "PickupCity", "Pickup City", Text},
        {ItemCol::PickupState, "PickupState", "Pickup State", Text},
        {ItemCol::PickupZip, "PickupZip", "Pickup Zip", Text},
        {ItemCol::PickupPhone, "PickupPhone", "Pickup Phone", Text},
        {ItemCol::PickupContacts, "PickupContacts", "Pickup Contact", Text},
        {ItemCol::HotelRoomAtPickup, "HotelRoomAtPickup", "Hotel Room At Pickup", Text},
        {ItemCol::FirstDrive, "FirstDrive", "First Drive", Text},
        {ItemCol::EndingDate, "EndingDate", "Ending Date", OptionalDate},
        {ItemCol::EndingLocation, "EndingLocation", "Ending Location", Text},
        {ItemCol::EndingAddress, "EndingAddress", "Ending Address", Text},
        {ItemCol::EndingCity, "EndingCity", "Ending City", Text},
        {ItemCol::EndingState, "EndingState", "Ending State", Text},
        {ItemCol::EndingZip, "EndingZip", "Ending Zip", Text},
        {ItemCol::EndingPhone, "EndingPhone", "Ending Phone", Text},
        {ItemCol::MinimumBunks, "MinimumBunks", "Minimum Bunks", Number},
        {ItemCol::Passengers, "Passengers", "Passengers", Number},
        {ItemCol::PickupNotes, "PickupNotes", "Pickup Notes", Text},
        {ItemCol::Commission, "Commission", "Bus/Trailer Commision/Day", Number},
        {ItemCol::CommissionPerMonth, "CommissionPerMonth", "Bus/Trailer Commision/Month", Number},
        {ItemCol::Misc2Desc, "Misc2Desc", "Misc. 2 Desc.", Text},
        {ItemCol::Misc3Desc, "Misc3Desc", "Misc. 3 Desc.", Text},
        {ItemCol::Misc4Desc, "Misc4Desc", "Misc. 4 Desc.", Text},
    });
    return columns;
}

std::span<const LineColumns> ItemLines()
{
    static constexpr auto lines = std::to_array<LineColumns>({
        {Line::Bus, "Bus", 21, 23, 24},
        {Line::Driver, "Driver", 25, 26, 27},
        {Line::AddDriver, "AddDriver", 28, 29, 30},
        {Line::DOT, "DOT", 31, 33, 34},
        {Line::Satellite, "Satellite", 35, 37, 38},
        {Line::Internet, "Internet", 39, 41, 42},
        {Line::HotelBuyOut, "HotelBuyOut", 43, 44, 45},
        {Line::Supplies, "Supplies", 46, 47, 48},
        {Line::BusWash, "BusWash", 49, 50, 51},
        {Line::Linen, "Linen", 52, 53, 54},
        {Line::Generator, "Generator", 55, 56, 57},
        {Line::Fuel, "Fuel", 58, 59, 60},
        {Line::Engine, "Engine", 61, 62, 63},
        {Line::Carpet, "Carpet", -1, 64, 65},
        {Line::Cleaning, "Cleaning", -1, 66, 67},
        {Line::Permit, "Permit", -1, 68, 69},
        {Line::Misc, "Misc", -1, 71, 72},
        {Line::PayrollFee, "PayrollFee", -1, 73, 74},
        {Line::Admin, "Admin", -1, 75, 76},
    });
    static_assert(lines.size() == lineCount);
    return lines;
}

const std::string& WordOf(PaidBy payer)
{
    switch (payer) {
    case PaidBy::Contract:
        return Payer::contract;
    case PaidBy::DriverCollect:
        return Payer::driver;
    case PaidBy::ClientResp:
        break;
    }
    return Payer::client;
}

PaidBy PaidByWord(const std::string& word)
{
    if (word == Payer::contract)
        return PaidBy::Contract;
    return word == Payer::driver ? PaidBy::DriverCollect : PaidBy::ClientResp;
}

void BuildItemGrid(Grid& grid)
{
    grid.SetRows(0);
    grid.SetCols(ItemCol::Count);
    grid.SetRows(1);
    grid.SetTextMatrix(0, ItemCol::BusName, "Bus/Trailer");
    grid.SetTextMatrix(0, ItemCol::DriverName, "Driver");
    grid.SetTextMatrix(0, ItemCol::AddDriverName, "Add. Driver");
    for (const ItemColumn& column : ItemColumns())
        grid.SetTextMatrix(0, column.col, column.caption);
    for (const LineColumns& line : ItemLines())
        grid.SetTextMatrix(0, line.payer, "Payer");
    grid.SetFixedRows(1);
    grid.SetFixedCols(2);
}

void FormatItemGrid(Grid& grid)
{
    for (const int col : {ItemCol::BusID, ItemCol::DriverID, ItemCol::AddDriverID})
        grid.SetColHidden(col, true);
    for (const ItemColumn& column : ItemColumns()) {
        if (column.kind != ItemKind::Money)
            continue;
        grid.SetColFormat(column.col, moneySumPicture);
        grid.SetColAlignment(column.col, CellAlignment::Right);
    }
    grid.AutoSize(0, grid.Cols() - 1);
    grid.SetFixedRows(1);
    grid.SetFixedCols(2);
}

/// A column of the record as the panel would have written it into the grid.
static std::string CellText(const Field& field, ItemKind kind)
{
    const bool number = kind == ItemKind::Number || kind == ItemKind::Money;
    return number && !field.IsNull() ? ToText(field.Number()) : field.TextOrEmpty();
}

void AddItemRow(Grid& grid, Recordset& item)
{
    grid.AddItem("");
    const int row = grid.Rows() - 1;
    grid.SetTextMatrix(row, ItemCol::Row, std::to_string(row));
    grid.SetTextMatrix(row, ItemCol::BusName, item.Fields("BusName").TextOrEmpty());
    grid.SetTextMatrix(row, ItemCol::DriverName, item.Fields("DvrName").TextOrEmpty());
    grid.SetTextMatrix(row, ItemCol::AddDriverName, item.Fields("AddDvrName").TextOrEmpty());
    for (const ItemColumn& column : ItemColumns())
        grid.SetTextMatrix(row, column.col, CellText(item.Fields(column.column), column.kind));
    for (const LineColumns& line : ItemLines()) {
        const std::string stem = line.stem;
        PaidBy payer = PaidBy::ClientResp;
        if (item.Fields(stem + "Contract").IsTrue())
            payer = PaidBy::Contract;
        else if (item.Fields(stem + "Driver").IsTrue())
            payer = PaidBy::DriverCollect;
        grid.SetTextMatrix(row, line.payer, WordOf(payer));
    }
}

static Value CellValue(const std::string& cell, ItemKind kind)
{
    switch (kind) {
    case ItemKind::Text:
        return cell;
    case ItemKind::Number:
    case ItemKind::Money:
    case ItemKind::Key:
        return Val(cell);
    case ItemKind::OptionalKey:
        return cell.empty() ? Value(Null{}) : Value(Val(cell));
    case ItemKind::Date:
    case ItemKind::OptionalDate:
        break;
    }
    return cell.empty() ? Value(Null{}) : Value(cell);
}

void WriteItemRow(const Grid& grid, int row, Recordset& item)
{
    for (const ItemColumn& column : ItemColumns())
        item.Fields(column.column) = CellValue(grid.TextMatrix(row, column.col), column.kind);
    for (const LineColumns& line : ItemLines()) {
        const PaidBy payer = PaidByWord(grid.TextMatrix(row, line.payer));
        const std::string stem = line.stem;
        item.Fields(stem + "Contract") = payer == PaidBy::Contract ? -1 : 0;
        item.Fields(stem + "Driver") = payer == PaidBy::DriverCollect ? -1 : 0;
        item.Fields(stem + "Client") = payer == PaidBy::ClientResp ? -1 : 0;
    }
}

void RenumberItems(Grid& grid)
{
    for (int row = 1; row < grid.Rows(); ++row)
        grid.SetTextMatrix(row, ItemCol::Row, std::to_string(row));
}

void SwapItemRows(Grid& grid, int row, int other)
{
    for (int col = 1; col < grid.Cols(); ++col) {
        const std::string cell = grid.TextMatrix(row, col);
        grid.SetTextMatrix(row, col, grid.TextMatrix(other, col));
        grid.SetTextMatrix(other, col, cell);
    }
}

}
