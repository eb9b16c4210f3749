#pragma once

#include "automation/AutomationHost.h"
#include "frame/App.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace rovanta {

/// How a program ended.
struct Ending {
    /// The failure's own text; empty when the program was left.
    std::string text;
    bool failed = false;
};

/// One running program with the shell that serves it. It outlives the program's end.
class Desk {
public:
    Desk(const ScreenTable& screens, AppOptions options);
    ~Desk();

    /// The program's own start. When a step of it fails the desk has ended.
    void Start();
    /// Lets the program do something. Whatever ends the program on the way ends here; only an RpcError passes.
    void Perform(const std::function<void()>& action);
    /// What closing the main window does: no routine is asked, every screen goes. Ends the program.
    [[noreturn]] void CloseMainWindow();

    App& Program() { return *program; }
    /// Nothing while the program runs.
    const std::optional<Ending>& Ended() const { return ending; }

    AutomationHost host;

private:
    void End(const Ending& how);

    std::unique_ptr<App> program;
    std::optional<Ending> ending;
};

}
