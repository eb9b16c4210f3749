#include <doctest/doctest.h>

#include "forms/Form.h"
#include "forms/Picture.h"
#include "values/Errors.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include <unistd.h>

using namespace rovanta;
using namespace std::string_literals;

namespace {

/// A path of this test's own that goes with the object.
struct PassingFile {
    explicit PassingFile(const std::string& name)
        : path((std::filesystem::temp_directory_path() / (std::to_string(getpid()) + name)).string())
    {
    }
    ~PassingFile() { std::filesystem::remove(path); }
    PassingFile(const PassingFile&) = delete;
    PassingFile& operator=(const PassingFile&) = delete;

    void Write(const std::string& content) const { std::ofstream(path, std::ios::binary) << content; }
    std::string Read() const
    {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    std::string path;
};

const std::string png = "\x89PNG\r\n\x1A\n and so on";

}

TEST_CASE("The first bytes tell the format of a picture")
{
    CHECK(RecognisePicture("BM....") == PictureFormat::Bmp);
    CHECK(RecognisePicture("\xFF\xD8\xFF\xE0") == PictureFormat::Jpeg);
    CHECK(RecognisePicture(png) == PictureFormat::Png);
    CHECK(RecognisePicture("GIF87a..") == PictureFormat::Gif);
    CHECK(RecognisePicture("GIF89a..") == PictureFormat::Gif);
    CHECK(RecognisePicture("8BPS\0\1"s) == PictureFormat::Psd);
    CHECK(RecognisePicture("II*\0...."s) == PictureFormat::Tiff);
    CHECK(RecognisePicture("MM\0*...."s) == PictureFormat::Tiff);
    CHECK(RecognisePicture("\x0A\5\1"s + std::string(200, '\0')) == PictureFormat::Pcx);
    CHECK(RecognisePicture("\0\0\x08\x02\xFF\xFF"s) == PictureFormat::Wbmp);
}

TEST_CASE("Other bytes are no picture")
{
    for (const std::string& bytes : {""s, "B"s, "%PDF-1.4"s, "GIF88a"s, "II*x"s, "\x0A\5\1"s, "\0\0\x08\x02\xFF"s,
                                     "\0\0\x00\x02"s, "\0\0\xFF\xFF\xFF\xFF\xFF"s, "This is a letter."s}) {
        CAPTURE(bytes);
        CHECK_FALSE(RecognisePicture(bytes));
    }
}

TEST_CASE("A picture is read as it is and written whole")
{
    const PassingFile source("source.png");
    const PassingFile target("target.png");
    source.Write(png);
    Form form("frm", "");
    Picture picture(&form, "img");
    CHECK(picture.IsEmpty());
    picture.LoadFile(source.path);
    CHECK(picture.File() == source.path);
    CHECK(picture.Bytes() == png);
    picture.SaveFile(target.path);
    CHECK(target.Read() == png);
    CHECK_FALSE(std::filesystem::exists(target.path + ".partial"));
    picture.Clear();
    CHECK(picture.IsEmpty());
    CHECK(picture.File() == "");
}

TEST_CASE("A file that is missing or no picture is refused by name, and the box keeps what it had")
{
    const PassingFile source("kept.png");
    const PassingFile letter("letter.png");
    source.Write(png);
    letter.Write("Dear Sir or Madam");
    Form form("frm", "");
    Picture picture(&form, "img");
    picture.LoadFile(source.path);
    CHECK_THROWS_WITH_AS(picture.LoadFile(letter.path), ("Invalid picture: " + letter.path).c_str(), RunTimeError);
    CHECK_THROWS_WITH_AS(picture.LoadFile("no/such.png"), "The picture cannot be read: no/such.png", RunTimeError);
    CHECK_THROWS_AS(picture.LoadFile(std::filesystem::temp_directory_path().string()), RunTimeError);
    CHECK(picture.Bytes() == png);
    CHECK_THROWS_WITH_AS(picture.SaveFile("no/such/folder.png"), "The picture cannot be written: no/such/folder.png",
                         RunTimeError);
}
