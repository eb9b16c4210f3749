#pragma once

#include "frame/RecordLoading.h"
#include "frame/Screen.h"

#include <vector>

namespace rovanta {

/// The older, smaller customer form: the head and two contacts. A customer made here has no legal name.
class frmCustomerEntry : public Screen {
public:
    static constexpr const char* screenName = "frmCustomerEntry";
    explicit frmCustomerEntry(App& app);
    void OpenRecord(const std::string& key) override;

    ComboPair cmbCustomer{this, "cmbCustomer", "Select Customer"};
    TextBox txtID{this, "txtID", Visibility::Hidden};
    TextBox txtName{this, "txtName", "Name"};
    TextBox txtAddress1{this, "txtAddress1", "Address 1"};
    TextBox txtAddress2{this, "txtAddress2", "Address 2"};
    TextBox txtCity{this, "txtCity", "City"};
    ComboBox cmbState{this, "cmbState", "State"};
    TextBox txtZip{this, "txtZip", "Zip"};
    TextBox txtWebsite{this, "txtWebsite", "Website"};
    TextBox txtContact1{this, "txtContact1", "Contact 1"};
    PhoneBox txtPhone1{this, "txtPhone1", "Phone 1"};
    PhoneBox txtFax1{this, "txtFax1", "Fax 1"};
    TextBox txtEmail1{this, "txtEmail1", "E-Mail 1"};
    TextBox txtContact2{this, "txtContact2", "Contact 2"};
    PhoneBox txtPhone2{this, "txtPhone2", "Phone 2"};
    PhoneBox txtFax2{this, "txtFax2", "Fax 2"};
    TextBox txtEmail2{this, "txtEmail2", "E-Mail 2"};
    CheckBox chkInactive{this, "chkInactive", "Inactive"};
    Button btnNew{this, "btnNew", "New"};
    Button btnSave{this, "btnSave", "Save"};
    Button btnExit{this, "btnExit", "Exit"};

private:
    void FillCustomerLists();
    void cmbCustomer_Click();
    void btnNew_Click();
    void btnSave_Click();
    void ClearForm();
    std::vector<TextColumn> TextColumns();
};

}
