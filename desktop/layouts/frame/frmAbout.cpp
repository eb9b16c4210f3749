#include "desktop/Layout.h"

namespace rovanta {

Node frmAboutLayout()
{
    return Column{
        Display("lblTitle"),
        "lblVersion",
        Nothing(),
        Row{"cmdSysInfo", Stretch(), "cmdOK"},
    };
}

}
