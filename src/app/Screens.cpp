#include "app/Screens.h"

#include "frame/App.h"
#include "frame/MDI.h"
#include "frame/frmAbout.h"
#include "frame/frmLogin.h"

namespace rovanta {

template <class Kind>
static ScreenTable::value_type Entry()
{
    return {Kind::screenName, [](App& app) -> std::unique_ptr<Screen> { return std::make_unique<Kind>(app); }};
}

const ScreenTable& AllScreens()
{
    static const ScreenTable screens = {
        Entry<MDI>(),
        Entry<frmAbout>(),
        Entry<frmLogin>(),
    };
    return screens;
}

}
