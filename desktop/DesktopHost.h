#pragma once

#include "desktop/EventGate.h"
#include "desktop/MainWindow.h"
#include "forms/Host.h"

#include <QPoint>
#include <map>
#include <memory>
#include <string>
#include <vector>

class QMdiSubWindow;

namespace rovanta {

class App;
class FormWindow;

/// The desktop's half of the screens' services: message boxes, file dialogs, the wait cursor, pop-up menus, and a
/// window inside the main window for every form.
class DesktopHost : public Host {
public:
    DesktopHost();
    ~DesktopHost() override;
    DesktopHost(const DesktopHost&) = delete;
    DesktopHost& operator=(const DesktopHost&) = delete;

    /// The program that this host serves, once it is made.
    void Serve(App& served) { app = &served; }
    /// The program is about to go.
    void Dismiss() { app = nullptr; }
    EventGate& Gate() { return gate; }
    MainWindow& Main() { return main; }
    /// The window of a form, or nullptr.
    FormWindow* WindowOf(const Form& form) const;
    QMdiSubWindow* FrameOf(const Form& form) const;
    int ExitCode() const { return exitCode; }
    /// Nobody is there to answer: boxes answer themselves, and No where they ask.
    void AnswerAlone() { alone = true; }
    /// Draws every window from its form.
    void FlushWindows();

    MessageAnswer ShowMessage(const Message& message) override;
    std::optional<std::string> ChooseFile(const FileQuestion& question) override;
    void ShowPopup(MenuItem& menu) override;
    void ShowHourglass(bool on) override;
    void FormLoaded(Form& form) override;
    void FormUnloaded(Form& form) override;
    void BringToFront(Form& form) override;

private:
    struct OpenForm {
        FormWindow* window;
        QMdiSubWindow* frame;
        /// Where a small box was put; it stays in the middle until a person moves it.
        QPoint middle;
    };

    void Settle();
    void FlushForms();
    void ShowForm(Form& form, OpenForm& open);
    void Place(OpenForm& entry) const;
    void MoveToMiddle(OpenForm& entry) const;
    void CloseByHand(Form& form);
    void TellFailure(const std::string& text);
    void ShowStanding();

    EventGate gate;
    MainWindow main;
    App* app = nullptr;
    std::map<const Form*, OpenForm> open;
    Form* toFront = nullptr;
    int waiting = 0;
    int exitCode = 0;
    bool alone = false;
};

}
