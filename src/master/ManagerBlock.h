#pragma once

#include "frame/RecordLoading.h"

#include <string>
#include <vector>

namespace rovanta {

/// One of a customer's four manager blocks, told apart by the digit behind each name: 3 is the business manager,
/// 4 the personal manager, 5 the tour manager, 6 the production manager.
class ManagerBlock {
public:
    ManagerBlock(Form* form, const std::string& digit);

    std::vector<TextColumn> TextColumns();
    ChoiceColumn StateColumn() { return {"State" + digit, cmbState}; }

    const std::string digit;
    TextBox txtName;
    TextBox txtContact;
    TextBox txtAddress;
    TextBox txtCity;
    ComboBox cmbState;
    TextBox txtZip;
    PhoneBox txtPhone;
    PhoneBox txtCell;
    PhoneBox txtFax;
    TextBox txtEmail;
    TextBox txtWebsite;
};

}
