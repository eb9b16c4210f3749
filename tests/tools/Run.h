#pragma once

#include <doctest/doctest.h>

#include <array>
#include <cstdio>
#include <string>

#include <sys/wait.h>

namespace rovanta::tests {

struct ToolOutcome {
    int code = 0;
    std::string output; ///< both streams
};

/// Runs rovanta-db with that file at its standard input, where nobody sits.
inline ToolOutcome RunTool(const std::string& arguments, const std::string& input = "/dev/null")
{
    const std::string command = std::string(BINARY_FOLDER) + "/bin/rovanta-db " + arguments + " 2>&1 <" + input;
    ToolOutcome outcome;
    std::FILE* pipe = popen(command.c_str(), "r");
    REQUIRE(pipe != nullptr);
    std::array<char, 512> buffer{};
    while (std::fgets(buffer.data(), buffer.size(), pipe) != nullptr)
        outcome.output += buffer.data();
    outcome.code = WEXITSTATUS(pclose(pipe));
    return outcome;
}

}
