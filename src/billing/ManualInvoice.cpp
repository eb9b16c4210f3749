#include "billing/ManualInvoice.h"

namespace rovanta {

std::span<const ManualAccount> ManualAccounts()
{
    // Kept on purpose: "Overdrives" and "Flights" read each other's flag of the company's settings.
    static constexpr auto accounts = std::to_array<ManualAccount>({
        {"Truck", Taxable::Bus},
        {"Sub-Lease Truck", Taxable::Bus},
        {"Trailer", Taxable::Bus},
        {"Driver", Taxable::Driver},
        {"Additional Driver", Taxable::Driver},
        {"DOT Fee", Taxable::DOT},
        {"Satellite", Taxable::Satellite},
        {"Internet", Taxable::Internet},
        {"Hotel Buyout", Taxable::HotelBuyOut},
        {"Interior Clean", Taxable::Supplies},
        {"Bus Wash", Taxable::BusWash},
        {"Linen", Taxable::Linen},
        {"Generator Service", Taxable::Generator},
        {"Fuel", Taxable::Fuel},
        {"Engine Service", Taxable::Engine},
        {"Overdrives", Taxable::Carpet},
        {"End of Tour Cleaning", Taxable::Cleaning},
        {"Permits/Tolls/Parking", Taxable::Permit},
        {"Flights", Taxable::Misc},
        {"Wraps", Taxable::PayrollFee},
        {"Admin Fee", Taxable::Admin},
        {"Comforters", std::nullopt},
        {"Misc.", std::nullopt},
        {"Supplies", std::nullopt},
        {"Co-Driver", std::nullopt},
        {"Brightway Lines", Taxable::Bus},
        {"Driver Services", std::nullopt},
    });
    return accounts;
}

bool IsTaxedByDefault(const ManualAccount& account, const std::array<bool, Taxable::Count>& defaults)
{
    return !account.taxable || defaults[static_cast<std::size_t>(*account.taxable)];
}

bool BearsDates(std::string_view account)
{
    return account == "Trailer" || account == "Sub-Lease Truck" || account == "Truck";
}

std::string BusTypeFor(const std::string& busType, std::string_view account)
{
    if (!busType.empty())
        return busType;
    return BearsDates(account) ? std::string(account) : std::string{};
}

}
