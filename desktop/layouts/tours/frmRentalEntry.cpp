#include "desktop/Layout.h"

namespace rovanta {

static Node Head()
{
    return Row{
        Weighted(4, Fields{Wide("cmbTour", 18), "cmbCustomer"}),
        Weighted(3, Fields{Wide("txtTour", 20), "cmbStatus"}),
        Row{
            Display("txtTotalTourBudget"),
            Display("txtTotalContract"),
            Display("txtTotalDriver"),
            Display("txtTotalClient"),
        },
        Column{Row{"btnNew", "btnSave"}, Row{Stretch(), "btnExit"}},
    };
}

static Page TourPage()
{
    return Page{
        Row{
            Weighted(1, Group{"Address",
                              Fields{
                                  "txtAddress1",
                                  "txtAddress2",
                                  Together{"txtCity", Chars("cmbState", 4), Chars("txtZip", 7)},
                                  Lines("txtNotes", 2),
                              }}),
            Weighted(1, Group{"First Contact",
                              Fields{
                                  "txtContact1",
                                  Together{"txtPhone1", "txtCell1"},
                                  "txtFax1",
                                  "txtEmail1",
                                  "txtEmail1a",
                              }}),
            Weighted(1, Group{"Second Contact",
                              Fields{
                                  "txtContact2",
                                  Together{"txtPhone2", "txtCell2"},
                                  "txtFax2",
                                  "txtEmail2",
                                  "txtEmail2a",
                              }}),
        },
        "vsfgItems",
        Row{"btnNewBus", "btnBuggyUp", "btnBuggyDown", "btnQuoteSheet", "chkAllInclusive", Stretch(),
            Words("Entered by"), "lblEnteredBy", Nothing(), Words("Edited by"), "lblEditedBy"},
    };
}

static Node DayBlock()
{
    return Row{
        Weighted(2, Fields{"cmbBus", "cmbDriver", "cmbAddDriver"}),
        Fields{"dtStart", "dtEnd", Together{Number("txtTotalMiles", 6), "btnGetMiles"}},
        Fields{Number("txtDiscountDays", 5), Number("txtTravelIn", 5), Number("txtTravelOut", 5)},
        Fields{Number("txtTourDays", 5), Number("txtBilledDays", 5), Number("txtBilledMonths", 5)},
        Weighted(1, Lines("txtPriceNotes", 3)),
    };
}

static Node ChargesByDayOrWeek()
{
    const auto rateType = [](const char* combo) { return Chars(combo, 8); };
    const auto count = [](const char* box) { return Number(box, 4); };
    return Table{
        Headings{"Charge", "Rate", "Rate Type", "Days", "Months", "Total", "Contract", "Driver", "Client"},
        Line{CaptionOf("txtBusRate"), "txtBusRate", rateType("cmbBusRateType"), count("txtBusDays"),
             count("txtBusMonths"), "txtBusTotal", "optBusContract", "optBusDriver", "optBusClient"},
        Line{CaptionOf("txtDriverRate"), "txtDriverRate", Nothing(), Nothing(), Nothing(), "txtDriverTotal",
             "optDriverContract", "optDriverDriver", "optDriverClient"},
        Line{CaptionOf("txtAddDriverRate"), "txtAddDriverRate", Nothing(), Nothing(), Nothing(), "txtAddDriverTotal",
             "optAddDriverContract", "optAddDriverDriver", "optAddDriverClient"},
        Line{CaptionOf("txtDOTRate"), "txtDOTRate", rateType("cmbDOTRateType"), Nothing(), Nothing(), "txtDOTTotal",
             "optDOTContract", "optDOTDriver", "optDOTClient"},
        Line{CaptionOf("txtSatelliteRate"), "txtSatelliteRate", rateType("cmbSatelliteRateType"), count("txtSatDays"),
             count("txtSatMonths"), "txtSatelliteTotal", "optSatelliteContract", "optSatelliteDriver",
             "optSatelliteClient"},
        Line{CaptionOf("txtInternetRate"), "txtInternetRate", rateType("cmbInternetRateType"), count("txtIntDays"),
             count("txtIntMonths"), "txtInternetTotal", "optInternetContract", "optInternetDriver",
             "optInternetClient"},
        Line{CaptionOf("txtHotelBuyOutRate"), "txtHotelBuyOutRate", Nothing(), Nothing(), Nothing(),
             "txtHotelBuyOutTotal", "optHotelBuyOutContract", "optHotelBuyOutDriver", "optHotelBuyOutClient"},
        Line{CaptionOf("txtSuppliesRate"), "txtSuppliesRate", Nothing(), Nothing(), Nothing(), "txtSuppliesTotal",
             "optSuppliesContract", "optSuppliesDriver", "optSuppliesClient"},
        Line{CaptionOf("txtBusWashRate"), "txtBusWashRate", Nothing(), Nothing(), Nothing(), "txtBusWashTotal",
             "optBusWashContract", "optBusWashDriver", "optBusWashClient"},
        Line{CaptionOf("txtLinenRate"), "txtLinenRate", Nothing(), Nothing(), Nothing(), "txtLinenTotal",
             "optLinenContract", "optLinenDriver", "optLinenClient"},
    };
}

static Node OtherCharges()
{
    return Table{
        Headings{"Charge", "Rate", "Description", "Total", "Contract", "Driver", "Client"},
        Line{CaptionOf("txtGeneratorRate"), "txtGeneratorRate", Nothing(), "txtGeneratorTotal", "optGeneratorContract",
             "optGeneratorDriver", "optGeneratorClient"},
        Line{CaptionOf("txtFuelRate"), "txtFuelRate", Nothing(), "txtFuelTotal", "optFuelContract", "optFuelDriver",
             "optFuelClient"},
        Line{CaptionOf("txtEngineRate"), "txtEngineRate", Nothing(), "txtEngineTotal", "optEngineContract",
             "optEngineDriver", "optEngineClient"},
        Line{CaptionOf("txtCleaningTotal"), Nothing(), Nothing(), "txtCleaningTotal", "optCleaningContract",
             "optCleaningDriver", "optCleaningClient"},
        Line{CaptionOf("txtPermitTotal"), Nothing(), Nothing(), "txtPermitTotal", "optPermitContract",
             "optPermitDriver", "optPermitClient"},
        Line{CaptionOf("txtMiscDesc"), Nothing(), "txtMiscDesc", "txtMiscTotal", "optMiscContract", "optMiscDriver",
             "optMiscClient"},
        Line{CaptionOf("txtMisc2Desc"), Nothing(), "txtMisc2Desc", "txtCarpetTotal", "optCarpetContract",
             "optCarpetDriver", "optCarpetClient"},
        Line{CaptionOf("txtMisc3Desc"), Nothing(), "txtMisc3Desc", "txtPayrollFeeTotal", "optPayrollFeeContract",
             "optPayrollFeeDriver", "optPayrollFeeClient"},
        Line{CaptionOf("txtMisc4Desc"), "txtAdminFeeRate", "txtMisc4Desc", "txtAdminTotal", "optAdminContract",
             "optAdminDriver", "optAdminClient"},
    };
}

static Page PricingPage()
{
    return Page{
        DayBlock(),
        Row{Group{"Charges by Day, Month and Week", ChargesByDayOrWeek()},
            Weighted(1, Group{"Other Charges", OtherCharges()})},
        Row{
            Fields{"txtBusBudget", "txtBusContract"},
            Fields{"txtBusDriver", "txtBusClient"},
            Fields{"txtCommission", "txtCommissionPerMonth"},
            Stretch(),
            Column{Row{"btnRemove", "btnUpdate"}},
        },
    };
}

static Page PickupPage()
{
    return Page{
        Display("lblPickupCaption"),
        Row{
            Weighted(1, Group{"Pickup",
                              Fields{
                                  Chars("txtPickupDate", 12),
                                  "txtPickupLocation",
                                  "txtPickupAddress",
                                  Together{"txtPickupCity", Chars("cmbPickupState", 4), Chars("txtPickupZip", 7)},
                                  "txtPickupPhone",
                                  "txtPickupContact",
                                  "txtHotelRoom",
                                  "txtFirstDrive",
                              }}),
            Weighted(1, Group{"Ending",
                              Fields{
                                  Chars("txtEndDate", 12),
                                  "txtEndLocation",
                                  "txtEndAddress",
                                  Together{"txtEndCity", Chars("cmbEndState", 4), Chars("txtEndZip", 7)},
                                  "txtEndPhone",
                                  Number("txtMinBunks", 5),
                                  Number("txtPassengers", 5),
                              }}),
            Weighted(1, Group{"Notes", Bare("txtPickupNote")}),
        },
        Row{"btnPickupSheet", Stretch(), "btnUpdate2"},
    };
}

static Page InvoicesPage()
{
    return Page{
        Weighted(3, "vsfgInvoices"),
        Row{"btnCalculate", "btnManualInvoice", "btnEditInvoice", "btnDeleteInvoice", "btnPrintInvoices", Stretch()},
        Weighted(2, "vsfgPayments"),
        Row{"btnDeletePayment", Stretch(), "btnLeaseAgreement", "btnOnBoardLease", "btnCCAuthorization",
            "btnInvestorReport"},
    };
}

Node frmRentalEntryLayout()
{
    return Column{
        Head(),
        Pages{"SSTab1", TourPage(), PricingPage(), PickupPage(), InvoicesPage()},
    };
}

}
