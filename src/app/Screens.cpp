#include "app/Screens.h"

#include "billing/frmCreateInvoices.h"
#include "billing/frmManualInvoices.h"
#include "billing/frmReceivePayment.h"
#include "frame/App.h"
#include "frame/MDI.h"
#include "frame/frmAbout.h"
#include "frame/frmLogin.h"
#include "master/frmBusEntry.h"
#include "master/frmCompanyInfo.h"
#include "master/frmCustomerEntry.h"
#include "master/frmCustomerEntry2.h"
#include "master/frmCustomerNavigator.h"
#include "tours/frmRentalEntry.h"

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
        Entry<frmBusEntry>(),
        Entry<frmCompanyInfo>(),
        Entry<frmCreateInvoices>(),
        Entry<frmCustomerEntry>(),
        Entry<frmCustomerEntry2>(),
        Entry<frmCustomerNavigator>(),
        Entry<frmLogin>(),
        Entry<frmManualInvoices>(),
        Entry<frmReceivePayment>(),
        Entry<frmRentalEntry>(),
    };
    return screens;
}

}
