#include "automation/AutomationHost.h"

#include "forms/Menu.h"

#include <utility>

namespace rovanta {

std::vector<ShownMessage> AutomationHost::TakeMessages()
{
    return std::exchange(messages, {});
}

std::string AutomationHost::TakePopup()
{
    return std::exchange(popup, {});
}

MessageAnswer AutomationHost::ShowMessage(const Message& message)
{
    ShownMessage& shown = messages.emplace_back();
    shown.message = message;
    if (message.buttons == MessageButtons::YesNo) {
        shown.unanswered = answers.empty();
        shown.answer = shown.unanswered ? MessageAnswer::No : answers.front();
        if (!shown.unanswered)
            answers.pop_front();
    }
    return shown.answer;
}

std::optional<std::string> AutomationHost::ChooseFile(const FileQuestion&)
{
    if (files.empty())
        return std::nullopt;
    const std::string path = std::move(files.front());
    files.pop_front();
    return path.empty() ? std::nullopt : std::optional(path);
}

void AutomationHost::ShowPopup(MenuItem& menu)
{
    popup = menu.name;
}

void AutomationHost::FormLoaded(Form& form)
{
    jobs.Connect(form);
}

}
