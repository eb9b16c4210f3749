#include "automation/Desk.h"

#include "automation/RpcError.h"

namespace rovanta {

Desk::Desk(const ScreenTable& screens, AppOptions options)
    : program(std::make_unique<App>(host, screens, std::move(options)))
{
}

Desk::~Desk() = default;

void Desk::Start()
{
    Perform([this] { program->Start(); });
}

void Desk::Perform(const std::function<void()>& action)
{
    try {
        action();
        program->DropClosed();
    } catch (const RpcError&) {
        throw;
    } catch (const ProgramEnd&) {
        End({});
    } catch (const std::exception& failure) {
        End({failure.what(), true});
    }
}

void Desk::CloseMainWindow()
{
    const std::vector<Screen*> screens = program->Screens();
    for (auto screen = screens.rbegin(); screen != screens.rend(); ++screen)
        program->Unload(**screen);
    throw ProgramEnd{};
}

void Desk::End(const Ending& how)
{
    ending = how;
    // Frees the connection and the mark of the running copy, as the end of a process does.
    program.reset();
}

}
