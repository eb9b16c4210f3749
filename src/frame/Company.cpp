#include "frame/Company.h"

#include "store/Recordset.h"

#include <utility>

namespace rovanta {

static void ReadTexts(Recordset& row, Company& company)
{
    company.CompanyName = row.Fields("Name").Text();
    company.CompanyAddress1 = row.Fields("Address1").Text();
    company.CompanyAddress2 = row.Fields("Address2").Text();
    company.CompanyCity = row.Fields("City").Text();
    company.CompanyState = row.Fields("State").Text();
    company.CompanyZip = row.Fields("Zip").Text();
    company.CompanyPhone = row.Fields("Phone").Text();
    company.CompanyFax = row.Fields("Fax").Text();
    company.CompanyWebsite = row.Fields("Website").Text();
    company.CompanyEmail = row.Fields("Email").Text();
    company.KeyPressDelay = row.Fields("KeyPressDelay").Number();
    company.CompanyTaxRate = row.Fields("TaxRate").Number();
    company.MaintenanceEmail = row.Fields("MaintenanceEmail").Text();
    company.EmailFromAddress = row.Fields("EmailFromAddress").Text();
    company.EmailFromName = row.Fields("EmailFromName").Text();
    company.EmailServer = row.Fields("EmailServer").Text();
    company.EmailServerUser = row.Fields("EmailServerUser").Text();
    company.EmailServerPassword = row.Fields("EmailServerPassword").Text();
}

static void ReadDefaults(Recordset& row, Company& company)
{
    constexpr std::array rateColumns = {"SatelliteRate", "InternetRate", "HotelBuyOutRate", "SuppliesRate",
                                        "BusWashRate",   "LinenRate",    "GeneratorRate",   "FuelRate",
                                        "EngineRate",    "CarpetTotal",  "CleaningTotal",   "PermitTotal",
                                        "MiscTotal",     "DOTRate",      "PayrollFeeRate",  "AdminFeeRate"};
    constexpr std::array payerColumns = {
        "SatelliteContract", "InternetContract",  "HotelBuyOutContract", "SuppliesContract", "BusWashContract",
        "LinenContract",     "GeneratorContract", "FuelContract",        "EngineContract",   "CarpetContract",
        "CleaningContract",  "PermitContract",    "MiscContract",        "DOTContract",      "PayrollFeeContract",
        "AdminContract",     "BusContract",       "DriverContract"};
    static_assert(rateColumns.size() == std::tuple_size_v<decltype(company.DefaultRates)>);
    static_assert(payerColumns.size() == std::tuple_size_v<decltype(company.DefaultPayers)>);
    for (std::size_t i = 0; i < rateColumns.size(); ++i)
        company.DefaultRates[i] = row.Fields(rateColumns[i]).Number();
    for (std::size_t i = 0; i < payerColumns.size(); ++i)
        company.DefaultPayers[i] = row.Fields(payerColumns[i]).Text();
    for (std::size_t i = 0; i < company.DefaultTaxable.size(); ++i)
        company.DefaultTaxable[i] = row.Fields("Tax" + std::to_string(i)).Flag();
}

bool ReadCompany(Connection& connection, Company& company)
{
    Recordset row("SELECT TOP 1 * FROM Company", connection);
    if (row.Eof())
        return false;
    ReadTexts(row, company);
    company.OwnerEngineShare = 0.9;
    ReadDefaults(row, company);
    return true;
}

}
