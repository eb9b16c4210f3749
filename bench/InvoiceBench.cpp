#include "bench/BarePass.h"
#include "bench/Benches.h"
#include "bench/Desk.h"
#include "bench/StatementsOf.h"
#include "bench/Timing.h"
#include "billing/DailyInvoices.h"
#include "billing/frmCreateInvoices.h"
#include "tours/frmRentalEntry.h"

#include <stdexcept>

namespace rovanta::bench {

namespace {

/// A daily pass over a tour, by the program and by bare statements.
class Passes {
public:
    Passes(const BenchOffice& office, Desk& desk, int tour, std::size_t periods)
        : desk(desk), tour(tour), database(office.ConnectionText()), bare(database),
          screen(desk.app.Open<frmRentalEntry>())
    {
        screen.LoadTour(std::to_string(tour));
        const std::vector<BilledItem> items = desk.app.Open<frmCreateInvoices>().ReadItems();
        DailyBilling billing;
        billing.firstBillDate = items.front().start;
        billing.firstDueDate = AddDays(items.front().start, -7);
        billing.lastDay = items.back().end;
        planned = PlanDailyInvoices(billing, items, {desk.app.company.CompanyTaxRate, desk.app.company.DefaultTaxable});
        for (const BilledItem& item : items)
            busIDs.push_back(item.busID);
        customer = std::stoll(screen.cmbCustomer.Key());
        if (planned.size() != periods)
            throw std::runtime_error("The tour makes " + std::to_string(planned.size()) + " invoices, not " +
                                     std::to_string(periods));
    }
    ~Passes()
    {
        desk.app.Unload(screen);
        desk.app.DropClosed();
    }
    Passes(const Passes&) = delete;
    Passes& operator=(const Passes&) = delete;

    /// The dialog, filled for the tour; what the pass itself does follows at its button.
    frmCreateInvoices& Dialog()
    {
        auto& dialog = desk.app.Open<frmCreateInvoices>();
        dialog.PrepareInvoiceDialog(std::to_string(tour));
        desk.host.answers.assign(1, MessageAnswer::Yes);
        desk.PassTime();
        return dialog;
    }

    void RunBare() { bare.Run(tour, customer, busIDs, planned, "2026-03-03 10:00:" + std::to_string(10 + ++passes)); }

    void KeepHouse() { database.KeepHouse(); }

    void RemoveInvoices()
    {
        for (const char* table : {R"("Invoice")", R"("InvoiceItems")"})
            database.Run(std::string("DELETE FROM ") + table + R"( WHERE "TourID" = )" + std::to_string(tour));
    }

    std::size_t Lines() const
    {
        std::size_t lines = 0;
        for (const PlannedInvoice& invoice : planned)
            lines += invoice.lines.size();
        return lines;
    }

private:
    Desk& desk;
    int tour;
    BareDatabase database;
    BarePass bare;
    frmRentalEntry& screen;
    std::vector<PlannedInvoice> planned;
    std::vector<std::string> busIDs;
    std::int64_t customer = 0;
    int passes = 0;
};

Result Measure(const char* what, Desk& desk, Passes& passes, bool fresh)
{
    std::vector<double> programTimes;
    std::vector<double> bareTimes;
    int programStatements = 0;
    int bareStatements = 0;
    passes.KeepHouse();
    constexpr int warmUps = 1;
    constexpr int repetitions = 5;
    for (int i = -warmUps; i < repetitions; ++i) {
        if (fresh)
            passes.RemoveInvoices();
        frmCreateInvoices& dialog = passes.Dialog();
        double time = 0;
        programStatements =
            StatementsOf(desk, [&] { time = MillisecondsOf([&] { dialog.btnCalculate.Click.Fire(); }); });
        programTimes.push_back(time);
        if (fresh)
            passes.RemoveInvoices();
        bareStatements = StatementsOf(desk, [&] { time = MillisecondsOf([&] { passes.RunBare(); }); });
        bareTimes.push_back(time);
    }
    programTimes.erase(programTimes.begin(), programTimes.begin() + warmUps);
    bareTimes.erase(bareTimes.begin(), bareTimes.begin() + warmUps);
    return Compared(what, Median(programTimes), Median(bareTimes), 1.5,
                    CountsOf(programStatements, bareStatements) + ", " + std::to_string(passes.Lines()) +
                        " invoice lines");
}

}

std::vector<Result> MeasureDailyPass(const BenchOffice& office, Desk& desk)
{
    std::vector<Result> results;
    {
        Passes passes(office, desk, BenchOffice::longTour, 52);
        results.push_back(Measure("Daily pass of 52 periods over 10 lines, first time", desk, passes, true));
        results.push_back(Measure("The same pass again, all numbers used again", desk, passes, false));
    }
    Passes passes(office, desk, BenchOffice::yearTour, 45);
    results.push_back(Measure("Daily pass of 45 periods over 40 lines of three days, first time", desk, passes, true));
    return results;
}

}
