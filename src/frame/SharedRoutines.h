#pragma once

#include "values/DateTime.h"

#include <cstdint>
#include <string>

namespace rovanta {

class App;

// Keys are texts, as they travel through the screens. A text that is no key raises the database's syntax error.

/// Whether a file of that path exists; a folder is none.
bool FileExists(const std::string& path);

/// `Bus.Type`, or "?" when the bus does not exist.
std::string GetBusType(App& app, const std::string& busID);

/// "Su", "M", "Tu", "W", "Th", "F" or "Sa". Throws TypeMismatch when the parts make no date.
std::string GetDayAbbrev(const std::string& month, const std::string& day, const std::string& year);

/// The driver's name, or the empty text.
std::string GetDriverName(App& app, const std::string& driverID);

/// The route's total miles, -1 when the bus has no route on that tour.
std::int32_t GetRouteMileage(App& app, const std::string& tourID, const std::string& busID);

void UpdateInvoiceQBIDs(App& app, const std::string& invoiceID, const std::string& accountingID,
                        const std::string& journalID);
void UpdatePaymentQBID(App& app, const std::string& paymentID, const std::string& accountingID);

/// Writes the bus's current miles, with a new row where there was none.
void SetCurrentMiles(App& app, const std::string& busID, const std::string& miles);
/// Whether `miles`, read as a number, are at least the bus's current miles; true when it has none.
bool CheckCurrentMiles(App& app, const std::string& busID, const std::string& miles);

/// The sign of `a` minus `b` by calendar days: -1, 0 or 1. Times of day do not count.
int CompareDates(DateTime a, DateTime b);
/// The same for date texts; throws TypeMismatch for a text that is no date.
int CompareDates(const std::string& a, const std::string& b);

/// Drops a table; a missing one is no failure.
void DropTable(App& app, const std::string& table);

/// 28 to 31.
int DaysInMonth(DateTime date);

/// `Commission` (or `CommissionPerMonth`) divided by `BusRate` of the tour's first line with that bus, 0 without a
/// line. A rate of 0 throws DivisionByZero.
double CommissionPercentDaily(App& app, const std::string& tourID, const std::string& busID);
double CommissionPercentMonthly(App& app, const std::string& tourID, const std::string& busID);

/// The invoice's tour, or the empty text.
std::string GetInvoiceTourID(App& app, const std::string& invoiceID);

/// "driver", or "driver / additional driver", or the empty text.
std::string GetTourItemDrivers(App& app, const std::string& tourID, const std::string& itemID);
/// The name of the line's bus, or the empty text.
std::string GetTourItemBusName(App& app, const std::string& tourID, const std::string& itemID);

/// Mails from the company's own address without a login; a failure stays silent, so that the caller's save goes on.
void SendMail(App& app, const std::string& to, const std::string& subject, const std::string& body);
/// Mails from the given sender with the company's login; whether the server took it.
bool SendMailAs(App& app, const std::string& fromName, const std::string& fromAddress, const std::string& to,
                const std::string& subject, const std::string& body);

}
