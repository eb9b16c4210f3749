#pragma once

#include "bench/BareSqlite.h"

#include <string>

namespace rovanta::bench {

/// How many statements a piece of work begins.
template <class Work>
int StatementsOf(Work work)
{
    const StatementCounter counter;
    work();
    return counter.Count();
}

inline std::string CountsOf(int program, int bare)
{
    return std::to_string(program) + " statements, bare " + std::to_string(bare);
}

}
