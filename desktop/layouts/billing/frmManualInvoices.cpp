#include "desktop/Layout.h"

namespace rovanta {

Node frmManualInvoicesLayout()
{
    return Column{
        Row{
            Weighted(2, Fields{Wide("txtClient", 26), "txtTourName",
                               Together{Chars("txtInvoiceNumber", 8), Chars("txtTourID", 8)}}),
            Fields{"dtInvoiceDate", "dtDueDate", Chars("txtInvoiceType", 10)},
            Weighted(2, Fields{Lines("txtNotes", 3)}),
            Display("txtSubtotal"),
            Display("txtTax"),
            Display("txtTotal"),
        },
        Group{"Line",
              Row{
                  Weighted(2, Fields{Wide("txtDescription", 26), "cmbAcct", "cmbBus"}),
                  Fields{Number("txtQty", 6), Chars("cmbUoM", 8), "txtRate", "txtRateExt"},
                  Fields{"dtStartDate", "dtEndDAte"},
                  Column{"btnAdd", "btnDelete"},
              }},
        "vsfgInvoiceItems",
        Row{Stretch(), "btnSave", "btnCancel"},
    };
}

}
