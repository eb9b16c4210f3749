#include "tests/desktop/SampleForm.h"

namespace rovanta {

SampleForm::SampleForm() : Form("frmSample", "Sample")
{
    for (const char* name : {"Amber Lane", "Blue Harbor", "Cedar Falls Band", "Copper Sky"})
        cmbCustomer.AddPair(name, std::to_string(cmbCustomer.ListCount() + 1));
    for (const char* state : {"AL", "TN", "TX"})
        cmbState.AddItem(state);
    for (const char* type : {"Per Day", "Per Month"})
        cmbType.AddItem(type);
    txtNotes.SetLines(4);
    txtDelay.SetNote("(Seconds)");
    dtStart = DateTime::Of(2026, 3, 2);
    for (const char* image : {"Front", "Lounge", "Bunks"})
        lstImages.AddItem(image);
    vsfgItems.SetCols(5);
    vsfgItems.SetRows(1);
    vsfgItems.SetFixedRows(1);
    const char* captions[] = {"Bus", "Date", "Days", "Rate", "Sent"};
    for (int col = 0; col < 5; ++col)
        vsfgItems.SetTextMatrix(0, col, captions[col]);
    vsfgItems.AddItem("Silver Eagle\t3/2/2026\t7\t650\tTrue");
    vsfgItems.AddItem("Night Owl\t3/9/2026\t30\t14500.5\tFalse");
    vsfgItems.SetColFormat(3, "$#,##0.00");
    vsfgItems.SetColDataType(4, ColumnData::Boolean);
    vsfgItems.SetEditable(true);
    SetDefaultButton(btnSave);
    SetCancelButton(btnExit);
    cmbCustomer.KeyPress = [this](std::string& key) {
        typed += key;
        key.clear();
    };
    cmbCustomer.Click = [this] { log.push_back("customer " + cmbCustomer.Key()); };
    txtRate.Change = [this] { log.push_back("rate " + txtRate.Text()); };
    btnSave.Click = [this] { log.push_back("save"); };
    btnExit.Click = [this] { log.push_back("exit"); };
    vsfgItems.Click = [this] { log.push_back("grid " + std::to_string(vsfgItems.Row())); };
    vsfgItems.DoubleClick = [this] { log.push_back("grid twice " + std::to_string(vsfgItems.Row())); };
    vsfgItems.AfterEdit = [this](int row, int col) { log.push_back("edited " + vsfgItems.TextMatrix(row, col)); };
}

Node SampleLayout()
{
    return Column{
        Row{
            Group{"Customer",
                  Fields{
                      "cmbCustomer",
                      "txtName",
                      Together{"txtCity", Chars("cmbState", 5), Chars("txtZip", 8)},
                      "txtPhone",
                      "chkInactive",
                  }},
            Group{"Terms",
                  Fields{
                      "cmbType",
                      "dtStart",
                      "txtRate",
                      "txtShare",
                      Number("txtDelay", 6),
                  }},
            Group{"Remarks", Column{Row{"optContract", "optClient"}, "txtNotes"}},
        },
        Pages{
            "SSTab1",
            Page{"vsfgItems"},
            Page{Row{"lstImages", "imgPic"}},
        },
        Row{"lblEntered", Stretch(), "btnSave", "btnExit"},
    };
}

}
