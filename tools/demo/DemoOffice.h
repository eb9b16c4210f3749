#pragma once

#include "tools/demo/Plan.h"

#include <filesystem>
#include <string>

namespace rovanta {

/// Makes the demo office: an office as CreateOffice makes it, with invented vehicles, drivers, customers and three
/// years of tours, invoices, payments and maintenance. The same plan gives the same rows and files. Throws as
/// CreateOffice does.
void CreateDemoOffice(const std::filesystem::path& folder, const std::string& connection, const demo::Plan& plan);

/// The users of the demo office.
namespace DemoUser {
inline constexpr const char* admin = "office";
inline constexpr const char* adminPassword = "coach2026";
inline constexpr const char* desk = "desk";
inline constexpr const char* deskPassword = "desk2026";
}

}
