#include "bench/BarePass.h"
#include "bench/Benches.h"
#include "bench/Desk.h"
#include "bench/StatementsOf.h"
#include "bench/Timing.h"
#include "billing/MonthlyInvoices.h"
#include "billing/frmCreateInvoices.h"
#include "billing/frmReceivePayment.h"
#include "tours/frmRentalEntry.h"

#include <stdexcept>

namespace rovanta::bench {

namespace {

constexpr int monthlyLines = 20;
constexpr int months = 36;
constexpr int tourInvoices = 200;
constexpr int tourPayments = 400;

/// Adds a contract to the office and tells its key.
std::int64_t AddTour(BareDatabase& database, const std::string& name)
{
    BareStatement tour(database, R"(INSERT INTO "Tour" ("CustomerID", "TourName", "Status")
                                    VALUES (1, $1, 'Contract - Signed'))" +
                                     database.ReturningKey());
    tour.Bind(1, std::string_view(name));
    return tour.RunForKey();
}

/// A tour of twenty vehicles by the month, three years long, with a lease and three fees each.
std::int64_t AddMonthlyTour(BareDatabase& database)
{
    const std::int64_t tour = AddTour(database, "Three Years");
    BareStatement line(database, R"(INSERT INTO "TourItems" ("ID", "TourID", "BusID", "StartDate", "EndDate",
        "TravelDaysIn", "TravelDaysOut", "BilledDays", "BusRate", "BusRateType", "BusTotal", "BusContract", "DOTRate",
        "DOTContract", "SatelliteRate", "SatelliteContract", "InternetRate", "InternetContract")
        VALUES ($1, $2, $3, '2026-01-01 00:00:00', '2028-12-31 00:00:00', 0, 0, 1096, 30000, 'Per Month', 1080000, 1,
                300, 1, 400, 1, 150, 1))");
    for (std::int64_t i = 1; i <= monthlyLines; ++i) {
        line.Bind(1, i);
        line.Bind(2, tour);
        line.Bind(3, i);
        line.RunOnce();
    }
    return tour;
}

/// A tour with many invoices and twice as many payments.
std::int64_t AddInvoicedTour(BareDatabase& database)
{
    const std::int64_t tour = AddTour(database, "Much Invoiced");
    BareStatement invoice(database, R"(INSERT INTO "Invoice" ("TourID", "CustomerID", "InvoiceDate", "DueDate",
        "SubTotal", "Tax", "InvoiceTotal", "Paid", "Type", "EnteredBy", "EnteredDate")
        VALUES ($1, 1, '2026-01-05 00:00:00', '2026-01-05 00:00:00', 1000, 0, 1000, 500, 'Manual', 'office',
                '2026-01-01 09:00:00'))" +
                                        database.ReturningKey());
    BareStatement payment(database, R"(INSERT INTO "InvoicePayments" ("InvoiceID", "PaymentDate", "Amount",
        "PaymentMethod", "EnteredBy", "EnteredDate")
        VALUES ($1, '2026-02-01 00:00:00', 250, 'Check', 'office', '2026-02-01 09:00:00'))");
    database.Run("BEGIN");
    for (int i = 0; i < tourInvoices; ++i) {
        invoice.Bind(1, tour);
        const std::int64_t key = invoice.RunForKey();
        for (int j = 0; j < tourPayments / tourInvoices; ++j) {
            payment.Bind(1, key);
            payment.RunOnce();
        }
    }
    database.Run("COMMIT");
    return tour;
}

std::vector<Result> MeasureMonthlyPass(Desk& desk, BareDatabase& database)
{
    const std::int64_t tour = AddMonthlyTour(database);
    database.KeepHouse();
    auto& screen = desk.app.Open<frmRentalEntry>();
    screen.LoadTour(std::to_string(tour));
    auto& dialog = desk.app.Open<frmCreateInvoices>();
    const std::vector<BilledItem> items = dialog.ReadItems();
    const std::vector<PlannedInvoice> planned =
        PlanMonthlyInvoices({items.front().start, items.front().end, items.front().start}, items,
                            {desk.app.company.CompanyTaxRate, desk.app.company.DefaultTaxable});
    if (planned.size() != months)
        throw std::runtime_error("The monthly tour makes " + std::to_string(planned.size()) + " invoices");
    std::vector<std::string> busIDs;
    busIDs.reserve(items.size());
    for (const BilledItem& item : items)
        busIDs.push_back(item.busID);
    BarePass bare(database, "Monthly");

    std::vector<double> passTimes;
    std::vector<double> bareTimes;
    std::vector<double> previewTimes;
    int programStatements = 0;
    int bareStatements = 0;
    constexpr int repetitions = 5;
    for (int i = 0; i <= repetitions; ++i) {
        desk.app.Open<frmCreateInvoices>().PrepareInvoiceDialog(std::to_string(tour));
        desk.host.answers.assign(1, MessageAnswer::Yes);
        desk.PassTime();
        const double preview = MillisecondsOf([&] { dialog.btnPreview2.Click.Fire(); });
        double pass = 0;
        programStatements =
            StatementsOf(desk, [&] { pass = MillisecondsOf([&] { dialog.btnCalculate2.Click.Fire(); }); });
        double plain = 0;
        bareStatements = StatementsOf(desk, [&] {
            plain =
                MillisecondsOf([&] { bare.Run(tour, 1, busIDs, planned, "2026-03-03 10:00:1" + std::to_string(i)); });
        });
        // The first run makes the invoices, the others use their numbers again.
        if (i == 0)
            continue;
        previewTimes.push_back(preview);
        passTimes.push_back(pass);
        bareTimes.push_back(plain);
    }
    desk.app.Unload(dialog);
    desk.app.Unload(screen);
    desk.app.DropClosed();
    return {Compared("Monthly pass of 36 months over 20 lines, all numbers used again", Median(passTimes),
                     Median(bareTimes), 1.5, CountsOf(programStatements, bareStatements)),
            Compared("Its preview", Median(previewTimes), Median(passTimes), 1.0, "beside it: the pass itself")};
}

std::vector<Result> MeasureBillingPage(Desk& desk, BareDatabase& database)
{
    const std::int64_t tour = AddInvoicedTour(database);
    database.KeepHouse();
    auto& screen = desk.app.Open<frmRentalEntry>();
    screen.LoadTour(std::to_string(tour));
    BareStatement invoices(database,
                           R"(SELECT * FROM "Invoice" WHERE "TourID" = $1 ORDER BY "InvoiceDate" NULLS FIRST, "ID")");
    BareStatement payments(database, R"(SELECT * FROM "InvoicePayments" WHERE "InvoiceID" IN (SELECT "ID" FROM "Invoice"
                     WHERE "TourID" = $1) ORDER BY "PaymentDate" NULLS FIRST, "InvoiceID" NULLS FIRST)");
    const auto page = [&] {
        screen.LoadTourInvoices();
        screen.LoadTourPayments();
    };
    const auto bare = [&] {
        for (BareStatement* each : {&invoices, &payments}) {
            each->Bind(1, tour);
            while (each->Step())
                each->Row();
            each->Reset();
        }
    };
    const int program = StatementsOf(desk, page);
    const int plain = StatementsOf(desk, bare);
    const Pair times = MediansOf(21, page, bare);
    desk.app.Unload(screen);
    desk.app.DropClosed();
    return {Compared("Opening the billing page of a tour with 200 invoices and 400 payments", times.program, times.bare,
                     std::nullopt, CountsOf(program, plain))};
}

std::vector<Result> MeasurePayment(Desk& desk, BareDatabase& database)
{
    BareStatement payer(database,
                        R"(INSERT INTO "Customer" ("Name") VALUES ('0 Paying Customer'))" + database.ReturningKey());
    BareStatement bill(database, R"(INSERT INTO "Invoice" ("TourID", "CustomerID", "SubTotal", "Tax", "InvoiceTotal",
                                    "Paid", "Type") VALUES (1, $1, 1000000, 0, 1000000, 0, 'Manual'))" +
                                     database.ReturningKey());
    bill.Bind(1, payer.RunForKey());
    const std::int64_t invoice = bill.RunForKey();

    auto& screen = desk.app.Open<frmReceivePayment>();
    BareStatement any(database, R"(SELECT * FROM "InvoicePayments" LIMIT 1)");
    BareStatement insert(database, R"(INSERT INTO "InvoicePayments" ("InvoiceID", "PaymentDate", "Amount",
        "PaymentMethod", "Note", "EnteredBy", "EnteredDate")
        VALUES ($1, '2026-03-02 00:00:00', 1.25, 'Cash', '', 'office', '2026-03-02 09:00:00'))" +
                                       database.ReturningKey());
    BareStatement raise(database, R"(UPDATE "Invoice" SET "Paid" = "Paid" + 1.25 WHERE "ID" = $1)");
    std::vector<double> programTimes;
    std::vector<double> bareTimes;
    int programStatements = 0;
    int bareStatements = 0;
    constexpr int repetitions = 31;
    for (int i = 0; i < repetitions; ++i) {
        screen.cmbCustomer = "0 Paying Customer";
        screen.cmbInvoice = std::to_string(invoice);
        screen.txtPaymentAmount = "1.25";
        screen.cmbPaymentMethod = "Cash";
        double time = 0;
        programStatements = StatementsOf(desk, [&] { time = MillisecondsOf([&] { screen.btnSave.Click.Fire(); }); });
        programTimes.push_back(time);
        bareStatements = StatementsOf(desk, [&] {
            time = MillisecondsOf([&] {
                any.Step();
                any.Row();
                any.Reset();
                insert.Bind(1, invoice);
                insert.RunForKey();
                raise.Bind(1, invoice);
                raise.RunOnce();
            });
        });
        bareTimes.push_back(time);
    }
    desk.app.Unload(screen);
    desk.app.DropClosed();
    return {Compared("Saving a payment", Median(programTimes), Median(bareTimes), 1.5,
                     CountsOf(programStatements, bareStatements))};
}

}

std::vector<Result> MeasureBilling(const BenchOffice& office, Desk& desk)
{
    BareDatabase database(office.ConnectionText());
    std::vector<Result> results;
    for (auto measure : {MeasureMonthlyPass, MeasureBillingPage, MeasurePayment}) {
        for (Result& result : measure(desk, database))
            results.push_back(std::move(result));
    }
    return results;
}

}
