#include "tools/demo/TourRows.h"

#include "tools/demo/Names.h"
#include "tours/TourItemGrid.h"
#include "values/Numbers.h"

#include <array>

namespace rovanta::demo {

namespace {

Value KeyOf(const Driver* driver)
{
    return driver ? Value(driver->id) : Value(Null{});
}

const char* WordOf(RateType type)
{
    return type == RateType::PerDay ? "Per Day" : "Per Month";
}

Row TourRow(const Tour& tour)
{
    const Customer& customer = *tour.customer;
    double budget = 0;
    double contract = 0;
    double client = 0;
    for (const TourLine& line : tour.lines) {
        budget += line.price.budget;
        contract += line.price.contract;
        client += line.price.client;
    }
    return {{"CustomerID", customer.id},
            {"TourName", tour.name},
            {"Status", tour.status},
            {"Address1", customer.street},
            {"Address2", ""},
            {"City", customer.city},
            {"State", customer.state},
            {"Zip", customer.zip},
            {"Contact1", customer.contact1},
            {"Phone1", customer.phone1},
            {"Cell1", ""},
            {"Fax1", ""},
            {"Email1", customer.email1},
            {"Email1a", ""},
            {"Contact2", customer.contact2},
            {"Phone2", customer.phone2},
            {"Cell2", ""},
            {"Fax2", ""},
            {"Email2", customer.email2},
            {"Email2a", ""},
            {"Notes", tour.notes},
            {"TotalTourBudget", budget},
            {"IncludedInContract", contract},
            {"ClientResp", client},
            {"AllInclusive", tour.allInclusive},
            {"DateEntered", tour.entered},
            {"EnteredBy", tour.enteredBy},
            {"DateEdited", tour.edited ? Value(*tour.edited) : Value(Null{})},
            {"EditedBy", tour.edited ? Value("office") : Value(Null{})}};
}

void AddCharges(Row& row, const TourLine& line)
{
    for (const LineColumns& charge : ItemLines()) {
        const std::string stem = charge.stem;
        // Of the six typed amounts none has a rate of its own in the table.
        if (charge.line < Line::Carpet)
            row.emplace_back(stem + "Rate", line.figures.rate[charge.line]);
        row.emplace_back(stem + "Total", line.price.total[charge.line]);
        const PaidBy payer = line.figures.payer[charge.line];
        row.emplace_back(stem + "Contract", payer == PaidBy::Contract);
        row.emplace_back(stem + "Driver", payer == PaidBy::DriverCollect);
        row.emplace_back(stem + "Client", payer == PaidBy::ClientResp);
    }
    row.emplace_back("BusRateType", WordOf(line.figures.busRateType));
    row.emplace_back("DOTRateType", WordOf(line.figures.dotRateType));
    row.emplace_back("SatelliteRateType", WordOf(line.figures.satelliteRateType));
    row.emplace_back("InternetRateType", WordOf(line.figures.internetRateType));
    row.emplace_back("MiscDesc", line.overdrives);
    row.emplace_back("Misc2Desc", line.flights);
    row.emplace_back("Misc3Desc", line.wraps);
    row.emplace_back("Misc4Desc", line.coDriver);
}

/// Where and when the vehicle is handed over; quotes have no such details yet.
void AddPickup(Row& row, const Tour& tour, const TourLine& line, Dice& dice, Names& names)
{
    if (tour.IsQuote() || line.route.empty())
        return;
    const Place& pickup = *line.route.front().place;
    const Place& ending = *line.route.back().place;
    const auto add = [&](const char* column, Value value) { row.emplace_back(column, std::move(value)); };
    add("PickupDate", line.span.start);
    add("PickupLocation", names.Venue());
    add("PickupAddress", names.Street());
    add("PickupCity", pickup.city);
    add("PickupState", pickup.state);
    add("PickupZip", names.Zip(pickup));
    add("PickupPhone", tour.customer->phone1);
    add("PickupContacts", tour.customer->contact1);
    add("HotelRoomAtPickup", dice.Chance(40) ? "Room under the tour's name" : "");
    add("FirstDrive", line.route.size() > 1 ? CityState(*line.route[1].place) : "");
    add("EndingDate", line.span.end);
    add("EndingLocation", names.Venue());
    add("EndingAddress", names.Street());
    add("EndingCity", ending.city);
    add("EndingState", ending.state);
    add("EndingZip", names.Zip(ending));
    add("EndingPhone", tour.customer->phone1);
    add("MinimumBunks", line.vehicle->bunks);
    add("Passengers", line.vehicle->IsCoach() ? dice.Between(line.vehicle->bunks / 2, line.vehicle->bunks) : 0);
    add("PickupNotes", dice.Chance(15) ? "Load at the stage door; the lot's gate closes at ten." : "");
}

Row LineRow(const Tour& tour, int number, Dice& dice, Names& names)
{
    const TourLine& line = tour.lines[static_cast<std::size_t>(number) - 1];
    Row row = {{"ID", number},
               {"TourID", tour.id},
               {"BusID", line.vehicle->id},
               {"StartDate", line.span.start},
               {"EndDate", line.span.end},
               {"DiscountedDays", line.span.discountDays},
               {"TravelDaysIn", line.span.travelIn},
               {"TravelDaysOut", line.span.travelOut},
               {"TourDays", line.billed.tourDays},
               {"BilledDays", line.billed.billedDays},
               {"BilledMonths", line.billed.billedMonths},
               {"TotalMileage", line.figures.totalMiles},
               {"PriceNotes", dice.Chance(10) ? "Rate holds for a second leg." : ""},
               {"TourBudget", line.price.budget},
               {"IncludedInContract", line.price.contract},
               {"DriverCollect", line.price.driver},
               {"ClientResp", line.price.client},
               {"Commission", line.commissionPerDay},
               {"CommissionPerMonth", line.commissionPerMonth},
               {"DriverID", KeyOf(line.driver)},
               {"AddDriverID", KeyOf(line.addDriver)}};
    AddCharges(row, line);
    AddPickup(row, tour, line, dice, names);
    return row;
}

void AddRoute(TableRows& routes, const Tour& tour, const TourLine& line, Dice& dice)
{
    int number = 0;
    for (const Stop& stop : line.route)
        routes.rows.push_back({{"TourID", tour.id},
                               {"BusID", line.vehicle->id},
                               {"Row", ++number},
                               {"CityState", CityState(*stop.place)},
                               {"StartDate", stop.from},
                               {"EndDate", stop.to},
                               {"MileageBetween", stop.miles},
                               {"Hours", stop.hours},
                               {"CumHours", stop.running},
                               {"TotalMileage", TotalMiles(line.route)},
                               {"TotalHours", Round(TotalHours(line.route), 0)},
                               {"Notes", dice.Chance(8) ? "Shore power at the venue." : ""},
                               {"EnteredBy", tour.enteredBy},
                               {"EnteredDate", tour.entered}});
}

void AddContacts(TableRows& contacts, const Tour& tour)
{
    constexpr std::array kinds = {"Business Manager", "Personal Manager", "Tour Manager", "Production Manager"};
    const auto& blocks = tour.customer->blocks;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        const ContactBlock& block = blocks[i];
        if (block.contact.empty())
            continue;
        contacts.rows.push_back({{"TourID", tour.id},
                                 {"ContactType", kinds[i]},
                                 {"Name", block.firm},
                                 {"Contact", block.contact},
                                 {"Address", block.street},
                                 {"City", block.city},
                                 {"State", block.state},
                                 {"Zip", block.zip},
                                 {"Phone", block.phone},
                                 {"Cell", block.cell},
                                 {"Fax", ""},
                                 {"Email", block.email},
                                 {"Website", block.site},
                                 {"Notes", "Auto Populate"},
                                 {"EnteredDate", DateAdd("h", 1, tour.entered)},
                                 {"EnteredBy", tour.enteredBy}});
    }
}

/// The mail after the tour: sent for what ended more than a week ago, waiting for the rest.
Row DropMailRow(const Plan& plan, const Tour& tour)
{
    Row row = {{"TourID", tour.id}, {"DateAdded", tour.edited.value_or(tour.entered)}, {"DropDate", tour.LatestEnd()}};
    const DateTime sent = AddDays(tour.LatestEnd(), 4);
    if (sent >= AddDays(plan.today, -7)) {
        row.emplace_back("Status", "Pending");
        return row;
    }
    row.emplace_back("Status", "Email Sent");
    row.emplace_back("Updated", sent);
    row.emplace_back("EmailTo", tour.customer->email1);
    row.emplace_back("EmailSubject", "Recent Tour");
    row.emplace_back("EmailBody", "Hey " + tour.customer->contact1 + "!\r\n\r\nHope you are well.");
    return row;
}

TableRows CoDriverRows(const Plan& plan, const Fleet& fleet, const std::vector<Tour>& tours, Dice& dice)
{
    TableRows rows{"CoDriverData", {}};
    for (const Tour& tour : tours) {
        const TourLine& line = tour.lines.front();
        const auto away = DateDiff("d", plan.today, line.span.start);
        if (tour.IsQuote() || !line.driver || away < -120 || away > 90 || !dice.Chance(15))
            continue;
        const Driver& coDriver = dice.Pick(fleet.drivers);
        if (coDriver.inactive || coDriver.id == line.driver->id)
            continue;
        const DateTime start = AddDays(line.span.start, dice.Between(0, 3));
        rows.rows.push_back({{"DriverID", line.driver->id},
                             {"CoDriverID", coDriver.id},
                             {"StartDate", start},
                             {"EndDate", std::min(AddDays(start, dice.Between(1, 4)), line.span.end)},
                             {"Notes", "Long drive"},
                             {"EnteredBy", "office"},
                             {"EnteredDate", tour.entered},
                             {"EditedBy", "office"},
                             {"EditedDate", tour.entered},
                             {"TourID", tour.id}});
    }
    return rows;
}

}

std::vector<TableRows> MakeTourRows(const Plan& plan, const Fleet& fleet, const std::vector<Tour>& tours)
{
    Dice dice(plan.seed, "tour rows");
    Names names(dice);
    TableRows heads{"Tour", {}};
    TableRows lines{"TourItems", {}};
    TableRows routes{"TourRoute", {}};
    TableRows contacts{"TourContacts", {}};
    TableRows mails{"TourDropEmails", {}};
    TableRows renames{"OldTourName", {}};
    for (const Tour& tour : tours) {
        heads.rows.push_back(TourRow(tour));
        for (int number = 1; number <= static_cast<int>(tour.lines.size()); ++number) {
            lines.rows.push_back(LineRow(tour, number, dice, names));
            const TourLine& line = tour.lines[static_cast<std::size_t>(number) - 1];
            if (!tour.IsQuote() && !line.vehicle->IsTrailer())
                AddRoute(routes, tour, line, dice);
        }
        if (dice.Chance(45))
            AddContacts(contacts, tour);
        if (!tour.IsQuote())
            mails.rows.push_back(DropMailRow(plan, tour));
        if (tour.edited && dice.Chance(2))
            renames.rows.push_back({{"Customer", tour.customer->name},
                                    {"OldName", "Untitled Tour " + std::to_string(tour.start.Year())},
                                    {"NewName", tour.name}});
    }
    TableRows coDrivers = CoDriverRows(plan, fleet, tours, dice);
    std::vector<TableRows> tables;
    for (TableRows* rows : {&heads, &lines, &routes, &contacts, &mails, &renames, &coDrivers})
        tables.push_back(std::move(*rows));
    return tables;
}

void MakeCoDriverTable(Connection& connection)
{
    connection.Execute("CREATE TABLE CoDriverData (ID bigint IDENTITY(1,1) NOT NULL PRIMARY KEY, DriverID bigint NULL, "
                       "CoDriverID bigint NULL, StartDate datetime NULL, EndDate datetime NULL, Notes varchar(500) "
                       "NULL, EnteredBy varchar(50) NULL, EnteredDate datetime NULL, EditedBy varchar(50) NULL, "
                       "EditedDate datetime NULL, TourID int NULL)");
}

}
