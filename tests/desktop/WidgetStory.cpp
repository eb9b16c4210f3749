#include "tests/desktop/WidgetStory.h"

#include "automation/StoryFile.h"
#include "automation/StoryOffice.h"
#include "desktop/AccessKeys.h"
#include "forms/ChoiceControls.h"
#include "forms/ListControls.h"
#include "forms/TextControls.h"
#include "frame/App.h"
#include "store/Recordset.h"
#include "tests/desktop/TestDesk.h"
#include "tests/desktop/WidgetDriver.h"
#include "values/Numbers.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>

namespace rovanta::tests {

namespace {

class WidgetStory {
public:
    explicit WidgetStory(std::string path) : path(std::move(path)) {}
    void Play(const StoryStep& step);
    void Finish() { MustBeSettled(); }

private:
    using Routine = void (WidgetStory::*)(const StoryStep&);

    /// The words of a step, its form first: the one that it names or the one that the story went to.
    std::vector<StoryWord> WithForm(const StoryStep& step) const;
    void MustBeSettled();
    void MustEqual(const std::string& wanted, const std::string& found) const;

    void MakeOffice(const StoryStep& step);
    void SetClock(const StoryStep& step);
    void SignIn(const StoryStep& step);
    void Click(const StoryStep& step);
    void DoubleClick(const StoryStep& step);
    void Select(const StoryStep& step);
    void Key(const StoryStep& step);
    void MustBeRefused(const StoryStep& step);
    void Set(const StoryStep& step);
    void Answer(const StoryStep& step);
    void Execute(const StoryStep& step);
    void ExpectMessage(const StoryStep& step);
    void ExpectEnd(const StoryStep& step);
    void ExpectEntries(const StoryStep& step);
    void ExpectControl(const StoryStep& step);
    void ExpectCells(const StoryStep& step);
    void ExpectRows(const StoryStep& step);

    std::string path;
    std::unique_ptr<TestDesk> desk;
    std::unique_ptr<WidgetDriver> driver;
    std::string form;
    /// A step has said that the program ended.
    bool hasEnded = false;
};

/// A date as a person types it into a date box.
std::string Typed(const Control& control, const std::string& text)
{
    const auto date = control.Kind() == ControlKind::DatePicker ? ParseDate(text) : std::nullopt;
    return date ? ToText(date->DateOnly()) : text;
}

bool Fits(const Value& found, const StoryWord& wanted)
{
    if (wanted.Is("*") || found.IsNull())
        return wanted.Is("*") || wanted.Is("null");
    if (found.IsDate())
        return ToLongIsoText(found.Date()) == wanted.text || ToIsoText(found.Date()) == wanted.text;
    if (std::holds_alternative<bool>(found.Get()))
        return wanted.text == (found.Flag() ? "true" : "false");
    const auto number = ParseNumber(wanted.text);
    if (!found.IsText() && number)
        return ToText(*number) == ToText(found.Number());
    return found.Text() == wanted.text;
}

}

std::vector<StoryWord> WidgetStory::WithForm(const StoryStep& step) const
{
    std::vector<StoryWord> words = Words(step.rest);
    if (words.empty() || !words.front().text.starts_with("frm"))
        words.insert(words.begin(), StoryWord{form, false});
    return words;
}

void WidgetStory::MustBeSettled()
{
    // Hands leave every box that they have typed in, and leaving a vehicle or its dates tells of double bookings; a
    // story that goes without hands says where it leaves one.
    while (driver && !driver->messages.empty() && driver->messages.front().title == "Schedule Conflict")
        driver->messages.pop_front();
    if (driver && !driver->messages.empty())
        throw StoryDifference("no message box", driver->messages.front().title + ": " + driver->messages.front().text);
    if (desk && desk->host.Gate().HasEnded() && !hasEnded)
        throw StoryDifference("the program to run on", "it ended");
}

void WidgetStory::MustEqual(const std::string& wanted, const std::string& found) const
{
    if (wanted != found)
        throw StoryDifference(InQuotes(wanted), InQuotes(found));
}

void WidgetStory::Play(const StoryStep& step)
{
    static const std::map<std::string, Routine> routines = {
        {"office", &WidgetStory::MakeOffice},
        {"clock", &WidgetStory::SetClock},
        {"sign", &WidgetStory::SignIn},
        {"click", &WidgetStory::Click},
        {"set", &WidgetStory::Set},
        {"pick", &WidgetStory::Set},
        {"answer", &WidgetStory::Answer},
        {"execute", &WidgetStory::Execute},
        {"doubleClick", &WidgetStory::DoubleClick},
        {"select", &WidgetStory::Select},
        {"key", &WidgetStory::Key},
        {"ended", &WidgetStory::ExpectEnd},
        {"entries", &WidgetStory::ExpectEntries},
        {"message", &WidgetStory::ExpectMessage},
        {"expect", &WidgetStory::ExpectControl},
        {"cells", &WidgetStory::ExpectCells},
        {"query", &WidgetStory::ExpectRows},
    };
    if (step.verb != "message" && step.verb != "ended")
        MustBeSettled();
    const auto routine = routines.find(step.verb);
    if (routine != routines.end())
        (this->*routine->second)(step);
    else if (step.verb == "refused")
        MustBeRefused(step.Behind());
    else if (step.verb == "open")
        desk->host.Gate().Run([&] { desk->app->Open(step.rest); });
    else if (step.verb == "close")
        driver->Close(step.rest);
    else if (step.verb == "gone")
        MustEqual("", desk->app->Find(step.rest) && desk->app->Find(step.rest)->Visible() ? step.rest : "");
    else if (step.verb == "menu")
        driver->PickMenu(step.rest);
    else if (step.verb == "on")
        form = step.rest;
    else if (step.verb == "leave")
        driver->Leave(WithForm(step)[0].text, WithForm(step)[1].text);
    else if (step.verb == "shown")
        driver->FormOf(step.rest);
    else if (step.verb != "say")
        throw StoryDifference("a step that hands can do", step.Text());
}

void WidgetStory::MakeOffice(const StoryStep& step)
{
    driver.reset();
    desk.reset();
    hasEnded = false;
    desk = std::make_unique<TestDesk>(FindFixture(path, step.rest));
    driver = std::make_unique<WidgetDriver>(desk->host);
}

void WidgetStory::SetClock(const StoryStep& step)
{
    desk->app->clock.Freeze(ToDate(step.rest));
}

void WidgetStory::SignIn(const StoryStep& step)
{
    const std::vector<StoryWord> words = Words(step.rest);
    driver->Type("frmLogin", "txtUsername", words.at(1).text);
    driver->Type("frmLogin", "txtPassword", words.at(2).text);
    driver->Click("frmLogin", "btnLogin");
}

void WidgetStory::Click(const StoryStep& step)
{
    const std::vector<StoryWord> words = WithForm(step);
    if (words.size() == 4)
        driver->ClickCell(words[0].text, words[1].text, *words[2].Number(), *words[3].Number());
    else
        driver->Click(words[0].text, words.at(1).text);
}

void WidgetStory::DoubleClick(const StoryStep& step)
{
    const std::vector<StoryWord> words = WithForm(step);
    driver->DoubleClickCell(words[0].text, words.at(1).text, *words.at(2).Number(), *words.at(3).Number());
}

void WidgetStory::Select(const StoryStep& step)
{
    const std::vector<StoryWord> words = WithForm(step);
    const int last = words.size() > 4 ? *words[4].Number() : *words.at(2).Number();
    driver->SelectCells(words[0].text, words.at(1).text, *words.at(2).Number(), last, *words.at(3).Number());
}

void WidgetStory::Key(const StoryStep& step)
{
    const std::vector<StoryWord> words = WithForm(step);
    driver->Keys(words[0].text, words.at(1).text, words.at(2).text);
}

void WidgetStory::MustBeRefused(const StoryStep& step)
{
    try {
        Play(step);
    } catch (const OutOfReach&) {
        return;
    }
    throw StoryDifference("nobody to reach it", step.Text());
}

void WidgetStory::Set(const StoryStep& step)
{
    const std::vector<StoryWord> words = WithForm(step);
    const Control& control = driver->ControlOf(words[0].text, words.at(1).text);
    if (step.verb == "pick")
        driver->Pick(words[0].text, words[1].text, words.at(2).text);
    else
        driver->Type(words[0].text, words[1].text, Typed(control, words.at(2).text));
}

void WidgetStory::Answer(const StoryStep& step)
{
    for (const StoryWord& word : Words(step.rest))
        driver->answers.push_back(word.text);
}

void WidgetStory::Execute(const StoryStep& step)
{
    desk->app->AppConnection.Execute(Statement::Verbatim(step.rest));
}

void WidgetStory::ExpectMessage(const StoryStep& step)
{
    const std::vector<StoryWord> words = Words(step.rest);
    if (driver->messages.empty())
        throw StoryDifference("a message box", "none");
    const SeenMessage seen = driver->messages.front();
    driver->messages.pop_front();
    MustEqual(words[0].text, seen.title);
    MustEqual(words.at(1).text, seen.text);
    if (words.back().Is("yes") || words.back().Is("no"))
        MustEqual(words.back().text, seen.answer);
}

void WidgetStory::ExpectEnd(const StoryStep& step)
{
    const std::vector<StoryWord> words = Words(step.rest);
    if (!desk->host.Gate().HasEnded())
        throw StoryDifference("the program to end", "it runs on");
    // A failure is told in a box before it ends the program; leaving it tells nothing.
    const std::string told = driver->messages.empty() ? "" : driver->messages.front().text;
    if (words.empty() ? !told.empty() : told.find(words[0].text) == std::string::npos)
        throw StoryDifference(step.Text(), told);
    MustEqual(words.empty() ? "0" : "1", std::to_string(desk->exitCode.value_or(-1)));
    driver->messages.clear();
    hasEnded = true;
}

void WidgetStory::ExpectEntries(const StoryStep& step)
{
    const std::vector<StoryWord> words = WithForm(step);
    std::string wanted;
    for (std::size_t at = 2; at < words.size(); ++at)
        wanted += words[at].text + "\n";
    std::string found;
    const auto* combo = dynamic_cast<const ComboBox*>(&driver->ControlOf(words[0].text, words.at(1).text));
    const bool hidden = combo && !combo->Visible();
    for (const std::string& entry : hidden ? combo->Entries() : driver->Entries(words[0].text, words[1].text))
        found += entry + "\n";
    MustEqual(wanted, found);
}

/// What a control holds that no widget tells in words; nothing when a widget does.
static std::optional<std::string> Unspoken(const Control& control, const StoryWord& property)
{
    if (const auto* grid = dynamic_cast<const Grid*>(&control))
        return std::to_string(property.Is("rows") ? grid->Rows() : grid->Row());
    if (const auto* tabs = dynamic_cast<const Tabs*>(&control))
        return std::to_string(tabs->Page());
    if (const auto* combo = dynamic_cast<const ComboBox*>(&control); combo && property.Is("listIndex"))
        return std::to_string(combo->ListIndex());
    if (property.Is("enabled") || property.Is("disabled"))
        return control.Enabled() ? "enabled" : "disabled";
    if (const auto* box = dynamic_cast<const TextControl*>(&control); box && !control.Visible())
        return box->Text();
    return std::nullopt;
}

void WidgetStory::ExpectControl(const StoryStep& step)
{
    const std::vector<StoryWord> words = WithForm(step);
    const std::string& name = words.at(1).text;
    const StoryWord& property = words.at(2);
    const std::string wanted = property.Is("empty") ? "" : words.back().text;
    const Control& control = driver->ControlOf(words[0].text, name);
    if (const auto unspoken = Unspoken(control, property)) {
        MustEqual(wanted, *unspoken);
        return;
    }
    const std::string shown = driver->Shown(words[0].text, name);
    const auto* masked = dynamic_cast<const MaskedBox*>(&control);
    if (property.Is("caption")) {
        MustEqual(wanted, control.Caption());
    } else if (property.Is("ticked") || property.Is("unticked")) {
        MustEqual(property.Is("ticked") ? "1" : "0", shown);
    } else if (masked) {
        // While a box is typed in it shows its content, and its picture once it is left.
        MustEqual(wanted, property.Is("display") ? masked->Display() : masked->Text());
        MustEqual(control.Owner().Focused() == &control ? masked->Text() : masked->Display(), shown);
    } else if (control.Kind() == ControlKind::DatePicker) {
        MustEqual(wanted, ToIsoText(ToDate(shown)));
    } else if (control.Kind() == ControlKind::OptionButton || control.Kind() == ControlKind::CheckBox) {
        MustEqual(wanted == "true" ? "1" : (wanted == "false" ? "0" : wanted), shown);
    } else {
        MustEqual(PlainCaption(wanted), shown);
    }
}

static int ColumnOf(const Grid& grid, const std::string& caption)
{
    for (int col = 0; col < grid.Cols(); ++col) {
        if (grid.TextMatrix(0, col) == caption)
            return col;
    }
    throw StoryDifference("a column " + InQuotes(caption), "none");
}

void WidgetStory::ExpectCells(const StoryStep& step)
{
    const std::vector<StoryWord> words = WithForm(step);
    const auto& grid = dynamic_cast<const Grid&>(driver->ControlOf(words[0].text, words.at(1).text));
    std::vector<int> numbers;
    std::vector<int> columns;
    bool behind = false;
    for (std::size_t at = 2; at < words.size(); ++at) {
        if (words[at].Is(":"))
            behind = true;
        else
            (behind ? columns : numbers)
                .push_back(words[at].Number() ? *words[at].Number() : ColumnOf(grid, words[at].text));
    }
    const int first = numbers.empty() ? grid.FixedRows() : numbers.front();
    for (std::size_t at = 0; at < step.rows.size(); ++at) {
        for (std::size_t col = 0; col < columns.size(); ++col) {
            const StoryWord& wanted = step.rows[at].at(col);
            if (!wanted.Is("*"))
                MustEqual(wanted.text, grid.DisplayText(first + static_cast<int>(at), columns[col]));
        }
    }
}

void WidgetStory::ExpectRows(const StoryStep& step)
{
    Recordset row(Statement::Verbatim(step.rest), desk->app->AppConnection);
    for (const auto& wanted : step.rows) {
        if (row.Eof())
            throw StoryDifference(wanted.front().text, "no further row");
        for (std::size_t col = 0; col < wanted.size(); ++col) {
            if (!Fits(row.FieldAt(col).Value(), wanted[col]))
                throw StoryDifference(wanted[col].text, row.FieldAt(col).TextOrEmpty());
        }
        row.MoveNext();
    }
    if (!row.Eof())
        throw StoryDifference("no further row", row.FieldAt(0).TextOrEmpty());
}

bool IsForHands(const std::string& story)
{
    static const std::set<std::string> verbs = {
        "office",      "clock",  "sign",  "say",     "menu",  "on",    "open",    "close",   "click",
        "doubleClick", "select", "set",   "pick",    "key",   "leave", "answer",  "execute", "message",
        "expect",      "cells",  "query", "entries", "ended", "shown", "refused", "gone"};
    const std::vector<StoryStep> steps = ReadStory(story);
    return std::all_of(steps.begin(), steps.end(), [](const StoryStep& step) { return verbs.contains(step.verb); });
}

std::string PlayOnWidgets(const std::string& story)
{
    WidgetStory play(story);
    for (const StoryStep& step : ReadStory(story)) {
        try {
            play.Play(step);
        } catch (const std::exception& difference) {
            return story + ":" + std::to_string(step.line) + ": " + step.Text() + "\n" + difference.what();
        }
    }
    try {
        play.Finish();
    } catch (const std::exception& difference) {
        return story + ": at its end\n" + difference.what();
    }
    return {};
}

}
