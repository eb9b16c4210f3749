#include "app/OfficeMaker.h"
#include "store/Schema.h"
#include "tools/Backup.h"
#include "tools/CommandLine.h"
#include "tools/OfficeCheck.h"
#include "tools/OfficeCopy.h"
#include "tools/Terminal.h"
#include "tools/demo/DemoOffice.h"

#include <filesystem>
#include <iostream>

namespace rovanta {

static std::string NewPassword(const CommandLine& line)
{
    const bool fromInput = line.password == "-";
    if (line.password && !fromInput)
        return *line.password;
    if (fromInput && !HasTerminal())
        return ReadSecret();
    if (!HasTerminal())
        throw UsageError("There is no terminal to ask for the password of " + line.user +
                         ": give --password - and a line with it at the standard input.");
    std::string password = AskSecret("Password of " + line.user + ": ");
    if (AskSecret("Once more: ") != password)
        throw RunTimeError("The two passwords differ.");
    return password;
}

static void Create(const CommandLine& line)
{
    OfficePlan plan;
    plan.folder = line.folder;
    plan.connection = line.connection;
    plan.user = line.user;
    plan.password = NewPassword(line);
    CreateOffice(plan);
    std::cout << "Made an empty office in " << line.folder << ". Its first user is " << line.user << ".\n";
}

static void Demo(const CommandLine& line)
{
    demo::Plan plan;
    plan.seed = line.seed;
    plan.scale = line.scale;
    plan.today = line.today.value_or(plan.today);
    CreateDemoOffice(line.folder, line.connection, plan);
    std::cout << "Made the demo office in " << line.folder << ".\n"
              << "Users (name / password):\n"
              << "  " << DemoUser::admin << " / " << DemoUser::adminPassword << "   may do everything\n"
              << "  " << DemoUser::desk << " / " << DemoUser::deskPassword << "   may look at most things\n";
}

/// 0 when all is well.
static int Check(const CommandLine& line)
{
    const Configuration configuration = ReadConfigFile((std::filesystem::path(line.folder) / "config.txt").string());
    Connection connection;
    connection.Open(configuration.ConnectionString);
    RequireOffice(connection);
    const std::vector<FindingGroup> groups = CheckOffice(connection, configuration);
    std::cout << FindingsText(groups);
    for (const FindingGroup& group : groups)
        if (!group.lines.empty())
            return 1;
    return 0;
}

static void Copy(const CommandLine& line)
{
    const CopyReport report = CopyOffice(line.from, line.to);
    std::int64_t rows = 0;
    for (const TableSum& table : report.tables) {
        std::cout << table.table << ": " << table.rows << "\n";
        rows += table.rows;
    }
    for (const std::string& view : report.viewsLeft)
        std::cout << "The view " << view << " was not copied.\n";
    for (const std::string& table : report.tablesGone)
        std::cout << "The table " << table << " was dropped meanwhile.\n";
    std::cout << "Copied " << rows << " rows of " << report.tables.size()
              << " tables; counts and sums agree on both sides.\n";
}

static void Backup(const CommandLine& line)
{
    const std::uintmax_t size = BackUpOffice(line.folder, line.to);
    std::cout << "Saved the database of " << line.folder << " in " << line.to << ", " << size
              << " bytes, and read it whole.\n";
}

static void Restore(const CommandLine& line)
{
    const std::string kept = RestoreOffice(line.folder, line.from);
    std::cout << "The database of " << line.folder << " is that of " << line.from << " now.\n";
    if (!kept.empty())
        std::cout << "The one before is kept in " << kept << "\n";
}

static int Run(const std::vector<std::string>& arguments)
{
    const CommandLine line = ReadCommandLine(arguments);
    switch (line.command) {
    case Command::Help:
        std::cout << UsageText();
        break;
    case Command::Create:
        Create(line);
        break;
    case Command::Demo:
        Demo(line);
        break;
    case Command::Check:
        return Check(line);
    case Command::Copy:
        Copy(line);
        break;
    case Command::Backup:
        Backup(line);
        break;
    case Command::Restore:
        Restore(line);
        break;
    }
    return 0;
}

}

int main(int count, char** values)
{
    try {
        return rovanta::Run({values + 1, values + count});
    } catch (const rovanta::UsageError& error) {
        std::cerr << "rovanta-db: " << error.what() << "\nrovanta-db --help tells how to use it.\n";
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "rovanta-db: " << error.what() << "\n";
        return 1;
    }
}
