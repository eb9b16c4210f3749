#include "bench/Benches.h"
#include "bench/Desk.h"
#include "bench/Timing.h"
#include "tours/frmRentalEntry.h"

namespace rovanta::bench {

/// The sum keeps the compiler from leaving the work out.
static double PriceMany(int times)
{
    TourItemFigures figures;
    figures.billedDays = figures.busDays = 40;
    figures.busRateType = RateType::PerDay;
    double sum = 0;
    for (int i = 0; i < times; ++i) {
        figures.totalMiles = i;
        figures.rate[Line::Fuel] = 1.15;
        sum += PriceTourItem(figures).budget;
    }
    return sum;
}

std::vector<Result> MeasurePricing(const BenchOffice&, Desk& desk)
{
    auto& screen = desk.app.Open<frmRentalEntry>();
    screen.LoadTour(std::to_string(BenchOffice::largeTour));
    int miles = 1000;
    constexpr int boxChanges = 200;
    constexpr int pureCalls = 1000000;
    double sum = 0;
    const Pair times = MediansOf(
        9,
        [&] {
            for (int i = 0; i < boxChanges; ++i)
                screen.txtTotalMiles = ++miles;
        },
        [&] { sum += PriceMany(pureCalls); });
    desk.app.Unload(screen);
    desk.app.DropClosed();
    Result onScreen{"CalculateTourItem on the screen, 40 lines in the grid",
                    Shown(boxChanges / times.program * 1000, "per second"),
                    "",
                    std::nullopt,
                    std::nullopt,
                    std::nullopt,
                    "with every box that it writes"};
    Result pure{"Pricing alone",
                Shown(pureCalls / times.bare / 1000, "million per second"),
                "",
                std::nullopt,
                std::nullopt,
                std::nullopt,
                sum > 0 ? "the pure function" : ""};
    return {onScreen, pure};
}

}
