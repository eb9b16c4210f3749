#include "desktop/CommandLine.h"

namespace rovanta {

const char* const desktopUsage =
    R"(Usage: rovanta [--config PATH/config.txt] [--clock "yyyy-mm-dd hh:mm:ss"] [--machine NAME]
       rovanta [--config PATH/config.txt] --screenshots FOLDER

Opens the office in windows.

  --config PATH         the office's config.txt; without it the one beside the program
  --clock TIME          freezes the program's clock
  --machine NAME        the machine that this copy stands for, so that several run side by side
  --screenshots FOLDER  draws every screen off screen into the folder, at scale 1 and 1.5, and ends
  --help                this text

Exit codes: 0 when the program was left, 1 when the start failed or a failure ended it, 2 for options that make
no sense.
)";

static std::string ValueOf(const std::vector<std::string>& arguments, std::size_t& at)
{
    if (at + 1 >= arguments.size())
        throw DesktopUsageError("The option " + arguments[at] + " needs a value.");
    return arguments[++at];
}

static DateTime ClockFrom(const std::string& text)
{
    const std::optional<DateTime> clock = ParseDate(text);
    if (!clock)
        throw DesktopUsageError("The option --clock needs a date and time, yyyy-mm-dd hh:mm:ss, and \"" + text +
                                "\" is none.");
    return *clock;
}

DesktopOptions ReadDesktopOptions(const std::vector<std::string>& arguments)
{
    DesktopOptions options;
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const std::string& option = arguments[at];
        if (option == "--help" || option == "-h")
            options.help = true;
        else if (option == "--config")
            options.configPath = ValueOf(arguments, at);
        else if (option == "--machine")
            options.machine = ValueOf(arguments, at);
        else if (option == "--clock")
            options.clock = ClockFrom(ValueOf(arguments, at));
        else if (option == "--screenshots")
            options.screenshotFolder = ValueOf(arguments, at);
        else
            throw DesktopUsageError("There is no option " + option + ".");
    }
    return options;
}

}
