#include "bench/BareDatabase.h"
#include "bench/Benches.h"
#include "bench/Desk.h"
#include "bench/StatementsOf.h"
#include "bench/Timing.h"
#include "master/frmCustomerEntry2.h"

#include <stdexcept>
#include <utility>

namespace rovanta::bench {

std::vector<Result> MeasureLists(const BenchOffice& office, Desk& desk)
{
    BareDatabase database(office.ConnectionText());
    BareStatement states(database, R"(SELECT "State" FROM "State" ORDER BY "State" NULLS FIRST)");
    BareStatement customers(database, R"(SELECT "ID", "Name" FROM "Customer" ORDER BY "Name" NULLS FIRST)");
    const auto open = [&] {
        auto& screen = desk.app.Open<frmCustomerEntry2>();
        if (screen.cmbCustomer.ListCount() != BenchOffice::customers)
            throw std::runtime_error("The customer list is not whole");
        desk.app.Unload(screen);
        desk.app.DropClosed();
    };
    std::vector<std::pair<std::string, std::int64_t>> list;
    std::vector<std::string> stateList;
    constexpr int stateCombos = 5;
    const auto bare = [&] {
        for (int i = 0; i < stateCombos; ++i) {
            stateList.clear();
            while (states.Step())
                stateList.push_back(states.Text(0));
            states.Reset();
        }
        list.clear();
        while (customers.Step())
            list.emplace_back(customers.Text(1), customers.Whole(0));
        customers.Reset();
    };
    const std::string counts = CountsOf(StatementsOf(desk, open), StatementsOf(desk, bare));
    const Pair times = MediansOf(15, open, bare);
    return {Compared("Opening the customer screen with its list of 20,000", times.program, times.bare, std::nullopt,
                     counts)};
}

}
