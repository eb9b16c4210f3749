#include "frame/App.h"

#include "frame/MDI.h"
#include "frame/SecondCopyGuard.h"
#include "frame/frmLogin.h"
#include "store/Schema.h"
#include "values/Numbers.h"

#include <algorithm>
#include <stdexcept>

namespace rovanta {

App::App(Host& host, const ScreenTable& table, AppOptions options)
    : host(host), clock(options.frozenClock), mail(MakeSmtpTransport()), table(table), options(std::move(options))
{
}

App::~App()
{
    for (const auto& screen : loaded)
        host.FormUnloaded(*screen);
}

void App::Start()
{
    DriverDayFee = 30;
    configuration = ReadConfigFile(options.configPath);
    OpenDatabase();
    LoadCompanyDefaults();
    // Kept on purpose: the test comes after the database was opened, so that a second copy has already touched it.
    guard = std::make_unique<SecondCopyGuard>(options.machine);
    if (!guard->IsFirst()) {
        Say("This application is already running.", "Application Already Running");
        throw ProgramEnd{};
    }
    MDI& main = Open<MDI>();
    main.menu.EnableAll(false);
    main.menu.Find("File")->enabled = true;
    main.menu.Find("Exit")->enabled = true;
    main.MenuChanged.Fire();
    Open<frmLogin>();
}

void App::OpenDatabase()
{
    AppConnection.Open(configuration.ConnectionString);
    RequireOffice(AppConnection);
}

void App::LoadCompanyDefaults()
{
    if (!ReadCompany(AppConnection, company))
        Open("frmCompanyInfo");
}

void App::CloseAndExit()
{
    AppConnection.Close();
    throw ProgramEnd{};
}

bool App::HasPermission(std::string_view name)
{
    if (session.CurrentUserType == "Admin")
        return true;
    int permission = 0;
    Recordset found(Statement{"SELECT ID FROM Permission WHERE Name = '"} + Text(name) + "'", AppConnection);
    if (!found.Eof())
        permission = CInt(found.Fields("ID").Number());
    found.Open(Statement{"SELECT * FROM UserPermission WHERE UserID = "} + Key(session.CurrentUserID) +
                   " AND PermissionID = " + Key(permission),
               AppConnection);
    return !found.Eof();
}

bool App::HasEitherPermission(std::string_view one, std::string_view other)
{
    return HasPermission(one) || HasPermission(other);
}

static void Refuse(App& app, const std::string& denial)
{
    app.Say(denial, "Invalid Permission", MessageIcon::Exclamation);
}

bool App::Permit(std::string_view name, const std::string& denial)
{
    if (HasPermission(name))
        return true;
    Refuse(*this, denial);
    return false;
}

bool App::PermitEither(std::string_view one, std::string_view other, const std::string& denial)
{
    if (HasEitherPermission(one, other))
        return true;
    Refuse(*this, denial);
    return false;
}

void App::Say(const std::string& text, const std::string& title, MessageIcon icon)
{
    host.ShowMessage({text, title, icon, MessageButtons::Ok});
}

bool App::Ask(const std::string& text, const std::string& title, MessageIcon icon)
{
    return host.ShowMessage({text, title, icon, MessageButtons::YesNo}) == MessageAnswer::Yes;
}

bool App::KnowsScreen(std::string_view name) const
{
    return table.find(name) != table.end();
}

Screen& App::Open(std::string_view name)
{
    Screen* screen = Find(name);
    if (!screen) {
        const auto entry = table.find(name);
        if (entry == table.end())
            throw std::logic_error("There is no screen " + std::string(name));
        loaded.push_back(entry->second(*this));
        screen = loaded.back().get();
        host.FormLoaded(*screen);
    }
    screen->SetVisible(true);
    host.BringToFront(*screen);
    return *screen;
}

Screen* App::Find(std::string_view name) const
{
    const auto found =
        std::find_if(loaded.begin(), loaded.end(), [&](const auto& screen) { return screen->Name() == name; });
    return found == loaded.end() ? nullptr : found->get();
}

void App::Unload(Form& form)
{
    const auto find = [&] {
        return std::find_if(loaded.begin(), loaded.end(), [&](const auto& screen) { return screen.get() == &form; });
    };
    if (find() == loaded.end())
        return;
    form.Unload.Fire();
    form.SetVisible(false);
    host.FormUnloaded(form);
    form.SetView(nullptr);
    // The screen's own routine may have opened and closed others, so its place is looked up only now.
    const auto found = find();
    if (found == loaded.end())
        return;
    closed.push_back(std::move(*found));
    loaded.erase(found);
}

void App::DropClosed()
{
    closed.clear();
}

std::vector<Screen*> App::Screens() const
{
    std::vector<Screen*> screens;
    screens.reserve(loaded.size());
    for (const auto& screen : loaded)
        screens.push_back(screen.get());
    return screens;
}

}
