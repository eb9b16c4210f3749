#pragma once

#include "desktop/Layout.h"
#include "forms/ChoiceControls.h"
#include "forms/Form.h"
#include "forms/Grid.h"
#include "forms/ListControls.h"
#include "forms/Picture.h"
#include "forms/TextControls.h"

#include <string>
#include <vector>

namespace rovanta {

/// A form with one control of every kind that writes down what happens to it.
class SampleForm : public Form {
public:
    SampleForm();

    ComboPair cmbCustomer{this, "cmbCustomer", "Select Customer"};
    TextBox txtName{this, "txtName", "Name"};
    TextBox txtCity{this, "txtCity", "City"};
    ComboBox cmbState{this, "cmbState", "State"};
    TextBox txtZip{this, "txtZip", "Zip"};
    PhoneBox txtPhone{this, "txtPhone", "Phone"};
    ComboBox cmbType{this, "cmbType", "Type"};
    DatePicker dtStart{this, "dtStart", "Start"};
    MoneyBox txtRate{this, "txtRate", "Rate"};
    PercentBox txtShare{this, "txtShare", "Share"};
    TextBox txtDelay{this, "txtDelay", "Delay"};
    TextBox txtNotes{this, "txtNotes", "Notes"};
    CheckBox chkInactive{this, "chkInactive", "Inactive"};
    OptionGroup payer;
    OptionButton optContract{this, payer, "optContract", "Contract"};
    OptionButton optClient{this, payer, "optClient", "Client Resp."};
    ListBox lstImages{this, "lstImages", "Pictures"};
    Picture imgPic{this, "imgPic"};
    Tabs SSTab1{this, "SSTab1", {"Lines", "Pictures & Files"}};
    Grid vsfgItems{this, "vsfgItems"};
    Label lblEntered{this, "lblEntered", "Entered By:"};
    Button btnSave{this, "btnSave", "Save"};
    Button btnExit{this, "btnExit", "Exit"};

    std::vector<std::string> log;
    std::string typed;
};

Node SampleLayout();

}
