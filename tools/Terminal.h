#pragma once

#include <string>

namespace rovanta {

/// Whether a person sits at the standard input.
bool HasTerminal();
/// Reads one line of the standard input. Throws RunTimeError when there is none.
std::string ReadSecret();
/// Asks on the terminal and reads one line without showing it. Throws RunTimeError when the input ends.
std::string AskSecret(const std::string& question);

}
