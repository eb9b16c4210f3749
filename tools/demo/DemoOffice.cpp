#include "tools/demo/DemoOffice.h"

#include "app/OfficeMaker.h"
#include "store/Recordset.h"
#include "tools/demo/Billing.h"
#include "tools/demo/Company.h"
#include "tools/demo/Papers.h"
#include "tools/demo/RowWriter.h"
#include "tools/demo/Shop.h"
#include "tools/demo/TourRows.h"
#include "values/Errors.h"

#include <array>
#include <fstream>

namespace rovanta {

namespace {

using namespace demo;

void SetCompany(Connection& connection)
{
    Recordset company("SELECT TOP 1 * FROM Company", connection);
    SetFields(company, CompanyRow());
    company.Update();
}

/// An ordinary user who may look at most things and change few.
void AddDeskUser(Connection& connection, const demo::Plan& plan)
{
    constexpr std::array rights = {"Tour View",
                                   "Customer View",
                                   "Bus/Trailer View",
                                   "Driver View",
                                   "Task List",
                                   "Task Entry",
                                   "Schedule Navigator",
                                   "Contact Navigator",
                                   "Route Navigator",
                                   "FleetTracker Navigator",
                                   "FleetTracker Ticket Entry",
                                   "FleetTracker Ticket View"};
    Recordset user("SELECT TOP 1 * FROM [User]", connection);
    user.AddNew();
    SetFields(user, {{"Name", "Front Desk"},
                     {"Username", DemoUser::desk},
                     {"Password", DemoUser::deskPassword},
                     {"Type", "User"},
                     {"Inactive", false},
                     {"WebPermission", "None"},
                     {"DateEntered", plan.FirstDay()}});
    user.Update();
    const auto id = static_cast<std::int64_t>(user.Fields("ID").Number());
    for (const char* right : rights)
        connection.Execute(Statement{"INSERT INTO UserPermission (UserID,PermissionID) SELECT "} + Key(id) +
                           ",ID FROM Permission WHERE Name = '" + Text(right) + "'");
}

void WriteFiles(const std::string& folder, const std::vector<File>& files)
{
    for (const File& file : files) {
        const std::string path = folder + file.name;
        std::ofstream stream(path, std::ios::binary);
        stream << file.content;
        stream.close();
        if (!stream)
            throw RunTimeError("Cannot write " + path);
    }
}

void Furnish(Connection& connection, const Configuration& configuration, const demo::Plan& plan)
{
    SetCompany(connection);
    AddDeskUser(connection, plan);
    const Fleet fleet = MakeFleet(plan);
    AddTables(connection, {fleet.ownerRows, fleet.driverRows, fleet.vehicleRows});
    const Customers customers = MakeCustomers(plan);
    AddRows(connection, customers.rows);
    const std::vector<Tour> tours = MakeTours(plan, fleet, customers);
    MakeCoDriverTable(connection);
    AddTables(connection, MakeTourRows(plan, fleet, tours));
    AddTables(connection, MakeBillingRows(plan, tours));
    AddTables(connection, MakeShopRows(plan, fleet));
    const Papers papers = MakePapers(plan, fleet);
    AddTables(connection, papers.tables);
    WriteFiles(configuration.BusImagePath, papers.pictures);
    WriteFiles(configuration.DocumentPath, papers.documents);
    WriteFiles(configuration.LeaseTemplatePath, papers.leases);
}

}

void CreateDemoOffice(const std::filesystem::path& folder, const std::string& connection, const demo::Plan& plan)
{
    OfficePlan office;
    office.folder = folder;
    office.connection = connection;
    office.user = DemoUser::admin;
    office.password = DemoUser::adminPassword;
    office.today = plan.FirstDay();
    office.furnish = [&plan](Connection& opened, const Configuration& configuration) {
        Furnish(opened, configuration, plan);
    };
    CreateOffice(office);
}

}
