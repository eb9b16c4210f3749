#include "desktop/layouts/Layouts.h"

#include <stdexcept>

namespace rovanta {

Node frmAboutLayout();
Node frmBusEntryLayout();
Node frmCompanyInfoLayout();
Node frmCreateInvoicesLayout();
Node frmCustomerEntryLayout();
Node frmCustomerEntry2Layout();
Node frmCustomerNavigatorLayout();
Node frmLoginLayout();
Node frmManualInvoicesLayout();
Node frmReceivePaymentLayout();
Node frmRentalEntryLayout();

const LayoutTable& AllLayouts()
{
    static const LayoutTable layouts = {
        {"frmAbout", frmAboutLayout},
        {"frmBusEntry", frmBusEntryLayout},
        {"frmCompanyInfo", frmCompanyInfoLayout},
        {"frmCreateInvoices", frmCreateInvoicesLayout},
        {"frmCustomerEntry", frmCustomerEntryLayout},
        {"frmCustomerEntry2", frmCustomerEntry2Layout},
        {"frmCustomerNavigator", frmCustomerNavigatorLayout},
        {"frmLogin", frmLoginLayout},
        {"frmManualInvoices", frmManualInvoicesLayout},
        {"frmReceivePayment", frmReceivePaymentLayout},
        {"frmRentalEntry", frmRentalEntryLayout},
    };
    return layouts;
}

Node LayoutOf(std::string_view screen)
{
    const auto found = AllLayouts().find(screen);
    if (found == AllLayouts().end())
        throw std::logic_error("The screen " + std::string(screen) + " has no layout");
    return found->second();
}

}
