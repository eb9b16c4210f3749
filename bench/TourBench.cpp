#include "bench/BareTour.h"
#include "bench/Benches.h"
#include "bench/Desk.h"
#include "bench/StatementsOf.h"
#include "bench/Timing.h"
#include "tours/frmRentalEntry.h"

namespace rovanta::bench {

std::vector<Result> MeasureTours(const BenchOffice& office, Desk& desk)
{
    BareDatabase database(office.ConnectionText());
    BareTour bare(database);
    auto& screen = desk.app.Open<frmRentalEntry>();
    const std::string tour = std::to_string(BenchOffice::largeTour);

    const auto load = [&] { screen.LoadTour(tour); };
    const auto bareLoad = [&] { bare.Load(BenchOffice::largeTour); };
    const int loadStatements = StatementsOf(desk, load);
    const int bareLoadStatements = StatementsOf(desk, bareLoad);
    const Pair loading = MediansOf(21, load, bareLoad);

    int saves = 0;
    const auto save = [&] {
        desk.PassTime();
        screen.btnSave.Click.Fire();
    };
    const auto bareSave = [&] { bare.Save("2026-03-03 10:00:" + std::to_string(10 + ++saves)); };
    // Each side reads anew what the other has written, outside of what is counted and timed.
    const auto turn = [&](auto work, auto reload) {
        reload();
        return MillisecondsOf(work);
    };
    load();
    const int saveStatements = StatementsOf(desk, save);
    bareLoad();
    const int bareSaveStatements = StatementsOf(desk, bareSave);
    std::vector<double> programTimes;
    std::vector<double> bareTimes;
    constexpr int repetitions = 15;
    for (int i = 0; i < repetitions; ++i) {
        programTimes.push_back(turn(save, load));
        bareTimes.push_back(turn(bareSave, bareLoad));
    }
    desk.app.Unload(screen);
    desk.app.DropClosed();
    return {Compared("Loading a tour of 40 lines among 20,000", loading.program, loading.bare, std::nullopt,
                     CountsOf(loadStatements, bareLoadStatements)),
            Compared("Saving it, with the tour list filled anew", Median(programTimes), Median(bareTimes), 1.5,
                     CountsOf(saveStatements, bareSaveStatements))};
}

}
