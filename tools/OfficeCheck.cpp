#include "tools/OfficeCheck.h"

#include "store/Recordset.h"
#include "tools/TravellingTexts.h"
#include "values/Format.h"

#include <filesystem>

namespace rovanta {

namespace {

std::optional<std::int64_t> KeyOf(const Field& field)
{
    if (field.IsNull())
        return std::nullopt;
    return static_cast<std::int64_t>(field.Number());
}

std::string Shown(const Field& field)
{
    return field.IsNull() ? "NULL" : field.Text();
}

std::optional<double> Amount(const Field& field)
{
    return field.IsNull() ? std::nullopt : std::optional(field.Number());
}

std::string Money(const Field& field)
{
    return field.IsNull() ? "NULL" : Format(field.Number(), moneyPicture);
}

std::set<std::int64_t> Keys(Recordset rows)
{
    std::set<std::int64_t> keys;
    for (; !rows.Eof(); rows.MoveNext())
        keys.insert(static_cast<std::int64_t>(rows.FieldAt(0).Number()));
    return keys;
}

std::vector<OwnedRow> TourLines(Connection& connection)
{
    std::vector<OwnedRow> lines;
    for (Recordset row("SELECT TourID,ID,BusID,StartDate,EndDate FROM TourItems ORDER BY TourID,ID", connection);
         !row.Eof(); row.MoveNext())
        lines.push_back({KeyOf(row.FieldAt(0)), "tour " + Shown(row.FieldAt(0)) + ", line " + Shown(row.FieldAt(1)) +
                                                    ": bus " + Shown(row.FieldAt(2)) + ", " + Shown(row.FieldAt(3)) +
                                                    " - " + Shown(row.FieldAt(4))});
    return lines;
}

std::vector<InvoiceHead> InvoiceHeads(Connection& connection)
{
    std::vector<InvoiceHead> heads;
    for (Recordset row("SELECT ID,SubTotal,Tax,InvoiceTotal,Paid FROM Invoice ORDER BY ID", connection); !row.Eof();
         row.MoveNext())
        heads.push_back({static_cast<std::int64_t>(row.FieldAt(0).Number()), Amount(row.FieldAt(1)),
                         Amount(row.FieldAt(2)), Amount(row.FieldAt(3)), Amount(row.FieldAt(4))});
    return heads;
}

/// Rows below an invoice, once as rows and once as what they add to it.
struct BelowInvoices {
    std::vector<OwnedRow> rows;
    std::vector<InvoiceAmount> amounts;
};

BelowInvoices InvoiceLines(Connection& connection)
{
    BelowInvoices lines;
    for (Recordset row("SELECT InvoiceID,Row,TourID,PriceExt FROM InvoiceItems ORDER BY InvoiceID,Row", connection);
         !row.Eof(); row.MoveNext()) {
        const auto invoice = KeyOf(row.FieldAt(0));
        lines.rows.push_back({invoice, "invoice " + Shown(row.FieldAt(0)) + ", line " + Shown(row.FieldAt(1)) +
                                           ": tour " + Shown(row.FieldAt(2)) + ", " + Money(row.FieldAt(3))});
        lines.amounts.push_back({invoice, row.FieldAt(3).NumberOrZero()});
    }
    return lines;
}

BelowInvoices Payments(Connection& connection)
{
    BelowInvoices payments;
    for (Recordset row("SELECT InvoiceID,ID,PaymentDate,Amount FROM InvoicePayments ORDER BY ID", connection);
         !row.Eof(); row.MoveNext()) {
        const auto invoice = KeyOf(row.FieldAt(0));
        payments.rows.push_back({invoice, "payment " + Shown(row.FieldAt(1)) + ": invoice " + Shown(row.FieldAt(0)) +
                                              ", " + Shown(row.FieldAt(2)) + ", " + Money(row.FieldAt(3))});
        payments.amounts.push_back({invoice, row.FieldAt(3).NumberOrZero()});
    }
    return payments;
}

/// The files that lie in a folder under the key of their row and their type.
std::vector<PromisedFile> Files(Recordset rows, const std::string& what, const std::string& folder)
{
    std::vector<PromisedFile> files;
    for (; !rows.Eof(); rows.MoveNext())
        files.push_back({what + " " + rows.Fields("ID").Text() + " \"" + rows.FieldAt(2).TextOrEmpty() + "\"",
                         folder + rows.Fields("ID").Text() + "." + rows.Fields("FileType").TextOrEmpty()});
    return files;
}

bool FileStands(const std::string& path)
{
    std::error_code unknown;
    return std::filesystem::is_regular_file(path, unknown);
}

}

std::vector<FindingGroup> CheckOffice(Connection& connection, const Configuration& configuration)
{
    const std::set<std::int64_t> tours = Keys(Recordset("SELECT ID FROM Tour", connection));
    const std::vector<InvoiceHead> heads = InvoiceHeads(connection);
    std::set<std::int64_t> invoices;
    for (const InvoiceHead& head : heads)
        invoices.insert(head.id);
    const BelowInvoices lines = InvoiceLines(connection);
    const BelowInvoices payments = Payments(connection);
    const auto documents = Files(Recordset("SELECT ID,FileType,Name FROM Documents ORDER BY ID", connection),
                                 "document", configuration.DocumentPath);
    const auto pictures = Files(Recordset("SELECT ID,FileType,ImageName FROM BusImages ORDER BY ID", connection),
                                "picture", configuration.BusImagePath);
    return {{"Tour lines without a tour", RowsWithoutOwner(TourLines(connection), tours)},
            {"Invoice lines without an invoice", RowsWithoutOwner(lines.rows, invoices)},
            {"Invoices that differ from their lines", HeadsThatDiffer(heads, lines.amounts)},
            {"Payments without an invoice", RowsWithoutOwner(payments.rows, invoices)},
            {"Invoices whose Paid differs from their payments", PaidThatDiffers(heads, payments.amounts)},
            {"Documents whose file is missing", MissingFiles(documents, FileStands)},
            {"Pictures whose file is missing", MissingFiles(pictures, FileStands)},
            {"Texts whose apostrophe breaks a statement", TextsThatBreak(connection)}};
}

}
