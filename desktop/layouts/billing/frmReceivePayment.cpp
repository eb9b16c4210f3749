#include "desktop/Layout.h"

namespace rovanta {

Node frmReceivePaymentLayout()
{
    return Column{
        Fields{Wide("cmbCustomer", 30), Chars("cmbInvoice", 12), "dtDate"},
        Group{"Payment", Fields{"txtInvoiceBalance", "txtPaymentAmount", "txtNewBalance", "cmbPaymentMethod",
                                Chars("txtCheckNumber", 16)}},
        Row{Stretch(), "btnSave", "btnExit"},
    };
}

}
