#include "billing/ManualInvoice.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace rovanta;

static const ManualAccount& AccountNamed(std::string_view name)
{
    const auto accounts = ManualAccounts();
    const auto found =
        std::find_if(accounts.begin(), accounts.end(), [&](const auto& each) { return each.name == name; });
    REQUIRE(found != accounts.end());
    return *found;
}

TEST_CASE("Each account reads its own flag of the company, and two of them each other's")
{
    struct Case {
        const char* account;
        int flag;
    };
    const Case cases[] = {{"Truck", 0},
                          {"Sub-Lease Truck", 0},
                          {"Trailer", 0},
                          {"Driver", 1},
                          {"Additional Driver", 1},
                          {"DOT Fee", 2},
                          {"Satellite", 3},
                          {"Internet", 4},
                          {"Hotel Buyout", 5},
                          {"Interior Clean", 6},
                          {"Bus Wash", 7},
                          {"Linen", 8},
                          {"Generator Service", 9},
                          {"Fuel", 10},
                          {"Engine Service", 11},
                          {"Overdrives", 12},
                          {"End of Tour Cleaning", 13},
                          {"Permits/Tolls/Parking", 14},
                          {"Flights", 15},
                          {"Wraps", 16},
                          {"Admin Fee", 17},
                          {"Brightway Lines", 0}};
    for (const Case& each : cases) {
        CAPTURE(each.account);
        for (int flag = 0; flag < Taxable::Count; ++flag) {
            std::array<bool, Taxable::Count> defaults{};
            defaults[static_cast<std::size_t>(flag)] = true;
            CHECK(IsTaxedByDefault(AccountNamed(each.account), defaults) == (flag == each.flag));
        }
    }
}

TEST_CASE("Five accounts are always taxed")
{
    for (const char* account : {"Comforters", "Misc.", "Supplies", "Co-Driver", "Driver Services"})
        CHECK(IsTaxedByDefault(AccountNamed(account), {}));
    CHECK(ManualAccounts().size() == 27);
}

TEST_CASE("Only three accounts bear dates and a bus type of their own")
{
    for (const ManualAccount& account : ManualAccounts()) {
        const bool bears = account.name == "Truck" || account.name == "Sub-Lease Truck" || account.name == "Trailer";
        CHECK(BearsDates(account.name) == bears);
        CHECK(BusTypeFor("", account.name) == (bears ? std::string(account.name) : ""));
        CHECK(BusTypeFor("Bus", account.name) == "Bus");
    }
    CHECK_FALSE(BearsDates("Truck and Trailer Lease"));
}
