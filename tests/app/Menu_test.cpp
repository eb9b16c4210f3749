#include <doctest/doctest.h>

#include "app/Screens.h"
#include "frame/MDI.h"
#include "frame/MenuTable.h"
#include "support/TestApp.h"

using namespace rovanta;
using namespace rovanta::tests;

namespace {

constexpr const char* viewRecord = "You do not have permission to view this record.";
constexpr const char* viewReport = "You do not have permission to view this report.";
constexpr const char* viewScreen = "You do not have permission to view this screen.";

/// A command, the rights of which each is enough, and its refusal.
struct Guard {
    const char* command;
    std::vector<const char*> rights;
    const char* denial;
};

const std::vector<const char*> tour = {"Tour Entry/Edit", "Tour View"};
const std::vector<const char*> customer = {"Customer Entry/Edit", "Customer View"};
const std::vector<const char*> vehicle = {"Bus/Trailer Entry/Edit", "Bus/Trailer View"};
const std::vector<const char*> driver = {"Driver Entry/Edit", "Driver View"};

const std::vector<Guard> menuGuards = {
    {"CompanyInfo", {"Company Info"}, viewRecord},
    {"ScheduleNavigator", {"Schedule Navigator"}, viewRecord},
    {"LeaseEntry", tour, viewRecord},
    {"ContactNavigator", {"Contact Navigator"}, viewRecord},
    {"RouteNavigator", {"Route Navigator"}, viewRecord},
    {"RouteEntry", {"Route Entry/Edit"}, viewRecord},
    {"DriverNav", {"Schedule Navigator"}, viewRecord},
    {"mnuTourDrop", tour, viewRecord},
    {"FleetTrackerNavigator", {"FleetTracker Navigator"}, viewRecord},
    {"TicketEntry", {"FleetTracker Ticket Entry"}, viewRecord},
    {"FleetTrackerPM", {"FleetTracker PM"}, viewScreen},
    {"TaskNavigator", {"Task List"}, viewRecord},
    {"TaskEntry", {"Task Entry"}, viewRecord},
    {"ExpenseNavigator", {"Bus Expense Navigator"}, viewRecord},
    {"ExpenseEntry", {"Bus Expense Entry/Edit"}, viewRecord},
    {"ReceivePayments", {"Receive Payments"}, viewRecord},
    {"QBSync", {"QB Sync"}, viewRecord},
    {"BusEntry", vehicle, viewRecord},
    {"CustomerEntry", customer, viewRecord},
    {"DocumentCategoryEntry", {"Document Category Entry/Edit"}, viewRecord},
    {"DriverEntry", driver, viewRecord},
    {"ExpenseCategoryEntry", {"Expense Category Entry/Edit", "Expense Category View"}, viewRecord},
    {"FleetTrackerFieldEntry", {"Fleet Tracker Field Entry/Edit"}, viewReport},
    {"LeaseTemplateEntry", {"Lease Template Entry/Edit"}, viewRecord},
    {"OwnerEntry", {"Owner Entry/Edit", "Owner View"}, viewRecord},
    {"Security", {"Security"}, viewRecord},
    {"TaskTypeEntry", {"Task Type Entry"}, viewRecord},
    {"DriverListing", {"Driver Listing Report"}, viewRecord},
    {"TourListing", tour, viewRecord},
    {"mnuTourContactInfo", tour, viewRecord},
    {"OwnerIncomeExpense", {"Owner Income/Expense Report"}, viewRecord},
    {"UtilizationReport", {"Bus/Trailer Utilization Report"}, viewRecord},
    {"DriverPayReportMenu", {"Driver Pay Report"}, viewRecord},
    {"Invoice", {"Invoice Report"}, viewRecord},
    {"OpenInvoices", {"Open Invoices Report"}, viewRecord},
    {"CustomerStatements", {"Customer Statements Report"}, viewReport},
    {"IncomeReport", {"Income Report"}, viewReport},
    {"SalesByCustomer", {"Sales By Customer Report"}, viewRecord},
    {"SalesByDriver", {"Sales By Driver Report"}, viewRecord},
    {"mnuSalesByItemReport", {"Income Report"}, viewReport},
};

const std::vector<Guard> popupGuards = {
    {"OpenCustomer", customer, "No Customer: No Customer for this selection."},
    {"OpenTour", tour, "No Customer: No Tour for this selection."},
    {"OpenTourContacts", tour, "No Customer: No Tour for this selection."},
    {"NewAction", {"FleetTracker Action Entry/Edit"}, "No Customer: No Ticket for this selection."},
    {"OpenTicket",
     {"FleetTracker Ticket Entry/Edit", "FleetTracker Ticket View"},
     "No Customer: No Ticket for this selection."},
    {"OpenBus", vehicle, "No Customer: No Bus for this selection."},
    {"OpenDriver", driver, "No Customer: No Driver for this selection."},
};

/// A desk of the clerk without a right.
struct ClerkDesk {
    ClerkDesk() : desk(office) { desk.SignIn("clerk"); }

    void Pick(const std::string& command)
    {
        desk.app.Find<MDI>()->menu.Find(command)->Click.Fire();
        desk.app.DropClosed();
    }

    TestOffice office;
    TestApp desk;
};

/// The right to every command but one is of no use for that one: takes all rights, gives `right`.
void GiveOnly(TestApp& desk, const std::string& right)
{
    desk.Execute("DELETE FROM UserPermission");
    desk.Grant("clerk", right);
}

}

TEST_CASE("Every command of the menu is told here")
{
    CHECK(MenuCommands().size() == menuGuards.size());
    CHECK(PopupCommands().size() == popupGuards.size());
}

TEST_CASE("Each command is refused without its right, and opens or says what is pending with any of its rights")
{
    ClerkDesk clerk;
    for (const Guard& guard : menuGuards) {
        CAPTURE(guard.command);
        clerk.desk.Execute("DELETE FROM UserPermission");
        clerk.Pick(guard.command);
        CHECK(clerk.desk.host.TakeMessages() == std::string("Invalid Permission: ") + guard.denial);
        for (const char* right : guard.rights) {
            CAPTURE(right);
            GiveOnly(clerk.desk, right);
            clerk.Pick(guard.command);
            const std::string caption = clerk.desk.app.Find<MDI>()->menu.Find(guard.command)->caption;
            const std::string pending =
                "Not Available: The screen \"" + caption + "\" is not part of this version yet.";
            const bool isPending = MDI::PendingCommands().contains(guard.command);
            CHECK(clerk.desk.host.TakeMessages() == (isPending ? pending : ""));
        }
    }
}

TEST_CASE("A pop-up command asks for the right before it looks at the row")
{
    ClerkDesk clerk;
    for (const Guard& guard : popupGuards) {
        CAPTURE(guard.command);
        clerk.desk.Execute("DELETE FROM UserPermission");
        clerk.Pick(guard.command);
        CHECK(clerk.desk.host.TakeMessages() == std::string("Invalid Permission: ") + viewRecord);
        for (const char* right : guard.rights) {
            GiveOnly(clerk.desk, right);
            clerk.Pick(guard.command);
            CHECK(clerk.desk.host.TakeMessages() == guard.denial);
        }
    }
}

TEST_CASE("Every right that a command asks for is listed in a new office")
{
    const TestOffice office;
    TestApp desk(office);
    for (const auto* guards : {&menuGuards, &popupGuards}) {
        for (const Guard& guard : *guards) {
            for (const std::string right : guard.rights) {
                CAPTURE(right);
                CHECK(desk.Rows("SELECT COUNT(ID) AS N FROM Permission WHERE Name = '" + right + "'") == "1");
            }
        }
    }
}

TEST_CASE("A command that is not pending has its screen")
{
    for (const MenuCommand& command : MenuCommands()) {
        CAPTURE(command.name);
        const bool isPending = MDI::PendingCommands().contains(command.name);
        CHECK(AllScreens().contains(command.screen) != isPending);
    }
}

TEST_CASE("The menu has its entries, captions and order")
{
    const TestOffice office;
    TestApp desk(office);
    Menu& menu = desk.app.Find<MDI>()->menu;
    std::string bar;
    for (const MenuItem& item : menu.Bar())
        bar += item.caption + (item.visible ? ";" : "(hidden);");
    CHECK(bar == "File;Scheduling;FleetTracker;Task;Truck Expenses;Accounts Receivable;Administrative;Reports;Help;"
                 "Popup(hidden);FTNavPopup(hidden);");
    const auto entries = [&](const char* name) {
        std::string text;
        for (const MenuItem& item : menu.Find(name)->entries)
            text += item.caption + ";";
        return text;
    };
    CHECK(entries("File") == "Setup;Exit;");
    CHECK(entries("Scheduling") == "Schedule Navigator;Tour Entry/Edit;Search Navigator;Route Navigator;"
                                   "Route Entry/Edit;Driver Navigator;Tour Drop Emails;");
    CHECK(entries("FleetTracker") == "FleetTracker Navigator;Ticket Entry;FleetTracker PM;");
    CHECK(entries("Task") == "Task Navigator;Task Entry;");
    CHECK(entries("BusExpenses") == "Expense Navigator;Expense Entry/Edit;");
    CHECK(entries("ARScreen") == "Receive Payments;QB Sync;");
    CHECK(entries("Administrative") ==
          "Truck/Trailer Entry/Edit;Customer Entry/Edit;Document Category Entry/Edit;Driver Entry/Edit;"
          "Expense Category Entry/Edit;FleetTracker Field Entry/Edit;Lease Template Entry/Edit;Owner Entry/Edit;"
          "Security;Task Type Entry/Edit;");
    CHECK(entries("Reports") == "Listing Reports;Truck/Trailer Reports;Driver Reports;Accounts Receivable;Sales;");
    CHECK(entries("Listing") == "Driver Listing Report;Tour Listing;Tour Contact Info;");
    CHECK(entries("BusTrailerReports") == "Owner Income/Expense Report;Utilization Report;");
    CHECK(entries("DriverReport") == "Driver Pay Report;");
    CHECK(entries("AR") == "Invoice;Open Invoices;Customer Statements;Income Report;");
    CHECK(entries("SalesReports") == "Sales By Customer;Sales By Driver;Sales By Item;");
    CHECK(entries("Help") == "About;Update DB;");
    CHECK(entries("Popup") == "Open Customer;Open Tour;Open Tour Contacts;");
    CHECK(entries("FTNavPopup") == "New Action;Open Ticket;Open Bus;Open Driver;");
}

TEST_CASE("Before the sign-in nothing but Exit can be picked, after it everything")
{
    const TestOffice office;
    TestApp desk(office);
    Menu& menu = desk.app.Find<MDI>()->menu;
    for (const MenuEntry& entry : MenuEntries()) {
        const std::string name(entry.name);
        CAPTURE(name);
        if (menu.Find(name)->IsCommand())
            CHECK(menu.CanPick(name) == (name == "Exit"));
    }
    desk.SignIn("clerk");
    for (const MenuEntry& entry : MenuEntries())
        CHECK(menu.CanPick(entry.name));
}
