#include "bench/BareDatabase.h"
#include "bench/BenchOffice.h"
#include "bench/Benches.h"
#include "bench/Timing.h"
#include "store/Connection.h"
#include "store/Engine.h"
#include "store/PlanMaker.h"
#include "store/PostgresDialect.h"
#include "store/SqliteDialect.h"
#include "store/Translator.h"

#include <array>

namespace rovanta::bench {

/// Statements of every kind that the screens run.
static constexpr std::array statements = {
    "SELECT * FROM Tour WHERE ID = 120",
    "SELECT TOP 1 * FROM Invoice",
    "SELECT ID,Name,Lease,CommAmount,CommPercent FROM Bus WHERE Inactive = 0 ORDER BY Name",
    "SELECT Customer.Name AS CustomerName,Tour.ID,TourName FROM Tour LEFT JOIN Customer ON Tour.CustomerID = "
    "Customer.ID ORDER BY Customer.Name,TourName",
    "SELECT Tour.ID AS TourID,Customer.Name AS CustomerName,TourName,StartDate,EndDate,TourItems.ID AS "
    "ItemID,Tour.Status AS TourStatus FROM ((TourItems LEFT JOIN Tour ON TourItems.TourID = Tour.ID) LEFT JOIN "
    "Customer "
    "ON Tour.CustomerID = Customer.ID) WHERE Tour.ID <> 7 AND Tour.Status <> 'Quote - Closed' AND Tour.Status <> "
    "'Quote "
    "- Active' AND TourItems.StartDate <= '3/14/2026' AND TourItems.EndDate >= '3/1/2026' AND TourItems.BusID = 12 "
    "ORDER BY Customer.Name, Tour.TourName",
    "SELECT TourItems.*,Bus.Name AS BusName,Driver.Name AS DvrName,AddDvr.Name AS AddDvrName FROM (((TourItems LEFT "
    "JOIN Bus ON TourItems.BusID = Bus.ID) LEFT JOIN Driver ON TourItems.DriverID = Driver.ID) LEFT JOIN Driver AddDvr "
    "ON TourItems.AddDriverID = AddDvr.ID) WHERE TourItems.TourID = 120 ORDER BY TourItems.ID",
    "SELECT CAST(ISNULL(FieldValue,0) AS FLOAT) AS CurrentMiles FROM BusFleetTracker WHERE BusID = 3 AND "
    "BusFleetTrackerFieldID = 30",
    "INSERT INTO InvoiceItems VALUES(1201,3,120,1,7,'Days','Kestrel 101 (3/1/2026 - 3/7/2026)',800,5600,1,'Kestrel "
    "101','Bus','Truck and Trailer Lease',1,'Daily',0,'3/1/2026','3/7/2026')",
    "UPDATE Invoice SET Paid = Paid + 120.5 WHERE ID = 1201",
    "DELETE FROM TourItems WHERE TourID = 120",
};

std::vector<Result> MeasureStatements(const BenchOffice& office)
{
    BareDatabase database(office.ConnectionText());
    BarePostgres* server = database.Postgres();
    Connection connection;
    connection.Open(office.ConnectionText());
    Catalogue& catalogue = connection.GetEngine().Tables();
    const SqlDialect& dialect = server != nullptr ? PostgresDialect() : SqliteDialect();
    Translator translator([&](const ParsedStatement& statement) { return MakePlan(statement, dialect); });
    // What comes out asks for functions that only the program's own connection to a file has.
    sqlite3* file = StatementCounter::NewestConnection();
    std::vector<std::string> translated;
    translated.reserve(statements.size());
    for (const char* statement : statements)
        translated.push_back(translator.Translate(statement, catalogue).plan->statements.back());

    constexpr int rounds = 200;
    constexpr double pieces = rounds * static_cast<double>(statements.size()) / 1000;
    const auto translateNew = [&] {
        for (int i = 0; i < rounds; ++i) {
            translator.Forget();
            for (const char* statement : statements)
                translator.Translate(statement, catalogue);
        }
    };
    const auto translateKnown = [&] {
        for (int i = 0; i < rounds; ++i)
            for (const char* statement : statements)
                translator.Translate(statement, catalogue);
    };
    const auto prepare = [&] {
        for (int i = 0; i < rounds; ++i)
            for (const std::string& statement : translated)
                if (server != nullptr)
                    server->Prepare(statement);
                else
                    BareSqliteStatement prepared(file, statement);
    };
    const Pair fresh = MediansOf(9, translateNew, prepare);
    const Pair known = MediansOf(9, translateKnown, prepare);
    const auto result = [&](const char* what, double program, double bare) {
        return Result{what,
                      Shown(program / pieces, "µs"),
                      Shown(bare / pieces, "µs"),
                      program / bare,
                      std::nullopt,
                      std::nullopt,
                      "beside it: the engine preparing what comes out"};
    };
    return {result("Parsing and translating a statement of a new shape", fresh.program, fresh.bare),
            result("The same for a shape seen before", known.program, known.bare)};
}

}
