#pragma once

#include <string>

namespace rovanta {

/// Whether a person sits at the standard input.
bool HasTerminal();
/// Asks on the terminal and reads one line without showing it. Throws RunTimeError when the input ends.
std::string AskSecret(const std::string& question);

}
