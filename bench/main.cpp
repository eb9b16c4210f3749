#include "bench/BareDatabase.h"
#include "bench/BenchOffice.h"
#include "bench/BenchServer.h"
#include "bench/Benches.h"
#include "bench/Desk.h"
#include "bench/Timing.h"

#include <array>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sys/utsname.h>
#include <utility>

namespace rovanta::bench {

namespace {

/// A folder that no disk lies behind.
constexpr const char* memory = "/dev/shm";

constexpr const char* usage = R"(Usage: rovanta-bench [--folder DIR] [--results FILE] [--only WORD] [--engine WORD]

Measures the program on SQLite and on PostgreSQL beside bare statements on each, in an office of 20,000 tours, and prints
a table.
  --folder DIR     where the offices and the PostgreSQL server are made; its disk is what the saves wait for, and whoever
                   the server runs as must be able to go there. /var/tmp without it
  --results FILE   writes the table there, too
  --only WORD      measures one part alone: starts, tours, pricing, passes, billing, lists or statements
  --engine WORD    measures one engine alone: sqlite or postgresql
)";

struct Options {
    std::filesystem::path folder = "/var/tmp";
    std::string results;
    std::string only;
    std::string engine;
    bool help = false;
};

Options ReadOptions(const std::vector<std::string>& arguments)
{
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& option = arguments[i];
        if (option == "--help") {
            options.help = true;
            return options;
        }
        const bool known = option == "--folder" || option == "--results" || option == "--only" || option == "--engine";
        if (i + 1 == arguments.size() || !known)
            throw std::runtime_error("What is \"" + option + "\"? --help tells the options.");
        const std::string& value = arguments[++i];
        if (option == "--folder")
            options.folder = value;
        else if (option == "--results")
            options.results = value;
        else
            (option == "--only" ? options.only : options.engine) = value;
    }
    if (!options.engine.empty() && options.engine != "sqlite" && options.engine != "postgresql")
        throw std::runtime_error("There is no engine \"" + options.engine + "\": sqlite or postgresql.");
    return options;
}

/// How long a statement takes that does next to nothing.
double MillisecondsOfStatement(BareDatabase& database, const char* text)
{
    BareStatement statement(database, text);
    std::vector<double> times;
    constexpr int repetitions = 51;
    times.reserve(repetitions);
    for (int i = 0; i < repetitions; ++i)
        times.push_back(MillisecondsOf([&] { statement.RunOnce(); }));
    return Median(times);
}

/// The engine, how it is set, and what a statement costs on it however it is written.
std::string FactsOf(const BenchOffice& office)
{
    BareDatabase database(office.ConnectionText());
    std::string facts;
    if (BarePostgres* postgres = database.Postgres()) {
        BareStatement settings(database, "SELECT concat_ws(', ', 'fsync ' || current_setting('fsync'), "
                                         "'synchronous_commit ' || current_setting('synchronous_commit'), "
                                         "'full_page_writes ' || current_setting('full_page_writes'))");
        settings.Step();
        facts = "PostgreSQL " + postgres->Version() + " on a unix socket, " + settings.Text(0);
    } else {
        facts = std::string("SQLite ") + sqlite3_libversion() + " in WAL, `synchronous` FULL, in " +
                (office.Folder().starts_with(memory) ? "memory" : "a file");
    }
    return facts + ". One statement that reads nothing: " + Shown(MillisecondsOfStatement(database, "SELECT 1"), "ms") +
           "; one commit of a row: " +
           Shown(MillisecondsOfStatement(database, R"(UPDATE "Company" SET "KeyPressDelay" = 3 - "KeyPressDelay")"),
                 "ms") +
           ".";
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

/// How many programs wanted a processor in the last minute.
double Load()
{
    double load = 0;
    getloadavg(&load, 1);
    return load;
}

/// The works that a desk does on either engine.
struct Part {
    const char* word;
    std::vector<Result> (*measure)(const BenchOffice&, Desk&);
    /// Whether it writes. Where each commit waits for a disk, the wait hides what the program itself adds; so it is
    /// measured once more where nothing does.
    bool writes;
};

// The billing adds a customer and tours of its own, so it comes behind what counts them.
constexpr std::array<Part, 4> parts{{{"tours", MeasureTours, true},
                                     {"passes", MeasureDailyPass, true},
                                     {"lists", MeasureLists, false},
                                     {"billing", MeasureBilling, true}}};

constexpr const char* explanation = R"(
An office of 20,000 customers and 20,000 tours on each engine. "Bare" are the same statements as bare, prepared calls of
the engine's own C API, each committed by itself as in the program, unless the remark says otherwise: new values are sent
with each, and all values are read out of what comes back. On PostgreSQL the statements of the program are counted as its
round trips.
)";

class Run {
public:
    explicit Run(Options options) : options(std::move(options)) {}

    void MeasureAll()
    {
        for (const CommitsWait wait : {CommitsWait::ForTheDisk, CommitsWait::ForNothing}) {
            if (options.engine != "postgresql")
                MeasureSqlite(wait);
            if (options.engine != "sqlite")
                MeasurePostgres(wait);
        }
    }

    std::string Report() const
    {
        std::string text = "# Results of the benchmarks\n"
                           "Written by `bench/run.sh`; a release build, both engines and both sides in one run, "
                           "medians of several runs after a warm-up.\nMachine: " +
                           MachineText() + ". Its load was " + Shown(loadBefore, "") + " before the run and " +
                           Shown(Load(), "") + " at its end.\n" + explanation + "\n";
        for (const std::string& fact : facts)
            text += "- " + fact + "\n";
        text += "\n" + TableOf(sqlite, postgres);
        return plain.empty() ? text : text + "\n## Without a database\n" + PlainTableOf(plain);
    }

private:
    bool Wants(const std::string& word) const { return options.only.empty() || word == options.only; }

    void MeasureSqlite(CommitsWait wait)
    {
        const bool disk = wait == CommitsWait::ForTheDisk;
        if (!disk && !std::filesystem::is_directory(memory))
            return;
        const BenchOffice office(disk ? options.folder : std::filesystem::path(memory));
        Measure(office, wait, sqlite);
        if (disk && Wants("pricing")) {
            Desk desk(office);
            plain = MeasurePricing(office, desk);
        }
    }

    void MeasurePostgres(CommitsWait wait)
    {
        std::cerr << "Starting a PostgreSQL server...\n";
        BenchServer server(options.folder, wait);
        Measure(BenchOffice(options.folder, server.MakeDatabase("bench")), wait, postgres);
    }

    void Measure(const BenchOffice& office, CommitsWait wait, std::vector<Result>& results)
    {
        const bool disk = wait == CommitsWait::ForTheDisk;
        const auto add = [&](const std::string& word, auto measure) {
            if (!Wants(word))
                return;
            std::cerr << "Measuring " << word << " in " << office.Folder() << "...\n";
            for (Result& result : measure()) {
                result.what += disk ? "" : ", no disk to wait for";
                results.push_back(std::move(result));
            }
        };
        facts.push_back((disk ? "" : "No disk to wait for: ") + FactsOf(office));
        const std::filesystem::path programs = std::filesystem::read_symlink("/proc/self/exe").parent_path();
        if (disk)
            add("starts", [&] { return MeasureStart(office, programs); });
        Desk desk(office);
        for (const Part& part : parts)
            if (disk || part.writes)
                add(part.word, [&] { return part.measure(office, desk); });
        if (disk)
            add("statements", [&] { return MeasureStatements(office); });
    }

    Options options;
    double loadBefore = Load();
    std::vector<std::string> facts;
    std::vector<Result> sqlite, postgres, plain;
};

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
        rovanta::bench::StatementCounter::WatchNewConnections();
        rovanta::bench::Run run(options);
        run.MeasureAll();
        const std::string report = run.Report();
        std::cout << report;
        if (!options.results.empty())
            rovanta::bench::WriteFile(options.results, report);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "rovanta-bench: " << error.what() << "\n";
        return 1;
    }
}
