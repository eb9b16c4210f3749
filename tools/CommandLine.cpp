#include "tools/CommandLine.h"

#include "values/Text.h"

#include <algorithm>
#include <charconv>
#include <map>

namespace rovanta {

namespace {

constexpr int largestScale = 100;

/// The arguments behind the command: one folder and options that each take a value.
struct Arguments {
    std::optional<std::string> folder;
    std::map<std::string, std::string> options;
};

Arguments ReadArguments(const std::vector<std::string>& arguments, const std::vector<std::string>& known)
{
    Arguments read;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (!argument.starts_with("-")) {
            if (read.folder)
                throw UsageError("There is one folder too many: " + argument);
            read.folder = argument;
            continue;
        }
        if (std::find(known.begin(), known.end(), argument) == known.end())
            throw UsageError("\"" + arguments[0] + "\" knows no option " + argument + ".");
        if (i + 1 == arguments.size())
            throw UsageError("The option " + argument + " needs a value behind it.");
        read.options[argument] = arguments[++i];
    }
    if (!read.folder || read.folder->empty())
        throw UsageError("\"" + arguments[0] + "\" needs the folder of the office.");
    return read;
}

template <class Number>
Number WholeNumber(const std::string& option, const std::string& text, Number lowest, Number highest)
{
    Number number{};
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (failure != std::errc{} || end != text.data() + text.size() || number < lowest || number > highest)
        throw UsageError("The option " + option + " takes a whole number from " + std::to_string(lowest) + " to " +
                         std::to_string(highest) + ", not \"" + text + "\".");
    return number;
}

void ReadDemoOptions(CommandLine& line, const Arguments& arguments)
{
    for (const auto& [option, text] : arguments.options) {
        if (option == "--seed")
            line.seed = WholeNumber<std::uint64_t>(option, text, 0, UINT64_MAX);
        else if (option == "--scale")
            line.scale = WholeNumber(option, text, 1, largestScale);
        else if (option == "--today")
            line.today = ParseDate(text);
        if (option == "--today" && !line.today)
            throw UsageError("The option --today takes a date such as 11/16/2026, not \"" + text + "\".");
    }
}

}

CommandLine ReadCommandLine(const std::vector<std::string>& arguments)
{
    CommandLine line;
    for (const std::string& argument : arguments)
        if (argument == "--help" || argument == "-h")
            return line;
    if (arguments.empty())
        throw UsageError("Tell what to do: create or demo.");
    if (arguments[0] != "create" && arguments[0] != "demo")
        throw UsageError("There is no command \"" + arguments[0] + "\".");
    line.command = arguments[0] == "create" ? Command::Create : Command::Demo;
    const std::vector<std::string> known =
        line.command == Command::Create ? std::vector<std::string>{"--connection", "--user", "--password"}
                                        : std::vector<std::string>{"--connection", "--seed", "--scale", "--today"};
    const Arguments read = ReadArguments(arguments, known);
    line.folder = *read.folder;
    for (const auto& [option, text] : read.options) {
        if (option == "--connection")
            line.connection = text;
        else if (option == "--user")
            line.user = text;
        else if (option == "--password")
            line.password = text;
    }
    ReadDemoOptions(line, read);
    return line;
}

const char* UsageText()
{
    return R"(Usage: rovanta-db COMMAND FOLDER [OPTION VALUE]...

  create FOLDER   makes an empty office in the folder: config.txt, the database, one user who may do
                  everything, and the folders of pictures, lease templates and documents
    --connection TEXT   the database, as config.txt names it: "sqlite:" and a file, counted from the
                        folder; without it rovanta.db in the folder
    --user NAME         the first user; without it "admin"
    --password WORD     the user's password; without it the terminal asks for it

  demo FOLDER     makes an office with an invented company in it, ready to look around
    --connection TEXT   as above
    --seed N            another company for another number; 1 without it
    --scale N           N times as many vehicles, customers and tours, up to 100; 1 without it
    --today DATE        the day on which the company stands still; 11/16/2026 without it

  --help          this text

Nothing that exists is overwritten: a folder that holds an office already is refused. What fails leaves
nothing behind. Exit codes: 0 done, 1 it did not work, 2 the command line makes no sense.
)";
}

}
