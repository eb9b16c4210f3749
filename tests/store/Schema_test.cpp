#include <doctest/doctest.h>

#include "store/Catalogue.h"
#include "store/DatabaseError.h"
#include "tests/store/TestOffice.h"

using namespace rovanta;

TEST_CASE("The schema makes every table of the office, and the catalogue reads it back")
{
    TestOffice office;
    std::vector<std::string> names;
    for (const TableInfo& table : ListTables(office.connection))
        names.push_back(table.name);
    CHECK(names == std::vector<std::string>{"Bus",
                                            "BusExpense",
                                            "BusExpenses",
                                            "BusFleetTracker",
                                            "BusFleetTrackerFields",
                                            "BusImages",
                                            "BusType",
                                            "Company",
                                            "Customer",
                                            "DateRange",
                                            "DocumentCategory",
                                            "DocumentMap",
                                            "Documents",
                                            "Driver",
                                            "ExpenseCategory",
                                            "FleetTrackerAction",
                                            "FleetTrackerTicket",
                                            "Invoice",
                                            "InvoiceItems",
                                            "InvoicePayments",
                                            "LeaseTemplate",
                                            "OldTourName",
                                            "Owner",
                                            "Permission",
                                            "QBInvoicesToBeDeleted",
                                            "QBPaymentsToBeDeleted",
                                            "State",
                                            "Tasks",
                                            "TaskType",
                                            "tmpCustomerStatement",
                                            "tmpInvoiceList",
                                            "Tour",
                                            "TourContacts",
                                            "TourContactType",
                                            "TourDropEmails",
                                            "TourItems",
                                            "TourRoute",
                                            "TourStatus",
                                            "User",
                                            "UserPermission",
                                            "UserType",
                                            "WebUserCustomers"});
}
