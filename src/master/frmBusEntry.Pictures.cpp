#include "master/frmBusEntry.h"

#include "frame/App.h"
#include "frame/SharedRoutines.h"

#include <filesystem>

namespace rovanta {

void frmBusEntry::FillImages()
{
    for (ListBox* list : {&lstImages, &lstImagesID, &lstImagesType})
        list->Clear();
    if (txtID.IsEmpty())
        return;
    Recordset image(Statement{"SELECT * FROM BusImages WHERE BusID = "} + Key(txtID.Text()) + " ORDER BY ImageName",
                    Database());
    for (; !image.Eof(); image.MoveNext()) {
        lstImages.AddItem(image.Fields("ImageName").TextOrEmpty());
        lstImagesID.AddItem(image.Fields("ID").Text());
        lstImagesType.AddItem(image.Fields("FileType").TextOrEmpty());
    }
}

void frmBusEntry::ClearPicture()
{
    txtImageID = "";
    txtImageName = "";
    txtFileType = "";
    imgPic.Clear();
}

std::string frmBusEntry::PictureFile(const std::string& imageID, const std::string& fileType) const
{
    return app.configuration.BusImagePath + imageID + "." + fileType;
}

void frmBusEntry::lstImages_Click()
{
    const int index = lstImages.ListIndex();
    if (index < 0)
        return;
    ClearPicture();
    txtImageName = lstImages.List(index);
    txtImageID = lstImagesID.List(index);
    txtFileType = lstImagesType.List(index);
    const std::string file = PictureFile(txtImageID.Text(), txtFileType.Text());
    if (FileExists(file))
        imgPic.LoadFile(file);
}

void frmBusEntry::btnLoadPic_Click()
{
    const Hourglass hourglass(app);
    ClearPicture();
    const auto chosen =
        app.host.ChooseFile({FileDialogKind::Open, "Select Image",
                             "Bitmap Files (*.bmp)|*.bmp|JPEG Files (*.jpg, *.jpeg)|*.jpg;*.jpeg"
                             "|PCX Files (*.pcx)|*.pcx|PNG Files (*.png)|*.png"
                             "|GIF Files (*.gif)|*.gif"
                             "|Wireless Bitmap Files (*.wbm, *.wbmp)|*.wbm;*.wbmp"
                             "|Adobe Photoshop Files (*.psd)|*.psd"
                             "|TIFF Files (*.tif, *.tiff)|*.tif;*.tiff"
                             "|All Image Files|*.bmp;*.jpg;*.jpeg;*.pcx;*.png;*.gif;*.wbm;*.wbmp;*.psd;*.tif;*.tiff"});
    if (!chosen)
        return;
    imgPic.LoadFile(*chosen);
    const std::string name = std::filesystem::path(*chosen).filename().string();
    const auto dot = name.rfind('.');
    txtFileType = dot == std::string::npos ? "" : name.substr(dot + 1);
    txtImageName = name.substr(0, dot);
}

/// The guards of Update and Remove: a saved vehicle, and a picture with a name and a type.
bool frmBusEntry::HasPicture(const std::string& message)
{
    if (txtID.IsEmpty()) {
        app.Say("You do not have a Bus/Trailer selected or have not saved the current Bus/Trailer.", "No Bus Selected");
        return false;
    }
    if (txtImageName.IsEmpty() || txtFileType.IsEmpty()) {
        app.Say(message, "No Image Name");
        return false;
    }
    return true;
}

void frmBusEntry::btnAddImage_Click()
{
    if (!HasPicture("You must enter an Image name before updating."))
        return;
    Recordset image = RecordToSave(app, "BusImages", txtImageID.Text(), Tracking::None);
    image.Fields("BusID") = txtID.Text();
    image.Fields("ImageName") = txtImageName.Text();
    image.Fields("FileType") = txtFileType.Text();
    image.Update();
    txtImageID = image.Fields("ID").Text();
    image.Close();
    // The box is empty when the picture's file is missing: then a new name alone is saved, and no empty file is left.
    if (!imgPic.IsEmpty())
        imgPic.SaveFile(PictureFile(txtImageID.Text(), txtFileType.Text()));
    FillImages();
}

void frmBusEntry::btnRemove_Click()
{
    if (!HasPicture("You must select an Image name before removing."))
        return;
    // The file stays on the disk. Kept on purpose: a picture that was loaded and never updated has no key yet, and the
    // statement without one ends the program.
    Database().Execute(Statement{"DELETE FROM BusImages WHERE ID = "} + Key(txtImageID.Text()));
    ClearPicture();
    FillImages();
}

}
