#pragma once

#include "frame/Screen.h"

namespace rovanta {

/// Searches the contacts of tours and of customers at once.
class frmCustomerNavigator : public Screen {
public:
    static constexpr const char* screenName = "frmCustomerNavigator";
    explicit frmCustomerNavigator(App& app);

    ComboPair cmbCustomer{this, "cmbCustomer", "Customer"};
    ComboBox cmbType{this, "cmbType", "Type"};
    TextBox txtName{this, "txtName", "Company"};
    TextBox txtContact{this, "txtContact", "Contact"};
    TextBox txtCity{this, "txtCity", "City"};
    ComboBox cmbState{this, "cmbState", "State"};
    TextBox txtPhone{this, "txtPhone", "Phone"};
    TextBox txtTour{this, "txtTour", "Tour"};
    TextBox txtNotes{this, "txtNotes", "Notes"};
    Button btnFind{this, "btnFind", "Find"};
    Button btnClear{this, "btnClear", "Clear"};
    Button btnExit{this, "btnExit", "Exit"};
    Grid vsfgContacts{this, "vsfgContacts"};

private:
    void SetGrid();
    void FillLists();
    void btnClear_Click();
    void SearchContacts();
    void AddTourContacts();
    void AddCustomers();
    Statement TourContactConditions() const;
    Statement CustomerConditions() const;
    void vsfgContacts_RightClick();
};

}
