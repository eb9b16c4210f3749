#pragma once

#include "frame/PayerOptions.h"
#include "frame/RecordLoading.h"
#include "frame/Screen.h"

#include <deque>
#include <optional>
#include <vector>

namespace rovanta {

/// What one charge of a tour line takes over: its place among the taxable flags, its captions, boxes and columns.
struct ChargeDefinition {
    int taxIndex;
    const char* caption;
    const char* amountBox; ///< nullptr for a charge without a default amount
    const char* amountColumn;
    const char* unit;
    const char* optionStem;
    const char* payerColumn;
};

/// The controls of one charge: amount, who pays, taxable.
class ChargeDefaults {
public:
    ChargeDefaults(Form* form, const ChargeDefinition& definition);

    void Load(Recordset& company);
    void Save(Recordset& company) const;

    const ChargeDefinition& definition;
    std::optional<MoneyBox> amount;
    PayerOptions payer;
    CheckBox chkTax;
};

/// Edits the company's one row: its address, the typing delay, and what a new tour line takes over.
class frmCompanyInfo : public Screen {
public:
    static constexpr const char* screenName = "frmCompanyInfo";
    explicit frmCompanyInfo(App& app);

    TextBox txtCompany{this, "txtCompany", "Company"};
    TextBox txtAddress1{this, "txtAddress1", "Address1"};
    TextBox txtAddress2{this, "txtAddress2", "Address2"};
    TextBox txtCity{this, "txtCity", "City"};
    ComboBox cmbState{this, "cmbState", "State/Zip"};
    TextBox txtZip{this, "txtZip"};
    PhoneBox txtPhone{this, "txtPhone", "Phone"};
    PhoneBox txtFax{this, "txtFax", "Fax"};
    TextBox txtWebsite{this, "txtWebsite", "Website"};
    TextBox txtEmail{this, "txtEmail", "E-Mail Address"};
    TextBox txtKeyPressDelay{this, "txtKeyPressDelay", "Keypress Delay"};
    TextBox txtTaxRate{this, "txtTaxRate", "Tax Rate"};
    /// In the order of the screen, from top to bottom.
    std::deque<ChargeDefaults> charges;
    Button btnSave{this, "btnSave", "Save And Close"};
    Button btnExit{this, "btnExit", "Exit"};

private:
    void LoadCompany();
    void btnSave_Click();
    void txtKeyPressDelay_LostFocus();
    Recordset OpenCompany();
    void WriteCompany(Recordset& company);
    std::vector<TextColumn> TextColumns();
};

}
