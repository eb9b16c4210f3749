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
         "invoice 1: Paid is NULL, its payments come to $40.00"},
        {"INSERT INTO Invoice (SubTotal,Tax,InvoiceTotal) VALUES (0,0,0)",
         "Invoices whose Paid differs from their payments", "invoice 2: Paid is NULL, its payments come to $0.00"},
        {"UPDATE Invoice SET InvoiceTotal=NULL", "Invoices that differ from their lines",
         "invoice 1: InvoiceTotal is NULL, its lines and the tax come to $105.00"},
        {"INSERT INTO Invoice (SubTotal,InvoiceTotal,Paid) VALUES (0,0,0)", "Invoices that differ from their lines",
         "invoice 2: Tax is NULL"}};
    for (const Fault& fault : faults) {
        CAPTURE(fault.statement);
        SoundOffice office;
        office.Execute(fault.statement);
        CHECK(office.Found() == Single(fault.title, fault.line));
    }
}

TEST_CASE("the check finds an apostrophe in each text that travels into a statement")
{
    struct Fault {
        const char* statement;
        const char* line;
    };
    const std::vector<Fault> faults = {
        {"UPDATE Customer SET Name='O''Hara'", "Customer 1: Name \"O'Hara\""},
        {"INSERT INTO WebUserCustomers (UserID,CustomerName) VALUES (2,'O''Hara')",
         "WebUserCustomers 2: CustomerName \"O'Hara\""},
        {"UPDATE Tour SET TourName='O''Hara'", "Tour 1: TourName \"O'Hara\""},
        {"UPDATE Tour SET Email1='o''hara@a.b'", "Tour 1: Email1 \"o'hara@a.b\""},
        {"INSERT INTO Bus (Name) VALUES ('O''Hara')", "Bus 1: Name \"O'Hara\""},
        {"INSERT INTO Bus (Type) VALUES ('Driver''s')", "Bus 1: Type \"Driver's\""},
        {"INSERT INTO Driver (Name) VALUES ('O''Hara')", "Driver 1: Name \"O'Hara\""},
        {"UPDATE TourItems SET MiscDesc='Driver''s'", "TourItems 1, ID 1: MiscDesc \"Driver's\""},
        {"UPDATE TourItems SET Misc2Desc='Driver''s'", "TourItems 1, ID 1: Misc2Desc \"Driver's\""},
        {"UPDATE TourItems SET Misc3Desc='Driver''s'", "TourItems 1, ID 1: Misc3Desc \"Driver's\""},
        {"UPDATE TourItems SET Misc4Desc='Driver''s'", "TourItems 1, ID 1: Misc4Desc \"Driver's\""},
        {"UPDATE InvoiceItems SET UoM='D''s' WHERE Row=2", "InvoiceItems 1, Row 2: UoM \"D's\""},
        {"UPDATE InvoiceItems SET Description='D''s' WHERE Row=2", "InvoiceItems 1, Row 2: Description \"D's\""},
        {"UPDATE InvoiceItems SET Other='D''s' WHERE Row=2", "InvoiceItems 1, Row 2: Other \"D's\""},
        {"UPDATE InvoiceItems SET BusType='D''s' WHERE Row=2", "InvoiceItems 1, Row 2: BusType \"D's\""},
        {"UPDATE InvoiceItems SET Acct='D''s' WHERE Row=2", "InvoiceItems 1, Row 2: Acct \"D's\""},
        {"UPDATE Invoice SET Type='D''s'", "Invoice 1: Type \"D's\""},
        {"UPDATE Invoice SET QBID='D''s'", "Invoice 1: QBID \"D's\""},
        {"UPDATE Invoice SET GJQBID='D''s'", "Invoice 1: GJQBID \"D's\""},
        {"UPDATE InvoicePayments SET QBID='D''s'", "InvoicePayments 1: QBID \"D's\""},
        {"INSERT INTO QBInvoicesToBeDeleted (InvoiceID,QBID) VALUES (7,'D''s')",
         "QBInvoicesToBeDeleted 7: QBID \"D's\""},
        {"INSERT INTO QBPaymentsToBeDeleted (PaymentID,QBID) VALUES (7,'D''s')",
         "QBPaymentsToBeDeleted 7: QBID \"D's\""},
        {"INSERT INTO [User] (Name) VALUES ('O''Hara')", "User 3: Name \"O'Hara\""},
        {"INSERT INTO [User] (Username) VALUES ('o''hara')", "User 3: Username \"o'hara\""},
        {"INSERT INTO TaskType (TaskType) VALUES ('D''s')", "TaskType D's: TaskType \"D's\""},
        {"INSERT INTO TourStatus (Status) VALUES ('D''s')", "TourStatus D's: Status \"D's\""},
        {"INSERT INTO TourContactType (Name) VALUES ('D''s')", "TourContactType 11: Name \"D's\""},
        {"INSERT INTO State (State) VALUES ('D''s')", "State D's: State \"D's\""}};
    for (const Fault& fault : faults) {
        CAPTURE(fault.statement);
        SoundOffice office;
        office.Execute(fault.statement);
        CHECK(office.Found() == Single("Texts whose apostrophe breaks a statement", fault.line));
    }
}

TEST_CASE("the check finds an apostrophe in each text that a tour's contacts take from the customer")
{
    std::vector<std::string> columns = {"Contact1", "Phone1", "Fax1", "Email1", "Contact2", "Phone2", "Fax2", "Email2"};
    for (const char* block : {"3", "4", "5", "6"})
        for (const char* column :
             {"Name", "Contact", "Address", "City", "State", "Zip", "Phone", "Cell", "Fax", "Email", "Website"})
            columns.push_back(std::string(column) + block);
    SoundOffice office;
    std::string lines;
    for (const std::string& column : columns) {
        office.Execute("UPDATE Customer SET " + column + "='it''s'");
        lines += "  Customer 1: " + column + " \"it's\"\n";
    }
    CHECK(office.Found() ==
          "Texts whose apostrophe breaks a statement: 52\n" + lines + "Found 52 things. Nothing was changed.\n");
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
    office.Execute("UPDATE Customer SET Notes='They''re early',Email1a='o''hara@a.b',Address1='King''s Road'");
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
