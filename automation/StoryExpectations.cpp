#include "automation/StoryPlayer.h"

#include "values/Numbers.h"
#include "values/Text.h"

#include <algorithm>
#include <filesystem>

namespace rovanta {

using Rows = std::vector<std::vector<Json>>;

const StoryPlayer::RoutineTable& StoryPlayer::Expectations()
{
    static const RoutineTable expectations = {
        {"message", &StoryPlayer::ExpectMessage}, {"ended", &StoryPlayer::ExpectEnd},
        {"popup", &StoryPlayer::ExpectPopup},     {"result", &StoryPlayer::ExpectResult},
        {"refused", &StoryPlayer::ExpectError},   {"wrong", &StoryPlayer::ExpectError},
        {"expect", &StoryPlayer::ExpectControl},  {"entries", &StoryPlayer::ExpectEntries},
        {"shown", &StoryPlayer::ExpectForm},      {"gone", &StoryPlayer::ExpectForm},
        {"cell", &StoryPlayer::ExpectCell},       {"cells", &StoryPlayer::ExpectCells},
        {"query", &StoryPlayer::ExpectRows},      {"exists", &StoryPlayer::ExpectFile},
        {"absent", &StoryPlayer::ExpectFile},
    };
    return expectations;
}

/// A value as a story writes it.
static std::string Shown(const Json& value)
{
    if (value.is_string())
        return value.get<std::string>();
    return value.is_number_float() ? ToText(value.get<double>()) : value.dump();
}

static void MustEqual(const std::string& expected, const std::string& found)
{
    if (expected != found)
        throw StoryDifference(InQuotes(expected), InQuotes(found));
}

void StoryPlayer::ExpectMessage(Reader& reader)
{
    const std::string title = reader.Text("a title");
    const std::string wanted = title + ": " + reader.Text("a text");
    auto& messages = Current().messages;
    if (messages.empty())
        throw StoryDifference("the message box " + InQuotes(wanted), "no message box");
    const Json shown = messages.front();
    messages.pop_front();
    MustEqual(wanted, Shown(shown["title"]) + ": " + Shown(shown["text"]));
    while (reader.HasMore()) {
        const std::string word = reader.Text("an icon or an answer");
        MustEqual(word, Shown(shown[word == "yes" || word == "no" ? "answer" : "icon"]));
    }
}

void StoryPlayer::ExpectEnd(Reader& reader)
{
    const std::string text = reader.HasMore() ? reader.Text("a text") : std::string{};
    auto& ended = Current().ended;
    if (!ended)
        throw StoryDifference("the program to end", "it runs on");
    const bool fits = text.empty() ? ended->empty() : ended->find(text) != std::string::npos;
    if (!fits)
        throw StoryDifference("an end with " + InQuotes(text), InQuotes(*ended));
    ended.reset();
}

void StoryPlayer::ExpectPopup(Reader& reader)
{
    const std::string found = Running().desk->host.TakePopup();
    MustEqual(reader.Text("the name of a pop-up menu"), found.empty() ? "none" : found);
}

/// Whether `found` has everything that `wanted` has.
static bool Holds(const Json& found, const Json& wanted)
{
    if (!wanted.is_object() || !found.is_object())
        return found == wanted;
    const auto holdsMember = [&](const auto& member) {
        return found.contains(member.key()) && Holds(found[member.key()], member.value());
    };
    const auto members = wanted.items();
    return std::all_of(members.begin(), members.end(), holdsMember);
}

void StoryPlayer::ExpectResult(Reader& reader)
{
    const Json wanted = reader.RestAsJson();
    if (!Holds(Current().result, wanted))
        throw StoryDifference(wanted.dump(), Current().result.dump());
}

void StoryPlayer::ExpectError(Reader& reader)
{
    reader.Rest();
    wantedError = reader.step.verb == "refused" ? -32001 : -32602;
    Do(reader.step.Behind());
    wantedError = 0;
}

/// The one thing of a control that a person would call its content.
static Json ContentOf(const Json& control)
{
    if (control["kind"] == "ListBox") {
        const int index = control["listIndex"];
        return index < 0 ? Json("") : control["list"][static_cast<std::size_t>(index)];
    }
    for (const char* name : {"text", "value", "caption", "page", "file", "rows"}) {
        if (control.contains(name))
            return control[name];
    }
    return nullptr;
}

/// Whether the control is in the state of that word; nothing when the word tells no state.
static std::optional<bool> IsInState(const Json& control, const StoryWord& state)
{
    if (state.Is("enabled") || state.Is("disabled"))
        return control["enabled"] == state.Is("enabled");
    if (state.Is("visible") || state.Is("hidden"))
        return control["visible"] == state.Is("visible");
    if (state.Is("ticked") || state.Is("unticked"))
        return (ContentOf(control) == 1 || ContentOf(control) == true) == state.Is("ticked");
    if (state.Is("empty"))
        return ContentOf(control) == "";
    return std::nullopt;
}

void StoryPlayer::ExpectControl(Reader& reader)
{
    const Json control = Read("control.get", {{"form", reader.Form()}, {"control", reader.Text("a control")}});
    const StoryWord word = reader.Word("a value");
    if (reader.HasMore()) {
        if (!control.contains(word.text))
            throw StoryDifference("a control with " + InQuotes(word.text), control.dump());
        MustEqual(reader.Text("a value"), Shown(control[word.text]));
    } else if (const std::optional<bool> holds = IsInState(control, word)) {
        if (!*holds)
            throw StoryDifference(word.text, control.dump());
    } else {
        MustEqual(word.text, Shown(ContentOf(control)));
    }
}

void StoryPlayer::ExpectEntries(Reader& reader)
{
    const Json control = Read("control.get", {{"form", reader.Form()}, {"control", reader.Text("a control")}});
    Json wanted = Json::array();
    while (reader.HasMore())
        wanted.push_back(reader.Text("an entry"));
    if (control.value("list", Json()) != wanted)
        throw StoryDifference(wanted.dump(), control.dump());
}

void StoryPlayer::ExpectForm(Reader& reader)
{
    const std::string form = reader.Text("a form");
    const Json forms = Read("app.forms", Json::object())["forms"];
    const bool shown = std::any_of(forms.begin(), forms.end(), [&](const Json& each) { return each["form"] == form; });
    if (shown != (reader.step.verb == "shown"))
        throw StoryDifference(reader.step.Text(), forms.dump());
}

/// Whether a cell holds what a story says: * stands for anything, null for NULL, a day alone for its midnight, and a
/// number may be written with more zeros.
static bool Fits(const Json& found, const StoryWord& wanted)
{
    if (wanted.Is("*") || found.is_null())
        return wanted.Is("*") || wanted.Is("null");
    const std::string text = Shown(found);
    if (text == wanted.text || text == wanted.text + " 00:00:00")
        return true;
    const std::optional<double> number = found.is_number() ? ParseNumber(wanted.text) : std::nullopt;
    return number && ToText(*number) == ToText(found.get<double>());
}

template <class Rows, class Write>
static std::string Lines(const Rows& rows, Write write)
{
    std::string text = rows.empty() ? "no rows" : "";
    for (const auto& row : rows) {
        for (std::size_t col = 0; col < row.size(); ++col)
            text += (col > 0 ? " | " : "\n    ") + write(row[col]);
    }
    return text;
}

static void MustFit(const Rows& found, const StoryRows& wanted)
{
    const auto fits = [](const auto& row, const auto& words) {
        return std::equal(row.begin(), row.end(), words.begin(), words.end(),
                          [](const Json& cell, const StoryWord& word) { return Fits(cell, word); });
    };
    if (!std::equal(found.begin(), found.end(), wanted.begin(), wanted.end(), fits))
        throw StoryDifference(Lines(wanted, [](const StoryWord& word) { return word.text; }), Lines(found, Shown));
}

/// The column of a grid by its number or by the caption in its headings.
static std::size_t ColumnOf(const Json& grid, const StoryWord& word)
{
    const std::size_t columns = grid["cols"];
    for (std::size_t column = 0; column < columns; ++column) {
        if (word.Number() && static_cast<std::size_t>(*word.Number()) == column)
            return column;
        for (std::size_t row = 0; row < grid["fixedRows"] && !word.Number(); ++row) {
            if (grid["text"][row][column] == word.text)
                return column;
        }
    }
    throw StoryDifference("a column " + InQuotes(word.text), "a grid of " + std::to_string(columns) + " others");
}

void StoryPlayer::ExpectCell(Reader& reader)
{
    const Json grid = Read("grid.cells", {{"form", reader.Form()}, {"grid", reader.Text("a grid")}});
    const auto row = static_cast<std::size_t>(reader.Number("a row"));
    const std::size_t column = ColumnOf(grid, reader.Word("a column"));
    if (row >= grid["rows"])
        throw StoryDifference("a row " + std::to_string(row), "a grid of " + Shown(grid["rows"]) + " rows");
    MustEqual(reader.Text("a text"), Shown(grid["text"][row][column]));
}

void StoryPlayer::ExpectCells(Reader& reader)
{
    const Json grid = Read("grid.cells", {{"form", reader.Form()}, {"grid", reader.Text("a grid")}});
    int first = grid["fixedRows"];
    int last = grid["rows"].get<int>() - 1;
    if (!reader.Takes(":") && reader.HasMore()) {
        first = last = reader.Number("a row");
        if (!reader.Takes(":") && reader.HasMore())
            last = reader.Number("the last row");
        reader.Takes(":");
    }
    std::vector<std::size_t> columns;
    while (reader.HasMore())
        columns.push_back(ColumnOf(grid, reader.Word("a column")));
    Rows found;
    for (int row = std::max(first, 0); row <= last && row < grid["rows"]; ++row) {
        const Json& cells = grid["text"][static_cast<std::size_t>(row)];
        found.push_back(columns.empty() ? cells.get<std::vector<Json>>() : std::vector<Json>{});
        for (const std::size_t column : columns)
            found.back().push_back(cells[column]);
    }
    MustFit(found, reader.step.rows);
}

void StoryPlayer::ExpectRows(Reader& reader)
{
    MustFit(Read("db.query", {{"sql", reader.Rest()}})["rows"].get<Rows>(), reader.step.rows);
}

void StoryPlayer::ExpectFile(Reader& reader)
{
    const std::string path = reader.Text("a path");
    if (std::filesystem::exists(path) != (reader.step.verb == "exists"))
        throw StoryDifference(reader.step.Text(),
                              "it is " + std::string(reader.step.verb == "exists" ? "not " : "") + "there");
}

}
