#include <doctest/doctest.h>

#include "store/DatabaseError.h"
#include "tests/store/TestOffice.h"

#include <chrono>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

using namespace rovanta;

namespace {

/// What a desk has saved by its own account.
struct Tally {
    int tours = 0;
    int lines = 0;
    int payments = 0;
    char error[200] = "";
};

void InsertLines(Connection& connection, const std::string& tour, int count)
{
    connection.Execute(Statement("DELETE FROM TourItems WHERE TourID = ") + Key(tour));
    Recordset items("SELECT TOP 1 * FROM TourItems", connection);
    for (int i = 1; i <= count; ++i) {
        items.AddNew();
        items.Fields("ID") = i;
        items.Fields("TourID") = tour;
        items.Fields("StartDate") = DateTime::Of(2026, 3, i);
        items.Fields("BusTotal") = 900.0 * i;
        items.Update();
    }
}

/// Saves one new tour, opens it again and saves it with fewer lines, as the tour screen does; then takes a payment.
void SaveTour(Connection& connection, const std::string& desk, Tally& tally)
{
    Recordset tour("SELECT TOP 1 * FROM Tour", connection);
    tour.AddNew();
    tour.Fields("TourName") = "Run of " + desk;
    tour.Fields("EnteredBy") = desk;
    tour.Update();
    const std::string id = tour.Fields("ID").Text();
    InsertLines(connection, id, 5);

    tour.Open(Statement("SELECT * FROM Tour WHERE ID = ") + Key(id), connection);
    tour.Fields("EditedBy") = desk;
    tour.Update();
    InsertLines(connection, id, 3);
    ++tally.tours;
    tally.lines += 3;

    connection.Execute("UPDATE Invoice SET Paid = Paid + 0.1 WHERE ID = 1");
    ++tally.payments;
}

/// A desk in a process of its own; what it saved comes back through the pipe.
void WorkAtDesk(const std::string& file, const std::string& desk, int seconds, int pipe)
{
    Tally tally;
    try {
        Connection connection;
        connection.Open(file);
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
        while (std::chrono::steady_clock::now() < end)
            SaveTour(connection, desk, tally);
    } catch (const std::exception& error) {
        std::string(error.what()).copy(tally.error, sizeof tally.error - 1);
    }
    const bool told = write(pipe, &tally, sizeof tally) == static_cast<ssize_t>(sizeof tally);
    _exit(told ? 0 : 1);
}

int SecondsOfWork()
{
    const char* told = std::getenv("ROVANTA_DESK_SECONDS");
    constexpr int secondsOfOrdinaryRun = 3;
    return told != nullptr ? std::atoi(told) : secondsOfOrdinaryRun;
}

}

TEST_CASE("Two desks save tours at the same time without a lock error and without a lost row")
{
    TestOffice office;
    office.Execute("INSERT INTO Invoice (InvoiceTotal,Paid) VALUES (100,0)");
    office.connection.Close();
    const std::vector<std::string> desks{"kim", "pat"};
    int ends[2] = {-1, -1};
    REQUIRE(pipe(ends) == 0);
    for (const std::string& desk : desks) {
        const pid_t child = fork();
        REQUIRE(child >= 0);
        if (child == 0)
            WorkAtDesk(office.Text(), desk, SecondsOfWork(), ends[1]);
    }
    Tally sum;
    for (std::size_t i = 0; i < desks.size(); ++i) {
        Tally tally;
        REQUIRE(read(ends[0], &tally, sizeof tally) == static_cast<ssize_t>(sizeof tally));
        CHECK(std::string(tally.error) == "");
        CHECK(tally.tours > 0);
        sum.tours += tally.tours;
        sum.lines += tally.lines;
        sum.payments += tally.payments;
        int status = -1;
        wait(&status);
        CHECK(status == 0);
    }
    close(ends[0]);
    close(ends[1]);
    office.connection.Open(office.Text());
    CHECK(RowsOf(office, "SELECT COUNT(*) AS Tours FROM Tour WHERE EnteredBy = EditedBy")[0] ==
          std::to_string(sum.tours));
    CHECK(RowsOf(office, "SELECT COUNT(*) AS Lines FROM TourItems")[0] == std::to_string(sum.lines));
    CHECK(RowsOf(office,
                 "SELECT COUNT(*) AS Lost FROM Tour WHERE ID NOT IN (SELECT TourID FROM TourItems WHERE ID = 3)")[0] ==
          "0");
    Recordset invoice = office.Open("SELECT Paid FROM Invoice");
    CHECK(invoice.Fields("Paid").Number() == doctest::Approx(sum.payments * 0.1));
    MESSAGE("saved " << sum.tours << " tours in " << SecondsOfWork() << " s");
}
