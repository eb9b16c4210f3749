#include "frame/MDI.h"

#include "frame/App.h"
#include "frame/MenuTable.h"

#include <stdexcept>

namespace rovanta {

const std::set<std::string_view>& MDI::PendingCommands()
{
    static const std::set<std::string_view> pending = {"ScheduleNavigator",
                                                       "RouteNavigator",
                                                       "RouteEntry",
                                                       "DriverNav",
                                                       "mnuTourDrop",
                                                       "FleetTrackerNavigator",
                                                       "TicketEntry",
                                                       "FleetTrackerPM",
                                                       "TaskNavigator",
                                                       "TaskEntry",
                                                       "ExpenseNavigator",
                                                       "ExpenseEntry",

                                                       "QBSync",
                                                       "DocumentCategoryEntry",
                                                       "DriverEntry",
                                                       "ExpenseCategoryEntry",
                                                       "FleetTrackerFieldEntry",
                                                       "LeaseTemplateEntry",
                                                       "OwnerEntry",
                                                       "Security",
                                                       "TaskTypeEntry",
                                                       "DriverListing",
                                                       "TourListing",
                                                       "mnuTourContactInfo",
                                                       "OwnerIncomeExpense",
                                                       "UtilizationReport",
                                                       "DriverPayReportMenu",
                                                       "Invoice",
                                                       "OpenInvoices",
                                                       "CustomerStatements",
                                                       "IncomeReport",
                                                       "SalesByCustomer",
                                                       "SalesByDriver",
                                                       "mnuSalesByItemReport",
                                                       "OpenTourContacts",
                                                       "NewAction",
                                                       "OpenTicket",
                                                       "OpenDriver"};
    return pending;
}

MDI::MDI(App& app) : Screen(app, screenName, "Rovanta - Larkfield Production")
{
    BuildMenu();
    WireCommands();
    WirePopups();
}

void MDI::BuildMenu()
{
    for (const MenuEntry& entry : MenuEntries())
        menu.Add(entry.parent, std::string(entry.name), std::string(entry.caption));
    menu.Find("Popup")->visible = false;
    menu.Find("FTNavPopup")->visible = false;
}

void MDI::WireCommands()
{
    for (const MenuCommand& command : MenuCommands()) {
        menu.Find(command.name)->Click = [this, &command] {
            const bool permitted = command.otherPermission.empty()
                                       ? app.Permit(command.permission, command.denial)
                                       : app.PermitEither(command.permission, command.otherPermission, command.denial);
            if (permitted)
                OpenScreen(command.name, command.screen);
        };
    }
    menu.Find("Exit")->Click = [this] { app.CloseAndExit(); };
    menu.Find("About")->Click = [this] { app.Open("frmAbout"); };
    menu.Find("mnuUpdateDB")->Click = [this] { mnuUpdateDB_Click(); };
}

void MDI::WirePopups()
{
    for (const PopupCommand& command : PopupCommands()) {
        menu.Find(command.name)->Click = [this, &command] {
            const bool permitted =
                command.otherPermission.empty()
                    ? app.Permit(command.permission, Denial::viewRecord)
                    : app.PermitEither(command.permission, command.otherPermission, Denial::viewRecord);
            if (!permitted)
                return;
            const Screen* source = app.Find(command.sourceForm);
            const auto* grid = source ? dynamic_cast<Grid*>(source->FindControl(command.sourceGrid)) : nullptr;
            const std::string key =
                grid && grid->HasCurrentRow() ? grid->TextMatrix(grid->Row(), command.sourceColumn) : std::string{};
            if (key.empty()) {
                // Kept on purpose: the title speaks of a customer for a bus, a ticket and a tour too.
                app.Say(command.emptyMessage, "No Customer");
                return;
            }
            if (PendingCommands().contains(command.name))
                SayPending(command.name);
            else
                app.Open(command.screen).OpenRecord(key);
        };
    }
}

void MDI::OpenScreen(std::string_view command, std::string_view screen)
{
    if (PendingCommands().contains(command))
        SayPending(command);
    else
        app.Open(screen);
}

void MDI::SayPending(std::string_view command)
{
    app.Say("The screen \"" + menu.Find(command)->caption + "\" is not part of this version yet.", "Not Available",
            MessageIcon::Information);
}

void MDI::mnuUpdateDB_Click()
{
    app.AppConnection.Execute(
        "CREATE TABLE [dbo].[CoDriverData](    [ID] [bigint] IDENTITY(1,1) NOT NULL,    [DriverID] [bigint] NULL,    "
        "[CoDriverID] [bigint] NULL,    [StartDate] [datetime] NULL,    [EndDate] [datetime] NULL,    [Notes] "
        "[varchar](500) NULL,    [EnteredBy] [varchar](50) NULL,    [EnteredDate] [datetime] NULL,    [EditedBy] "
        "[varchar](50) NULL,    [EditedDate] [datetime] NULL, CONSTRAINT [PK_CoDriverData] PRIMARY KEY CLUSTERED(    "
        "[ID] Asc)WITH (PAD_INDEX = OFF, STATISTICS_NORECOMPUTE = OFF, IGNORE_DUP_KEY = OFF, ALLOW_ROW_LOCKS = ON, "
        "ALLOW_PAGE_LOCKS = ON) ON [PRIMARY]) ON [PRIMARY]");
}

}
