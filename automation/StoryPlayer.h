#pragma once

#include "automation/Desk.h"
#include "automation/Dispatcher.h"
#include "automation/Stories.h"
#include "automation/StoryFile.h"
#include "automation/StoryOffice.h"

#include <nlohmann/json.hpp>

#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace rovanta {

/// A desk of a story, with what its last step brought and no line has asked for yet.
struct StoryDesk {
    std::string machine;
    std::unique_ptr<Desk> desk;
    std::unique_ptr<Dispatcher> dispatcher;
    Json result;
    std::deque<Json> messages;
    std::optional<std::string> ended;
    /// The form that a step means when it names none.
    std::string form;
};

/// Plays the steps of one story. Every step goes through the dispatcher, as a line of JSON would.
class StoryPlayer {
public:
    StoryPlayer(std::string storyPath, StoryOptions options);

    /// Plays one step. Throws StoryDifference when something else happens than the step says.
    void Play(const StoryStep& step);
    /// What must hold behind the last step: nothing is left over that no line has asked for.
    void Finish();

    /// The program of the desk in use, started when it has not been yet; nullptr without an office and after its end.
    App* Program();
    const std::string& Form() { return Current().form; }

private:
    class Reader;
    using Routine = void (StoryPlayer::*)(Reader&);
    using RoutineTable = std::map<std::string, Routine>;

    /// Steps beyond the plain calls of a method.
    static const RoutineTable& Actions();
    /// Steps that say what must have happened or must be seen.
    static const RoutineTable& Expectations();

    StoryDesk& Current() { return desks[deskName]; }
    StoryDesk& Running();
    void StartDesk();
    const std::string& MachineOf(const std::string& name);
    std::string Filled(std::string text) const;
    void MustBeSettled() const;

    Json Ask(const std::string& method, const Json& parameters);
    Json Read(const std::string& method, const Json& parameters);
    void Act(const std::string& method, const Json& parameters);
    void Do(const StoryStep& step);

    void MakeOffice(Reader& reader);
    void SetClock(Reader& reader);
    void SignIn(Reader& reader);
    void GoToDesk(Reader& reader);
    void Start(Reader& reader);
    void Say(Reader& reader);
    void UseForm(Reader& reader);
    void PickEntry(Reader& reader);
    void PressKeys(Reader& reader);
    void UseMouse(Reader& reader);
    void QueueAnswers(Reader& reader);
    void Execute(Reader& reader);
    void CallMethod(Reader& reader);

    void ExpectMessage(Reader& reader);
    void ExpectEnd(Reader& reader);
    void ExpectPopup(Reader& reader);
    void ExpectResult(Reader& reader);
    void ExpectError(Reader& reader);
    void ExpectControl(Reader& reader);
    void ExpectEntries(Reader& reader);
    void ExpectForm(Reader& reader);
    void ExpectCell(Reader& reader);
    void ExpectCells(Reader& reader);
    void ExpectRows(Reader& reader);
    void ExpectFile(Reader& reader);

    std::string storyPath;
    StoryOptions options;
    std::unique_ptr<StoryOffice> office;
    std::map<std::string, StoryDesk> desks;
    std::string deskName = "A";
    DateTime clock = DateTime::Of(2026, 3, 2, 9, 0, 0);
    /// The error code that the step under way must meet; 0 for none.
    int wantedError = 0;
};

/// Takes the words of a step one by one. A word that is missing or of a wrong kind raises a StoryDifference.
class StoryPlayer::Reader {
public:
    Reader(StoryPlayer& player, const StoryStep& step) : step(step), player(player) {}

    /// The form that the step names, or else the one that the story last went to.
    std::string Form();
    StoryWord Word(const char* what);
    std::string Text(const char* what) { return Word(what).text; }
    int Number(const char* what);
    bool HasMore();
    /// Takes the next word when it is that one, without quotes.
    bool Takes(const char* word);
    /// All that is left, as it stands.
    std::string Rest();
    /// The same as a JSON value; an empty object when nothing is left.
    Json RestAsJson();
    void MustBeAtEnd();

    const StoryStep& step;

private:
    /// The words are not looked at before they are needed: a statement of SQL may have quotes of its own.
    void Split();

    StoryPlayer& player;
    std::optional<std::vector<StoryWord>> words;
    std::size_t at = 0;
};

}
