#include "tools/TravellingTexts.h"

#include "store/Recordset.h"

namespace rovanta {

namespace {

/// Columns of a table whose texts travel between two apostrophes into a statement of the program.
struct TravellingTexts {
    const char* table;
    const char* key;
    const char* secondKey; ///< null where one key is enough
    std::vector<const char*> columns;
};

const std::vector<TravellingTexts>& AllTravellingTexts()
{
    static const std::vector<TravellingTexts> all = {
        // The name: the renamed jobs, the accounting link, the statements, the web rights. The rest: the contacts of a
        // tour, which are filled from those of its customer.
        {"Customer", "ID", nullptr, {"Name",     "Contact1", "Phone1",   "Fax1",     "Email1",   "Contact2", "Phone2",
                                     "Fax2",     "Email2",   "Name3",    "Contact3", "Address3", "City3",    "State3",
                                     "Zip3",     "Phone3",   "Cell3",    "Fax3",     "Email3",   "Website3", "Name4",
                                     "Contact4", "Address4", "City4",    "State4",   "Zip4",     "Phone4",   "Cell4",
                                     "Fax4",     "Email4",   "Website4", "Name5",    "Contact5", "Address5", "City5",
                                     "State5",   "Zip5",     "Phone5",   "Cell5",    "Fax5",     "Email5",   "Website5",
                                     "Name6",    "Contact6", "Address6", "City6",    "State6",   "Zip6",     "Phone6",
                                     "Cell6",    "Fax6",     "Email6",   "Website6"}},
        {"WebUserCustomers", "UserID", nullptr, {"CustomerName"}},
        // The name: the renamed jobs and the accounting link. The address: noted when the mail at a tour's end is sent.
        {"Tour", "ID", nullptr, {"TourName", "Email1"}},
        // A bill writes these into the descriptions of its lines.
        {"Bus", "ID", nullptr, {"Name", "Type"}},
        {"Driver", "ID", nullptr, {"Name"}},
        {"TourItems", "TourID", "ID", {"MiscDesc", "Misc2Desc", "Misc3Desc", "Misc4Desc"}},
        // A manual invoice that is saved again writes all its lines anew, with its own type in each.
        {"InvoiceItems", "InvoiceID", "Row", {"UoM", "Description", "Other", "BusType", "Acct"}},
        // The rest: what is deleted here and known to the accounting is noted with the accounting's own number, and
        // found again by it.
        {"Invoice", "ID", nullptr, {"Type", "QBID", "GJQBID"}},
        {"InvoicePayments", "ID", nullptr, {"QBID"}},
        {"QBInvoicesToBeDeleted", "InvoiceID", nullptr, {"QBID"}},
        {"QBPaymentsToBeDeleted", "PaymentID", nullptr, {"QBID"}},
        // The sign-in and the screen of users.
        {"User", "ID", nullptr, {"Name", "Username", "Password"}},
        // What is picked from a list: a task's type, the status of the tour report, the type and the state of a search.
        {"TaskType", "TaskType", nullptr, {"TaskType"}},
        {"TourStatus", "Status", nullptr, {"Status"}},
        {"TourContactType", "ID", nullptr, {"Name"}},
        {"State", "State", nullptr, {"State"}},
    };
    return all;
}

Recordset RowsThatBreak(Connection& connection, const TravellingTexts& texts)
{
    Statement columns;
    Statement condition;
    for (const char* column : texts.columns) {
        columns += Statement{",["} + Name(column) + "]";
        condition += (condition.Get().empty() ? Statement{"["} : Statement{" OR ["}) + Name(column) + "] LIKE '%''%'";
    }
    Statement keys = Statement{"["} + Name(texts.key) + "]";
    if (texts.secondKey != nullptr)
        keys += Statement{",["} + Name(texts.secondKey) + "]";
    return {Statement{"SELECT "} + keys + columns + " FROM [" + Name(texts.table) + "] WHERE " + condition +
                " ORDER BY " + keys,
            connection};
}

std::string Shown(const Field& field)
{
    return field.IsNull() ? "NULL" : field.Text();
}

}

std::vector<std::string> TextsThatBreak(Connection& connection)
{
    std::vector<std::string> lines;
    for (const TravellingTexts& texts : AllTravellingTexts()) {
        for (Recordset row = RowsThatBreak(connection, texts); !row.Eof(); row.MoveNext()) {
            std::string place = std::string(texts.table) + " " + Shown(row.FieldAt(0));
            if (texts.secondKey != nullptr)
                place += ", " + std::string(texts.secondKey) + " " + Shown(row.FieldAt(1));
            const std::size_t first = texts.secondKey != nullptr ? 2 : 1;
            for (std::size_t i = 0; i < texts.columns.size(); ++i) {
                const std::string column = texts.columns[i];
                const std::string content = row.FieldAt(first + i).TextOrEmpty();
                if (content.find('\'') == std::string::npos)
                    continue;
                std::string& line = lines.emplace_back(place);
                line.append(": ").append(column);
                // A password is nobody's to read.
                if (column != "Password")
                    line.append(" \"").append(content).append("\"");
            }
        }
    }
    return lines;
}

}
