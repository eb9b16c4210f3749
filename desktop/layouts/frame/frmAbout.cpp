#include "desktop/Layout.h"

namespace rovanta {

Node frmAboutLayout()
{
    return Column{
        Display("lblTitle"),
        "lblVersion",
        Stretch(),
        Row{"cmdSysInfo", Stretch(), "cmdOK"},
    };
}

}
