#include "tools/CommandLine.h"

#include "values/Text.h"

#include <algorithm>
#include <charconv>
#include <map>

namespace rovanta {

namespace {

constexpr int largestScale = 100;

enum class Place { Folder, None };

/// How a command is written.
struct CommandWords {
    const char* word;
    Command command;
    Place place;
    std::vector<std::string> options;
    std::vector<std::string> needed;
};

const std::vector<CommandWords>& AllCommands()
{
    static const std::vector<CommandWords> commands = {
        {"create", Command::Create, Place::Folder, {"--connection", "--user", "--password"}, {}},
        {"demo", Command::Demo, Place::Folder, {"--connection", "--seed", "--scale", "--today"}, {}},
        {"check", Command::Check, Place::Folder, {}, {}},
        {"copy", Command::Copy, Place::None, {"--from", "--to"}, {"--from", "--to"}},
        {"backup", Command::Backup, Place::Folder, {"--to"}, {"--to"}},
        {"restore", Command::Restore, Place::Folder, {"--from"}, {"--from"}}};
    return commands;
}

const CommandWords& FindCommand(const std::string& word)
{
    for (const CommandWords& command : AllCommands())
        if (word == command.word)
            return command;
    throw UsageError("There is no command \"" + word + "\".");
}

/// The arguments behind the command: one folder and options that each take a value.
struct Arguments {
    std::optional<std::string> folder;
    std::map<std::string, std::string> options;
};

void RefuseUnfit(const CommandWords& command, const Arguments& read)
{
    const std::string word = "\"" + std::string(command.word) + "\"";
    if (command.place == Place::None && read.folder)
        throw UsageError(word + " takes no folder: " + *read.folder);
    if (command.place == Place::Folder && (!read.folder || read.folder->empty()))
        throw UsageError(word + " needs the folder of the office.");
    const auto missing = std::find_if(command.needed.begin(), command.needed.end(), [&](const std::string& option) {
        const auto given = read.options.find(option);
        return given == read.options.end() || given->second.empty();
    });
    if (missing != command.needed.end())
        throw UsageError(word + " needs the option " + *missing + ".");
}

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

/// A day for the demo's company to stand still on: its three years must lie among the days that the reports know.
DateTime Today(const std::string& text)
{
    const DateTime first = DateTime::Of(1993, 1, 1);
    const DateTime last = DateTime::Of(2078, 12, 31);
    const auto today = ParseDate(text);
    if (!today || *today < first || *today > last)
        throw UsageError("The option --today takes a date from " + ToText(first) + " to " + ToText(last) +
                         ", such as 11/16/2026, not \"" + text + "\".");
    return *today;
}

void ReadDemoOptions(CommandLine& line, const Arguments& arguments)
{
    for (const auto& [option, text] : arguments.options) {
        if (option == "--seed")
            line.seed = WholeNumber<std::uint64_t>(option, text, 0, UINT64_MAX);
        else if (option == "--scale")
            line.scale = WholeNumber(option, text, 1, largestScale);
        else if (option == "--today")
            line.today = Today(text);
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
        throw UsageError("Tell what to do: create, demo, check, copy, backup or restore.");
    const CommandWords& command = FindCommand(arguments[0]);
    line.command = command.command;
    const Arguments read = ReadArguments(arguments, command.options);
    RefuseUnfit(command, read);
    line.folder = read.folder.value_or("");
    for (const auto& [option, text] : read.options) {
        if (option == "--connection")
            line.connection = text;
        else if (option == "--user")
            line.user = text;
        else if (option == "--password")
            line.password = text;
        else if (option == "--from")
            line.from = text;
        else if (option == "--to")
            line.to = text;
    }
    ReadDemoOptions(line, read);
    return line;
}

const char* UsageText()
{
    return R"(Usage: rovanta-db COMMAND FOLDER [OPTION VALUE]...
       rovanta-db copy --from TEXT --to TEXT

  create FOLDER   makes an empty office in the folder: config.txt, the database, one user who may do
                  everything, and the folders of pictures, lease templates and documents
    --connection TEXT   the database, as config.txt names it: a file, counted from the folder, or a server's
                        empty database, by a postgresql:// or an ODBC text; without it rovanta.db in the folder
    --user NAME         the first user; without it "admin"
    --password WORD     the user's password, which others on this machine can see meanwhile; "-" reads it from
                        the standard input, and without the option the terminal asks for it

  demo FOLDER     makes an office with an invented company in it, ready to look around
    --connection TEXT   as above
    --seed N            another company for another number; 1 without it
    --scale N           N times as many vehicles, customers and tours, up to 100; 1 without it
    --today DATE        the day on which the company stands still, from 1/1/1993 to 12/31/2078; 11/16/2026
                        without it

  check FOLDER    looks through the office: lines without a tour, invoices that differ from their lines or
                  payments, files that are missing, texts that break a statement. It repairs nothing. A desk
                  that saves meanwhile can show as a finding that is gone the next time

  copy            copies an office's database to another one, from one engine to another if need be
    --from TEXT         the office's database, as config.txt names it; a file counts from where you are
    --to TEXT           a database without tables; a file that is not there is made

  backup FOLDER   saves the office's database file, while desks work in it
    --to FILE           a file that is not there yet

  restore FOLDER  puts a backup in the place of the database file, when no desk has the office open; the file
                  that was there stays beside it
    --from FILE         the backup

  --help          this text

Nothing that exists is overwritten: a folder that holds an office already is refused. What fails leaves
nothing behind. An office on a server is saved by the server's own tool: backup and restore name it.
Exit codes: 0 done, 1 it did not work or check found something, 2 the command line makes no sense.
)";
}

}
