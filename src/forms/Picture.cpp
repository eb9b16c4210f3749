#include "forms/Picture.h"

#include "values/Errors.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace rovanta {

/// A wireless bitmap has no signature: type 0, a fixed header of 0, then width and height in seven-bit groups.
static bool LooksLikeWirelessBitmap(std::string_view bytes)
{
    if (bytes.size() < 5 || bytes[0] != 0 || bytes[1] != 0)
        return false;
    std::size_t at = 2;
    std::size_t sides[2] = {0, 0};
    for (std::size_t& side : sides) {
        for (;;) {
            if (at >= bytes.size() || side > 0xFFFF)
                return false;
            const auto group = static_cast<std::uint8_t>(bytes[at++]);
            side = side << 7 | (group & 0x7F);
            if ((group & 0x80) == 0)
                break;
        }
    }
    return sides[0] > 0 && sides[1] > 0 && bytes.size() - at == (sides[0] + 7) / 8 * sides[1];
}

std::optional<PictureFormat> RecognisePicture(std::string_view bytes)
{
    using namespace std::string_view_literals;
    if (bytes.starts_with("BM"sv))
        return PictureFormat::Bmp;
    if (bytes.starts_with("\xFF\xD8\xFF"sv))
        return PictureFormat::Jpeg;
    if (bytes.starts_with("\x89PNG\r\n\x1A\n"sv))
        return PictureFormat::Png;
    if (bytes.starts_with("GIF87a"sv) || bytes.starts_with("GIF89a"sv))
        return PictureFormat::Gif;
    if (bytes.starts_with("8BPS"sv))
        return PictureFormat::Psd;
    if (bytes.starts_with("II*\0"sv) || bytes.starts_with("MM\0*"sv))
        return PictureFormat::Tiff;
    if (bytes.size() > 128 && bytes[0] == 0x0A && static_cast<std::uint8_t>(bytes[1]) <= 5 && bytes[2] == 1)
        return PictureFormat::Pcx;
    if (LooksLikeWirelessBitmap(bytes))
        return PictureFormat::Wbmp;
    return std::nullopt;
}

Picture::Picture(Form* form, std::string name, std::string caption, Visibility visibility)
    : Control(form, std::move(name), std::move(caption), visibility)
{
}

void Picture::LoadFile(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream content;
    if (!stream || !(content << stream.rdbuf()))
        throw RunTimeError("The picture cannot be read: " + path);
    std::string read = content.str();
    if (!RecognisePicture(read))
        throw RunTimeError("Invalid picture: " + path);
    bytes = std::move(read);
    file = path;
    Changed();
}

void Picture::SaveFile(const std::string& path) const
{
    const std::string partial = path + ".partial";
    std::ofstream stream(partial, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    std::error_code error;
    if (stream)
        std::filesystem::rename(partial, path, error);
    if (!stream || error) {
        std::filesystem::remove(partial, error);
        throw RunTimeError("The picture cannot be written: " + path);
    }
}

void Picture::Clear()
{
    if (IsEmpty())
        return;
    file.clear();
    bytes.clear();
    Changed();
}

}
