#include "billing/frmReceivePayment.h"
#include "tests/support/TestApp.h"

#include <doctest/doctest.h>

#include <sys/wait.h>
#include <unistd.h>

using namespace rovanta;
using namespace rovanta::tests;

/// Receives `count` payments of 1.25 against invoice 1, as one desk in a process of its own.
static void ReceivePayments(const TestOffice& office, int count)
{
    TestApp desk(office);
    desk.SignIn();
    auto& screen = desk.app.Open<frmReceivePayment>();
    for (int i = 0; i < count; ++i) {
        screen.cmbCustomer = "Ember Lights";
        screen.cmbInvoice = "1";
        screen.txtPaymentAmount = "1.25";
        screen.cmbPaymentMethod = "Cash";
        screen.btnSave.Click.Fire();
        if (!desk.host.TakeMessages().empty())
            throw std::runtime_error("a payment was refused");
    }
}

TEST_CASE("Payments entered at the same time on one invoice from several processes never lose each other")
{
    constexpr int desks = 4;
    constexpr int payments = 50;
    const TestOffice office;
    TestApp watcher(office);
    watcher.Execute("INSERT INTO Customer (Name) VALUES ('Ember Lights')");
    watcher.Execute("INSERT INTO Invoice (TourID,CustomerID,SubTotal,Tax,InvoiceTotal,Paid,Type) VALUES "
                    "(1,1,100000,0,100000,0,'Manual')");
    std::vector<pid_t> children;
    for (int i = 0; i < desks; ++i) {
        const pid_t child = fork();
        REQUIRE(child >= 0);
        if (child == 0) {
            try {
                ReceivePayments(office, payments);
                _exit(0);
            } catch (const std::exception& error) {
                std::fprintf(stderr, "%s\n", error.what());
                _exit(1);
            }
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = 0;
        waitpid(child, &status, 0);
        CHECK(WIFEXITED(status));
        CHECK(WEXITSTATUS(status) == 0);
    }
    CHECK(watcher.Rows("SELECT Paid FROM Invoice WHERE ID = 1") == "250");
    CHECK(watcher.Rows("SELECT COUNT(ID) AS Payments,SUM(Amount) AS Sum FROM InvoicePayments") == "200|250");
}
