#include "frame/MenuTable.h"

#include "frame/App.h"

#include <array>

namespace rovanta {

std::span<const MenuEntry> MenuEntries()
{
    static constexpr auto entries = std::to_array<MenuEntry>({
        {"", "File", "File"},
        {"File", "CompanyInfo", "Setup"},
        {"File", "Exit", "Exit"},
        {"", "Scheduling", "Scheduling"},
        {"Scheduling", "ScheduleNavigator", "Schedule Navigator"},
        {"Scheduling", "LeaseEntry", "Tour Entry/Edit"},
        {"Scheduling", "ContactNavigator", "Search Navigator"},
        {"Scheduling", "RouteNavigator", "Route Navigator"},
        {"Scheduling", "RouteEntry", "Route Entry/Edit"},
        {"Scheduling", "DriverNav", "Driver Navigator"},
        {"Scheduling", "mnuTourDrop", "Tour Drop Emails"},
        {"", "FleetTracker", "FleetTracker"},
        {"FleetTracker", "FleetTrackerNavigator", "FleetTracker Navigator"},
        {"FleetTracker", "TicketEntry", "Ticket Entry"},
        {"FleetTracker", "FleetTrackerPM", "FleetTracker PM"},
        {"", "Task", "Task"},
        {"Task", "TaskNavigator", "Task Navigator"},
        {"Task", "TaskEntry", "Task Entry"},
        {"", "BusExpenses", "Truck Expenses"},
        {"BusExpenses", "ExpenseNavigator", "Expense Navigator"},
        {"BusExpenses", "ExpenseEntry", "Expense Entry/Edit"},
        {"", "ARScreen", "Accounts Receivable"},
        {"ARScreen", "ReceivePayments", "Receive Payments"},
        {"ARScreen", "QBSync", "QB Sync"},
        {"", "Administrative", "Administrative"},
        {"Administrative", "BusEntry", "Truck/Trailer Entry/Edit"},
        {"Administrative", "CustomerEntry", "Customer Entry/Edit"},
        {"Administrative", "DocumentCategoryEntry", "Document Category Entry/Edit"},
        {"Administrative", "DriverEntry", "Driver Entry/Edit"},
        {"Administrative", "ExpenseCategoryEntry", "Expense Category Entry/Edit"},
        {"Administrative", "FleetTrackerFieldEntry", "FleetTracker Field Entry/Edit"},
        {"Administrative", "LeaseTemplateEntry", "Lease Template Entry/Edit"},
        {"Administrative", "OwnerEntry", "Owner Entry/Edit"},
        {"Administrative", "Security", "Security"},
        {"Administrative", "TaskTypeEntry", "Task Type Entry/Edit"},
        {"", "Reports", "Reports"},
        {"Reports", "Listing", "Listing Reports"},
        {"Listing", "DriverListing", "Driver Listing Report"},
        {"Listing", "TourListing", "Tour Listing"},
        {"Listing", "mnuTourContactInfo", "Tour Contact Info"},
        {"Reports", "BusTrailerReports", "Truck/Trailer Reports"},
        {"BusTrailerReports", "OwnerIncomeExpense", "Owner Income/Expense Report"},
        {"BusTrailerReports", "UtilizationReport", "Utilization Report"},
        {"Reports", "DriverReport", "Driver Reports"},
        {"DriverReport", "DriverPayReportMenu", "Driver Pay Report"},
        {"Reports", "AR", "Accounts Receivable"},
        {"AR", "Invoice", "Invoice"},
        {"AR", "OpenInvoices", "Open Invoices"},
        {"AR", "CustomerStatements", "Customer Statements"},
        {"AR", "IncomeReport", "Income Report"},
        {"Reports", "SalesReports", "Sales"},
        {"SalesReports", "SalesByCustomer", "Sales By Customer"},
        {"SalesReports", "SalesByDriver", "Sales By Driver"},
        {"SalesReports", "mnuSalesByItemReport", "Sales By Item"},
        {"", "Help", "Help"},
        {"Help", "About", "About"},
        {"Help", "mnuUpdateDB", "Update DB"},
        {"", "Popup", "Popup"},
        {"Popup", "OpenCustomer", "Open Customer"},
        {"Popup", "OpenTour", "Open Tour"},
        {"Popup", "OpenTourContacts", "Open Tour Contacts"},
        {"", "FTNavPopup", "FTNavPopup"},
        {"FTNavPopup", "NewAction", "New Action"},
        {"FTNavPopup", "OpenTicket", "Open Ticket"},
        {"FTNavPopup", "OpenBus", "Open Bus"},
        {"FTNavPopup", "OpenDriver", "Open Driver"},
    });
    return entries;
}

std::span<const MenuCommand> MenuCommands()
{
    using namespace Denial;
    static constexpr auto commands = std::to_array<MenuCommand>({
        {"CompanyInfo", "Company Info", "", viewRecord, "frmCompanyInfo"},
        {"ScheduleNavigator", "Schedule Navigator", "", viewRecord, "frmScheduleNavigator"},
        {"LeaseEntry", "Tour Entry/Edit", "Tour View", viewRecord, "frmRentalEntry"},
        {"ContactNavigator", "Contact Navigator", "", viewRecord, "frmCustomerNavigator"},
        {"RouteNavigator", "Route Navigator", "", viewRecord, "frmRouteNavigator"},
        {"RouteEntry", "Route Entry/Edit", "", viewRecord, "frmRouteEntry"},
        // Kept on purpose: the drivers' board asks for the right to the schedule board.
        {"DriverNav", "Schedule Navigator", "", viewRecord, "frmDriverNavigator"},
        {"mnuTourDrop", "Tour Entry/Edit", "Tour View", viewRecord, "frmEmailManager"},
        {"FleetTrackerNavigator", "FleetTracker Navigator", "", viewRecord, "frmFleetTrackerNavigator"},
        {"TicketEntry", "FleetTracker Ticket Entry", "", viewRecord, "frmFleetTrackerTicketEntry"},
        {"FleetTrackerPM", "FleetTracker PM", "", viewScreen, "frmFleetTrackerPM"},
        {"TaskNavigator", "Task List", "", viewRecord, "frmTaskNavigator"},
        {"TaskEntry", "Task Entry", "", viewRecord, "frmTaskEntry"},
        {"ExpenseNavigator", "Bus Expense Navigator", "", viewRecord, "frmBusExpenseNavigator"},
        {"ExpenseEntry", "Bus Expense Entry/Edit", "", viewRecord, "frmBusExpenseEntry"},
        {"ReceivePayments", "Receive Payments", "", viewRecord, "frmReceivePayment"},
        {"QBSync", "QB Sync", "", viewRecord, "frmQBSync"},
        {"BusEntry", "Bus/Trailer Entry/Edit", "Bus/Trailer View", viewRecord, "frmBusEntry"},
        {"CustomerEntry", "Customer Entry/Edit", "Customer View", viewRecord, "frmCustomerEntry2"},
        {"DocumentCategoryEntry", "Document Category Entry/Edit", "", viewRecord, "frmDocumentCategoryEntry"},
        {"DriverEntry", "Driver Entry/Edit", "Driver View", viewRecord, "frmDriverEntry"},
        {"ExpenseCategoryEntry", "Expense Category Entry/Edit", "Expense Category View", viewRecord,
         "frmExpenseCategoryEntry"},
        // Kept on purpose: the refusal speaks of a report.
        {"FleetTrackerFieldEntry", "Fleet Tracker Field Entry/Edit", "", viewReport, "frmFleetTrackerFieldEntry"},
        {"LeaseTemplateEntry", "Lease Template Entry/Edit", "", viewRecord, "frmLeaseTemplateEntry"},
        {"OwnerEntry", "Owner Entry/Edit", "Owner View", viewRecord, "frmOwnerEntry"},
        {"Security", "Security", "", viewRecord, "frmUserEntry"},
        {"TaskTypeEntry", "Task Type Entry", "", viewRecord, "frmTaskTypeEntry"},
        {"DriverListing", "Driver Listing Report", "", viewRecord, "Viewer"},
        {"TourListing", "Tour Entry/Edit", "Tour View", viewRecord, "frmTourReport"},
        {"mnuTourContactInfo", "Tour Entry/Edit", "Tour View", viewRecord, "Viewer"},
        {"OwnerIncomeExpense", "Owner Income/Expense Report", "", viewRecord, "frmOwnerIncomeExpenseReport"},
        {"UtilizationReport", "Bus/Trailer Utilization Report", "", viewRecord, "frmBusTrailerUtilizationReport"},
        {"DriverPayReportMenu", "Driver Pay Report", "", viewRecord, "frmDriverPayReport"},
        {"Invoice", "Invoice Report", "", viewRecord, "frmInvoiceReport"},
        {"OpenInvoices", "Open Invoices Report", "", viewRecord, "frmOpenInvoicesReport"},
        {"CustomerStatements", "Customer Statements Report", "", viewReport, "frmCustomerStatementReport"},
        {"IncomeReport", "Income Report", "", viewReport, "frmIncomeReport"},
        {"SalesByCustomer", "Sales By Customer Report", "", viewRecord, "frmSalesByCustomerReport"},
        {"SalesByDriver", "Sales By Driver Report", "", viewRecord, "frmSalesByDriverReport"},
        {"mnuSalesByItemReport", "Income Report", "", viewReport, "frmIncomeReport2"},
    });
    return commands;
}

std::span<const PopupCommand> PopupCommands()
{
    constexpr std::string_view contacts = "frmCustomerNavigator";
    constexpr std::string_view tickets = "frmFleetTrackerNavigator";
    static constexpr auto commands = std::to_array<PopupCommand>({
        {"OpenCustomer", "Customer Entry/Edit", "Customer View", contacts, "vsfgContacts", 1,
         "No Customer for this selection.", "frmCustomerEntry2"},
        {"OpenTour", "Tour Entry/Edit", "Tour View", contacts, "vsfgContacts", 2, "No Tour for this selection.",
         "frmRentalEntry"},
        {"OpenTourContacts", "Tour Entry/Edit", "Tour View", contacts, "vsfgContacts", 2, "No Tour for this selection.",
         "frmTourContacts"},
        {"NewAction", "FleetTracker Action Entry/Edit", "", tickets, "vsfgTickets", 0, "No Ticket for this selection.",
         "frmFleetTrackerActionEntry"},
        {"OpenTicket", "FleetTracker Ticket Entry/Edit", "FleetTracker Ticket View", tickets, "vsfgTickets", 0,
         "No Ticket for this selection.", "frmFleetTrackerTicketEntry"},
        {"OpenBus", "Bus/Trailer Entry/Edit", "Bus/Trailer View", tickets, "vsfgTickets", 4,
         "No Bus for this selection.", "frmBusEntry"},
        {"OpenDriver", "Driver Entry/Edit", "Driver View", tickets, "vsfgTickets", 6, "No Driver for this selection.",
         "frmDriverEntry"},
    });
    return commands;
}

}
