#pragma once

#include "frame/Screen.h"

namespace rovanta {

/// The about box.
class frmAbout : public Screen {
public:
    static constexpr const char* screenName = "frmAbout";
    explicit frmAbout(App& app);

    Label lblTitle{this, "lblTitle", "Rovanta"};
    Label lblVersion{this, "lblVersion", "Version 15.08 8/25/25"};
    Button cmdSysInfo{this, "cmdSysInfo", "System Info..."};
    Button cmdOK{this, "cmdOK", "OK"};
};

}
