#include "app/OfficeMaker.h"
#include "tools/CommandLine.h"
#include "tools/Terminal.h"
#include "tools/demo/DemoOffice.h"

#include <iostream>

namespace rovanta {

static std::string NewPassword(const CommandLine& line)
{
    if (line.password)
        return *line.password;
    if (!HasTerminal())
        throw UsageError("There is no terminal to ask for the password of " + line.user + ": give --password.");
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
