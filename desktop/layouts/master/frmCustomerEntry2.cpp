#include "desktop/Layout.h"

namespace rovanta {

Node frmCustomerEntry2Layout()
{
    return Column{
        Row{Fields{Chars("cmbCustomer", 40)}, "chkInactive", "lblEnteredBy", Stretch(),
            Row{"btnNew", "btnSave", "btnExit"}},
        Row{
            Weighted(1, Group{"Customer",
                              Fields{
                                  "txtName",
                                  "txtLegalName",
                                  "txtAddress1",
                                  "txtAddress2",
                                  Together{"txtCity", Chars("cmbState", 4), Chars("txtZip", 7)},
                                  Together{"txtWebsite", Chars("txtDOT", 9)},
                              }}),
            Weighted(1, Group{"First Contact",
                              Fields{"txtContact1", "txtPhone1", "txtFax1", Wide("txtEmail1", 27), "txtEmail1a"}}),
            Weighted(1, Group{"Second Contact",
                              Fields{"txtContact2", "txtPhone2", "txtFax2", Wide("txtEmail2", 27), "txtEmail2a"}}),
        },
        Row{
            Weighted(1, Group{"Business Manager",
                              Fields{
                                  "txtName3",
                                  "txtContact3",
                                  "txtAddress3",
                                  "txtCity3",
                                  Together{Chars("cmbState3", 4), Chars("txtZip3", 7)},
                                  "txtPhone3",
                                  "txtCell3",
                                  "txtFax3",
                                  Wide("txtEmail3", 27),
                                  "txtWebsite3",
                              }}),
            Weighted(1, Group{"Personal Manager",
                              Fields{
                                  "txtName4",
                                  "txtContact4",
                                  "txtAddress4",
                                  "txtCity4",
                                  Together{Chars("cmbState4", 4), Chars("txtZip4", 7)},
                                  "txtPhone4",
                                  "txtCell4",
                                  "txtFax4",
                                  Wide("txtEmail4", 27),
                                  "txtWebsite4",
                              }}),
            Weighted(1, Group{"Tour Manager",
                              Fields{
                                  "txtName5",
                                  "txtContact5",
                                  "txtAddress5",
                                  "txtCity5",
                                  Together{Chars("cmbState5", 4), Chars("txtZip5", 7)},
                                  "txtPhone5",
                                  "txtCell5",
                                  "txtFax5",
                                  Wide("txtEmail5", 27),
                                  "txtWebsite5",
                              }}),
            Weighted(1, Group{"Production Manager",
                              Fields{
                                  "txtName6",
                                  "txtContact6",
                                  "txtAddress6",
                                  "txtCity6",
                                  Together{Chars("cmbState6", 4), Chars("txtZip6", 7)},
                                  "txtPhone6",
                                  "txtCell6",
                                  "txtFax6",
                                  Wide("txtEmail6", 27),
                                  "txtWebsite6",
                              }}),
        },
    };
}

}
