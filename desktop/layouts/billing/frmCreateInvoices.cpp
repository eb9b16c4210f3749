#include "desktop/Layout.h"

namespace rovanta {

Node frmCreateInvoicesLayout()
{
    return Pages{
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
            Row{Stretch(), "btnCalculate", "btnCancel"},
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
            Row{Stretch(), "btnCalculate2", "btnCancel2"},
        },
    };
}

}
