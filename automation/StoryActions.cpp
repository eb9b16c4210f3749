#include "automation/StoryPlayer.h"

#include "values/Text.h"

namespace rovanta {

namespace {

/// A step that is a plain call: its method and, in the order of its words, the parameters.
struct PlainCall {
    const char* method;
    std::vector<const char*> parameters;
};

const std::map<std::string, PlainCall>& PlainCalls()
{
    static const std::map<std::string, PlainCall> calls = {
        {"menu", {"app.menu", {"command"}}},
        {"open", {"app.open", {"form"}}},
        {"close", {"form.close", {"form"}}},
        {"set", {"control.set", {"form", "control", "value"}}},
        {"enter", {"control.enter", {"form", "control"}}},
        {"leave", {"control.leave", {"form", "control"}}},
        {"edit", {"grid.set", {"form", "grid", "row", "col", "value"}}},
        {"select", {"grid.select", {"form", "grid", "row", "col"}}},
        {"file", {"ui.file", {"path"}}},
    };
    return calls;
}

/// A bare number or truth value goes as what it is, anything else as a text.
Json ValueOf(const StoryWord& word)
{
    if (const std::optional<int> number = word.Number())
        return *number;
    if (word.Is("true") || word.Is("false"))
        return word.Is("true");
    return word.text;
}

/// The characters of a UTF-8 text, each as a text of its own.
std::vector<std::string> Characters(const std::string& text)
{
    std::vector<std::string> characters;
    for (const char byte : text) {
        if ((static_cast<unsigned char>(byte) & 0xC0) != 0x80 || characters.empty())
            characters.emplace_back();
        characters.back() += byte;
    }
    return characters;
}

}

const StoryPlayer::RoutineTable& StoryPlayer::Actions()
{
    static const RoutineTable actions = {
        {"office", &StoryPlayer::MakeOffice},    {"clock", &StoryPlayer::SetClock},
        {"sign", &StoryPlayer::SignIn},          {"desk", &StoryPlayer::GoToDesk},
        {"start", &StoryPlayer::Start},          {"say", &StoryPlayer::Say},
        {"on", &StoryPlayer::UseForm},           {"pick", &StoryPlayer::PickEntry},
        {"key", &StoryPlayer::PressKeys},        {"click", &StoryPlayer::UseMouse},
        {"doubleClick", &StoryPlayer::UseMouse}, {"rightClick", &StoryPlayer::UseMouse},
        {"hover", &StoryPlayer::UseMouse},       {"answer", &StoryPlayer::QueueAnswers},
        {"execute", &StoryPlayer::Execute},      {"call", &StoryPlayer::CallMethod},
    };
    return actions;
}

void StoryPlayer::Do(const StoryStep& step)
{
    Reader reader(*this, step);
    const auto action = Actions().find(step.verb);
    const auto call = PlainCalls().find(step.verb);
    if (action != Actions().end()) {
        (this->*action->second)(reader);
    } else if (call != PlainCalls().end()) {
        Json parameters = Json::object();
        const auto& names = call->second.parameters;
        for (const char* name : names) {
            // Where the form is all that is told, a word is its name whether there is such a form or not.
            const bool form = std::string_view(name) == "form" && (names.size() > 1 || !reader.HasMore());
            parameters[name] = form ? Json(reader.Form()) : ValueOf(reader.Word(name));
        }
        if (step.verb == "select" && reader.HasMore())
            parameters["rowTo"] = reader.Number("the last row");
        reader.MustBeAtEnd();
        Act(call->second.method, parameters);
    } else {
        throw StoryDifference("a step", InQuotes(step.Text()));
    }
    reader.MustBeAtEnd();
}

void StoryPlayer::MakeOffice(Reader& reader)
{
    const std::string name = reader.Text("the name of an office");
    desks.clear();
    office.reset();
    office = options.configPath.empty() ? std::make_unique<StoryOffice>(FindFixture(storyPath, name), options.keep)
                                        : std::make_unique<StoryOffice>(options.configPath);
}

void StoryPlayer::SetClock(Reader& reader)
{
    const std::optional<DateTime> now = ParseDate(reader.Rest());
    if (!now)
        throw StoryDifference("a date and time", InQuotes(reader.step.rest));
    clock = *now;
    for (auto& [name, at] : desks) {
        if (at.desk && !at.desk->Ended())
            at.desk->Program().clock.Freeze(clock);
    }
}

void StoryPlayer::SignIn(Reader& reader)
{
    if (!reader.Takes("in"))
        throw StoryDifference("sign in USER PASSWORD", InQuotes(reader.step.Text()));
    Act("control.set", {{"form", "frmLogin"}, {"control", "txtUsername"}, {"value", reader.Text("a user")}});
    Act("control.set", {{"form", "frmLogin"}, {"control", "txtPassword"}, {"value", reader.Text("a password")}});
    Act("control.click", {{"form", "frmLogin"}, {"control", "btnLogin"}});
}

void StoryPlayer::GoToDesk(Reader& reader)
{
    deskName = reader.Text("the name of a desk");
    if (reader.Takes("beside"))
        Current().machine = MachineOf(reader.Text("the name of another desk"));
}

void StoryPlayer::Start(Reader&)
{
    const StoryDesk& at = Current();
    if (at.desk && !at.desk->Ended())
        throw StoryDifference("a program that has ended or was never started", "one that runs");
    StartDesk();
}

void StoryPlayer::Say(Reader& reader)
{
    reader.Text("a sentence");
}

void StoryPlayer::UseForm(Reader& reader)
{
    Current().form = reader.Text("a form");
}

void StoryPlayer::PickEntry(Reader& reader)
{
    Json parameters = {{"form", reader.Form()}, {"control", reader.Text("a control")}};
    const StoryWord entry = reader.Word("an entry");
    if (const std::optional<int> index = entry.Number())
        parameters["index"] = *index;
    else
        parameters["text"] = entry.text;
    if (reader.Takes("off"))
        parameters["selected"] = false;
    Act("control.pick", parameters);
}

void StoryPlayer::PressKeys(Reader& reader)
{
    Json parameters = {{"form", reader.Form()}, {"control", reader.Text("a control")}};
    for (const std::string& key : Characters(reader.Text("the keys"))) {
        parameters["key"] = key;
        Act("control.key", parameters);
    }
}

void StoryPlayer::UseMouse(Reader& reader)
{
    Json parameters = {{"form", reader.Form()}};
    const std::string control = reader.Text("a control");
    const bool onCell = reader.HasMore();
    parameters[onCell ? "grid" : "control"] = control;
    if (onCell) {
        parameters["row"] = reader.Number("a row");
        parameters["col"] = reader.Number("a column");
    }
    Act((onCell ? "grid." : "control.") + reader.step.verb, parameters);
}

void StoryPlayer::QueueAnswers(Reader& reader)
{
    Json answers = Json::array();
    do {
        answers.push_back(reader.Text("yes or no"));
    } while (reader.HasMore());
    Act("ui.answer", {{"answers", answers}});
}

void StoryPlayer::Execute(Reader& reader)
{
    Act("db.execute", {{"sql", reader.Rest()}});
}

void StoryPlayer::CallMethod(Reader& reader)
{
    reader.Rest();
    const StoryStep call = reader.step.Behind();
    Act(call.verb, Reader(*this, call).RestAsJson());
}

}
