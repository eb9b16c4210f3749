#pragma once

#include "forms/Control.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rovanta {

/// The picture formats that the office stores.
enum class PictureFormat { Bmp, Jpeg, Pcx, Png, Gif, Wbmp, Psd, Tiff };

/// The format that the first bytes of a file tell, nothing when they are no picture's.
std::optional<PictureFormat> RecognisePicture(std::string_view bytes);

/// A picture box. It holds the file's bytes as they are; a shell decodes and scales them to the box.
class Picture : public Control {
public:
    Picture(Form* form, std::string name, std::string caption = {}, Visibility visibility = Visibility::Shown);
    ControlKind Kind() const override { return ControlKind::Picture; }

    /// Reads a picture file. Throws RunTimeError naming the file when it cannot be read or is no picture.
    void LoadFile(const std::string& path);
    /// Writes the picture to a file as a whole or not at all. Throws RunTimeError naming the file.
    void SaveFile(const std::string& path) const;
    void Clear();

    bool IsEmpty() const { return bytes.empty(); }
    /// Where the picture came from; empty for an empty box.
    const std::string& File() const { return file; }
    const std::string& Bytes() const { return bytes; }

private:
    std::string file;
    std::string bytes;
};

}
