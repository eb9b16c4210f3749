#include "tours/frmRentalEntry.h"

#include "billing/frmCreateInvoices.h"
#include "frame/App.h"
#include "frame/RecordLoading.h"
#include "values/Text.h"

#include <algorithm>

namespace rovanta {

/// How many bus names are remembered at load and compared at a save.
static constexpr int rememberedBuses = 20;

void frmRentalEntry::btnSave_Click()
{
    if (!SaveTour())
        return;
    if (app.openFlags.ScheduleNavigatorOpen)
        app.Find("frmScheduleNavigator")->Reload();
    if (app.openFlags.TaskNavigatorOpen)
        app.Find("frmTaskNavigator")->Reload();
}

bool frmRentalEntry::SaveTour()
{
    if (!MaySave(app, "Tour Entry/Edit"))
        return false;
    const bool complete = !cmbCustomer.IsEmpty() && !txtTour.IsEmpty() && !cmbStatus.IsEmpty();
    if (!HasRequired(app, complete, "Customer Name, Tour Name, and Status are required before saving."))
        return false;
    Hourglass wait(app);
    const bool busesChanged = BusesHaveChanged();
    RememberRename();
    SaveTourHead();
    QueueDropMail();
    SaveTourItems();
    LoadTourList();
    AskToRecalculate(busesChanged);
    RememberBuses();
    OriginalStatus = cmbStatus.Text();
    return true;
}

void frmRentalEntry::RememberBuses()
{
    OriginalBusNames.clear();
    for (int row = 1; row < vsfgItems.Rows(); ++row)
        OriginalBusNames.push_back(vsfgItems.TextMatrix(row, ItemCol::BusName));
}

bool frmRentalEntry::BusesHaveChanged() const
{
    for (int i = 0; i < rememberedBuses; ++i) {
        const auto place = static_cast<std::size_t>(i);
        const std::string now = i + 1 < vsfgItems.Rows() ? vsfgItems.TextMatrix(i + 1, ItemCol::BusName) : "";
        const std::string before = place < OriginalBusNames.size() ? OriginalBusNames[place] : "";
        if (now != before)
            return true;
    }
    return false;
}

/// Keeps the old name of a renamed tour, so that the accounting sync finds the job of that name. A chain of renames
/// stays one row.
void frmRentalEntry::RememberRename()
{
    const std::string name = Trim(txtTour.Text());
    const bool renamed = !txtID.IsEmpty() && OriginalTourName != name;
    if (renamed) {
        Recordset old(Statement{"SELECT * FROM OldTourName WHERE Customer='"} + Text(cmbCustomer.Text()) +
                          "' AND NewName='" + Text(OriginalTourName) + "'",
                      Database());
        if (old.Eof()) {
            old.AddNew();
            old.Fields("Customer") = cmbCustomer.Text();
            old.Fields("OldName") = OriginalTourName;
        }
        old.Fields("NewName") = name;
        old.Update();
    }
    OriginalTourName = name;
}

void frmRentalEntry::SaveTourHead()
{
    const DateTime now = app.clock.Now();
    Recordset tour;
    if (!txtID.IsEmpty()) {
        tour.Open(Statement{"SELECT * FROM Tour WHERE ID = "} + Key(txtID.Text()), Database());
        tour.Fields("DateEdited") = now;
        tour.Fields("EditedBy") = app.session.CurrentUsername;
    } else {
        tour.Open("SELECT TOP 1 * FROM Tour", Database());
        tour.AddNew();
        tour.Fields("DateEntered") = now;
        tour.Fields("EnteredBy") = app.session.CurrentUsername;
    }
    tour.Fields("CustomerID") = cmbCustomer.Key();
    WriteTexts(tour, HeadTexts());
    tour.Fields("TourName") = Trim(txtTour.Text());
    tour.Fields("Status") = cmbStatus.Text();
    tour.Fields("State") = cmbState.Text();
    tour.Fields("TotalTourBudget") = txtTotalTourBudget.Val();
    tour.Fields("IncludedInContract") = txtTotalContract.Val();
    tour.Fields("ClientResp") = txtTotalClient.Val();
    tour.Fields("AllInclusive") = chkAllInclusive.IsChecked() ? -1 : 0;
    tour.Update();
    txtID = tour.Fields("ID").Text();
}

void frmRentalEntry::QueueDropMail()
{
    if (cmbStatus.Text() == "Quote - Active" || cmbStatus.Text() == "Quote - Closed")
        return;
    std::optional<DateTime> latest;
    for (int row = 1; row < vsfgItems.Rows(); ++row) {
        const DateTime end = ToDate(vsfgItems.TextMatrix(row, ItemCol::EndDate));
        latest = latest ? std::max(*latest, end) : end;
    }
    Recordset mail(Statement{"SELECT * FROM TourDropEmails WHERE TourID="} + Key(txtID.Text()), Database());
    const bool isNew = mail.Eof();
    if (isNew)
        mail.AddNew();
    mail.Fields("TourID") = txtID.Text();
    mail.Fields("DateAdded") = app.clock.Now();
    mail.Fields("DropDate") = latest.value_or(app.clock.Now());
    // A later change of dates moves the drop date of a mail but leaves its sent status.
    if (isNew)
        mail.Fields("Status") = "Pending";
    mail.Update();
}

void frmRentalEntry::SaveTourItems()
{
    Database().Execute(Statement{"DELETE FROM TourItems WHERE TourID = "} + Key(txtID.Text()));
    Recordset items("SELECT TOP 1 * FROM TourItems", Database());
    for (int row = 1; row < vsfgItems.Rows(); ++row) {
        items.AddNew();
        items.Fields("TourID") = txtID.Text();
        items.Fields("ID") = row;
        WriteItemRow(vsfgItems, row, items);
        items.Update();
    }
}

void frmRentalEntry::AskToRecalculate(bool busesChanged)
{
    if (!cmbStatus.Text().starts_with("Con") || !busesChanged)
        return;
    if (!app.Ask("Would you like to recalculate the invoices for this tour?", "Recalculate Invoices"))
        return;
    SetEnabled(false);
    frmCreateInvoices& dialog = app.Open<frmCreateInvoices>();
    dialog.PrepareInvoiceDialog(txtID.Text());
    dialog.Recalculate();
    dialog.SetVisible(false);
    SetEnabled(true);
}

}
