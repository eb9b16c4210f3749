#pragma once

#include <string>

namespace rovanta {

/// What `config.txt` holds, by the order of its fields alone.
struct Configuration {
    std::string ConnectionString;
    std::string BusImagePath; ///< a folder, with the separator at its end, as the next two
    std::string LeaseTemplatePath;
    std::string DocumentPath;
    std::string OwnerAccountPrefix;
    std::string DriverAccountPrefix;
    std::string TruckIncomeAccount;
    std::string TrailerIncomeAccount;
    std::string EngineServiceAccount;
    std::string DriverExpenseAccount;
    std::string LinenExpenseAccount;
    std::string BusWashExpenseAccount;
    std::string AddDriverExpenseAccount;
};

/// Reads `config.txt`: a heading field, then thirteen pairs of a label, which is thrown away, and a value. Fields end
/// at a comma or a line end; one with commas in it stands in double quotes. Relative folders and file paths count from
/// the folder that the file lies in. Throws RunTimeError naming the file when it is missing or too short.
Configuration ReadConfigFile(const std::string& path);

}
