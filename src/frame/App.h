#pragma once

#include "forms/ComboTypeAhead.h"
#include "forms/Host.h"
#include "frame/Clock.h"
#include "frame/Company.h"
#include "frame/Configuration.h"
#include "frame/Screen.h"
#include "platform/Mail.h"
#include "store/Connection.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rovanta {

class SecondCopyGuard;

/// Thrown by CloseAndExit: the program ends at once, from wherever it stands. Only the two shells catch it.
struct ProgramEnd {};

/// Who has signed in.
struct Session {
    int CurrentUserID = 0;
    std::string CurrentUsername;
    std::string CurrentUserType;
};

/// Which screens stand open, so that another screen knows that it should refresh them.
struct OpenFlags {
    bool ScheduleNavigatorOpen = false;
    bool TaskNavigatorOpen = false;
    bool RentalEntryOpen = false;
    bool BusExpenseNavigatorOpen = false;
};

/// What a shell gives a program at its start.
struct AppOptions {
    std::string configPath;
    /// The machine that this copy stands for; empty for the computer itself.
    std::string machine;
    std::optional<DateTime> frozenClock;
};

/// One running program: its process-wide state and its open screens. There may be several in one process.
class App {
public:
    App(Host& host, const ScreenTable& table, AppOptions options);
    ~App();
    App(const App&) = delete;
    App& operator=(const App&) = delete;

    /// The whole start, in its order: configuration, database, company row, second-copy test, main window, login box.
    /// Throws RunTimeError when a step fails and ProgramEnd when another copy runs.
    void Start();
    void OpenDatabase();
    /// Fills the company variables; on an empty table opens the company screen and leaves them unset.
    void LoadCompanyDefaults();
    /// Closes the connection and ends the program at once by throwing ProgramEnd.
    [[noreturn]] void CloseAndExit();

    /// Whether the user may do what the permission of that name guards; "Admin" passes all.
    bool HasPermission(std::string_view name);
    bool HasEitherPermission(std::string_view one, std::string_view other);
    /// The permission test with its refusal: false after the box "Invalid Permission" with `denial`.
    bool Permit(std::string_view name, const std::string& denial);
    bool PermitEither(std::string_view one, std::string_view other, const std::string& denial);

    /// A message box with OK alone.
    void Say(const std::string& text, const std::string& title, MessageIcon icon = MessageIcon::None);
    /// A Yes/No box; true for Yes.
    bool Ask(const std::string& text, const std::string& title, MessageIcon icon = MessageIcon::None);

    bool KnowsScreen(std::string_view name) const;
    /// Loads the screen unless it is loaded, and shows it in front.
    Screen& Open(std::string_view name);
    template <class Kind>
    Kind& Open()
    {
        return static_cast<Kind&>(Open(Kind::screenName));
    }
    /// The loaded screen of that name, or nullptr.
    Screen* Find(std::string_view name) const;
    template <class Kind>
    Kind* Find() const
    {
        return static_cast<Kind*>(Find(Kind::screenName));
    }
    /// Closes a screen; its routines that are still under way end before it is destroyed.
    void Unload(Form& form);
    /// Destroys the screens that were closed. A shell calls this when no event is under way.
    void DropClosed();
    /// The loaded screens, oldest first.
    std::vector<Screen*> Screens() const;

    Host& host;
    Clock clock;
    Connection AppConnection;
    Configuration configuration;
    Company company;
    Session session;
    OpenFlags openFlags;
    TypeAheadState typeAhead;
    double DriverDayFee = 0;
    std::unique_ptr<MailTransport> mail;

private:
    const ScreenTable& table;
    AppOptions options;
    std::unique_ptr<SecondCopyGuard> guard;
    std::vector<std::unique_ptr<Screen>> loaded;
    std::vector<std::unique_ptr<Screen>> closed;
};

/// The wait cursor for the time of a routine.
class Hourglass {
public:
    explicit Hourglass(App& app) : host(app.host) { host.ShowHourglass(true); }
    ~Hourglass() { host.ShowHourglass(false); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

private:
    Host& host;
};

/// The denial texts of the permission test, by what was asked for.
namespace Denial {
inline constexpr const char* viewRecord = "You do not have permission to view this record.";
inline constexpr const char* viewReport = "You do not have permission to view this report.";
inline constexpr const char* viewScreen = "You do not have permission to view this screen.";
inline constexpr const char* saveRecord = "You do not have permission to save this record.";
inline constexpr const char* updateRecord = "You do not have permission to update this record.";
inline constexpr const char* runReport = "You do not have permission to run this report.";
inline constexpr const char* ticketStatus = "You do not have permission to modify the status of a Ticket.";
}

}
