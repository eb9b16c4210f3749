#include "desktop/Layout.h"

namespace rovanta {

static Node Pricing()
{
    return Table{
        Headings{"Charge", "Default", "", "Contract", "Driver Collect", "Client Resp.", "Taxable"},
        Line{NoteOf("optBusContract"), Nothing(), Nothing(), "optBusContract", "optBusDriver", "optBusClient",
             "chkTax(0)"},
        Line{NoteOf("optDriverContract"), Nothing(), Nothing(), "optDriverContract", "optDriverDriver",
             "optDriverClient", "chkTax(1)"},
        Line{NoteOf("optDOTContract"), "txtDOTRate", NoteOf("txtDOTRate"), "optDOTContract", "optDOTDriver",
             "optDOTClient", "chkTax(2)"},
        Line{NoteOf("optSatelliteContract"), "txtSatelliteRate", NoteOf("txtSatelliteRate"), "optSatelliteContract",
             "optSatelliteDriver", "optSatelliteClient", "chkTax(3)"},
        Line{NoteOf("optInternetContract"), "txtInternetRate", NoteOf("txtInternetRate"), "optInternetContract",
             "optInternetDriver", "optInternetClient", "chkTax(4)"},
        Line{NoteOf("optHotelContract"), "txtHotelBuyOutRate", NoteOf("txtHotelBuyOutRate"), "optHotelContract",
             "optHotelDriver", "optHotelClient", "chkTax(5)"},
        Line{NoteOf("optSuppliesContract"), "txtSuppliesRate", NoteOf("txtSuppliesRate"), "optSuppliesContract",
             "optSuppliesDriver", "optSuppliesClient", "chkTax(6)"},
        Line{NoteOf("optBusWashContract"), "txtBusWashRate", NoteOf("txtBusWashRate"), "optBusWashContract",
             "optBusWashDriver", "optBusWashClient", "chkTax(7)"},
        Line{NoteOf("optLinenContract"), "txtLinenRate", NoteOf("txtLinenRate"), "optLinenContract", "optLinenDriver",
             "optLinenClient", "chkTax(8)"},
        Line{NoteOf("optGeneratorContract"), "txtGeneratorRate", NoteOf("txtGeneratorRate"), "optGeneratorContract",
             "optGeneratorDriver", "optGeneratorClient", "chkTax(9)"},
        Line{NoteOf("optFuelContract"), "txtFuelRate", NoteOf("txtFuelRate"), "optFuelContract", "optFuelDriver",
             "optFuelClient", "chkTax(10)"},
        Line{NoteOf("optEngineContract"), "txtEngineRate", NoteOf("txtEngineRate"), "optEngineContract",
             "optEngineDriver", "optEngineClient", "chkTax(11)"},
        Line{NoteOf("optCleaningContract"), "txtCleaningTotal", Nothing(), "optCleaningContract", "optCleaningDriver",
             "optCleaningClient", "chkTax(13)"},
        Line{NoteOf("optPermitContract"), "txtPermitTotal", Nothing(), "optPermitContract", "optPermitDriver",
             "optPermitClient", "chkTax(14)"},
        Line{NoteOf("optMiscContract"), "txtMiscTotal", Nothing(), "optMiscContract", "optMiscDriver", "optMiscClient",
             "chkTax(15)"},
        Line{NoteOf("optCarpetContract"), "txtCarpetTotal", Nothing(), "optCarpetContract", "optCarpetDriver",
             "optCarpetClient", "chkTax(12)"},
        Line{NoteOf("optPayrollFeeContract"), "txtPayrollFeeRate", Nothing(), "optPayrollFeeContract",
             "optPayrollFeeDriver", "optPayrollFeeClient", "chkTax(16)"},
        Line{NoteOf("optAdminContract"), "txtAdminFeeRate", Nothing(), "optAdminContract", "optAdminDriver",
             "optAdminClient", "chkTax(17)"},
    };
}

Node frmCompanyInfoLayout()
{
    return Column{
        Row{
            Column{
                Group{"Company",
                      Fields{
                          "txtCompany",
                          "txtAddress1",
                          "txtAddress2",
                          "txtCity",
                          Together{Chars("cmbState", 4), Chars("txtZip", 9)},
                          "txtPhone",
                          "txtFax",
                          "txtWebsite",
                          Wide("txtEmail", 28),
                      }},
                Group{"Settings",
                      Fields{
                          Number("txtKeyPressDelay", 6),
                          Number("txtTaxRate", 6),
                      }},
            },
            Group{"Pricing", Pricing()},
        },
        Row{Stretch(), "btnSave", "btnExit"},
    };
}

}
