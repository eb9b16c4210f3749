#include "automation/StoryTelling.h"

#include "app/Screens.h"
#include "automation/StoryPlayer.h"
#include "frame/MDI.h"
#include "values/Format.h"
#include "values/Text.h"

namespace rovanta {

namespace {

/// What a step speaks of, with the names that a person sees.
struct Subject {
    std::string place;
    std::string control;
    ControlKind kind = ControlKind::Label;
    /// The words behind the control.
    std::vector<StoryWord> words;

    std::string Word(std::size_t index) const { return index < words.size() ? words[index].text : std::string{}; }
};

/// "txtTourName" as "Tour Name": what to call a control that has no caption.
std::string Spelled(const std::string& name)
{
    std::string spelled;
    for (const char character : name) {
        const bool capital = character >= 'A' && character <= 'Z';
        if (capital && !spelled.empty() && spelled.back() != ' ' && !(spelled.back() >= 'A' && spelled.back() <= 'Z'))
            spelled += ' ';
        if (capital || !spelled.empty())
            spelled += character;
    }
    return spelled.empty() ? name : spelled;
}

std::string CallName(const std::string& name)
{
    std::size_t prefix = 0;
    while (prefix < name.size() && name[prefix] >= 'a' && name[prefix] <= 'z')
        ++prefix;
    return prefix < name.size() ? Spelled(name.substr(prefix)) : name;
}

Subject SubjectOf(const StoryStep& step, StoryPlayer& player)
{
    Subject subject;
    subject.words = Words(step.rest);
    std::string form = player.Form();
    const auto take = [&] {
        const std::string word = subject.Word(0);
        if (!subject.words.empty())
            subject.words.erase(subject.words.begin());
        return word;
    };
    if (AllScreens().contains(subject.Word(0)))
        form = take();
    const Screen* screen = player.Program() ? player.Program()->Find(form) : nullptr;
    subject.place = screen ? screen->Caption() : form;
    subject.control = take();
    const Control* control = screen ? screen->FindControl(subject.control) : nullptr;
    if (!control)
        return subject;
    subject.kind = control->Kind();
    subject.control = control->Caption().empty() ? CallName(control->Name()) : control->Caption();
    // The payers of every charge bear the same captions; the first of them bears the charge as a remark.
    if (const auto* option = dynamic_cast<const OptionButton*>(control)) {
        const std::string& charge = option->Group().Members().front()->Note();
        subject.control += charge.empty() ? "" : " (" + charge + ")";
    }
    return subject;
}

std::string TellSetting(const Subject& subject)
{
    const bool off = subject.Word(0) == "false" || subject.Word(0) == "0";
    if (subject.kind == ControlKind::CheckBox)
        return (off ? "Take the tick off \"" : "Tick \"") + subject.control + "\".";
    if (subject.kind == ControlKind::OptionButton)
        return "Choose \"" + subject.control + "\".";
    return subject.control + ": " + subject.Word(0);
}

std::string TellMouse(const StoryStep& step, const Subject& subject)
{
    const std::string cell = subject.words.size() < 2 ? "" : ", row " + subject.Word(0) + ", column " + subject.Word(1);
    const std::string what = "\"" + subject.control + "\"" + cell + ".";
    if (step.verb == "click" && subject.kind == ControlKind::OptionButton)
        return "Choose " + what;
    if (step.verb == "click")
        return (subject.kind == ControlKind::Button ? "Press " : "Click ") + what;
    if (step.verb == "hover")
        return "Move the mouse over " + what;
    return (step.verb == "doubleClick" ? "Double-click " : "Right-click ") + what;
}

std::string TellRows(const StoryStep& step)
{
    std::string text;
    for (const auto& row : step.rows) {
        for (std::size_t cell = 0; cell < row.size(); ++cell)
            text += (cell > 0 ? " | " : "\n        ") + row[cell].text;
    }
    return text.empty() ? "\n        nothing" : text;
}

std::string MenuCaption(const std::string& command, StoryPlayer& player)
{
    MDI* main = player.Program() ? player.Program()->Find<MDI>() : nullptr;
    const MenuItem* item = main ? main->menu.Find(command) : nullptr;
    return item ? item->caption : command;
}

std::string TellExpectation(const StoryStep& step, StoryPlayer& player)
{
    if (step.verb == "message") {
        const auto words = Words(step.rest);
        const std::string text = Replace(words.size() > 1 ? words[1].text : "", lineBreak, " ");
        const std::string answer = !words.empty() && (words.back().Is("yes") || words.back().Is("no"))
                                       ? " Answer: " + words.back().text + "."
                                       : "";
        return "The program says: \"" + text + "\"" + answer;
    }
    if (step.verb == "ended")
        return "The program ends.";
    if (step.verb == "refused" || step.verb == "wrong")
        return "This is refused: " + Tell(step.Behind(), player);
    if (step.verb == "query")
        return "In the database, " + step.rest + " gives:" + TellRows(step);
    if (step.verb == "cells")
        return "\"" + SubjectOf(step, player).control + "\" shows:" + TellRows(step);
    if (step.verb != "expect" && step.verb != "cell")
        return {};
    const Subject subject = SubjectOf(step, player);
    return subject.control + " shows: " + (subject.words.empty() ? "" : subject.words.back().text);
}

}

std::string Tell(const StoryStep& step, StoryPlayer& player)
{
    const std::string& verb = step.verb;
    const auto first = [&] { return Words(step.rest).empty() ? std::string{} : Words(step.rest).front().text; };
    if (verb == "say")
        return first();
    if (verb == "clock")
        return "It is " + Format(ToDate(step.rest), "dddd, mmmm d, yyyy, h:nn AM/PM") + ".";
    if (verb == "sign")
        return "Sign in as " + (Words(step.rest).size() > 1 ? Words(step.rest)[1].text : "") + ".";
    if (verb == "desk")
        return "At desk " + step.rest + ":";
    if (verb == "start")
        return "Start the program.";
    if (verb == "menu")
        return "Choose \"" + MenuCaption(step.rest, player) + "\" from the menu.";
    if (verb == "answer")
        return "The next question will be answered: " + step.rest + ".";
    if (verb == "set" || verb == "pick")
        return TellSetting(SubjectOf(step, player));
    if (verb == "click" || verb == "doubleClick" || verb == "rightClick" || verb == "hover")
        return TellMouse(step, SubjectOf(step, player));
    if (verb == "leave")
        return "Leave \"" + SubjectOf(step, player).control + "\".";
    if (verb == "key")
        return "Type \"" + SubjectOf(step, player).Word(0) + "\" in " + SubjectOf(step, player).control + ".";
    if (verb == "close" || verb == "open")
        return (verb == "close" ? "Close " : "Open ") + (step.rest.empty() ? player.Form() : step.rest) + ".";
    return TellExpectation(step, player);
}

}
