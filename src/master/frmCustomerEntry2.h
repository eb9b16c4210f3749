#pragma once

#include "frame/RecordLoading.h"
#include "frame/Screen.h"
#include "master/ManagerBlock.h"

#include <array>
#include <vector>

namespace rovanta {

/// Keeps the customers: the head, two contacts and four manager blocks.
class frmCustomerEntry2 : public Screen {
public:
    static constexpr const char* screenName = "frmCustomerEntry2";
    explicit frmCustomerEntry2(App& app);
    void OpenRecord(const std::string& key) override;

    ComboPair cmbCustomer{this, "cmbCustomer", "Select Customer"};
    TextBox txtID{this, "txtID", Visibility::Hidden};
    TextBox txtName{this, "txtName", "Name"};
    TextBox txtLegalName{this, "txtLegalName", "Legal Name"};
    TextBox txtAddress1{this, "txtAddress1", "Address 1"};
    TextBox txtAddress2{this, "txtAddress2", "Address 2"};
    TextBox txtCity{this, "txtCity", "City"};
    ComboBox cmbState{this, "cmbState", "State"};
    TextBox txtZip{this, "txtZip", "Zip"};
    TextBox txtWebsite{this, "txtWebsite", "Website"};
    TextBox txtDOT{this, "txtDOT", "DOT No."};
    CheckBox chkInactive{this, "chkInactive", "Inactive"};
    Label lblEnteredBy{this, "lblEnteredBy"};
    TextBox txtContact1{this, "txtContact1", "Contact 1"};
    PhoneBox txtPhone1{this, "txtPhone1", "Phone 1"};
    PhoneBox txtFax1{this, "txtFax1", "Fax 1"};
    TextBox txtEmail1{this, "txtEmail1", "E-Mail 1"};
    TextBox txtEmail1a{this, "txtEmail1a", "Contact 1 Additional Emails"};
    TextBox txtContact2{this, "txtContact2", "Contact 2"};
    PhoneBox txtPhone2{this, "txtPhone2", "Phone 2"};
    PhoneBox txtFax2{this, "txtFax2", "Fax 2"};
    TextBox txtEmail2{this, "txtEmail2", "E-Mail 2"};
    TextBox txtEmail2a{this, "txtEmail2a", "Contact 2 Additional Emails"};
    std::array<ManagerBlock, 4> managers{{{this, "3"}, {this, "4"}, {this, "5"}, {this, "6"}}};
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
    std::vector<ChoiceColumn> StateColumns();
};

}
