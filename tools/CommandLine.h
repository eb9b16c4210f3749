#pragma once

#include "values/DateTime.h"
#include "values/Errors.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace rovanta {

/// A command line that tells no sensible command; the text says what is wrong with it.
class UsageError : public RunTimeError {
public:
    using RunTimeError::RunTimeError;
};

enum class Command { Help, Create, Demo, Check, Copy, Backup, Restore };

/// What a person asked `rovanta-db` for.
struct CommandLine {
    Command command = Command::Help;
    std::string folder;
    std::string connection;
    std::string user = "admin";
    std::optional<std::string> password;
    std::uint64_t seed = 1;
    int scale = 1;
    std::optional<DateTime> today;
    /// Connection texts for `copy`, the file of a backup for `backup` and `restore`.
    std::string from;
    std::string to;
};

/// Reads the arguments behind the program's name. Throws UsageError.
CommandLine ReadCommandLine(const std::vector<std::string>& arguments);

/// What `--help` prints.
const char* UsageText();

}
