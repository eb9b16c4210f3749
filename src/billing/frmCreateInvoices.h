#pragma once

#include "billing/InvoicePlan.h"
#include "frame/Screen.h"

#include <optional>
#include <vector>

namespace rovanta {

class frmRentalEntry;

/// The dialog that turns the saved lines of a tour into its series of invoices, by days or by months.
class frmCreateInvoices : public Screen {
public:
    static constexpr const char* screenName = "frmCreateInvoices";
    explicit frmCreateInvoices(App& app);

    Tabs SSTab1{this, "SSTab1", {"No. Of Days", "Monthly"}};

    TextBox txtClient{this, "txtClient", "Client Name"};
    TextBox txtTourName{this, "txtTourName", "Tour Name"};
    TextBox txtTourID{this, "txtTourID", "Tour ID"};
    TextBox txtCustomerID{this, "txtCustomerID", Visibility::Hidden};
    TextBox txtFirstDay{this, "txtFirstDay", "First Day of Lease"};
    TextBox txtLastDay{this, "txtLastDay", "Last Day of Lease"};
    TextBox txtDays{this, "txtDays", "Number of Days Per Bill"};
    DatePicker dtFirstBillDate{this, "dtFirstBillDate", "First Bill Date"};
    DatePicker dtFirstDueDate{this, "dtFirstDueDate", "Due Date of First Bill"};
    OptionGroup otherCharges;
    OptionButton optSplit{this, otherCharges, "optSplit", "Split Other Charges Equally Per Bill"};
    OptionButton optEnd{this, otherCharges, "optEnd", "Generate Final Bill for Other Charges"};
    CheckBox chkInvoicesExist{this, "chkInvoicesExist", "Invoices Already Exist"};
    Button btnCalculate{this, "btnCalculate", "Calculate"};
    Button btnCancel{this, "btnCancel", "Cancel"};
    Grid vsfgInvoiceItems{this, "vsfgInvoiceItems", "", Visibility::Hidden};

    TextBox txtClient2{this, "txtClient2", "Client Name"};
    TextBox txtTourName2{this, "txtTourName2", "Tour Name"};
    TextBox txtTourID2{this, "txtTourID2", "Tour ID"};
    TextBox txtCustomerID2{this, "txtCustomerID2", Visibility::Hidden};
    TextBox txtFirstDay2{this, "txtFirstDay2", "First Day of Lease"};
    TextBox txtLastDay2{this, "txtLastDay2", "Last Day of Lease"};
    DatePicker dtFirstDueDate2{this, "dtFirstDueDate2", "Due Date of First Bill"};
    CheckBox chkInvoicesExist2{this, "chkInvoicesExist2", "Invoices Already Exist"};
    Label lblMonthlyNote{this, "lblMonthlyNote", "Only Bills for Bus/Trailer, DOT, Satellite, && Internet Fees."};
    Button btnCalculate2{this, "btnCalculate2", "Calculate"};
    Button btnCancel2{this, "btnCancel2", "Cancel"};

    Button btnPreview{this, "btnPreview", "Preview"};
    Button btnPreview2{this, "btnPreview2", "Preview"};
    Grid vsfgPreview{this, "vsfgPreview", "Preview"};

    /// Fills both pages from the saved tour. An id of 0 leaves them untouched.
    void PrepareInvoiceDialog(const std::string& tourID);
    void OpenRecord(const std::string& key) override { PrepareInvoiceDialog(key); }
    /// Runs each page's pass that can run, as after a save that changed the tour's vehicles.
    void Recalculate();
    /// The tour's lines as they stand in the working grid of the open Tour screen, not in the table.
    std::vector<BilledItem> ReadItems();

private:
    /// The days that the tour's lines of one kind cover, travel included.
    struct BillableSpan {
        std::optional<DateTime> first;
        std::optional<DateTime> last;
        void Include(DateTime start, DateTime end);
    };
    struct TourToBill {
        std::string client;
        std::string tourName;
        std::string customerID;
        bool invoicesExist = false;
        BillableSpan daily;
        BillableSpan monthly;
    };

    TourToBill ReadTour(const std::string& tourID);
    void ShowPageOne(const TourToBill& tour);
    void ShowPageTwo(const TourToBill& tour);
    void btnCalculate_Click();
    void btnCalculate2_Click();
    bool MayReplaceInvoices(const CheckBox& invoicesExist);
    TaxRules Rules() const;
    std::vector<PlannedInvoice> PlanDaily();
    std::vector<PlannedInvoice> PlanMonthly();
    using Planner = std::vector<PlannedInvoice> (frmCreateInvoices::*)();
    void RunPass(const std::string& type, const TextBox& customerID, Planner plan);
    void Preview(const std::string& type, Planner plan);
    void ClearPreview();
    void ShowInWorkGrid(const std::vector<InvoiceLine>& lines);
    void Leave();
};

}
