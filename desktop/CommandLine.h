#pragma once

#include "values/DateTime.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace rovanta {

/// What the desktop was started with.
struct DesktopOptions {
    bool help = false;
    std::string configPath; ///< empty for config.txt beside the program
    std::string machine;
    std::optional<DateTime> clock;
    std::string screenshotFolder; ///< draw every screen into this folder and end
};

/// Options that make no sense; the text says which.
class DesktopUsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads the arguments behind the program's name. Throws DesktopUsageError.
DesktopOptions ReadDesktopOptions(const std::vector<std::string>& arguments);

/// What `--help` prints.
extern const char* const desktopUsage;

}
