#pragma once

#include <functional>
#include <string>

namespace rovanta {

/// The one door through which a person's acts reach the screens. It ends the program when a screen ends it or fails,
/// and settles the windows when the last act under way is over.
class EventGate {
public:
    /// Runs one act. Acts nest: a pop-up's command runs within the right click that brought the pop-up up.
    void Run(const std::function<void()>& act);

    bool IsRunning() const { return depth > 0; }
    /// The program has ended: no further act runs.
    bool HasEnded() const { return ended; }
    /// Ends the program from outside of an act.
    void End(int exitCode);

    /// Called after the outermost act: closed screens go, windows are drawn from their controls.
    std::function<void()> settle;
    /// Tells the person why the program ends.
    std::function<void(const std::string& text)> tellFailure;
    /// Ends the event loop.
    std::function<void(int exitCode)> exit;

private:
    void Try(const std::function<void()>& act);
    void Fail(const std::string& text);

    int depth = 0;
    bool ended = false;
};

}
