#include "master/frmCustomerEntry2.h"

#include "frame/App.h"
#include "values/Text.h"

namespace rovanta {

/// The accounting link and the web front end put these names between apostrophes.
static void RefuseApostrophe(App& app, TextBox& box, const std::string& message)
{
    if (box.Text().find('\'') == std::string::npos)
        return;
    app.Say(message, "Invalid Input");
    box = Replace(box.Text(), "'", "");
}

frmCustomerEntry2::frmCustomerEntry2(App& app) : Screen(app, screenName, "Customer Entry/Edit")
{
    lblEnteredBy.SetNote("Entered By:");
    UseTypeAhead(cmbCustomer);
    for (const ChoiceColumn& state : StateColumns())
        UseTypeAhead(state.combo);
    cmbCustomer.Click = [this] { cmbCustomer_Click(); };
    txtName.Change = [this] { RefuseApostrophe(this->app, txtName, "You cannot use apostrophe in Artist names."); };
    txtLegalName.Change = [this] {
        RefuseApostrophe(this->app, txtLegalName, "You cannot use apostrophe in Legal Names.");
    };
    btnNew.Click = [this] { btnNew_Click(); };
    btnSave.Click = [this] { btnSave_Click(); };
    btnExit.Click = [this] { Close(); };
    FillCustomerLists();
}

void frmCustomerEntry2::OpenRecord(const std::string& key)
{
    cmbCustomer.id = key;
    cmbCustomer.SetListIndex(cmbCustomer.id.ListIndex());
}

std::vector<TextColumn> frmCustomerEntry2::TextColumns()
{
    std::vector<TextColumn> columns = {{"LegalName", txtLegalName},
                                       {"Address1", txtAddress1},
                                       {"Address2", txtAddress2},
                                       {"City", txtCity},
                                       {"Zip", txtZip},
                                       {"Website", txtWebsite},
                                       {"DOT", txtDOT},
                                       {"Contact1", txtContact1},
                                       {"Phone1", txtPhone1},
                                       {"Fax1", txtFax1},
                                       {"Email1", txtEmail1},
                                       {"Email1a", txtEmail1a},
                                       {"Contact2", txtContact2},
                                       {"Phone2", txtPhone2},
                                       {"Fax2", txtFax2},
                                       {"Email2", txtEmail2},
                                       {"Email2a", txtEmail2a}};
    for (ManagerBlock& manager : managers) {
        for (const TextColumn& column : manager.TextColumns())
            columns.push_back(column);
    }
    return columns;
}

std::vector<ChoiceColumn> frmCustomerEntry2::StateColumns()
{
    std::vector<ChoiceColumn> columns = {{"State", cmbState}};
    for (ManagerBlock& manager : managers)
        columns.push_back(manager.StateColumn());
    return columns;
}

void frmCustomerEntry2::FillCustomerLists()
{
    const Hourglass hourglass(app);
    for (const ChoiceColumn& state : StateColumns())
        FillStates(state.combo, Database());
    FillPair(cmbCustomer, "SELECT ID,Name FROM Customer ORDER BY Name", Database());
}

void frmCustomerEntry2::cmbCustomer_Click()
{
    if (cmbCustomer.IsEmpty()) {
        ClearForm();
        return;
    }
    Recordset customer = FindRecord("Customer", cmbCustomer.Key(), Database());
    if (customer.Eof()) {
        ClearForm();
        return;
    }
    txtID = customer.Fields("ID").Text();
    txtName = customer.Fields("Name").Text();
    ShowTexts(customer, TextColumns());
    ShowChoices(customer, StateColumns());
    ShowFlag(chkInactive, customer.Fields("Inactive"));
    lblEnteredBy = customer.Fields("EnteredBy").TextOrEmpty() + " - " + customer.Fields("DateEntered").TextOrEmpty();
}

void frmCustomerEntry2::btnNew_Click()
{
    ClearForm();
    txtName.SetFocus();
}

void frmCustomerEntry2::btnSave_Click()
{
    if (!MaySave(app, "Customer Entry/Edit") || !HasRequired(app, !txtName.IsEmpty() && !txtLegalName.IsEmpty(),
                                                             "Customer Name and Legal Name is required before saving."))
        return;
    Recordset customer = RecordToSave(app, "Customer", txtID.Text(), Tracking::DateEntered);
    customer.Fields("Name") = Trim(txtName.Text());
    WriteTexts(customer, TextColumns());
    WriteChoices(customer, StateColumns());
    customer.Fields("Inactive") = chkInactive.Value();
    customer.Update();
    txtID = customer.Fields("ID").Text();
    customer.Close();
    cmbCustomer.SetListIndex(-1);
    ClearForm();
    FillCustomerLists();
}

void frmCustomerEntry2::ClearForm()
{
    txtID = "";
    txtName = "";
    ClearTexts(TextColumns());
    ClearChoices(StateColumns());
    chkInactive = false;
    lblEnteredBy = "";
}

}
