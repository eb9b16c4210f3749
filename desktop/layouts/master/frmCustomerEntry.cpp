#include "desktop/Layout.h"

namespace rovanta {

Node frmCustomerEntryLayout()
{
    return Column{
        Fields{"cmbCustomer"},
        Group{"Customer",
              Fields{
                  "txtName",
                  "txtAddress1",
                  "txtAddress2",
                  Together{"txtCity", Chars("cmbState", 4), Chars("txtZip", 9)},
                  "txtWebsite",
                  "chkInactive",
              }},
        Group{"Contact Info",
              Row{
                  Fields{"txtContact1", "txtPhone1", "txtFax1", Wide("txtEmail1", 28)},
                  Fields{"txtContact2", "txtPhone2", "txtFax2", Wide("txtEmail2", 28)},
              }},
        Row{Stretch(), "btnNew", "btnSave", "btnExit"},
    };
}

}
