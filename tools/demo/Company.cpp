#include "tools/demo/Company.h"

#include "frame/Company.h"
#include "tours/TourItemGrid.h"

#include <array>

namespace rovanta::demo {

namespace {

struct ChargeDefault {
    Line line;
    const char* rateColumn; ///< null for the charges that take their rate from the vehicle or the driver
    const char* payerColumn;
    double rate;
    PaidBy payer;
};

constexpr std::array chargeDefaults = {
    ChargeDefault{Line::Bus, nullptr, "BusContract", 0, PaidBy::Contract},
    ChargeDefault{Line::Driver, nullptr, "DriverContract", 0, PaidBy::Contract},
    ChargeDefault{Line::DOT, "DOTRate", "DOTContract", 12, PaidBy::Contract},
    ChargeDefault{Line::Satellite, "SatelliteRate", "SatelliteContract", 30, PaidBy::Contract},
    ChargeDefault{Line::Internet, "InternetRate", "InternetContract", 20, PaidBy::Contract},
    ChargeDefault{Line::HotelBuyOut, "HotelBuyOutRate", "HotelBuyOutContract", 135, PaidBy::Contract},
    ChargeDefault{Line::Supplies, "SuppliesRate", "SuppliesContract", 125, PaidBy::Contract},
    ChargeDefault{Line::BusWash, "BusWashRate", "BusWashContract", 65, PaidBy::DriverCollect},
    ChargeDefault{Line::Linen, "LinenRate", "LinenContract", 55, PaidBy::DriverCollect},
    ChargeDefault{Line::Generator, "GeneratorRate", "GeneratorContract", 95, PaidBy::Contract},
    ChargeDefault{Line::Fuel, "FuelRate", "FuelContract", 1.15, PaidBy::Contract},
    ChargeDefault{Line::Engine, "EngineRate", "EngineContract", 0.18, PaidBy::Contract},
    ChargeDefault{Line::Carpet, "CarpetTotal", "CarpetContract", 0, PaidBy::Contract},
    ChargeDefault{Line::Cleaning, "CleaningTotal", "CleaningContract", 250, PaidBy::Contract},
    ChargeDefault{Line::Permit, "PermitTotal", "PermitContract", 0, PaidBy::ClientResp},
    ChargeDefault{Line::Misc, "MiscTotal", "MiscContract", 0, PaidBy::Contract},
    ChargeDefault{Line::PayrollFee, "PayrollFeeRate", "PayrollFeeContract", 0, PaidBy::Contract},
    ChargeDefault{Line::Admin, "AdminFeeRate", "AdminContract", 0, PaidBy::Contract},
};

const ChargeDefault& DefaultOf(Line line)
{
    const Line asked = line == Line::AddDriver ? Line::Driver : line;
    for (const ChargeDefault& charge : chargeDefaults)
        if (charge.line == asked)
            return charge;
    throw std::logic_error("A charge without a default");
}

}

double DefaultRate(Line line)
{
    return DefaultOf(line).rate;
}

PaidBy DefaultPayer(Line line)
{
    return DefaultOf(line).payer;
}

bool IsTaxable(int flag)
{
    return flag == Taxable::Carpet || flag == Taxable::PayrollFee || flag == Taxable::Supplies;
}

Row CompanyRow()
{
    Row row = {{"Name", "Larkfield Production"},
               {"Address1", "2210 Old Depot Road"},
               {"Address2", ""},
               {"City", "Franklin"},
               {"State", "TN"},
               {"Zip", "37064"},
               {"Phone", "6155550142"},
               {"Fax", "6155550143"},
               {"Website", "www.larkfield.example"},
               {"Email", "office@larkfield.example"},
               {"KeyPressDelay", 1.0},
               {"TaxRate", taxRate},
               {"MaintenanceEmail", "shop@larkfield.example"},
               {"EmailFromAddress", "office@larkfield.example"},
               {"EmailFromName", "Larkfield Production"},
               {"EmailServer", "localhost:2525"},
               {"EmailServerUser", ""},
               {"EmailServerPassword", ""}};
    for (const ChargeDefault& charge : chargeDefaults) {
        if (charge.rateColumn)
            row.emplace_back(charge.rateColumn, charge.rate);
        row.emplace_back(charge.payerColumn, WordOf(charge.payer));
    }
    constexpr std::array taxColumns = {"Tax0", "Tax1",  "Tax2",  "Tax3",  "Tax4",  "Tax5",  "Tax6",  "Tax7",  "Tax8",
                                       "Tax9", "Tax10", "Tax11", "Tax12", "Tax13", "Tax14", "Tax15", "Tax16", "Tax17"};
    for (std::size_t i = 0; i < taxColumns.size(); ++i)
        row.emplace_back(taxColumns[i], IsTaxable(static_cast<int>(i)));
    return row;
}

}
