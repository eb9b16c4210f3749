#include "desktop/Layout.h"

namespace rovanta {

static Page TruckPage()
{
    return Page{
        Row{
            Weighted(1, Group{"Vehicle",
                              Fields{
                                  "txtName",
                                  "cmbType",
                                  "txtModel",
                                  "txtVIN",
                                  Together{"txtTag", Chars("cmbState", 4)},
                                  "cmbOwner",
                                  Together{Number("txtBunks", 5), "chkInactive"},
                                  "cmbDriver",
                                  "cmbAddDriver",
                                  "txtNotes",
                              }}),
            Group{"Rates and Cards",
                  Fields{
                      "txtLease",
                      Together{Chars("txtCommPercent", 6), "txtCommAmount"},
                      "txtSatellite",
                      "txtInternet",
                      Chars("txtFrontSatAccCard", 18),
                      Chars("txtRearSatAccCard", 18),
                      Chars("txtInternetCard", 18),
                      Chars("txtDriverXMID", 18),
                  }},
            Weighted(2, Group{"Pictures",
                              Row{
                                  Weighted(1, Column{Bare("lstImages"),
                                                     Fields{Together{"txtImageName", Chars("txtFileType", 5)}},
                                                     Row{"btnLoadPic", "btnAddImage", "btnRemove"}}),
                                  Weighted(2, "imgPic"),
                              }}),
        },
    };
}

Node frmBusEntryLayout()
{
    return Column{
        Row{Fields{Chars("cmbBus", 32)}, Stretch(), Row{"btnNew", "btnSave", "btnExit"}},
        Pages{"SSTab1", TruckPage(), Page{}, Page{}},
    };
}

}
