#include "frame/SharedRoutines.h"

#include "frame/App.h"
#include "store/DatabaseError.h"
#include "values/Errors.h"
#include "values/Numbers.h"

#include <array>
#include <filesystem>

namespace rovanta {

bool FileExists(const std::string& path)
{
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

std::string GetBusType(App& app, const std::string& busID)
{
    Recordset bus(Statement{"SELECT Type FROM Bus WHERE ID = "} + Key(busID), app.AppConnection);
    return bus.Eof() ? "?" : bus.Fields("Type").TextOrEmpty();
}

std::string GetDayAbbrev(const std::string& month, const std::string& day, const std::string& year)
{
    static constexpr std::array abbreviations = {"Su", "M", "Tu", "W", "Th", "F", "Sa"};
    const DateTime date = ToDate(month + "/" + day + "/" + year);
    return abbreviations[static_cast<std::size_t>(date.Weekday() - 1)];
}

std::string GetDriverName(App& app, const std::string& driverID)
{
    Recordset driver(Statement{"SELECT ISNULL(Name,'') AS DriverName FROM Driver WHERE ID = "} + Key(driverID),
                     app.AppConnection);
    return driver.Eof() ? std::string{} : driver.Fields("DriverName").Text();
}

std::int32_t GetRouteMileage(App& app, const std::string& tourID, const std::string& busID)
{
    Recordset route(Statement{"SELECT TOP 1 TotalMileage FROM TourRoute WHERE TourID = "} + Key(tourID) +
                        " AND BusID = " + Key(busID),
                    app.AppConnection);
    return route.Eof() ? -1 : CLng(route.Fields("TotalMileage").Number());
}

void UpdateInvoiceQBIDs(App& app, const std::string& invoiceID, const std::string& accountingID,
                        const std::string& journalID)
{
    app.AppConnection.Execute(Statement{"UPDATE Invoice SET QBID = '"} + Text(accountingID) +
                              "', NeedsUpdated = NULL, GJQBID = '" + Text(journalID) +
                              "' WHERE ID = " + Key(invoiceID));
}

void UpdatePaymentQBID(App& app, const std::string& paymentID, const std::string& accountingID)
{
    app.AppConnection.Execute(Statement{"UPDATE InvoicePayments SET QBID = '"} + Text(accountingID) +
                              "' WHERE ID = " + Key(paymentID));
}

void SetCurrentMiles(App& app, const std::string& busID, const std::string& miles)
{
    Recordset field(Statement{"SELECT * FROM BusFleetTracker WHERE BusID = "} + Key(busID) +
                        " AND BusFleetTrackerFieldID = 30",
                    app.AppConnection);
    const DateTime now = app.clock.Now();
    if (field.Eof()) {
        field.AddNew();
        field.Fields("EnteredDate") = now;
        field.Fields("EnteredBy") = app.session.CurrentUsername;
    }
    field.Fields("EditedDate") = now;
    field.Fields("EditedBy") = app.session.CurrentUsername;
    field.Fields("BusID") = busID;
    field.Fields("BusFleetTrackerFieldID") = 30;
    field.Fields("FieldValue") = miles;
    field.Update();
}

bool CheckCurrentMiles(App& app, const std::string& busID, const std::string& miles)
{
    Recordset field(
        Statement{"SELECT CAST(ISNULL(FieldValue,0) AS FLOAT) AS CurrentMiles FROM BusFleetTracker WHERE BusID = "} +
            Key(busID) + " AND BusFleetTrackerFieldID = 30",
        app.AppConnection);
    return field.Eof() || Val(miles) >= field.Fields("CurrentMiles").Number();
}

int CompareDates(DateTime a, DateTime b)
{
    const std::int64_t days = DateDiff("d", b, a);
    return (days > 0) - (days < 0);
}

int CompareDates(const std::string& a, const std::string& b)
{
    return CompareDates(ToDate(a), ToDate(b));
}

void DropTable(App& app, const std::string& table)
{
    try {
        app.AppConnection.Execute(Statement{"DROP TABLE "} + Name(table));
    } catch (const DatabaseError&) {
        // A table that is not there is what the caller wants.
    }
}

int DaysInMonth(DateTime date)
{
    static constexpr std::array days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    // Kept on purpose: February counts by the year divisible by four alone, so 1900 and 2100 have 29.
    if (date.Month() == 2 && date.Year() % 4 == 0)
        return 29;
    return days[static_cast<std::size_t>(date.Month() - 1)];
}

static double CommissionPercent(App& app, const std::string& tourID, const std::string& busID, const char* column)
{
    Recordset item(Statement{"SELECT * FROM TourItems WHERE TourID = "} + Key(tourID) + " AND BusID = " + Key(busID),
                   app.AppConnection);
    if (item.Eof())
        return 0;
    const double rate = item.Fields("BusRate").Number();
    if (rate == 0)
        throw DivisionByZero();
    return item.Fields(column).Number() / rate;
}

double CommissionPercentDaily(App& app, const std::string& tourID, const std::string& busID)
{
    return CommissionPercent(app, tourID, busID, "Commission");
}

double CommissionPercentMonthly(App& app, const std::string& tourID, const std::string& busID)
{
    return CommissionPercent(app, tourID, busID, "CommissionPerMonth");
}

std::string GetInvoiceTourID(App& app, const std::string& invoiceID)
{
    Recordset invoice(Statement{"SELECT TourID FROM Invoice WHERE ID = "} + Key(invoiceID), app.AppConnection);
    return invoice.Eof() ? std::string{} : invoice.Fields("TourID").TextOrEmpty();
}

std::string GetTourItemDrivers(App& app, const std::string& tourID, const std::string& itemID)
{
    Recordset item(Statement{"SELECT D1.Name AS DriverName,D2.Name AS AddDriverName FROM TourItems LEFT JOIN Driver D1 "
                             "ON TourItems.DriverID = D1.ID LEFT JOIN Driver D2 ON TourItems.AddDriverID = D2.ID WHERE "
                             "TourItems.TourID = "} +
                       Key(tourID) + " AND TourItems.ID = " + Key(itemID),
                   app.AppConnection);
    if (item.Eof())
        return {};
    std::string drivers = item.Fields("DriverName").TextOrEmpty();
    const std::string additional = item.Fields("AddDriverName").TextOrEmpty();
    if (!additional.empty())
        drivers += " / " + additional;
    return drivers;
}

std::string GetTourItemBusName(App& app, const std::string& tourID, const std::string& itemID)
{
    Recordset item(Statement{"SELECT Bus.Name FROM TourItems LEFT JOIN Bus ON TourItems.BusID = Bus.ID WHERE "
                             "TourItems.TourID = "} +
                       Key(tourID) + " AND TourItems.ID = " + Key(itemID),
                   app.AppConnection);
    return item.Eof() ? std::string{} : item.Fields("Name").TextOrEmpty();
}

void SendMail(App& app, const std::string& to, const std::string& subject, const std::string& body)
{
    const Company& company = app.company;
    try {
        app.mail->Send({company.EmailFromName, company.EmailFromAddress, to, subject, body},
                       {company.EmailServer, "", ""});
    } catch (const MailError&) {
        // The caller does not learn of it: a ticket is saved whether its mail goes out or not.
    }
}

bool SendMailAs(App& app, const std::string& fromName, const std::string& fromAddress, const std::string& to,
                const std::string& subject, const std::string& body)
{
    const Company& company = app.company;
    try {
        app.mail->Send({fromName, fromAddress, to, subject, body},
                       {company.EmailServer, company.EmailServerUser, company.EmailServerPassword});
        return true;
    } catch (const MailError&) {
        return false;
    }
}

}
