#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace rovanta::demo {

/// A small picture of palette colours that can be written as a file.
class Canvas {
public:
    struct Color {
        std::uint8_t red, green, blue;
    };

    /// Filled with colour 0 of the palette, which may hold 16 colours.
    Canvas(int width, int height, std::vector<Color> palette);

    void Rectangle(int left, int top, int width, int height, int color);
    void Disc(int x, int y, int radius, int color);

    /// The whole file as bytes.
    std::string Bmp() const;
    std::string Png() const;

private:
    std::size_t PlaceOf(int x, int y) const;
    /// A row of the picture, two points a byte, filled up to a multiple of `align` bytes.
    std::string Row(int y, std::size_t align) const;

    int width;
    int height;
    std::vector<Color> palette;
    std::vector<std::uint8_t> points;
};

/// A coach from the side, in a colour of its own.
Canvas DrawCoach(Canvas::Color body);
/// A sheet of paper with lines of writing, as a scan of a document looks from afar.
Canvas DrawScan(int lines);
/// What is shown in place of a document whose file is missing.
Canvas DrawNotFound();

}
