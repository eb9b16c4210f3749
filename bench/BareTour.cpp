#include "bench/BareTour.h"

#include <array>

namespace rovanta::bench {

/// The INSERT that writes a line with all its columns.
static std::string InsertItemText(BareDatabase& database)
{
    BareStatement item(database, R"(SELECT * FROM "TourItems" LIMIT 1)");
    item.Step();
    std::string names;
    std::string marks;
    for (int column = 0; column < item.Columns(); ++column) {
        names += std::string(names.empty() ? "\"" : ", \"") + item.Name(column) + "\"";
        marks += (marks.empty() ? "$" : ", $") + std::to_string(column + 1);
    }
    return "INSERT INTO \"TourItems\" (" + names + ") VALUES (" + marks + ")";
}

BareTour::BareTour(BareDatabase& database)
    : customer(database, R"(SELECT * FROM "Customer" WHERE "ID" = $1)"),
      tour(database, R"(SELECT * FROM "Tour" WHERE "ID" = $1)"),
      lines(database, R"(SELECT "TourItems".*, "Bus"."Name", "Driver"."Name", "AddDvr"."Name" FROM "TourItems"
                         LEFT JOIN "Bus" ON "TourItems"."BusID" = "Bus"."ID"
                         LEFT JOIN "Driver" ON "TourItems"."DriverID" = "Driver"."ID"
                         LEFT JOIN "Driver" "AddDvr" ON "TourItems"."AddDriverID" = "AddDvr"."ID"
                         WHERE "TourItems"."TourID" = $1 ORDER BY "TourItems"."ID")"),
      invoices(database, R"(SELECT * FROM "Invoice" WHERE "TourID" = $1 ORDER BY "InvoiceDate" NULLS FIRST, "ID")"),
      payments(database, R"(SELECT * FROM "InvoicePayments" WHERE "InvoiceID" IN (SELECT "ID" FROM "Invoice"
                            WHERE "TourID" = $1) ORDER BY "PaymentDate" NULLS FIRST, "InvoiceID" NULLS FIRST)"),
      updateTour(database, R"(UPDATE "Tour" SET "DateEdited" = $1, "EditedBy" = $2 WHERE "ID" = $3)"),
      mail(database, R"(SELECT * FROM "TourDropEmails" WHERE "TourID" = $1)"),
      updateMail(database, R"(UPDATE "TourDropEmails" SET "DateAdded" = $1 WHERE "TourID" = $2)"),
      deleteItems(database, R"(DELETE FROM "TourItems" WHERE "TourID" = $1)"),
      oneItem(database, R"(SELECT * FROM "TourItems" LIMIT 1)"), insertItem(database, InsertItemText(database)),
      list(database, R"(SELECT "Customer"."Name", "Tour"."ID", "TourName" FROM "Tour"
                        LEFT JOIN "Customer" ON "Tour"."CustomerID" = "Customer"."ID"
                        ORDER BY "Customer"."Name" NULLS FIRST, "TourName" NULLS FIRST)")
{
    oneItem.Step();
    itemColumns = static_cast<std::size_t>(oneItem.Columns());
    oneItem.Reset();
}

void BareTour::Load(std::int64_t id)
{
    tour.Bind(1, id);
    tour.Step();
    head = tour.Row();
    tour.Reset();
    customer.Bind(1, std::get<std::int64_t>(head[1]));
    customer.Step();
    customer.Row();
    customer.Reset();
    items.clear();
    lines.Bind(1, id);
    while (lines.Step()) {
        items.push_back(lines.Row());
        // The names of the joined tables are shown and not written back.
        items.back().resize(itemColumns);
    }
    lines.Reset();
    for (BareStatement* list : {&invoices, &payments}) {
        list->Bind(1, id);
        while (list->Step())
            list->Row();
        list->Reset();
    }
}

void BareTour::Save(const std::string& now)
{
    const auto id = std::get<std::int64_t>(head[0]);
    tour.Bind(1, id);
    tour.Step();
    tour.Row();
    tour.Reset();
    updateTour.Bind(1, std::string_view(now));
    updateTour.Bind(2, std::string_view("office"));
    updateTour.Bind(3, id);
    updateTour.RunOnce();
    mail.Bind(1, id);
    mail.Step();
    mail.Row();
    mail.Reset();
    updateMail.Bind(1, std::string_view(now));
    updateMail.Bind(2, id);
    updateMail.RunOnce();
    deleteItems.Bind(1, id);
    deleteItems.RunOnce();
    oneItem.Step();
    oneItem.Row();
    oneItem.Reset();
    for (const BareRow& item : items) {
        insertItem.BindRow(item);
        insertItem.RunOnce();
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
