#pragma once

#include "tools/demo/Plan.h"
#include "tools/demo/Rows.h"

#include <string>
#include <vector>

namespace rovanta::demo {

/// What the bookings need to know of a vehicle.
struct Vehicle {
    int id = 0;
    std::string name;
    std::string type;
    double dayRate = 0;
    double commissionPercent = 0; ///< as a share of 1
    double commissionAmount = 0;
    int bunks = 0;
    bool inactive = false;

    bool IsTrailer() const { return type == "Trailer"; }
    bool IsTruck() const { return type == "Truck" || type == "Sub-Lease Truck"; }
    bool IsCoach() const { return !IsTrailer() && !IsTruck(); }
};

struct Driver {
    int id = 0;
    std::string name;
    std::string email;
    double dayRate = 0;
    bool inactive = false;
};

/// Owners, drivers and vehicles, with what start-up's other tables hold of them.
struct Fleet {
    std::vector<Vehicle> vehicles;
    std::vector<Driver> drivers;
    TableRows ownerRows{"Owner", {}};
    TableRows driverRows{"Driver", {}};
    TableRows vehicleRows{"Bus", {}};
};

Fleet MakeFleet(const Plan& plan);

}
