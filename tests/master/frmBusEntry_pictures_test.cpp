#include "master/frmBusEntry.h"

#include "store/DatabaseError.h"
#include "support/TestApp.h"

#include <doctest/doctest.h>

using namespace rovanta;
using namespace rovanta::tests;

namespace {

const std::string png = "\x89PNG\r\n\x1A\n and the rest of a picture";
const std::string gif = "GIF89a and the rest of another";

/// A desk on whose vehicle screen the one bus of the office stands.
struct Desk : TestApp {
    explicit Desk(const TestOffice& office)
        : TestApp(office), pictures(office.folder.File("pictures/")), screen(Opened())
    {
    }

    frmBusEntry& Opened()
    {
        SignIn();
        Execute("INSERT INTO Bus (Name,Type,OwnerID,Lease,CommAmount,CommPercent,Satellite,Internet,Inactive) VALUES "
                "('Coach 12','Bus',0,0,0,0,0,0,0)");
        auto& opened = app.Open<frmBusEntry>();
        opened.OpenRecord("1");
        return opened;
    }

    /// Loads a file into the picture box as a person would.
    void Load(const std::string& path)
    {
        host.files.push_back(path);
        screen.btnLoadPic.Click.Fire();
    }

    std::string Add(const std::string& path)
    {
        Load(path);
        screen.btnAddImage.Click.Fire();
        return screen.txtImageID.Text();
    }

    std::string pictures;
    frmBusEntry& screen;
};

std::string MadeFile(const TestOffice& office, const std::string& name, const std::string& content)
{
    const std::string path = office.folder.File(name);
    WriteContent(path, content);
    return path;
}

}

TEST_CASE("A picture is chosen in a dialog and shown with its name and type")
{
    const TestOffice office;
    Desk desk(office);
    frmBusEntry& screen = desk.screen;
    desk.Load(MadeFile(office, "front.left.png", png));
    CHECK(screen.imgPic.Bytes() == png);
    CHECK(screen.txtImageName.Text() == "front.left");
    CHECK(screen.txtFileType.Text() == "png");
    CHECK(screen.txtImageID.IsEmpty());
    REQUIRE(desk.host.fileQuestions.size() == 1);
    CHECK(desk.host.fileQuestions[0].title == "Select Image");
    CHECK(desk.host.fileQuestions[0].filter ==
          "Bitmap Files (*.bmp)|*.bmp|JPEG Files (*.jpg, *.jpeg)|*.jpg;*.jpeg|PCX Files (*.pcx)|*.pcx|PNG Files "
          "(*.png)|*.png|GIF Files (*.gif)|*.gif|Wireless Bitmap Files (*.wbm, *.wbmp)|*.wbm;*.wbmp|Adobe Photoshop "
          "Files (*.psd)|*.psd|TIFF Files (*.tif, *.tiff)|*.tif;*.tiff|All Image "
          "Files|*.bmp;*.jpg;*.jpeg;*.pcx;*.png;*.gif;*.wbm;*.wbmp;*.psd;*.tif;*.tiff");
    CHECK(desk.host.hourglass == 0);
}

TEST_CASE("A cancelled dialog leaves the picture box cleared")
{
    const TestOffice office;
    Desk desk(office);
    desk.Load(MadeFile(office, "front.png", png));
    desk.screen.btnLoadPic.Click.Fire();
    CHECK(desk.screen.imgPic.IsEmpty());
    CHECK(desk.screen.txtImageName.IsEmpty());
    CHECK(desk.screen.txtFileType.IsEmpty());
}

TEST_CASE("Update stores the picture under its key and lists it")
{
    const TestOffice office;
    Desk desk(office);
    frmBusEntry& screen = desk.screen;
    CHECK(desk.Add(MadeFile(office, "side.png", png)) == "1");
    CHECK(desk.Add(MadeFile(office, "front.gif", gif)) == "2");
    CHECK(desk.Rows("SELECT ID,BusID,ImageName,FileType FROM BusImages ORDER BY ID") == "1|1|side|png\n2|1|front|gif");
    CHECK(ContentOf(desk.pictures + "1.png") == png);
    CHECK(ContentOf(desk.pictures + "2.gif") == gif);
    CHECK(screen.lstImages.Entries() == std::vector<std::string>{"front", "side"});
    CHECK(screen.lstImagesID.Entries() == std::vector<std::string>{"2", "1"});
    CHECK(screen.lstImagesType.Entries() == std::vector<std::string>{"gif", "png"});
}

TEST_CASE("A listed picture is read back, renamed in place, and the lists follow the vehicle")
{
    const TestOffice office;
    Desk desk(office);
    frmBusEntry& screen = desk.screen;
    desk.Add(MadeFile(office, "side.png", png));
    desk.Add(MadeFile(office, "front.gif", gif));
    screen.lstImages.Pick(1);
    CHECK(screen.imgPic.Bytes() == png);
    CHECK(screen.txtImageName.Text() == "side");
    CHECK(screen.txtImageID.Text() == "1");
    CHECK(screen.txtFileType.Text() == "png");
    screen.txtImageName = "bunks";
    screen.btnAddImage.Click.Fire();
    CHECK(desk.Rows("SELECT ID,ImageName FROM BusImages ORDER BY ID") == "1|bunks\n2|front");
    CHECK(screen.lstImages.Entries() == std::vector<std::string>{"bunks", "front"});
    desk.Execute("INSERT INTO Bus (Name,Type,OwnerID,Lease,CommAmount,CommPercent,Satellite,Internet,Inactive) VALUES "
                 "('Coach 7','Bus',0,0,0,0,0,0,0)");
    desk.Execute("UPDATE BusImages SET BusID = 2 WHERE ID = 2");
    screen.cmbBus.Pick(0);
    CHECK(screen.lstImages.Entries() == std::vector<std::string>{"bunks"});
    CHECK(screen.imgPic.IsEmpty());
    CHECK(screen.txtImageID.IsEmpty());
    screen.lstImages.Pick(0);
    screen.btnNew.Click.Fire();
    CHECK(screen.lstImages.ListCount() == 0);
    CHECK(screen.imgPic.IsEmpty());
    CHECK(screen.txtImageID.IsEmpty());
}

TEST_CASE("A missing picture file leaves the box empty, and a new name alone is saved")
{
    const TestOffice office;
    Desk desk(office);
    frmBusEntry& screen = desk.screen;
    desk.Add(MadeFile(office, "side.png", png));
    std::filesystem::remove(desk.pictures + "1.png");
    screen.lstImages.Pick(0);
    CHECK(screen.imgPic.IsEmpty());
    CHECK(screen.txtImageName.Text() == "side");
    CHECK(screen.txtImageID.Text() == "1");
    screen.txtImageName = "left side";
    screen.btnAddImage.Click.Fire();
    CHECK(desk.Rows("SELECT ImageName FROM BusImages") == "left side");
    CHECK_FALSE(std::filesystem::exists(desk.pictures + "1.png"));
}

TEST_CASE("Remove deletes the row and leaves the file")
{
    const TestOffice office;
    Desk desk(office);
    frmBusEntry& screen = desk.screen;
    desk.Add(MadeFile(office, "side.png", png));
    desk.Add(MadeFile(office, "front.gif", gif));
    screen.lstImages.Pick(0);
    screen.btnRemove.Click.Fire();
    CHECK(desk.Rows("SELECT ImageName FROM BusImages") == "side");
    CHECK(screen.lstImages.Entries() == std::vector<std::string>{"side"});
    CHECK(screen.txtImageID.IsEmpty());
    CHECK(ContentOf(desk.pictures + "2.gif") == gif);
}

TEST_CASE("Pictures need a saved vehicle and a name")
{
    const TestOffice office;
    Desk desk(office);
    frmBusEntry& screen = desk.screen;
    const std::string noBus = "No Bus Selected: You do not have a Bus/Trailer selected or have not saved the current "
                              "Bus/Trailer.";
    screen.btnAddImage.Click.Fire();
    CHECK(desk.host.TakeMessages() == "No Image Name: You must enter an Image name before updating.");
    screen.btnRemove.Click.Fire();
    CHECK(desk.host.TakeMessages() == "No Image Name: You must select an Image name before removing.");
    screen.txtImageName = "side";
    screen.btnAddImage.Click.Fire();
    CHECK(desk.host.TakeMessages() == "No Image Name: You must enter an Image name before updating.");
    screen.btnNew.Click.Fire();
    screen.btnAddImage.Click.Fire();
    CHECK(desk.host.TakeMessages() == noBus);
    screen.btnRemove.Click.Fire();
    CHECK(desk.host.TakeMessages() == noBus);
    CHECK(desk.Rows("SELECT COUNT(*) FROM BusImages") == "0");
}

TEST_CASE("A picture that is no picture ends the program and names the file")
{
    const TestOffice office;
    Desk desk(office);
    const std::string path = MadeFile(office, "letter.png", "Dear office,");
    CHECK_THROWS_WITH_AS(desk.Load(path), doctest::Contains(path.c_str()), RunTimeError);
    CHECK(desk.Rows("SELECT COUNT(*) FROM BusImages") == "0");
    CHECK(desk.host.hourglass == 0);
}

TEST_CASE("A picture that cannot be written ends the program and leaves no half of a file")
{
    const TestOffice office;
    Desk desk(office);
    desk.Load(MadeFile(office, "side.png", png));
    std::filesystem::remove_all(desk.pictures);
    CHECK_THROWS_WITH_AS(desk.screen.btnAddImage.Click.Fire(), doctest::Contains("1.png"), RunTimeError);
    CHECK_FALSE(std::filesystem::exists(desk.pictures));
}

TEST_CASE("A file without an ending gives no type, and so cannot be updated")
{
    const TestOffice office;
    Desk desk(office);
    desk.Load(MadeFile(office, "side", png));
    CHECK(desk.screen.txtImageName.Text() == "side");
    CHECK(desk.screen.txtFileType.IsEmpty());
    desk.screen.btnAddImage.Click.Fire();
    CHECK(desk.host.TakeMessages() == "No Image Name: You must enter an Image name before updating.");
}

TEST_CASE("Removing a picture that was never stored ends the program with a syntax error")
{
    const TestOffice office;
    Desk desk(office);
    desk.Add(MadeFile(office, "side.png", png));
    desk.Load(MadeFile(office, "front.gif", gif));
    CHECK_THROWS_AS(desk.screen.btnRemove.Click.Fire(), DatabaseError);
    CHECK(desk.Rows("SELECT ImageName FROM BusImages") == "side");
}
