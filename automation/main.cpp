#include "app/Screens.h"
#include "automation/CommandLine.h"
#include "automation/Desk.h"
#include "automation/Dispatcher.h"
#include "automation/Stories.h"

#include <iostream>

using namespace rovanta;

int main(int count, char** arguments)
{
    CommandLine line;
    try {
        line = ReadCommandLine({arguments + 1, arguments + count});
    } catch (const UsageError& error) {
        std::cerr << error.what() << "\nrovanta-automation --help tells the options.\n";
        return 2;
    }
    if (line.help) {
        std::cout << usage;
        return 0;
    }
    if (line.run)
        return PlayStories(line.stories, {line.configPath, line.keep, line.tell}, std::cout) == 0 ? 0 : 1;
    Desk desk(AllScreens(), {line.configPath, line.machine, line.clock});
    return Serve(desk, std::cin, std::cout);
}
