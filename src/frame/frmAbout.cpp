#include "frame/frmAbout.h"

#include "frame/App.h"

namespace rovanta {

frmAbout::frmAbout(App& app) : Screen(app, screenName, "About Screen")
{
    SetDefaultButton(cmdOK);
    SetCancelButton(cmdOK);
    cmdOK.Click = [this] { Close(); };
    // The system's own information tool that this button once looked up does not exist here.
    cmdSysInfo.Click = [this] { this->app.Say("System Information Is Unavailable At This Time", "Rovanta"); };
}

}
