#pragma once

#include "bench/BareDatabase.h"
#include "bench/Desk.h"
#include "store/Engine.h"

namespace rovanta::bench {

/// How many statements a piece of work begins, the desk's or a bare one, each on either engine. On a server the desk's
/// are counted as its round trips.
template <class Work>
int StatementsOf(Desk& desk, Work work)
{
    const StatementCounter counter;
    const Engine& engine = desk.app.AppConnection.GetEngine();
    const std::uint64_t roundTrips = engine.RoundTrips();
    const int bare = BarePostgres::StatementsRun();
    work();
    return counter.Count() + static_cast<int>(engine.RoundTrips() - roundTrips) + BarePostgres::StatementsRun() - bare;
}

inline std::string CountsOf(int program, int bare)
{
    return std::to_string(program) + " statements, bare " + std::to_string(bare);
}

}
