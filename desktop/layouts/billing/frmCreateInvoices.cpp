#include "desktop/Layout.h"

namespace rovanta {

Node frmCreateInvoicesLayout()
{
    return Column{
        Pages{
            "SSTab1",
            Page{
                Fields{
                    "txtClient",
                    Wide("txtTourName", 36),
                    Chars("txtTourID", 10),
                    Chars("txtFirstDay", 12),
                    Chars("txtLastDay", 12),
                    Number("txtDays", 5),
                    "dtFirstBillDate",
                    "dtFirstDueDate",
                    "chkInvoicesExist",
                },
                Column{"optSplit", "optEnd"},
                Row{Stretch(), "btnPreview", "btnCalculate", "btnCancel"},
            },
            Page{
                Fields{
                    "txtClient2",
                    "txtTourName2",
                    Chars("txtTourID2", 10),
                    Chars("txtFirstDay2", 12),
                    Chars("txtLastDay2", 12),
                    "dtFirstDueDate2",
                    "chkInvoicesExist2",
                },
                "lblMonthlyNote",
                Stretch(),
                Row{Stretch(), "btnPreview2", "btnCalculate2", "btnCancel2"},
            },
        },
        Lines("vsfgPreview", 8),
    };
}

}
