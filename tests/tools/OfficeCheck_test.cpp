#include "tools/OfficeCheck.h"

#include "support/TestApp.h"
#include "support/TestServer.h"
#include "tools/OfficeCopy.h"

#include <doctest/doctest.h>

#include <optional>

using namespace rovanta;
using rovanta::tests::TestOffice;
using rovanta::tests::WriteContent;

namespace {

/// An office in which all is well: one tour, one invoice, one payment, one document and one picture.
class SoundOffice {
public:
    SoundOffice() : configuration(ReadConfigFile(office.ConfigPath()))
    {
        if (TestServer()) {
            database.emplace(OnServer(configuration.ConnectionString));
            configuration.ConnectionString = database->Text();
        }
        connection.Open(configuration.ConnectionString);
        Execute("INSERT INTO Customer (Name) VALUES ('Blue Hollow')");
        Execute("INSERT INTO Tour (CustomerID,TourName) VALUES (1,'Spring')");
        Execute("INSERT INTO TourItems (ID,TourID,BusID,StartDate,EndDate,MiscDesc) "
                "VALUES (1,1,4,'3/2/2026','3/9/2026','Parking')");
        Execute("INSERT INTO Invoice (TourID,CustomerID,SubTotal,Tax,InvoiceTotal,Paid) VALUES (1,1,100,5,105,40)");
        Execute("INSERT INTO InvoiceItems (InvoiceID,Row,TourID,Description,PriceExt) VALUES (1,1,1,'Bus',60)");
        Execute("INSERT INTO InvoiceItems (InvoiceID,Row,TourID,Description,PriceExt) VALUES (1,2,1,'Fuel',40)");
        Execute("INSERT INTO InvoicePayments (InvoiceID,PaymentDate,Amount) VALUES (1,'4/1/2026',40)");
        Execute("INSERT INTO Documents (Name,FileType) VALUES ('Rider','pdf')");
        Execute("INSERT INTO BusImages (BusID,ImageName,FileType) VALUES (1,'Front','png')");
        WriteContent(configuration.DocumentPath + "1.pdf", "rider");
        WriteContent(configuration.BusImagePath + "1.png", "front");
    }

    void Execute(const std::string& statement) { connection.Execute(Statement::Verbatim(statement)); }
    std::string Found() { return FindingsText(CheckOffice(connection, configuration)); }

    TestOffice office;
    Configuration configuration;
    std::optional<TestDatabase> database;
    Connection connection;

private:
    /// The database on the suite's server that each office is a copy of.
    static const std::string& OnServer(const std::string& file)
    {
        static const TestDatabase made("");
        static const CopyReport copied = CopyOffice(file, made.Text());
        (void)copied;
        return made.Name();
    }
};

/// What the check prints of one single finding.
std::string Single(const std::string& title, const std::string& line)
{
    return title + ": 1\n  " + line + "\nFound 1 thing. Nothing was changed.\n";
}

}

TEST_CASE("a sound office gives the check nothing to tell")
{
    CHECK(SoundOffice().Found() == "Nothing found.\n");
}

TEST_CASE("the check finds each fault that is planted")
{
    struct Fault {
        const char* statement;
        const char* title;
        const char* line;
    };
    const std::vector<Fault> faults = {
        {"INSERT INTO TourItems (ID,TourID,BusID,StartDate,EndDate) VALUES (2,9,5,'3/2/2026','3/9/2026')",
         "Tour lines without a tour", "tour 9, line 2: bus 5, 3/2/2026 - 3/9/2026"},
        {"INSERT INTO TourItems (ID,BusID) VALUES (2,5)", "Tour lines without a tour",
         "tour NULL, line 2: bus 5, NULL - NULL"},
        {"INSERT INTO InvoiceItems (InvoiceID,Row,TourID,PriceExt) VALUES (9,3,1,12.5)",
         "Invoice lines without an invoice", "invoice 9, line 3: tour 1, $12.50"},
        {"UPDATE Invoice SET SubTotal=99.99", "Invoices that differ from their lines",
         "invoice 1: SubTotal is $99.99, its lines come to $100.00"},
        {"UPDATE Invoice SET InvoiceTotal=100", "Invoices that differ from their lines",
         "invoice 1: InvoiceTotal is $100.00, its lines and the tax come to $105.00"},
        {"INSERT INTO InvoicePayments (InvoiceID,PaymentDate,Amount) VALUES (9,'4/1/2026',70)",
         "Payments without an invoice", "payment 2: invoice 9, 4/1/2026, $70.00"},
        {"UPDATE Invoice SET Paid=NULL", "Invoices whose Paid differs from their payments",
         "invoice 1: Paid is $0.00, its payments come to $40.00"},
        {"UPDATE Customer SET Name='Rock''n Roll'", "Texts whose apostrophe breaks a statement",
         "Customer 1: Name \"Rock'n Roll\""},
        {"UPDATE Tour SET TourName='King''s'", "Texts whose apostrophe breaks a statement",
         "Tour 1: TourName \"King's\""},
        {"UPDATE TourItems SET MiscDesc='Driver''s meal'", "Texts whose apostrophe breaks a statement",
         "TourItems 1, ID 1: MiscDesc \"Driver's meal\""},
        {"UPDATE InvoiceItems SET Other='O''Hara' WHERE Row=2", "Texts whose apostrophe breaks a statement",
         "InvoiceItems 1, Row 2: Other \"O'Hara\""},
        {"INSERT INTO Driver (Name) VALUES ('O''Hara')", "Texts whose apostrophe breaks a statement",
         "Driver 1: Name \"O'Hara\""},
        {"INSERT INTO TaskType (TaskType) VALUES ('Driver''s call')", "Texts whose apostrophe breaks a statement",
         "TaskType Driver's call: TaskType \"Driver's call\""},
        {"UPDATE [User] SET Username='o''hara' WHERE Username='clerk'", "Texts whose apostrophe breaks a statement",
         "User 1: Username \"o'hara\""}};
    for (const Fault& fault : faults) {
        CAPTURE(fault.statement);
        SoundOffice office;
        office.Execute(fault.statement);
        std::string found = office.Found();
        // The two users were made in an order that is nobody's concern here.
        if (const auto user = found.find("User 2:"); user != std::string::npos)
            found.replace(user, 7, "User 1:");
        CHECK(found == Single(fault.title, fault.line));
    }
}

TEST_CASE("a password that breaks the sign-in is found and not shown")
{
    SoundOffice office;
    office.Execute("UPDATE [User] SET Password='se''cret' WHERE Username='clerk'");
    const std::string found = office.Found();
    CHECK(found.find(": Password\n") != std::string::npos);
    CHECK(found.find("cret") == std::string::npos);
}

TEST_CASE("the check misses the files of documents and pictures")
{
    SoundOffice office;
    const std::string document = office.configuration.DocumentPath + "1.pdf";
    const std::string picture = office.configuration.BusImagePath + "1.png";
    std::filesystem::remove(document);
    std::filesystem::remove(picture);
    // A folder of that name is no file.
    std::filesystem::create_directory(picture);
    CHECK(office.Found() == "Documents whose file is missing: 1\n  document 1 \"Rider\": " + document +
                                "\nPictures whose file is missing: 1\n  picture 1 \"Front\": " + picture +
                                "\nFound 2 things. Nothing was changed.\n");
}

TEST_CASE("apostrophes in texts that travel nowhere are no finding")
{
    SoundOffice office;
    office.Execute("UPDATE Customer SET Notes='They''re early'");
    office.Execute("UPDATE Tour SET Notes='They''re early'");
    CHECK(office.Found() == "Nothing found.\n");
}

TEST_CASE("the check repairs nothing")
{
    SoundOffice office;
    office.Execute("UPDATE Invoice SET SubTotal=1,Paid=2");
    const std::string first = office.Found();
    CHECK(first == office.Found());
    Recordset invoice("SELECT SubTotal,Paid FROM Invoice", office.connection);
    CHECK(invoice.FieldAt(0).Number() == 1);
    CHECK(invoice.FieldAt(1).Number() == 2);
}
