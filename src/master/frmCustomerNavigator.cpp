#include "master/frmCustomerNavigator.h"

#include "frame/App.h"
#include "frame/MDI.h"
#include "frame/RecordLoading.h"
#include "master/SearchConditions.h"

#include <algorithm>
#include <array>

namespace rovanta {

/// The first three columns are keys, which the pop-up menu reads and a person does not see.
static constexpr std::array headings = {"TourContactID", "CustomerID", "TourID", "Customer", "Tour", "Type", "Company",
                                        "Contact",       "Address",    "Phone",  "Cell",     "Fax",  "Email"};
static constexpr int keyColumns = 3;
static constexpr std::size_t addressColumn = 8;

frmCustomerNavigator::frmCustomerNavigator(App& app) : Screen(app, screenName, "Search Navigator")
{
    SetDefaultButton(btnFind);
    SetCancelButton(btnExit);
    UseTypeAhead(cmbCustomer);
    UseTypeAhead(cmbState);
    btnFind.Click = [this] { SearchContacts(); };
    btnClear.Click = [this] { btnClear_Click(); };
    btnExit.Click = [this] { Close(); };
    vsfgContacts.RightClick = [this] { vsfgContacts_RightClick(); };
    SetGrid();
    FillLists();
}

void frmCustomerNavigator::SetGrid()
{
    vsfgContacts.SetRows(0);
    vsfgContacts.SetCols(static_cast<int>(headings.size()));
    vsfgContacts.AddCells({headings.begin(), headings.end()});
    vsfgContacts.SetFixedRows(1);
    for (int column = 0; column < keyColumns; ++column)
        vsfgContacts.SetColHidden(column, true);
}

void frmCustomerNavigator::FillLists()
{
    const Hourglass hourglass(app);
    FillCombo(cmbType, "SELECT ID,Name FROM TourContactType ORDER BY Name", Database(), "Name");
    FillStates(cmbState, Database());
    FillPair(cmbCustomer, "SELECT ID,Name FROM Customer ORDER BY Name", Database());
}

void frmCustomerNavigator::btnClear_Click()
{
    for (ComboBox* combo : {static_cast<ComboBox*>(&cmbCustomer), &cmbType, &cmbState})
        combo->SetListIndex(-1);
    for (TextBox* box : {&txtName, &txtContact, &txtCity, &txtPhone, &txtTour, &txtNotes})
        *box = "";
    SetGrid();
}

void frmCustomerNavigator::SearchContacts()
{
    const Hourglass hourglass(app);
    SetGrid();
    AddTourContacts();
    AddCustomers();
    vsfgContacts.AutoSize(0, vsfgContacts.Cols() - 1);
    if (vsfgContacts.Rows() > vsfgContacts.FixedRows()) {
        vsfgContacts.SetTopRow(vsfgContacts.FixedRows());
        vsfgContacts.Select(vsfgContacts.FixedRows(), keyColumns);
    }
}

/// The values of the columns, a NULL giving an empty cell.
static std::vector<std::string> Cells(Recordset& row, std::initializer_list<std::string_view> columns)
{
    std::vector<std::string> cells;
    for (const std::string_view column : columns)
        cells.push_back(row.Fields(column).TextOrEmpty());
    return cells;
}

static std::string AddressLine(Recordset& row, std::string_view streetColumn)
{
    return row.Fields(streetColumn).TextOrEmpty() + ", " + row.Fields("City").TextOrEmpty() + ", " +
           row.Fields("State").TextOrEmpty() + " " + row.Fields("Zip").TextOrEmpty();
}

void frmCustomerNavigator::AddTourContacts()
{
    Recordset row(Statement{"SELECT Tour.ID AS OrigTourID, Customer.ID AS CustomerID, Customer.Name AS CustomerName, "
                            "Tour.TourName as TourName,TourContacts.* FROM Tour LEFT JOIN TourContacts ON Tour.ID = "
                            "TourContacts.TourID LEFT JOIN Customer ON Tour.CustomerID = Customer.ID"} +
                      TourContactConditions() +
                      " ORDER BY TourContacts.ContactType,TourContacts.Name,TourContacts.Contact",
                  Database());
    for (; !row.Eof(); row.MoveNext()) {
        auto cells = Cells(row, {"ID", "CustomerID", "OrigTourID", "CustomerName", "TourName", "ContactType", "Name",
                                 "Contact", "Address", "Phone", "Cell", "Fax", "Email"});
        cells[addressColumn] = AddressLine(row, "Address");
        vsfgContacts.AddCells(std::move(cells));
    }
}

void frmCustomerNavigator::AddCustomers()
{
    Recordset row(Statement{"SELECT Customer.ID AS CustomerID, Customer.Name AS CustomerName, Tour.TourName as "
                            "TourName,Tour.ID AS TourID,Customer.* FROM Tour LEFT JOIN Customer ON Tour.CustomerID = "
                            "Customer.ID "} +
                      CustomerConditions() + " ORDER BY Customer.Name,Tour.TourName",
                  Database());
    for (; !row.Eof(); row.MoveNext())
        vsfgContacts.AddCells({"", row.Fields("CustomerID").TextOrEmpty(), row.Fields("TourID").TextOrEmpty(),
                               row.Fields("CustomerName").TextOrEmpty(), row.Fields("TourName").TextOrEmpty(),
                               "Customer", row.Fields("Name").TextOrEmpty(), row.Fields("Contact1").TextOrEmpty(),
                               AddressLine(row, "Address1"), row.Fields("Phone1").TextOrEmpty(), "",
                               row.Fields("Fax1").TextOrEmpty(), row.Fields("Email1").TextOrEmpty()});
}

Statement frmCustomerNavigator::TourContactConditions() const
{
    SearchConditions conditions;
    if (!cmbCustomer.IsEmpty())
        conditions.Add(Statement{" Tour.CustomerID = "} + Key(cmbCustomer.Key()));
    conditions.AddLike(" TourContacts.ContactType", cmbType.Text());
    conditions.AddLike(" TourContacts.Name", txtName.Text());
    // Kept on purpose: a text typed as a contact also finds the tour's first address line.
    conditions.AddLikeAny({"TourContacts.Contact", "Tour.Contact1", "Tour.Contact2", "Tour.Address1"},
                          txtContact.Text());
    conditions.AddLike(" TourContacts.City", txtCity.Text());
    conditions.AddLike(" TourContacts.State", cmbState.Text());
    conditions.AddLikeAny({"TourContacts.Phone", "TourContacts.Cell", "TourContacts.Fax"}, txtPhone.Text());
    conditions.AddLike(" Tour.TourName", txtTour.Text());
    conditions.AddLike(" TourContacts.Notes", txtNotes.Text());
    return conditions.Get();
}

Statement frmCustomerNavigator::CustomerConditions() const
{
    SearchConditions conditions;
    if (!cmbCustomer.IsEmpty())
        conditions.Add(Statement{" Tour.CustomerID = "} + Key(cmbCustomer.Key()));
    // Kept on purpose: the type asks for tour contacts alone, so a search by type lists every customer all the same.
    conditions.AddLikeAny({"Customer.Name", "Customer.Name3", "Customer.Name4", "Customer.Name5", "Customer.Name6"},
                          txtName.Text());
    conditions.AddLikeAny({"Customer.Contact1", "Customer.Contact2", "Customer.Contact3", "Customer.Contact4",
                           "Customer.Contact5", "Customer.Contact6"},
                          txtContact.Text());
    conditions.AddLikeAny({"Customer.City", "Customer.City3", "Customer.City4", "Customer.City5", "Customer.City6"},
                          txtCity.Text());
    conditions.AddLikeAny(
        {"Customer.State", "Customer.State3", "Customer.State4", "Customer.State5", "Customer.State6"},
        cmbState.Text());
    conditions.AddLikeAny({"Customer.Phone1", "Customer.Phone2", "Customer.Phone3", "Customer.Phone4",
                           "Customer.Phone5", "Customer.Phone6", "Customer.Fax1", "Customer.Fax2", "Customer.Fax3",
                           "Customer.Fax4", "Customer.Fax5", "Customer.Fax6", "Customer.Cell3", "Customer.Cell4",
                           "Customer.Cell5", "Customer.Cell6"},
                          txtPhone.Text());
    conditions.AddLike(" Tour.TourName", txtTour.Text());
    conditions.AddLike(" Customer.Notes", txtNotes.Text());
    return conditions.Get();
}

void frmCustomerNavigator::vsfgContacts_RightClick()
{
    const int row = vsfgContacts.MouseRow();
    if (row < vsfgContacts.FixedRows())
        return;
    vsfgContacts.Select(row, std::max(vsfgContacts.MouseCol(), 0));
    app.host.ShowPopup(*app.Find<MDI>()->menu.Find("Popup"));
}

}
