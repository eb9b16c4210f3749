#pragma once

#include <array>
#include <string>

namespace rovanta {

class Connection;

/// The charges of a tour line in the order of the company's defaults.
namespace Charge {
enum Index {
    Satellite,
    Internet,
    HotelBuyOut,
    Supplies,
    BusWash,
    Linen,
    Generator,
    Fuel,
    Engine,
    Carpet,
    Cleaning,
    Permit,
    Misc,
    DOT,
    PayrollFee,
    Admin,
    Bus,
    Driver,
    Count
};
}

/// The charges in the order of the eighteen taxable flags.
namespace Taxable {
enum Index {
    Bus,
    Driver,
    DOT,
    Satellite,
    Internet,
    HotelBuyOut,
    Supplies,
    BusWash,
    Linen,
    Generator,
    Fuel,
    Engine,
    Carpet,
    Cleaning,
    Permit,
    Misc,
    PayrollFee,
    Admin,
    Count
};
}

/// The company's row as the program keeps it between its screens.
struct Company {
    std::string CompanyName;
    std::string CompanyAddress1;
    std::string CompanyAddress2;
    std::string CompanyCity;
    std::string CompanyState;
    std::string CompanyZip;
    std::string CompanyPhone;
    std::string CompanyFax;
    std::string CompanyWebsite;
    std::string CompanyEmail;
    double KeyPressDelay = 0;  ///< seconds
    double CompanyTaxRate = 0; ///< percent
    std::string MaintenanceEmail;
    std::string EmailFromAddress;
    std::string EmailFromName;
    std::string EmailServer;
    std::string EmailServerUser;
    std::string EmailServerPassword;
    double OwnerEngineShare = 0;
    std::array<double, 16> DefaultRates{};                ///< by Charge::Index, Bus and Driver excluded
    std::array<std::string, Charge::Count> DefaultPayers; ///< by Charge::Index
    std::array<bool, Taxable::Count> DefaultTaxable{};    ///< by Taxable::Index
};

/// Copies the company's row column by column, with no guard against NULL. Returns false and leaves `company` untouched
/// when the table is empty. Throws RunTimeError naming the column where a value is missing.
bool ReadCompany(Connection& connection, Company& company);

}
