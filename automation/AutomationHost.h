#pragma once

#include "automation/PrintJobs.h"
#include "forms/Host.h"

#include <deque>
#include <string>
#include <vector>

namespace rovanta {

/// A message box that was shown, and what it was answered.
struct ShownMessage {
    Message message;
    MessageAnswer answer = MessageAnswer::Ok;
    /// A question that found no queued answer and so was answered no.
    bool unanswered = false;
};

/// The shell without a window: it records what a person would see and answers from queues what a person would answer.
class AutomationHost : public Host {
public:
    void QueueAnswer(MessageAnswer answer) { answers.push_back(answer); }
    std::size_t QueuedAnswers() const { return answers.size(); }
    /// What the next file dialog returns; an empty path is a cancel.
    void QueueFile(const std::string& path) { files.push_back(path); }

    /// The boxes shown since the last time, in order.
    std::vector<ShownMessage> TakeMessages();
    /// The pop-up menu that came up since the last time; empty for none.
    std::string TakePopup();
    const PrintJobs& Jobs() const { return jobs; }

    MessageAnswer ShowMessage(const Message& message) override;
    std::optional<std::string> ChooseFile(const FileQuestion& question) override;
    void ShowPopup(MenuItem& menu) override;
    void ShowHourglass(bool) override {}
    void FormLoaded(Form& form) override;
    void FormUnloaded(Form&) override {}
    void BringToFront(Form&) override {}

private:
    std::deque<MessageAnswer> answers;
    std::deque<std::string> files;
    std::vector<ShownMessage> messages;
    std::string popup;
    PrintJobs jobs;
};

}
