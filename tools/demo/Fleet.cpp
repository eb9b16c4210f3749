#include "tools/demo/Fleet.h"

#include "tools/demo/Names.h"

#include <array>

namespace rovanta::demo {

namespace {

constexpr std::array coachNames = {"Kestrel",  "Meadowlark", "Nighthawk", "Heron",  "Bluejay",   "Osprey",  "Redstart",
                                   "Plover",   "Wren",       "Goshawk",   "Egret",  "Sandpiper", "Tanager", "Curlew",
                                   "Merlin",   "Swallow",    "Bittern",   "Oriole", "Grosbeak",  "Avocet",  "Harrier",
                                   "Kingbird", "Linnet",     "Martin",    "Siskin", "Teal",      "Vireo",   "Whimbrel"};
constexpr std::array coachModels = {"Talbrook H45", "Talbrook H45 Slide", "Corvane XL", "Corvane XL Slide",
                                    "Ashmere 4500"};
constexpr std::array truckModels = {"Brandell T8 Sleeper", "Brandell T9 Box", "Ostrander 610"};
constexpr std::array trailerModels = {"Pikeline 16 ft", "Pikeline 20 ft", "Hauler Works 14 ft"};
constexpr std::array homeStates = {"TN", "KY", "GA", "TX"};

/// Of 60 vehicles, how many are of which type; the rest are trailers.
struct TypeShare {
    const char* type;
    int until;
};
constexpr std::array typeShares = {TypeShare{"Bus", 34}, TypeShare{"Sub-Lease Bus", 40}, TypeShare{"Truck", 44},
                                   TypeShare{"Sub-Lease Truck", 46}, TypeShare{"Trailer", 60}};

const char* TypeAt(int position)
{
    for (const TypeShare& share : typeShares)
        if (position % 60 < share.until)
            return share.type;
    return typeShares.back().type;
}

std::string Numbered(const std::string& head, int number)
{
    return head + " " + std::to_string(number);
}

std::string Digits(Dice& dice, int count)
{
    std::string digits;
    for (int i = 0; i < count; ++i)
        digits += static_cast<char>('0' + dice.Between(i == 0 ? 1 : 0, 9));
    return digits;
}

/// `head` filled up to a length with letters and digits.
std::string Serial(std::string head, std::size_t length, Dice& dice)
{
    constexpr std::string_view signs = "ABCDEFGHJKLMNPRSTUVWXYZ0123456789";
    while (head.size() < length)
        head += dice.Pick(signs);
    return head;
}

DateTime HiringDay(const Plan& plan, Dice& dice)
{
    return AddDays(plan.FirstDay(), -dice.Between(30, 900));
}

void AddOwners(Fleet& fleet, const Plan& plan, Dice& dice, Names& names)
{
    for (int id = 1; id <= plan.Owners(); ++id) {
        const Place& place = dice.Pick(AllPlaces());
        // The first owner is the company itself; one name bears an apostrophe, as no statement holds an owner's name.
        std::string name = id == 1   ? "Larkfield Production"
                           : id == 2 ? "Fenn O'Rawley Leasing"
                                     : names.Firm(dice.Chance(50) ? "Coach Holdings" : "Leasing Partners");
        fleet.ownerRows.rows.push_back({{"Name", name},
                                        {"Address1", names.Street()},
                                        {"Address2", ""},
                                        {"City", place.city},
                                        {"State", place.state},
                                        {"Zip", names.Zip(place)},
                                        {"Phone1", names.Phone(place)},
                                        {"Phone2", dice.Chance(40) ? names.Phone(place) : ""},
                                        {"Phone3", ""},
                                        {"Notes", dice.Chance(30) ? "Settles on the 10th of each month." : ""},
                                        {"Inactive", id == 9},
                                        {"DateEntered", HiringDay(plan, dice)},
                                        {"EnteredBy", "office"}});
    }
}

void AddDrivers(Fleet& fleet, const Plan& plan, Dice& dice, Names& names)
{
    for (int id = 1; id <= plan.Drivers(); ++id) {
        const Place& place = dice.Pick(AllPlaces());
        Driver driver;
        driver.id = id;
        driver.name = names.Person();
        driver.email = names.Email(driver.name, "roadmail");
        driver.dayRate = 275 + 12.5 * dice.Between(0, 8);
        driver.inactive = id % 13 == 0;
        const auto expiry = [&] { return ToText(AddDays(plan.today, dice.Between(-60, 1400))); };
        fleet.driverRows.rows.push_back({{"Name", driver.name},
                                         {"Address1", names.Street()},
                                         {"Address2", ""},
                                         {"City", place.city},
                                         {"State", place.state},
                                         {"Zip", names.Zip(place)},
                                         {"Phone1", names.Phone(place)},
                                         {"Phone2", dice.Chance(50) ? names.Phone(place) : ""},
                                         {"Phone3", ""},
                                         {"Email", driver.email},
                                         {"Notes", dice.Chance(25) ? "Doesn't take runs north of the border." : ""},
                                         {"DefaultRate", id % 10 == 0 ? Value(Null{}) : Value(driver.dayRate)},
                                         {"SSN", "000-00-" + Digits(dice, 4)},
                                         {"DriversLicenseNo", "T" + Digits(dice, 7)},
                                         {"DriversLicenseExpiration", expiry()},
                                         {"PassportNo", dice.Chance(60) ? "P" + Digits(dice, 7) : ""},
                                         {"PassportExpiration", expiry()},
                                         {"Inactive", driver.inactive},
                                         {"DateEntered", HiringDay(plan, dice)},
                                         {"EnteredBy", "office"}});
        fleet.drivers.push_back(std::move(driver));
    }
}

Vehicle MakeVehicle(int id, Dice& dice)
{
    Vehicle vehicle;
    vehicle.id = id;
    vehicle.type = TypeAt(id - 1);
    const int number = 100 + id;
    if (vehicle.IsCoach()) {
        vehicle.name = Numbered(coachNames[static_cast<std::size_t>(id - 1) % coachNames.size()], number);
        vehicle.dayRate = 675 + 25 * dice.Between(0, 15);
        vehicle.bunks = dice.Chance(60) ? 12 : dice.Between(4, 6) * 2;
    } else if (vehicle.IsTruck()) {
        vehicle.name = Numbered("Truck", number);
        vehicle.dayRate = 425 + 25 * dice.Between(0, 6);
    } else {
        vehicle.name = Numbered("Trailer", number);
        vehicle.dayRate = 75 + 5 * dice.Between(0, 5);
    }
    // Most vehicles pay their commission as a share of the rate, some as a fixed amount.
    if (dice.Chance(80))
        vehicle.commissionPercent = 5 * dice.Between(1, 3) / 100.0;
    else
        vehicle.commissionAmount = 10.0 * dice.Between(2, 6);
    vehicle.inactive = id % 17 == 0;
    return vehicle;
}

void AddVehicles(Fleet& fleet, const Plan& plan, Dice& dice)
{
    for (int id = 1; id <= plan.Vehicles(); ++id) {
        Vehicle vehicle = MakeVehicle(id, dice);
        const auto card = [&](int percent) { return dice.Chance(percent) && vehicle.IsCoach() ? Digits(dice, 8) : ""; };
        const char* model = vehicle.IsCoach()   ? dice.Pick(coachModels)
                            : vehicle.IsTruck() ? dice.Pick(truckModels)
                                                : dice.Pick(trailerModels);
        const bool hasDriver = !vehicle.IsTrailer() && dice.Chance(60);
        fleet.vehicleRows.rows.push_back(
            {{"Name", vehicle.name},
             {"Type", vehicle.type},
             {"Model", std::to_string(dice.Between(2014, 2025)) + " " + model},
             {"VIN", Serial("1L9", 17, dice)},
             {"Tag", Serial(Digits(dice, 3) + "-", 7, dice)},
             {"State", dice.Pick(homeStates)},
             {"OwnerID", vehicle.type.starts_with("Sub-Lease") ? dice.Between(10, plan.Owners()) : dice.Between(1, 9)},
             {"Bunks", vehicle.bunks},
             {"Lease", vehicle.dayRate},
             {"CommAmount", vehicle.commissionAmount},
             {"CommPercent", vehicle.commissionPercent},
             {"Satellite", vehicle.IsCoach() ? 30.0 : 0.0},
             {"Internet", vehicle.IsCoach() ? 20.0 : 0.0},
             {"Notes", dice.Chance(20) ? "Rear lounge refitted; the old carpet's gone." : ""},
             {"FrontSatAccessCard", card(80)},
             {"RearSatAccessCard", card(60)},
             {"InternetCard", card(70)},
             {"DriverXMID", card(50)},
             {"DefaultDriver", hasDriver ? Value(dice.Between(1, plan.Drivers())) : Value(Null{})},
             {"DefaultAddDriver", Null{}},
             {"Inactive", vehicle.inactive},
             {"DateEntered", HiringDay(plan, dice)},
             {"EnteredBy", "office"}});
        fleet.vehicles.push_back(std::move(vehicle));
    }
}

}

Fleet MakeFleet(const Plan& plan)
{
    Fleet fleet;
    Dice dice(plan.seed, "fleet");
    Names names(dice);
    AddOwners(fleet, plan, dice, names);
    AddDrivers(fleet, plan, dice, names);
    AddVehicles(fleet, plan, dice);
    return fleet;
}

}
