#include "tests/desktop/WidgetStory.h"

#include "automation/StoryFile.h"
#include "automation/StoryOffice.h"
#include "forms/ChoiceControls.h"
#include "forms/ListControls.h"
#include "forms/TextControls.h"
#include "frame/App.h"
#include "store/Recordset.h"
#include "tests/desktop/TestDesk.h"
#include "tests/desktop/WidgetDriver.h"
#include "values/Numbers.h"

#include <QApplication>

#include <map>
#include <memory>
#include <stdexcept>

namespace rovanta::tests {

namespace {

class WidgetStory {
public:
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
    void Set(const StoryStep& step);
    void Answer(const StoryStep& step);
    void Execute(const StoryStep& step);
    void ExpectMessage(const StoryStep& step);
    void ExpectControl(const StoryStep& step);
    void ExpectCells(const StoryStep& step);
    void ExpectRows(const StoryStep& step);

    std::unique_ptr<TestDesk> desk;
    std::unique_ptr<WidgetDriver> driver;
    std::string form;
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
        return ToLongIsoText(found.Date()) == wanted.text;
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
    if (desk && desk->host.Gate().HasEnded())
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
        {"message", &WidgetStory::ExpectMessage},
        {"expect", &WidgetStory::ExpectControl},
        {"cells", &WidgetStory::ExpectCells},
        {"query", &WidgetStory::ExpectRows},
    };
    if (step.verb != "message")
        MustBeSettled();
    const auto routine = routines.find(step.verb);
    if (routine != routines.end())
        (this->*routine->second)(step);
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
    desk = std::make_unique<TestDesk>(step.rest);
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
        throw StoryDifference("a message box",
                              "none, and the focus on " + QApplication::focusWidget()->objectName().toStdString());
    const SeenMessage seen = driver->messages.front();
    driver->messages.pop_front();
    MustEqual(words[0].text, seen.title);
    MustEqual(words.at(1).text, seen.text);
    if (words.size() > 2)
        MustEqual(words.back().text, seen.answer);
}

void WidgetStory::ExpectControl(const StoryStep& step)
{
    const std::vector<StoryWord> words = WithForm(step);
    const std::string& name = words.at(1).text;
    const StoryWord& wanted = words.at(2);
    const Control& control = driver->ControlOf(words[0].text, name);
    const std::string shown = driver->Shown(words[0].text, name);
    if (wanted.Is("display")) {
        MustEqual(words.at(3).text, shown);
    } else if (wanted.Is("ticked") || wanted.Is("unticked")) {
        MustEqual(wanted.Is("ticked") ? "1" : "0", shown);
    } else if (wanted.Is("enabled") || wanted.Is("disabled")) {
        MustEqual(wanted.text, control.Enabled() ? "enabled" : "disabled");
    } else if (const auto* box = dynamic_cast<const MaskedBox*>(&control)) {
        MustEqual(wanted.text, box->Text());
        MustEqual(box->Owner().Focused() == box ? box->Text() : box->Display(), shown);
    } else {
        MustEqual(wanted.Is("empty") ? "" : wanted.text, shown);
    }
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
            (behind ? columns : numbers).push_back(*words[at].Number());
    }
    const int first = numbers.empty() ? grid.FixedRows() : numbers.front();
    for (std::size_t at = 0; at < step.rows.size(); ++at) {
        for (std::size_t col = 0; col < columns.size(); ++col)
            MustEqual(step.rows[at].at(col).text, grid.DisplayText(first + static_cast<int>(at), columns[col]));
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

std::string PlayOnWidgets(const std::string& story)
{
    WidgetStory play;
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
