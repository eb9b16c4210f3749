#pragma once

#include "frame/Screen.h"

#include <string>

namespace rovanta {

/// Makes or edits one invoice by hand, line by line, for a tour.
class frmManualInvoices : public Screen {
public:
    static constexpr const char* screenName = "frmManualInvoices";
    explicit frmManualInvoices(App& app);

    TextBox txtInvoiceNumber{this, "txtInvoiceNumber", "Invoice"};
    TextBox txtTourID{this, "txtTourID", "Tour ID"};
    TextBox txtCustomerID{this, "txtCustomerID", Visibility::Hidden};
    TextBox txtClient{this, "txtClient", "Client Name"};
    TextBox txtTourName{this, "txtTourName", "Tour Name"};
    DatePicker dtInvoiceDate{this, "dtInvoiceDate", "Invoice Date"};
    DatePicker dtDueDate{this, "dtDueDate", "Due Date"};
    TextBox txtInvoiceType{this, "txtInvoiceType", "Type"};
    TextBox txtNotes{this, "txtNotes", "Notes"};
    MoneyBox txtSubtotal{this, "txtSubtotal", "Subtotal"};
    MoneyBox txtTax{this, "txtTax", "Tax"};
    MoneyBox txtTotal{this, "txtTotal", "Total"};

    TextBox txtQty{this, "txtQty", "Qty"};
    ComboBox cmbUoM{this, "cmbUoM", "UoM"};
    TextBox txtDescription{this, "txtDescription", "Description"};
    MoneyBox txtRate{this, "txtRate", "Rate"};
    MoneyBox txtRateExt{this, "txtRateExt", "Rate Ext"};
    ComboBox cmbAcct{this, "cmbAcct", "Acct"};
    ComboBox cmbTax{this, "cmbTax", Visibility::Hidden};
    ComboPair cmbBus{this, "cmbBus", "Bus/Trailer"};
    DatePicker dtStartDate{this, "dtStartDate", "Start Date"};
    DatePicker dtEndDAte{this, "dtEndDAte", "End Date"};
    TextBox txtQty2{this, "txtQty2", Visibility::Hidden};
    TextBox txtBusType{this, "txtBusType", Visibility::Hidden};
    TextBox txtOther{this, "txtOther", Visibility::Hidden};
    TextBox txtOrderField{this, "txtOrderField", Visibility::Hidden};
    TextBox txtRow{this, "txtRow", Visibility::Hidden};
    Button btnAdd{this, "btnAdd", "Add"};
    Button btnDelete{this, "btnDelete", "Delete"};

    Grid vsfgInvoiceItems{this, "vsfgInvoiceItems", "Lines"};
    Button btnSave{this, "btnSave", "Save"};
    Button btnCancel{this, "btnCancel", "Cancel"};

    /// Empties the form for another invoice.
    void PrepareForm();
    /// Fills client, tour and customer from the tour.
    void NewInvoiceForTour(const std::string& tourID);
    /// Brings any invoice into the form, a generated one too.
    void LoadInvoice(const std::string& invoiceID);
    void OpenRecord(const std::string& key) override { LoadInvoice(key); }

private:
    void FillLists();
    void BuildGrid();
    void ClearPanel();
    void AddLine(Recordset& line);
    void CalculateExtension();
    void cmbAcct_Click();
    void btnAdd_Click();
    void btnDelete_Click();
    void LoadLine();
    void ShowTotals();
    void btnSave_Click();
    std::string SaveHead();
    void SaveLines(const std::string& invoiceID);
    void Leave();
};

}
