#include "tools/demo/DemoOffice.h"

#include "store/Recordset.h"
#include "support/TestApp.h"
#include "values/Numbers.h"

#include <doctest/doctest.h>

#include <cmath>
#include <map>

using namespace rovanta;
using rovanta::tests::ContentOf;
using rovanta::tests::TestFolder;

namespace fs = std::filesystem;

namespace {

/// A demo office with its connection.
class Demo {
public:
    explicit Demo(const demo::Plan& plan = {})
    {
        CreateDemoOffice(folder.path / "demo", "", plan);
        connection.Open(ReadConfigFile(ConfigPath()).ConnectionString);
    }

    std::string ConfigPath() const { return folder.File("demo/config.txt"); }
    double Number(const std::string& select)
    {
        return Recordset(Statement::Verbatim(select), connection).FieldAt(0).NumberOrZero();
    }

    /// All rows of a SELECT as one text.
    std::string Rows(const std::string& select)
    {
        std::string rows;
        Recordset record(Statement::Verbatim(select), connection);
        for (const std::size_t columns = record.ColumnNames().size(); !record.Eof(); record.MoveNext()) {
            for (std::size_t column = 0; column < columns; ++column)
                rows += record.FieldAt(column).TextOrEmpty() + (record.FieldAt(column).IsNull() ? "NULL|" : "|");
            rows += "\n";
        }
        return rows;
    }

    TestFolder folder;
    Connection connection;
};

/// Making it takes seconds, so the cases that only look share one.
Demo& Shared()
{
    static Demo demo;
    return demo;
}

constexpr std::array tables = {"Company",
                               "Owner",
                               "Driver",
                               "Bus",
                               "Customer",
                               "Tour",
                               "TourItems",
                               "TourRoute",
                               "TourContacts",
                               "OldTourName",
                               "TourDropEmails",
                               "CoDriverData",
                               "Invoice",
                               "InvoiceItems",
                               "InvoicePayments",
                               "BusFleetTrackerFields",
                               "BusFleetTracker",
                               "BusExpense",
                               "ExpenseCategory",
                               "FleetTrackerTicket",
                               "FleetTrackerAction",
                               "Tasks",
                               "TaskType",
                               "Documents",
                               "DocumentMap",
                               "DocumentCategory",
                               "BusImages",
                               "LeaseTemplate",
                               "[User]",
                               "UserPermission"};

/// Each table's and each file's content by its name.
std::map<std::string, std::string> ContentsOf(Demo& demo)
{
    std::map<std::string, std::string> contents;
    for (const char* table : tables)
        contents[table] = demo.Rows(std::string("SELECT * FROM ") + table);
    for (const char* folder : {"demo/pictures", "demo/documents", "demo/leases"})
        for (const auto& entry : fs::directory_iterator(demo.folder.path / folder))
            contents[entry.path().filename().string()] = ContentOf(entry.path().string());
    return contents;
}

}

TEST_CASE("the same plan makes the same demo to the last row and file")
{
    Demo again;
    const auto first = ContentsOf(Shared());
    const auto second = ContentsOf(again);
    REQUIRE(first.size() == second.size());
    for (const auto& [name, content] : first)
        CHECK_MESSAGE(second.at(name) == content, name);
    for (const char* table : tables)
        CHECK_MESSAGE(!first.at(table).empty(), table);
}

TEST_CASE("another seed makes another company of the same size")
{
    demo::Plan plan;
    plan.seed = 2;
    Demo other(plan);
    CHECK(other.Rows("SELECT * FROM Customer") != Shared().Rows("SELECT * FROM Customer"));
    CHECK(other.Rows("SELECT * FROM TourItems") != Shared().Rows("SELECT * FROM TourItems"));
    CHECK(other.Number("SELECT COUNT(ID) FROM Bus") == 60);
    CHECK(other.Number("SELECT COUNT(ID) FROM Tour") == 700);
}

TEST_CASE("the demo has 60 vehicles, 40 drivers and 150 customers, some of them inactive")
{
    Demo& demo = Shared();
    CHECK(demo.Number("SELECT COUNT(ID) FROM Bus") == 60);
    CHECK(demo.Number("SELECT COUNT(ID) FROM Bus WHERE Inactive = 1") == 3);
    CHECK(demo.Number("SELECT COUNT(ID) FROM Bus WHERE OwnerID IN (SELECT ID FROM Owner)") == 60);
    CHECK(demo.Number("SELECT COUNT(ID) FROM Bus WHERE Type IN (SELECT Name FROM BusType)") == 60);
    CHECK(demo.Number("SELECT COUNT(ID) FROM Driver") == 40);
    CHECK(demo.Number("SELECT COUNT(ID) FROM Driver WHERE Inactive = 1") == 3);
    CHECK(demo.Number("SELECT COUNT(ID) FROM Customer") == 150);
    CHECK(demo.Number("SELECT COUNT(DISTINCT Name) FROM Customer") == 150);
}

TEST_CASE("the tours stand in every status over three years")
{
    Demo& demo = Shared();
    CHECK(demo.Rows("SELECT DISTINCT Status FROM Tour ORDER BY Status") ==
          demo.Rows("SELECT Status FROM TourStatus ORDER BY Status"));
    CHECK(demo.Number("SELECT COUNT(ID) FROM TourItems WHERE StartDate < '5/16/2024'") == 0);
    CHECK(demo.Number("SELECT COUNT(ID) FROM TourItems WHERE StartDate < '8/16/2024'") > 20);
    CHECK(demo.Number("SELECT COUNT(ID) FROM TourItems WHERE StartDate > '3/1/2027'") > 20);
    CHECK(demo.Number("SELECT COUNT(ID) FROM Tour WHERE DateEntered >= '11/16/2026'") == 0);
    // The list of tours in the order of their keys is the order in which they were entered.
    CHECK(demo.Number("SELECT COUNT(A.ID) FROM Tour A INNER JOIN Tour B ON B.ID = A.ID + 1 "
                      "WHERE B.DateEntered < A.DateEntered") == 0);
}

TEST_CASE("names that go into statements bear no apostrophe")
{
    Demo& demo = Shared();
    for (const char* column :
         {"Customer.Name", "Customer.LegalName", "Customer.Contact1", "Driver.Name", "Bus.Name", "Tour.TourName"}) {
        const std::string name = column;
        const std::string table = name.substr(0, name.find('.'));
        CHECK_MESSAGE(demo.Number("SELECT COUNT(ID) FROM " + table + " WHERE " + name + " LIKE '%''%'") == 0, name);
    }
    CHECK(demo.Number("SELECT COUNT(ID) FROM Owner WHERE Name LIKE '%''%'") == 1);
}

TEST_CASE("the schedule has double bookings to warn of, and few of them")
{
    const double overlaps = Shared().Number(
        "SELECT COUNT(A.ID) FROM (TourItems A INNER JOIN Tour TA ON A.TourID = TA.ID) INNER JOIN (TourItems B INNER "
        "JOIN Tour TB ON B.TourID = TB.ID) ON A.BusID = B.BusID WHERE A.TourID < B.TourID AND A.StartDate <= B.EndDate "
        "AND A.EndDate >= B.StartDate AND TA.Status <> 'Quote - Active' AND TA.Status <> 'Quote - Closed' AND "
        "TB.Status <> 'Quote - Active' AND TB.Status <> 'Quote - Closed'");
    CHECK(overlaps >= 5);
    CHECK(overlaps <= 60);
}

TEST_CASE("a line is priced as the tour screen prices it")
{
    Demo& demo = Shared();
    CHECK(demo.Number("SELECT COUNT(ID) FROM TourItems WHERE BusRateType = 'Per Day' AND BusTotal <> BusRate * "
                      "BilledDays") == 0);
    CHECK(demo.Number("SELECT COUNT(ID) FROM TourItems WHERE BusRateType = 'Per Month'") > 5);
    CHECK(demo.Number("SELECT COUNT(ID) FROM TourItems WHERE BilledDays <> TourDays - DiscountedDays + TravelDaysIn + "
                      "TravelDaysOut") == 0);
    for (Recordset head("SELECT Tour.ID,TotalTourBudget,Lines.Budget,Tour.ClientResp,Lines.Client FROM Tour INNER JOIN "
                        "(SELECT TourID,SUM(TourBudget) AS Budget,SUM(ClientResp) AS Client FROM TourItems GROUP BY "
                        "TourID) Lines ON Tour.ID = Lines.TourID",
                        demo.connection);
         !head.Eof(); head.MoveNext()) {
        CHECK(std::abs(head.FieldAt(1).Number() - head.FieldAt(2).Number()) < 0.005);
        CHECK(std::abs(head.FieldAt(3).Number() - head.FieldAt(4).Number()) < 0.005);
    }
}

TEST_CASE("invoices equal their lines, and what is paid equals the payments")
{
    Demo& demo = Shared();
    CHECK(demo.Rows("SELECT DISTINCT Type FROM Invoice ORDER BY Type") == "Daily|\nManual|\nMonthly|\n");
    int invoices = 0;
    for (Recordset invoice("SELECT Invoice.ID,SubTotal,Tax,InvoiceTotal,Paid,Lines.Amount,ISNULL(Payments.Amount,0) AS "
                           "PaidAmount FROM (Invoice LEFT JOIN (SELECT InvoiceID,SUM(PriceExt) AS Amount FROM "
                           "InvoiceItems GROUP BY InvoiceID) Lines ON Invoice.ID = Lines.InvoiceID) LEFT JOIN (SELECT "
                           "InvoiceID,SUM(Amount) AS Amount FROM InvoicePayments GROUP BY InvoiceID) Payments ON "
                           "Invoice.ID = Payments.InvoiceID",
                           demo.connection);
         !invoice.Eof(); invoice.MoveNext()) {
        ++invoices;
        const double subTotal = invoice.Fields("SubTotal").Number();
        CHECK(std::abs(subTotal - invoice.Fields("Amount").Number()) < 0.005);
        CHECK(std::abs(subTotal + invoice.Fields("Tax").Number() - invoice.Fields("InvoiceTotal").Number()) < 0.005);
        CHECK(std::abs(invoice.Fields("Paid").Number() - invoice.Fields("PaidAmount").Number()) < 0.005);
    }
    CHECK(invoices > 1000);
    CHECK(demo.Number("SELECT COUNT(ID) FROM Invoice WHERE InvoiceTotal - Paid > 0.005 AND DueDate < '11/1/2026'") >
          20);
    CHECK(demo.Number("SELECT COUNT(ID) FROM Invoice WHERE Tax > 0") > 10);
    CHECK(demo.Number("SELECT COUNT(ID) FROM Invoice WHERE QBID IS NULL") > 10);
    CHECK(demo.Number("SELECT COUNT(ID) FROM InvoicePayments WHERE PaymentDate >= '11/16/2026'") == 0);
    CHECK(demo.Number("SELECT COUNT(Invoice.ID) FROM Invoice INNER JOIN Tour ON Invoice.TourID = Tour.ID WHERE Status "
                      "LIKE 'Quote%'") == 0);
}

TEST_CASE("a route starts with no leg and repeats its whole mileage")
{
    Demo& demo = Shared();
    CHECK(demo.Number("SELECT COUNT(TourID) FROM TourRoute WHERE Row = 1 AND (MileageBetween <> 0 OR Hours <> 0)") ==
          0);
    CHECK(demo.Number(
              "SELECT COUNT(R.TourID) FROM (SELECT TourID,BusID,SUM(MileageBetween) AS Miles,MAX(TotalMileage) AS "
              "Total FROM TourRoute GROUP BY TourID,BusID) R WHERE R.Miles <> R.Total") == 0);
    CHECK(demo.Number("SELECT COUNT(TourID) FROM TourRoute WHERE CumHours >= 60") > 0);
}

TEST_CASE("every picture, document and template of the tables is a file")
{
    Demo& demo = Shared();
    int files = 0;
    for (Recordset row("SELECT ID,FileType FROM Documents", demo.connection); !row.Eof(); row.MoveNext(), ++files)
        CHECK(fs::exists(
            demo.folder.File("demo/documents/" + row.Fields("ID").Text() + "." + row.Fields("FileType").Text())));
    for (Recordset row("SELECT ID,FileType FROM BusImages", demo.connection); !row.Eof(); row.MoveNext(), ++files)
        CHECK(fs::exists(
            demo.folder.File("demo/pictures/" + row.Fields("ID").Text() + "." + row.Fields("FileType").Text())));
    for (Recordset row("SELECT LeaseFileName FROM LeaseTemplate", demo.connection); !row.Eof(); row.MoveNext(), ++files)
        CHECK(ContentOf(demo.folder.File("demo/leases/" + row.Fields("LeaseFileName").Text())).starts_with("{\\rtf1"));
    CHECK(files > 40);
    CHECK(ContentOf(demo.folder.File("demo/documents/NotFound.bmp")).starts_with("BM"));
    CHECK(ContentOf(demo.folder.File("demo/pictures/1.png")).starts_with("\x89PNG\r\n\x1a\n"));
}

TEST_CASE("the users of the demo sign in, one with all rights and one with few")
{
    tests::SilentHost host;
    const auto signIn = [&](App& app, const char* user, const char* password) {
        app.Start();
        auto& login = app.Open<frmLogin>();
        login.txtUsername = user;
        login.txtPassword = password;
        login.btnLogin.Click.Fire();
    };
    App office(host, AllScreens(), {Shared().ConfigPath(), "demo-office", DateTime::Of(2026, 11, 16, 9, 0, 0)});
    signIn(office, DemoUser::admin, DemoUser::adminPassword);
    CHECK(office.session.CurrentUserType == "Admin");
    App desk(host, AllScreens(), {Shared().ConfigPath(), "demo-desk", DateTime::Of(2026, 11, 16, 9, 0, 0)});
    signIn(desk, DemoUser::desk, DemoUser::deskPassword);
    CHECK(desk.HasPermission("Tour View"));
    CHECK_FALSE(desk.HasPermission("Tour Entry/Edit"));
    CHECK_FALSE(desk.HasPermission("Security"));
    CHECK(host.messages.empty());
}

TEST_CASE("a demo is not put over an office")
{
    const std::string before = ContentOf(Shared().ConfigPath());
    CHECK_THROWS_WITH(CreateDemoOffice(Shared().folder.path / "demo", "", {}),
                      ("There is an office already: " + Shared().ConfigPath()).c_str());
    CHECK(ContentOf(Shared().ConfigPath()) == before);
}
