#include "desktop/EventGate.h"

#include "frame/App.h"

namespace rovanta {

void EventGate::Run(const std::function<void()>& act)
{
    if (ended)
        return;
    ++depth;
    Try(act);
    if (depth == 1 && !ended && settle)
        Try(settle);
    --depth;
}

void EventGate::Try(const std::function<void()>& act)
{
    try {
        act();
    } catch (const ProgramEnd&) {
        End(0);
    } catch (const std::exception& failure) {
        Fail(failure.what());
    }
}

void EventGate::Fail(const std::string& text)
{
    // The rest of an act that has ended the program from within stumbles over what is gone; that is no news.
    if (ended)
        return;
    ended = true;
    if (tellFailure)
        tellFailure(text);
    if (exit)
        exit(1);
}

void EventGate::End(int exitCode)
{
    if (ended)
        return;
    ended = true;
    if (exit)
        exit(exitCode);
}

}
