#pragma once

#include "values/DateTime.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace rovanta {

/// What the program was started with.
struct CommandLine {
    bool help = false;
    std::string configPath;
    std::string machine;
    std::optional<DateTime> clock;
    /// Run stories instead of answering requests.
    bool run = false;
    std::vector<std::string> stories;
    /// Tell each step of a story in plain words.
    bool tell = false;
    /// Where a story's office is made and kept; empty for a folder that goes.
    std::string keep;
};

/// Options that make no sense; the text says which.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads the arguments behind the program's name. Throws UsageError.
CommandLine ReadCommandLine(const std::vector<std::string>& arguments);

/// What `--help` prints.
extern const char* const usage;

}
