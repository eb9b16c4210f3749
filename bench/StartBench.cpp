#include "bench/BenchOffice.h"
#include "bench/Benches.h"
#include "bench/Child.h"
#include "bench/Timing.h"

#include <cstdlib>
#include <stdexcept>

namespace rovanta::bench {

namespace {

constexpr double mostMemory = 80; ///< MiB
constexpr int repetitions = 11;

/// Milliseconds until a program has said its first line, and the most memory that it held.
struct Start {
    double time = 0;
    double peak = 0;
};

/// Starts a program that says "ready", or answers the request when there is one.
Start StartOf(const std::vector<std::string>& command, const std::string& request)
{
    Start start;
    const auto begin = Clock::now();
    Child child(command);
    if (!request.empty())
        child.WriteLine(request);
    const std::string answer = child.ReadLine();
    start.time = std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
    if (answer != "ready" && answer.find("frmLogin") == std::string::npos)
        throw std::runtime_error(command.front() + " shows no login box: " + answer);
    start.peak = child.Peak();
    child.Finish();
    return start;
}

std::string Request(const std::string& method, const std::string& parameters = "{}")
{
    return R"({"jsonrpc":"2.0","id":1,"method":")" + method + R"(","params":)" + parameters + "}";
}

/// What stands between two marks of an answer.
std::string Between(const std::string& text, const std::string& left, const std::string& right)
{
    const auto begin = text.find(left);
    const auto end = text.find(right, begin == std::string::npos ? begin : begin + left.size());
    if (end == std::string::npos)
        throw std::runtime_error("No " + left + " in " + text);
    return text.substr(begin + left.size(), end - begin - left.size());
}

/// A working session by automation: sign-in, the large tour loaded and saved, the long tour billed.
double PeakOfSession(const std::vector<std::string>& command)
{
    Child child(command);
    const auto ask = [&](const std::string& method, const std::string& parameters) {
        child.WriteLine(Request(method, parameters));
        const std::string answer = child.ReadLine();
        if (answer.find("\"error\"") != std::string::npos || answer.find("\"ended\"") != std::string::npos)
            throw std::runtime_error(method + " " + parameters + " answered " + answer);
        return answer;
    };
    const auto pickTour = [&](int tour) {
        const std::string rows =
            ask("db.query", R"({"sql":"SELECT Customer.Name + ' - ' + TourName AS Entry FROM Tour LEFT JOIN Customer )"
                            R"(ON Tour.CustomerID = Customer.ID WHERE Tour.ID = )" +
                                std::to_string(tour) + R"("})");
        const std::string entry = Between(rows, "[[\"", "\"]]");
        ask("control.pick", R"({"form":"frmRentalEntry","control":"cmbTour","text":")" + entry + R"("})");
    };
    ask("control.set", R"({"form":"frmLogin","control":"txtUsername","value":"office"})");
    ask("control.set", R"({"form":"frmLogin","control":"txtPassword","value":"word"})");
    ask("control.click", R"({"form":"frmLogin","control":"btnLogin"})");
    ask("app.menu", R"({"command":"CustomerEntry"})");
    ask("app.menu", R"({"command":"LeaseEntry"})");
    pickTour(BenchOffice::largeTour);
    ask("control.click", R"({"form":"frmRentalEntry","control":"btnSave"})");
    pickTour(BenchOffice::longTour);
    ask("control.click", R"({"form":"frmRentalEntry","control":"btnCalculate"})");
    ask("ui.answer", R"({"answers":["yes"]})");
    ask("control.click", R"({"form":"frmCreateInvoices","control":"btnCalculate"})");
    const double peak = child.Peak();
    child.Finish();
    return peak;
}

Result MemoryOf(const std::string& what, double peak)
{
    return {what, Shown(peak, "MiB"), "", std::nullopt, mostMemory, peak, ""};
}

void MeasureDesktop(std::vector<Result>& results, const BenchOffice& office, const std::filesystem::path& programs)
{
    const std::filesystem::path desktop = programs / "rovanta-bench-desktop";
    const std::filesystem::path window = programs / "rovanta-bench-window";
    if (!exists(desktop) || !exists(window)) {
        results.push_back({"Desktop: start to the login box", "not built", "", std::nullopt, std::nullopt, std::nullopt,
                           "this build has no desktop"});
        return;
    }
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    // What the offscreen platform cannot do is of no interest here.
    setenv("QT_LOGGING_RULES", "*.warning=false", 1);
    setenv("XDG_RUNTIME_DIR", office.Folder().c_str(), 0);
    std::vector<double> desktopTimes;
    std::vector<double> windowTimes;
    std::vector<double> peaks;
    for (int i = 0; i < repetitions + 2; ++i) {
        const Start full = StartOf({desktop, office.ConfigPath()}, "");
        const Start empty = StartOf({window, office.ConfigPath()}, "");
        if (i < 2)
            continue;
        desktopTimes.push_back(full.time);
        windowTimes.push_back(empty.time);
        peaks.push_back(full.peak);
    }
    results.push_back(Compared("Desktop: start to the login box on the screen", Median(desktopTimes),
                               Median(windowTimes), 3, "beside it: an empty Qt window that opens the same store"));
    results.push_back(MemoryOf("Desktop: most memory at the login box", Median(peaks)));
    Child session({desktop, office.ConfigPath()});
    session.ReadLine();
    session.WriteLine(std::to_string(BenchOffice::largeTour));
    session.ReadLine();
    results.push_back(MemoryOf("Desktop: most memory after lists of 20,000 and a save", session.Peak()));
    session.Finish();
}

}

std::vector<Result> MeasureStart(const BenchOffice& office, const std::filesystem::path& programs)
{
    const std::vector<std::string> command = {programs / "rovanta-automation", "--config", office.ConfigPath(),
                                              "--machine", "bench"};
    std::vector<double> times;
    std::vector<double> peaks;
    for (int i = 0; i < repetitions + 2; ++i) {
        const Start start = StartOf(command, Request("app.forms"));
        if (i < 2)
            continue;
        times.push_back(start.time);
        peaks.push_back(start.peak);
    }
    std::vector<Result> results;
    results.push_back({"Automation: start to the login box", Shown(Median(times), "ms"), "", std::nullopt, std::nullopt,
                       std::nullopt, "process start included"});
    results.push_back(MemoryOf("Automation: most memory at the login box", Median(peaks)));
    results.push_back(
        MemoryOf("Automation: most memory after lists of 20,000, a save and a pass", PeakOfSession(command)));
    MeasureDesktop(results, office, programs);
    return results;
}

}
