#include "automation/CommandLine.h"

namespace rovanta {

const char* const usage =
    R"(Usage: rovanta-automation --config PATH/config.txt [--clock "yyyy-mm-dd hh:mm:ss"] [--machine NAME]
       rovanta-automation --run [--tell] [--keep DIR] [--config PATH/config.txt] STORY.test ...

Without --run it is the whole program without a window. It reads JSON-RPC 2.0 requests from standard input,
one object a line, and writes a response a line to standard output, in order, until the end of input.

  --config PATH    the office's config.txt
  --clock TIME     freezes the program's clock
  --machine NAME   the machine that this copy stands for, so that several run side by side

With --run it plays stories and prints what differs.

  --tell           tells each step in plain words
  --keep DIR       makes the story's office in DIR and leaves it there
  --config PATH    plays on this office instead of making the one that the story names

Exit codes: 0 when all went well, 1 when the start failed, the program ended by a failure or a story differs,
2 for options that make no sense.

A story is a text file of steps, a line each; "#" begins a remark, texts with blanks stand in double quotes.
FORM may be left out after "on FORM".

  office NAME                      a fresh office, made with the statements of fixtures/NAME.sql;
                                   its first user is "office" with the password "coach2026"
  clock 2026-03-02 09:00:00        the time of the office
  sign in USER PASSWORD            fills the sign-in box and presses its button
  desk NAME                        goes over to another desk: one more running program in the same office
  desk NAME beside OTHER           the same at the machine of a desk that is there
  start                            starts the program anew after it has ended
  say "..."                        a sentence for --tell
  menu COMMAND                     open FORM               close FORM             on FORM
  set FORM CONTROL VALUE           pick FORM CONTROL ENTRY [off]                  key FORM CONTROL TEXT
  enter FORM CONTROL               leave FORM CONTROL      click FORM CONTROL     doubleClick FORM CONTROL
  edit FORM GRID ROW COL VALUE     select FORM GRID ROW COL [LASTROW]
  click FORM GRID ROW COL          doubleClick, rightClick and hover likewise
  answer yes no ...                for the Yes/No boxes to come
  file PATH                        for the next file dialog; {office} and {story} are their folders
  execute SQL                      call METHOD {JSON}

What the last step must have brought:

  message TITLE TEXT [ICON] [yes|no]       the next message box; a box that no line expects fails the story
  ended [TEXT]                             the program ended, with this text in its own
  popup NAME                               the pop-up menu that came up, "none" for none
  result {JSON}                            the result holds these members
  refused STEP                             the step is refused: disabled, hidden or not to be edited
  wrong STEP                               the step names something that does not exist or does not fit

What must be seen now:

  expect FORM CONTROL VALUE                its text, value or caption
  expect FORM CONTROL PROPERTY VALUE       display, caption, listIndex, page, rows, row, file and so on
  expect FORM CONTROL enabled              or disabled, visible, hidden, ticked, unticked, empty
  entries FORM CONTROL ENTRY ...           the whole list of a combo or list box
  shown FORM                               gone FORM
  cell FORM GRID ROW COL TEXT              COL is a number or the caption of the column
  cells FORM GRID [FIRST [LAST]] [: COL ...]   followed by indented rows, the cells with | between them
  query SELECT ...                         followed by indented rows; null is NULL, * stands for anything
  exists PATH                              absent PATH
)";

static std::string ValueOf(const std::vector<std::string>& arguments, std::size_t& at)
{
    if (at + 1 >= arguments.size())
        throw UsageError("The option " + arguments[at] + " needs a value.");
    return arguments[++at];
}

static DateTime ClockFrom(const std::string& text)
{
    const std::optional<DateTime> clock = ParseDate(text);
    if (!clock)
        throw UsageError("The option --clock needs a date and time, yyyy-mm-dd hh:mm:ss, and \"" + text +
                         "\" is none.");
    return *clock;
}

static void Check(const CommandLine& line)
{
    if (line.help)
        return;
    if (line.run && line.stories.empty())
        throw UsageError("The option --run needs a story.");
    if (!line.run && !line.stories.empty())
        throw UsageError("There is no option " + line.stories.front() + ".");
    if (!line.run && (line.tell || !line.keep.empty()))
        throw UsageError("The options --tell and --keep go with --run.");
    if (!line.run && line.configPath.empty())
        throw UsageError("The option --config is missing.");
    if (line.run && !line.keep.empty() && (line.stories.size() > 1 || !line.configPath.empty()))
        throw UsageError("The option --keep goes with one story, and without --config.");
}

CommandLine ReadCommandLine(const std::vector<std::string>& arguments)
{
    CommandLine line;
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const std::string& option = arguments[at];
        if (option == "--help" || option == "-h")
            line.help = true;
        else if (option == "--config")
            line.configPath = ValueOf(arguments, at);
        else if (option == "--clock")
            line.clock = ClockFrom(ValueOf(arguments, at));
        else if (option == "--machine")
            line.machine = ValueOf(arguments, at);
        else if (option == "--run")
            line.run = true;
        else if (option == "--tell")
            line.tell = true;
        else if (option == "--keep")
            line.keep = ValueOf(arguments, at);
        else if (option.starts_with("-"))
            throw UsageError("There is no option " + option + ".");
        else
            line.stories.push_back(option);
    }
    Check(line);
    return line;
}

}
