#pragma once

#include "frame/Screen.h"

namespace rovanta {

/// Receives one payment against one open invoice.
class frmReceivePayment : public Screen {
public:
    static constexpr const char* screenName = "frmReceivePayment";
    explicit frmReceivePayment(App& app);

    ComboPair cmbCustomer{this, "cmbCustomer", "Customer"};
    ComboBox cmbInvoice{this, "cmbInvoice", "Invoice"};
    DatePicker dtDate{this, "dtDate", "Date"};
    MoneyBox txtInvoiceBalance{this, "txtInvoiceBalance", "Invoice Balance"};
    MoneyBox txtPaymentAmount{this, "txtPaymentAmount", "Payment Amount"};
    MoneyBox txtNewBalance{this, "txtNewBalance", "New Balance"};
    ComboBox cmbPaymentMethod{this, "cmbPaymentMethod", "Payment Method"};
    TextBox txtCheckNumber{this, "txtCheckNumber", "Check Number"};
    Button btnSave{this, "btnSave", "Save"};
    Button btnExit{this, "btnExit", "Exit"};

private:
    void ClearPaymentForm();
    void cmbCustomer_Click();
    void cmbInvoice_Click();
    void txtPaymentAmount_Change();
    void btnSave_Click();
    void RaisePaid();
};

}
