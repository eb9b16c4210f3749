#include "master/ManagerBlock.h"

namespace rovanta {

ManagerBlock::ManagerBlock(Form* form, const std::string& digit)
    : digit(digit), txtName(form, "txtName" + digit, "Company"), txtContact(form, "txtContact" + digit, "Contact"),
      txtAddress(form, "txtAddress" + digit, "Address"), txtCity(form, "txtCity" + digit, "City"),
      cmbState(form, "cmbState" + digit, "State"), txtZip(form, "txtZip" + digit, "Zip"),
      txtPhone(form, "txtPhone" + digit, "Phone"), txtCell(form, "txtCell" + digit, "Cell"),
      txtFax(form, "txtFax" + digit, "Fax"), txtEmail(form, "txtEmail" + digit, "E-Mail"),
      txtWebsite(form, "txtWebsite" + digit, "Website")
{
}

std::vector<TextColumn> ManagerBlock::TextColumns()
{
    return {{"Name" + digit, txtName},      {"Contact" + digit, txtContact}, {"Address" + digit, txtAddress},
            {"City" + digit, txtCity},      {"Zip" + digit, txtZip},         {"Phone" + digit, txtPhone},
            {"Cell" + digit, txtCell},      {"Fax" + digit, txtFax},         {"Email" + digit, txtEmail},
            {"Website" + digit, txtWebsite}};
}

}
