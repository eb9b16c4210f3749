#include "desktop/Layout.h"

namespace rovanta {

Node frmLoginLayout()
{
    return Column{
        Fields{
            Chars("txtUsername", 28),
            Chars("txtPassword", 28),
        },
        Nothing(),
        Row{Stretch(), "btnLogin", "btnCancel"},
    };
}

}
