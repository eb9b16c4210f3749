#include "bench/BareTour.h"

namespace rovanta::bench {

BareRow ReadRow(BareStatement& statement)
{
    BareRow row;
    row.reserve(static_cast<std::size_t>(statement.Columns()));
    for (int column = 0; column < statement.Columns(); ++column) {
        switch (statement.Type(column)) {
        case SQLITE_NULL:
            row.emplace_back();
            break;
        case SQLITE_INTEGER:
            row.emplace_back(statement.Whole(column));
            break;
        case SQLITE_FLOAT:
            row.emplace_back(statement.Number(column));
            break;
        default:
            row.emplace_back(statement.Text(column));
        }
    }
    return row;
}

void BindRow(BareStatement& statement, const BareRow& row, int firstPlace)
{
    int place = firstPlace;
    for (const BareValue& value : row) {
        if (const auto* whole = std::get_if<sqlite3_int64>(&value))
            statement.Bind(place, *whole);
        else if (const auto* number = std::get_if<double>(&value))
            statement.Bind(place, *number);
        else if (const auto* text = std::get_if<std::string>(&value))
            statement.Bind(place, std::string_view(*text));
        else
            statement.BindNull(place);
        ++place;
    }
}

BareTour::BareTour(BareDatabase& database)
    : database(database), customer(database, "SELECT * FROM Customer WHERE ID = ?"),
      tour(database, "SELECT * FROM Tour WHERE ID = ?"),
      lines(database, "SELECT TourItems.*, Bus.Name, Driver.Name, AddDvr.Name FROM TourItems LEFT JOIN Bus ON "
                      "TourItems.BusID = Bus.ID LEFT JOIN Driver ON TourItems.DriverID = Driver.ID LEFT JOIN Driver "
                      "AddDvr ON TourItems.AddDriverID = AddDvr.ID WHERE TourItems.TourID = ? ORDER BY TourItems.ID"),
      invoices(database, "SELECT * FROM Invoice WHERE TourID = ? ORDER BY InvoiceDate, ID"),
      payments(database, "SELECT * FROM InvoicePayments WHERE InvoiceID IN (SELECT ID FROM Invoice WHERE TourID = ?) "
                         "ORDER BY PaymentDate, InvoiceID"),
      updateTour(database, "UPDATE Tour SET DateEdited = ?, EditedBy = ? WHERE ID = ?"),
      mail(database, "SELECT * FROM TourDropEmails WHERE TourID = ?"),
      updateMail(database, "UPDATE TourDropEmails SET DateAdded = ? WHERE TourID = ?"),
      deleteItems(database, "DELETE FROM TourItems WHERE TourID = ?"),
      oneItem(database, "SELECT * FROM TourItems LIMIT 1"),
      list(database, "SELECT Customer.Name, Tour.ID, TourName FROM Tour LEFT JOIN Customer ON Tour.CustomerID = "
                     "Customer.ID ORDER BY Customer.Name, TourName")
{
    for (int column = 0; column < oneItem.Columns(); ++column)
        itemColumns.push_back(oneItem.Name(column));
}

void BareTour::Load(sqlite3_int64 id)
{
    tour.Bind(1, id);
    tour.Step();
    head = ReadRow(tour);
    tour.Reset();
    customer.Bind(1, std::get<sqlite3_int64>(head[1]));
    customer.Step();
    ReadRow(customer);
    customer.Reset();
    items.clear();
    lines.Bind(1, id);
    while (lines.Step()) {
        items.push_back(ReadRow(lines));
        // The names of the joined tables are shown and not written back.
        items.back().resize(itemColumns.size());
    }
    lines.Reset();
    for (BareStatement* list : {&invoices, &payments}) {
        list->Bind(1, id);
        while (list->Step())
            ReadRow(*list);
        list->Reset();
    }
}

void BareTour::Save(const std::string& now)
{
    const auto id = std::get<sqlite3_int64>(head[0]);
    tour.Bind(1, id);
    tour.Step();
    ReadRow(tour);
    tour.Reset();
    updateTour.Bind(1, std::string_view(now));
    updateTour.Bind(2, std::string_view("office"));
    updateTour.Bind(3, id);
    updateTour.RunOnce();
    mail.Bind(1, id);
    mail.Step();
    ReadRow(mail);
    mail.Reset();
    updateMail.Bind(1, std::string_view(now));
    updateMail.Bind(2, id);
    updateMail.RunOnce();
    deleteItems.Bind(1, id);
    deleteItems.RunOnce();
    oneItem.Step();
    ReadRow(oneItem);
    oneItem.Reset();

    std::string names;
    std::string marks;
    for (const std::string& column : itemColumns) {
        names += (names.empty() ? "" : ", ") + column;
        marks += marks.empty() ? "?" : ", ?";
    }
    BareStatement insert(database, "INSERT INTO TourItems (" + names + ") VALUES (" + marks + ")");
    for (const BareRow& item : items) {
        BindRow(insert, item);
        insert.RunOnce();
    }
    LoadTourList();
}

void BareTour::LoadTourList()
{
    tourList.clear();
    while (list.Step())
        tourList.emplace_back(list.Text(0) + " - " + list.Text(2), list.Whole(1));
    list.Reset();
}

}
