#pragma once

#include "forms/Picture.h"
#include "frame/RecordLoading.h"
#include "frame/Screen.h"

#include <string>
#include <vector>

namespace rovanta {

/// Keeps the vehicles: the master record with its owner, money defaults and default drivers, and the pictures.
class frmBusEntry : public Screen {
public:
    static constexpr const char* screenName = "frmBusEntry";
    explicit frmBusEntry(App& app);
    void OpenRecord(const std::string& key) override;

    ComboPair cmbBus{this, "cmbBus", "Select Bus/Trailer"};
    Tabs SSTab1{this, "SSTab1", {"Truck Info", "Documents", "Fleet Tracker"}};
    TextBox txtID{this, "txtID", Visibility::Hidden};
    TextBox txtName{this, "txtName", "Name"};
    ComboBox cmbType{this, "cmbType", "Type"};
    TextBox txtModel{this, "txtModel", "Model"};
    TextBox txtVIN{this, "txtVIN", "VIN"};
    TextBox txtTag{this, "txtTag", "Tag"};
    ComboBox cmbState{this, "cmbState", "State"};
    ComboPair cmbOwner{this, "cmbOwner", "Owner"};
    TextBox txtBunks{this, "txtBunks", "Bunks"};
    MoneyBox txtLease{this, "txtLease", "Lease Amt."};
    PercentBox txtCommPercent{this, "txtCommPercent", "Comm. % / Amt"};
    MoneyBox txtCommAmount{this, "txtCommAmount"};
    MoneyBox txtSatellite{this, "txtSatellite", "Satellite Amt"};
    MoneyBox txtInternet{this, "txtInternet", "Internet Amt"};
    TextBox txtNotes{this, "txtNotes", "Notes"};
    TextBox txtFrontSatAccCard{this, "txtFrontSatAccCard", "Front Sat. Acc. Card"};
    TextBox txtRearSatAccCard{this, "txtRearSatAccCard", "Rear Sat. Acc. Card"};
    TextBox txtInternetCard{this, "txtInternetCard", "Internet Card"};
    TextBox txtDriverXMID{this, "txtDriverXMID", "Driver XM ID"};
    /// The twin of cmbDriver serves cmbAddDriver too: the three lists hold the same rows in the same order.
    ComboPair cmbDriver{this, "cmbDriver", "Def. Drvr."};
    ComboBox cmbAddDriver{this, "cmbAddDriver", "Def. Add. Drvr."};
    CheckBox chkInactive{this, "chkInactive", "Inactive"};
    Button btnNew{this, "btnNew", "New"};
    Button btnSave{this, "btnSave", "Save"};
    Button btnExit{this, "btnExit", "Exit"};

    ListBox lstImages{this, "lstImages", "Pictures"};
    ListBox lstImagesID{this, "lstImagesID", {}, Visibility::Hidden};
    ListBox lstImagesType{this, "lstImagesType", {}, Visibility::Hidden};
    TextBox txtImageID{this, "txtImageID", Visibility::Hidden};
    TextBox txtImageName{this, "txtImageName", "Image Name"};
    TextBox txtFileType{this, "txtFileType", "File Type"};
    Picture imgPic{this, "imgPic"};
    Button btnLoadPic{this, "btnLoadPic", "Load Picture"};
    Button btnAddImage{this, "btnAddImage", "Update"};
    Button btnRemove{this, "btnRemove", "Remove"};

private:
    void FillBusLists();
    void FillDrivers();
    void cmbBus_Click();
    void LoadBus();
    void ShowOwner(const Field& owner);
    void ShowDriver(ComboBox& combo, const Field& driver);
    void btnNew_Click();
    void btnSave_Click();
    void WriteBus(Recordset& bus);
    Value DriverKey(const ComboBox& combo) const;
    void ClearForm();
    std::vector<TextColumn> TextColumns();

    void FillImages();
    void ClearPicture();
    std::string PictureFile(const std::string& imageID, const std::string& fileType) const;
    bool HasPicture(const std::string& message);
    void lstImages_Click();
    void btnLoadPic_Click();
    void btnAddImage_Click();
    void btnRemove_Click();
};

}
