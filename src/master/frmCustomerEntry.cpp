#include "master/frmCustomerEntry.h"

#include "frame/App.h"
#include "values/Text.h"

namespace rovanta {

frmCustomerEntry::frmCustomerEntry(App& app) : Screen(app, screenName, "Customer Entry")
{
    UseTypeAhead(cmbCustomer);
    UseTypeAhead(cmbState);
    cmbCustomer.Click = [this] { cmbCustomer_Click(); };
    btnNew.Click = [this] { btnNew_Click(); };
    btnSave.Click = [this] { btnSave_Click(); };
    btnExit.Click = [this] { Close(); };
    FillCustomerLists();
}

void frmCustomerEntry::OpenRecord(const std::string& key)
{
    cmbCustomer.id = key;
    cmbCustomer.SetListIndex(cmbCustomer.id.ListIndex());
}

std::vector<TextColumn> frmCustomerEntry::TextColumns()
{
    return {{"Address1", txtAddress1}, {"Address2", txtAddress2}, {"City", txtCity},     {"Zip", txtZip},
            {"Website", txtWebsite},   {"Contact1", txtContact1}, {"Phone1", txtPhone1}, {"Fax1", txtFax1},
            {"Email1", txtEmail1},     {"Contact2", txtContact2}, {"Phone2", txtPhone2}, {"Fax2", txtFax2},
            {"Email2", txtEmail2}};
}

void frmCustomerEntry::FillCustomerLists()
{
    const Hourglass hourglass(app);
    FillStates(cmbState, Database());
    FillPair(cmbCustomer, "SELECT ID,Name FROM Customer ORDER BY Name", Database());
}

void frmCustomerEntry::cmbCustomer_Click()
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
    ShowChoice(cmbState, customer.Fields("State"));
    ShowFlag(chkInactive, customer.Fields("Inactive"));
}

void frmCustomerEntry::btnNew_Click()
{
    ClearForm();
    txtName.SetFocus();
}

void frmCustomerEntry::btnSave_Click()
{
    if (!MaySave(app, "Customer Entry/Edit") ||
        !HasRequired(app, !txtName.IsEmpty(), "Customer Name is required before saving."))
        return;
    // A save writes this form's own columns alone, so a new customer stays without a legal name.
    Recordset customer = RecordToSave(app, "Customer", txtID.Text(), Tracking::DateEntered);
    customer.Fields("Name") = Trim(txtName.Text());
    WriteTexts(customer, TextColumns());
    customer.Fields("State") = cmbState.Text();
    customer.Fields("Inactive") = chkInactive.Value();
    customer.Update();
    txtID = customer.Fields("ID").Text();
    customer.Close();
    cmbCustomer.SetListIndex(-1);
    ClearForm();
    FillCustomerLists();
}

void frmCustomerEntry::ClearForm()
{
    txtID = "";
    txtName = "";
    ClearTexts(TextColumns());
    cmbState.SetListIndex(-1);
    chkInactive = false;
}

}
