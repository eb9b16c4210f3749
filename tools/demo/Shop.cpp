#include "tools/demo/Shop.h"

#include "tools/demo/Names.h"

#include <algorithm>
#include <array>
#include <map>

namespace rovanta::demo {

namespace {

/// The numbers of the field catalogue that the maintenance run knows, and two of the office's own.
namespace Tracked {
constexpr int engineInterval = 9;
constexpr int lastEngineMiles = 12;
constexpr int lastEngineDate = 15;
constexpr int nextTagDate = 21;
constexpr int lastTagDate = 25;
constexpr int currentMiles = 30;
constexpr int tireSize = 31;
constexpr int generatorHours = 32;
}

constexpr std::array ticketTexts = {"Generator hunts under load and won't hold 60 cycles.",
                                    "Front lounge air conditioning blows warm.",
                                    "Slide sticks halfway; closes with help.",
                                    "Left rear marker light out.",
                                    "Bunk 7 reading light flickers.",
                                    "Satellite dish doesn't find the signal when parked.",
                                    "Brake chamber leaks air at the rear axle.",
                                    "Water pump runs on after the tap is closed.",
                                    "Windshield wiper streaks on the driver's side.",
                                    "Awning motor is noisy.",
                                    "Steer tires worn at the outer edge.",
                                    "Step well cover is loose."};
constexpr std::array actionTexts = {"Part ordered, in on Thursday.", "Replaced and tested on the road.",
                                    "Cleaned the contacts; no fault since.", "Sent to the dealer's shop.",
                                    "Adjusted and greased."};
constexpr std::array expenseCategories = {"Repairs",          "Tires",    "Insurance",
                                          "Tags and Permits", "Cleaning", "Satellite and Internet"};
constexpr std::array expenseTexts = {"Generator service",    "Two steer tires", "Quarterly premium",
                                     "Registration renewal", "Interior detail", "Receiver subscription"};
constexpr std::array taskTypes = {"Follow Up", "Maintenance", "Office", "Permits"};
constexpr std::array taskActions = {"Call back", "Send quote", "Order parts", "Renew permit", "Check deposit"};

/// The office's days before it stands still, with a time of day in working hours.
DateTime WorkTime(const Plan& plan, int daysBack, Dice& dice)
{
    return DateAdd("n", dice.Between(7 * 60, 18 * 60), AddDays(plan.today, -dice.Between(1, daysBack)));
}

class Shop {
public:
    Shop(const Plan& plan, const Fleet& fleet) : plan(plan), fleet(fleet), dice(plan.seed, "shop"), names(dice) {}

    std::vector<TableRows> Rows();

private:
    void AddFieldValues(const Vehicle& vehicle);
    void AddFieldValue(const Vehicle& vehicle, int field, const std::string& value);
    void AddTickets();
    void AddActions(int ticket, DateTime opened, bool closed);
    void AddExpenses();
    void AddTasks();

    const Plan& plan;
    const Fleet& fleet;
    Dice dice;
    Names names;
    std::map<int, int> miles; ///< current miles by vehicle
    TableRows fields{"BusFleetTrackerFields", {}};
    TableRows values{"BusFleetTracker", {}};
    TableRows tickets{"FleetTrackerTicket", {}};
    TableRows actions{"FleetTrackerAction", {}};
    TableRows categories{"ExpenseCategory", {}};
    TableRows expenses{"BusExpense", {}};
    TableRows types{"TaskType", {}};
    TableRows tasks{"Tasks", {}};
};

void Shop::AddFieldValue(const Vehicle& vehicle, int field, const std::string& value)
{
    const DateTime when = WorkTime(plan, 300, dice);
    values.rows.push_back({{"BusID", vehicle.id},
                           {"BusFleetTrackerFieldID", field},
                           {"FieldValue", value},
                           {"Notes", ""},
                           {"EnteredDate", when},
                           {"EnteredBy", "office"},
                           {"EditedDate", when},
                           {"EditedBy", "office"}});
}

void Shop::AddFieldValues(const Vehicle& vehicle)
{
    constexpr int services = 3;
    constexpr std::array intervals = {25000, 60000, 100000};
    const auto date = [&](int from, int to) { return ToText(AddDays(plan.today, dice.Between(from, to))); };
    if (!vehicle.IsTrailer()) {
        const int now = dice.Between(90000, 780000);
        miles[vehicle.id] = now;
        for (int i = 0; i < services; ++i) {
            const int interval = intervals[static_cast<std::size_t>(i)];
            AddFieldValue(vehicle, Tracked::engineInterval + i, std::to_string(interval));
            // A service is due here and there: the run finds some work.
            AddFieldValue(vehicle, Tracked::lastEngineMiles + i,
                          std::to_string(now - dice.Between(interval / 10, interval + interval / 20)));
            AddFieldValue(vehicle, Tracked::lastEngineDate + i, date(-240, -20));
        }
        AddFieldValue(vehicle, Tracked::currentMiles, std::to_string(now));
        AddFieldValue(vehicle, Tracked::generatorHours, std::to_string(dice.Between(800, 14000)));
    }
    for (int i = 0; i < services; ++i) {
        AddFieldValue(vehicle, Tracked::nextTagDate + i, date(-6, 360));
        AddFieldValue(vehicle, Tracked::lastTagDate + 2 * i, date(-360, -10));
    }
    AddFieldValue(vehicle, Tracked::tireSize, vehicle.IsTrailer() ? "ST235/80R16" : "315/80R22.5");
}

void Shop::AddTickets()
{
    constexpr std::array priorities = {"Low", "Medium", "High"};
    std::vector<std::pair<DateTime, const Vehicle*>> when;
    for (const Vehicle& vehicle : fleet.vehicles)
        for (int i = dice.Between(1, 7); i > 0; --i)
            when.emplace_back(WorkTime(plan, 720, dice), &vehicle);
    std::stable_sort(when.begin(), when.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (const auto& [opened, vehicle] : when) {
        const auto age = static_cast<int>(DateDiff("d", opened, plan.today));
        const bool closed = dice.Chance(age > 30 ? 92 : 35);
        const char* status = closed ? dice.Chance(4) ? "Void" : "Closed" : "Open";
        const int read = vehicle->IsTrailer() ? 0 : std::max(0, miles[vehicle->id] - age * 190);
        tickets.rows.push_back({{"BusID", vehicle->id},
                                {"DriverID", vehicle->IsTrailer() ? Value(Null{}) : Value(dice.Pick(fleet.drivers).id)},
                                {"AddDriverID", Null{}},
                                {"TicketDate", opened.DateOnly()},
                                {"Miles", read},
                                {"Location", CityState(dice.Pick(AllPlaces()))},
                                {"Priority", priorities[dice.Weighted({30, 50, 20})]},
                                {"Status", status},
                                {"EmailMaintenance", true},
                                {"AddNotifyEmail", ""},
                                {"AltReplyEmail", ""},
                                {"Description", dice.Pick(ticketTexts)},
                                {"EnteredDate", opened},
                                {"EnteredBy", dice.Chance(60) ? "desk" : "office"},
                                {"EditedDate", opened},
                                {"EditedBy", "office"}});
        AddActions(static_cast<int>(tickets.rows.size()), opened, closed);
    }
}

void Shop::AddActions(int ticket, DateTime opened, bool closed)
{
    DateTime day = opened;
    for (int i = closed ? dice.Between(1, 3) : dice.Between(0, 1); i > 0; --i) {
        day = DateAdd("n", dice.Between(60, 5 * 24 * 60), day);
        if (day >= plan.today)
            return;
        const bool billable = dice.Chance(30);
        actions.rows.push_back({{"TicketID", ticket},
                                {"ActionDate", day.DateOnly()},
                                {"EmailDriver", dice.Chance(25)},
                                {"AddNotifyEmail", ""},
                                {"Billable", billable},
                                {"Amount", billable ? 12.5 * dice.Between(4, 90) : 0.0},
                                {"Description", dice.Pick(actionTexts)},
                                {"EnteredDate", day},
                                {"EnteredBy", "office"},
                                {"EditedDate", day},
                                {"EditedBy", "office"}});
    }
}

void Shop::AddExpenses()
{
    for (const char* category : expenseCategories)
        categories.rows.push_back({{"Name", category},
                                   {"Notes", ""},
                                   {"DateEntered", AddDays(plan.FirstDay(), -40)},
                                   {"EnteredBy", "office"}});
    const auto span = static_cast<int>(DateDiff("d", plan.FirstDay(), plan.today));
    for (const Vehicle& vehicle : fleet.vehicles) {
        for (int i = dice.Between(4, 16); i > 0; --i) {
            const DateTime when = WorkTime(plan, span, dice);
            const auto kind = dice.Weighted({40, 15, 15, 8, 15, 7});
            expenses.rows.push_back({{"BusID", vehicle.id},
                                     {"CategoryID", static_cast<int>(kind) + 1},
                                     {"ExpenseDate", when.DateOnly()},
                                     {"Description", expenseTexts[kind]},
                                     {"Amount", dice.Between(4500, 240000) / 100.0},
                                     {"Billable", dice.Chance(70)},
                                     {"DateEntered", when},
                                     {"EnteredBy", "office"}});
        }
    }
}

void Shop::AddTasks()
{
    for (const char* type : taskTypes)
        types.rows.push_back({{"TaskType", type}});
    constexpr int count = 30;
    for (int i = 0; i < count; ++i)
        tasks.rows.push_back({{"Category", dice.Pick(taskTypes)},
                              {"TaskAction", dice.Pick(taskActions)},
                              {"TaskDate", AddDays(plan.today, dice.Between(-20, 45))},
                              {"Description", "Reach " + names.Person() + " before noon; it can't wait past the week."},
                              {"DateEntered", WorkTime(plan, 30, dice)},
                              {"EnteredBy", dice.Chance(60) ? "office" : "desk"}});
}

std::vector<TableRows> Shop::Rows()
{
    fields.rows.push_back({{"Name", "Tire Size"}, {"FieldType", "Text"}, {"Category", "Equipment"}});
    fields.rows.push_back({{"Name", "Generator Hours"}, {"FieldType", "Number"}, {"Category", "Equipment"}});
    for (const Vehicle& vehicle : fleet.vehicles)
        AddFieldValues(vehicle);
    AddTickets();
    AddExpenses();
    AddTasks();
    std::vector<TableRows> tables;
    for (TableRows* rows : {&fields, &values, &tickets, &actions, &categories, &expenses, &types, &tasks})
        tables.push_back(std::move(*rows));
    return tables;
}

}

std::vector<TableRows> MakeShopRows(const Plan& plan, const Fleet& fleet)
{
    return Shop(plan, fleet).Rows();
}

}
