#pragma once

#include <cstdio>
#include <string>

namespace rovanta {

/// Tells how many cases of one kind were run and passed, in the words that scripts/engine_table.py reads.
inline void TellTally(const std::string& kind, std::size_t passed, std::size_t run)
{
    std::printf("[tally] %s: %zu of %zu passed\n", kind.c_str(), passed, run);
    std::fflush(stdout);
}

}
