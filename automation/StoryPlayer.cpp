#include "automation/StoryPlayer.h"

#include "app/Screens.h"
#include "automation/ControlJson.h"
#include "values/Text.h"

#include <filesystem>

#include <unistd.h>

namespace rovanta {

StoryPlayer::StoryPlayer(std::string storyPath, StoryOptions options)
    : storyPath(std::move(storyPath)), options(std::move(options))
{
}

void StoryPlayer::Play(const StoryStep& step)
{
    const auto expectation = Expectations().find(step.verb);
    if (expectation == Expectations().end()) {
        if (!step.rows.empty())
            throw StoryDifference("no rows below this step", InQuotes(step.Text()));
        MustBeSettled();
        Do(step);
        return;
    }
    Reader reader(*this, step);
    (this->*expectation->second)(reader);
    reader.MustBeAtEnd();
}

static std::string Describe(const Json& message)
{
    return "the message box " + InQuotes(message.value("title", "")) + " " + InQuotes(message.value("text", ""));
}

void StoryPlayer::MustBeSettled() const
{
    for (const auto& [name, at] : desks) {
        if (!at.messages.empty())
            throw StoryDifference("no message box", Describe(at.messages.front()));
        if (at.ended)
            throw StoryDifference("a program that runs on", "it ended: " + InQuotes(*at.ended));
    }
}

void StoryPlayer::Finish()
{
    MustBeSettled();
    for (const auto& [name, at] : desks) {
        if (at.desk && at.desk->host.QueuedAnswers() > 0)
            throw StoryDifference("a question for each queued answer", "one is left over at the desk " + name);
    }
}

App* StoryPlayer::Program()
{
    const StoryDesk& at = Current();
    if (office && !at.desk)
        StartDesk();
    return at.desk && !at.desk->Ended() ? &at.desk->Program() : nullptr;
}

std::string StoryPlayer::Filled(std::string text) const
{
    if (office)
        text = Replace(std::move(text), "{office}", office->Folder().string());
    return Replace(std::move(text), "{story}", std::filesystem::absolute(storyPath).parent_path().string());
}

StoryDesk& StoryPlayer::Running()
{
    if (!Current().desk)
        StartDesk();
    if (Current().ended)
        MustBeSettled();
    return Current();
}

const std::string& StoryPlayer::MachineOf(const std::string& name)
{
    // Each desk stands for a machine of its own, and so does each desk of a story that plays beside this one.
    static int count = 0;
    std::string& machine = desks[name].machine;
    if (machine.empty())
        machine = "story-" + std::to_string(getpid()) + "-" + std::to_string(++count);
    return machine;
}

void StoryPlayer::StartDesk()
{
    if (!office)
        throw StoryDifference("a step \"office NAME\" first", "none");
    StoryDesk& at = Current();
    at.desk = std::make_unique<Desk>(AllScreens(), AppOptions{office->ConfigPath(), MachineOf(deskName), clock});
    at.dispatcher = std::make_unique<Dispatcher>(*at.desk);
    at.desk->Start();
    for (const ShownMessage& shown : at.desk->host.TakeMessages())
        at.messages.push_back(ToJson(shown));
    if (at.desk->Ended())
        at.ended = at.desk->Ended()->text;
}

Json StoryPlayer::Ask(const std::string& method, const Json& parameters)
{
    const Json request = {{"jsonrpc", "2.0"}, {"id", 1}, {"method", method}, {"params", parameters}};
    return Json::parse(*Running().dispatcher->Answer(request.dump()));
}

Json StoryPlayer::Read(const std::string& method, const Json& parameters)
{
    const Json response = Ask(method, parameters);
    if (response.contains("error"))
        throw StoryDifference("something to be read", response["error"]["message"].get<std::string>());
    return response["result"];
}

void StoryPlayer::Act(const std::string& method, const Json& parameters)
{
    MustBeSettled();
    const Json response = Ask(method, parameters);
    const int error = response.contains("error") ? response["error"]["code"].get<int>() : 0;
    if (error != wantedError)
        throw StoryDifference(wantedError == 0 ? "the step to go through" : "error " + std::to_string(wantedError),
                              error == 0 ? "it went through" : response["error"]["message"].get<std::string>());
    StoryDesk& at = Current();
    at.result = response.value("result", Json());
    if (!at.result.is_object())
        return;
    for (const Json& message : at.result.value("messages", Json::array())) {
        at.messages.push_back(message);
        if (message.contains("unanswered"))
            throw StoryDifference("a step \"answer\" before this one", Describe(message));
    }
    if (at.result.contains("ended"))
        at.ended = at.result["ended"]["text"].get<std::string>();
}

void StoryPlayer::Reader::Split()
{
    if (words)
        return;
    words = Words(step.rest);
    for (StoryWord& word : *words)
        word.text = player.Filled(word.text);
}

bool StoryPlayer::Reader::HasMore()
{
    Split();
    return at < words->size();
}

StoryWord StoryPlayer::Reader::Word(const char* what)
{
    if (!HasMore())
        throw StoryDifference(what, InQuotes(step.Text()));
    return (*words)[at++];
}

std::string StoryPlayer::Reader::Form()
{
    if (HasMore() && !(*words)[at].quoted && AllScreens().contains((*words)[at].text))
        return (*words)[at++].text;
    if (player.Form().empty())
        throw StoryDifference("a form in the step, or \"on FORM\" before it", InQuotes(step.Text()));
    return player.Form();
}

int StoryPlayer::Reader::Number(const char* what)
{
    const std::optional<int> number = Word(what).Number();
    if (!number)
        throw StoryDifference(std::string(what) + " as a number", InQuotes(step.Text()));
    return *number;
}

bool StoryPlayer::Reader::Takes(const char* word)
{
    const bool takes = HasMore() && (*words)[at].Is(word);
    at += takes ? 1 : 0;
    return takes;
}

std::string StoryPlayer::Reader::Rest()
{
    words.emplace();
    return player.Filled(step.rest);
}

Json StoryPlayer::Reader::RestAsJson()
{
    const std::string rest = Rest();
    const Json value = Json::parse(rest.empty() ? "{}" : rest, nullptr, false);
    if (value.is_discarded())
        throw StoryDifference("a JSON value", InQuotes(rest));
    return value;
}

void StoryPlayer::Reader::MustBeAtEnd()
{
    if (HasMore())
        throw StoryDifference("nothing more", InQuotes((*words)[at].text));
}

}
