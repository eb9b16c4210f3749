#include "bench/BareSqlite.h"
#include "bench/BenchOffice.h"
#include "bench/Benches.h"
#include "bench/Desk.h"
#include "bench/Timing.h"

#include <fstream>
#include <iostream>
#include <memory>
#include <sys/utsname.h>

namespace rovanta::bench {

namespace {

constexpr const char* usage = R"(Usage: rovanta-bench [--folder DIR] [--results FILE]

Measures the program beside bare statements in an office of 20,000 tours and prints a table.
  --folder DIR     where the office is made; its disk is what the saves wait for. The temporary folder without it
  --results FILE   writes the table there, too
  --only WORD      measures one part alone: starts, tours, pricing, passes, billing, lists or statements
)";

struct Options {
    std::filesystem::path folder = std::filesystem::temp_directory_path();
    std::string results;
    std::string only;
    bool help = false;
};

Options ReadOptions(const std::vector<std::string>& arguments)
{
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--help") {
            options.help = true;
            return options;
        }
        const std::string& option = arguments[i];
        const bool known = option == "--folder" || option == "--results" || option == "--only";
        if (i + 1 == arguments.size() || !known)
            throw std::runtime_error("What is \"" + arguments[i] + "\"? --help tells the options.");
        if (option == "--folder")
            options.folder = arguments[++i];
        else if (option == "--only")
            options.only = arguments[++i];
        else
            options.results = arguments[++i];
    }
    return options;
}

/// How long one commit of a single row waits for the disk: what a statement costs however it is written.
double MillisecondsOfCommit(const BenchOffice& office)
{
    BareDatabase database(office.DatabasePath());
    BareStatement touch(database, "UPDATE Company SET KeyPressDelay = 3 - KeyPressDelay");
    std::vector<double> times;
    constexpr int repetitions = 51;
    for (int i = 0; i < repetitions; ++i)
        times.push_back(MillisecondsOf([&] { touch.RunOnce(); }));
    return Median(times);
}

std::string MachineText()
{
    utsname machine{};
    uname(&machine);
    std::ifstream cpus("/proc/cpuinfo");
    std::string model = "unknown processor";
    int count = 0;
    for (std::string line; std::getline(cpus, line);) {
        if (!line.starts_with("model name"))
            continue;
        model = line.substr(line.find(": ") + 2);
        ++count;
    }
    return std::string(machine.sysname) + " " + machine.machine + ", " + std::to_string(count) + " x " + model;
}

std::string Report(const std::vector<Result>& results, double commit)
{
    return "# Results of the benchmarks\nWritten by `bench/run.sh`; medians of several runs after a warm-up, a release "
           "build, both sides in one run.\nMachine: " +
           MachineText() + ". SQLite " + sqlite3_libversion() +
           " in WAL, `synchronous` FULL. One commit: " + Shown(commit, "ms") +
           ".\nAn office of 20,000 customers and 20,000 tours. \"Beside it\" are the same statements as bare, prepared "
           "calls of SQLite's C API, each\ncommitted by itself as in the program, unless the remark says "
           "otherwise.\n\n" +
           TableOf(results);
}

class Run {
public:
    explicit Run(std::string only) : only(std::move(only)) {}

    bool Wants(const std::string& what) const { return only.empty() || what == only; }
    void Measure(const char* what, std::vector<Result> (*work)(const BenchOffice&, Desk&),
                 const std::string& remark = "")
    {
        if (!Wants(what))
            return;
        std::cerr << "Measuring " << what << remark << "...\n";
        Add(work(*office, *desk), remark);
    }
    void Add(std::vector<Result> measured, const std::string& remark = "")
    {
        for (Result& result : measured) {
            result.what += remark;
            results.push_back(std::move(result));
        }
    }
    void MakeOffice(const std::filesystem::path& folder)
    {
        std::cerr << "Making the office in " << folder.string() << "...\n";
        desk.reset();
        office = std::make_unique<BenchOffice>(folder);
    }
    void OpenDesk() { desk = std::make_unique<Desk>(*office); }

    std::vector<Result> results;
    std::unique_ptr<BenchOffice> office;
    std::unique_ptr<Desk> desk;

private:
    std::string only;
};

std::string MeasureAll(const std::filesystem::path& folder, const std::string& only)
{
    StatementCounter::WatchNewConnections();
    Run run(only);
    run.MakeOffice(folder);
    if (run.Wants("starts")) {
        std::cerr << "Measuring starts...\n";
        run.Add(MeasureStart(*run.office, std::filesystem::read_symlink("/proc/self/exe").parent_path()));
    }
    run.OpenDesk();
    run.Measure("tours", MeasureTours);
    run.Measure("pricing", MeasurePricing);
    run.Measure("passes", MeasureDailyPass);
    run.Measure("lists", MeasureLists);
    // It adds a customer and tours of its own, so it comes behind what counts them.
    run.Measure("billing", MeasureBilling);
    if (run.Wants("statements"))
        run.Add(MeasureStatements(*run.office));
    const double commit = MillisecondsOfCommit(*run.office);
    // Where each commit waits for a disk, the wait hides what the program itself adds. Here nothing does.
    const std::filesystem::path memory = "/dev/shm";
    if (std::filesystem::is_directory(memory)) {
        run.MakeOffice(memory);
        run.OpenDesk();
        run.Measure("tours", MeasureTours, ", no disk to wait for");
        run.Measure("passes", MeasureDailyPass, ", no disk to wait for");
        run.Measure("billing", MeasureBilling, ", no disk to wait for");
    }
    return Report(run.results, commit);
}

void WriteFile(const std::string& path, const std::string& content)
{
    std::ofstream file(path);
    file << content;
    if (!file.flush())
        throw std::runtime_error("Cannot write " + path);
}

}

}

int main(int count, char** values)
{
    try {
        const auto options = rovanta::bench::ReadOptions({values + 1, values + count});
        if (options.help) {
            std::cout << rovanta::bench::usage;
            return 0;
        }
        const std::string report = rovanta::bench::MeasureAll(options.folder, options.only);
        std::cout << report;
        if (!options.results.empty())
            rovanta::bench::WriteFile(options.results, report);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "rovanta-bench: " << error.what() << "\n";
        return 1;
    }
}
