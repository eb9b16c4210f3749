#include "desktop/Layout.h"

namespace rovanta {

Node frmCustomerNavigatorLayout()
{
    return Column{
        Row{
            Weighted(1, Fields{Wide("cmbCustomer", 32), "txtTour", "cmbType"}),
            Weighted(1, Fields{Wide("txtName", 28), "txtContact", "txtPhone"}),
            Weighted(1, Fields{Wide("txtCity", 24), Chars("cmbState", 4), "txtNotes"}),
            Column{"btnFind", "btnClear", "btnExit"},
        },
        Lines("vsfgContacts", 22),
    };
}

}
