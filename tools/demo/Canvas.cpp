#include "tools/demo/Canvas.h"

#include <algorithm>
#include <stdexcept>

namespace rovanta::demo {

namespace {

void AddLittle(std::string& bytes, std::uint32_t number, int count)
{
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(number >> (8 * i));
}

void AddBig(std::string& bytes, std::uint32_t number)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(number >> shift);
}

std::uint32_t Crc(const std::string& bytes)
{
    std::uint32_t crc = 0xffffffff;
    for (const char byte : bytes) {
        crc ^= static_cast<std::uint8_t>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (crc & 1 ? 0xedb88320 : 0);
    }
    return ~crc;
}

std::uint32_t Adler(const std::string& bytes)
{
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (const char byte : bytes) {
        a = (a + static_cast<std::uint8_t>(byte)) % 65521;
        b = (b + a) % 65521;
    }
    return b << 16 | a;
}

void AddChunk(std::string& file, const std::string& kind, const std::string& content)
{
    AddBig(file, static_cast<std::uint32_t>(content.size()));
    file += kind + content;
    AddBig(file, Crc(kind + content));
}

/// The bytes as a zlib stream of stored blocks: a picture this small needs no compression.
std::string Stored(const std::string& bytes)
{
    constexpr std::size_t blockSize = 65535;
    std::string stream = "\x78\x01";
    for (std::size_t at = 0; at < bytes.size(); at += blockSize) {
        const std::string block = bytes.substr(at, blockSize);
        stream += static_cast<char>(at + blockSize >= bytes.size());
        AddLittle(stream, static_cast<std::uint32_t>(block.size()), 2);
        AddLittle(stream, ~static_cast<std::uint32_t>(block.size()), 2);
        stream += block;
    }
    AddBig(stream, Adler(bytes));
    return stream;
}

}

Canvas::Canvas(int width, int height, std::vector<Color> palette)
    : width(width), height(height), palette(std::move(palette)),
      points(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
{
    if (this->palette.size() > 16)
        throw std::logic_error("A canvas has 16 colours");
    this->palette.resize(16);
}

std::size_t Canvas::PlaceOf(int x, int y) const
{
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
}

void Canvas::Rectangle(int left, int top, int wide, int high, int color)
{
    for (int y = std::max(top, 0); y < std::min(top + high, height); ++y)
        for (int x = std::max(left, 0); x < std::min(left + wide, width); ++x)
            points[PlaceOf(x, y)] = static_cast<std::uint8_t>(color);
}

void Canvas::Disc(int centerX, int centerY, int radius, int color)
{
    for (int y = centerY - radius; y <= centerY + radius; ++y)
        for (int x = centerX - radius; x <= centerX + radius; ++x)
            if ((x - centerX) * (x - centerX) + (y - centerY) * (y - centerY) <= radius * radius)
                Rectangle(x, y, 1, 1, color);
}

std::string Canvas::Row(int y, std::size_t align) const
{
    std::string row;
    for (int x = 0; x < width; x += 2) {
        const std::size_t at = PlaceOf(x, y);
        const int second = x + 1 < width ? points[at + 1] : 0;
        row += static_cast<char>(points[at] << 4 | second);
    }
    while (row.size() % align != 0)
        row += '\0';
    return row;
}

std::string Canvas::Bmp() const
{
    std::string rows;
    for (int y = height - 1; y >= 0; --y)
        rows += Row(y, 4);
    constexpr std::uint32_t headSize = 14 + 40 + 16 * 4;
    std::string file = "BM";
    AddLittle(file, headSize + static_cast<std::uint32_t>(rows.size()), 4);
    AddLittle(file, 0, 4);
    AddLittle(file, headSize, 4);
    AddLittle(file, 40, 4);
    AddLittle(file, static_cast<std::uint32_t>(width), 4);
    AddLittle(file, static_cast<std::uint32_t>(height), 4);
    AddLittle(file, 1, 2);
    AddLittle(file, 4, 2);
    AddLittle(file, 0, 4);
    AddLittle(file, static_cast<std::uint32_t>(rows.size()), 4);
    constexpr std::uint32_t pointsPerMeter = 3780;
    AddLittle(file, pointsPerMeter, 4);
    AddLittle(file, pointsPerMeter, 4);
    AddLittle(file, 16, 4);
    AddLittle(file, 0, 4);
    for (const Color& color : palette)
        file += {static_cast<char>(color.blue), static_cast<char>(color.green), static_cast<char>(color.red), '\0'};
    return file + rows;
}

std::string Canvas::Png() const
{
    std::string head;
    AddBig(head, static_cast<std::uint32_t>(width));
    AddBig(head, static_cast<std::uint32_t>(height));
    // Four bits a point, by palette, nothing interlaced.
    head += {4, 3, 0, 0, 0};
    std::string colors;
    for (const Color& color : palette)
        colors += {static_cast<char>(color.red), static_cast<char>(color.green), static_cast<char>(color.blue)};
    std::string rows;
    for (int y = 0; y < height; ++y)
        rows += '\0' + Row(y, 1);
    std::string file = "\x89PNG\r\n\x1a\n";
    AddChunk(file, "IHDR", head);
    AddChunk(file, "PLTE", colors);
    AddChunk(file, "IDAT", Stored(rows));
    AddChunk(file, "IEND", "");
    return file;
}

Canvas DrawCoach(Canvas::Color body)
{
    enum { sky, road, paint, glass, trim, tire, rim, light };
    Canvas canvas(480, 240,
                  {{205, 222, 235},
                   {120, 122, 126},
                   body,
                   {38, 48, 62},
                   {232, 232, 228},
                   {28, 28, 30},
                   {170, 172, 176},
                   {250, 214, 120}});
    canvas.Rectangle(0, 190, 480, 50, road);
    canvas.Rectangle(0, 212, 480, 3, trim);
    canvas.Rectangle(36, 62, 410, 120, paint);
    canvas.Rectangle(30, 74, 6, 108, paint);
    canvas.Rectangle(36, 150, 410, 6, trim);
    canvas.Rectangle(30, 78, 44, 54, glass);
    for (int window = 0; window < 6; ++window)
        canvas.Rectangle(92 + window * 58, 84, 46, 34, glass);
    canvas.Rectangle(82, 84, 3, 98, trim);
    canvas.Rectangle(120, 56, 60, 6, trim);
    canvas.Rectangle(300, 54, 44, 8, trim);
    canvas.Rectangle(30, 158, 8, 8, light);
    for (const int wheel : {96, 346, 392}) {
        canvas.Disc(wheel, 184, 22, tire);
        canvas.Disc(wheel, 184, 10, rim);
    }
    return canvas;
}

Canvas DrawScan(int lines)
{
    enum { paper, ink, rule };
    Canvas canvas(300, 390, {{252, 251, 246}, {70, 74, 84}, {190, 194, 204}});
    canvas.Rectangle(30, 30, 120, 14, ink);
    canvas.Rectangle(30, 52, 240, 2, rule);
    for (int line = 0; line < lines; ++line)
        canvas.Rectangle(30, 72 + line * 16, 120 + (line * 53) % 120, 6, ink);
    canvas.Rectangle(180, 352, 90, 2, rule);
    return canvas;
}

Canvas DrawNotFound()
{
    enum { paper, edge, cross };
    Canvas canvas(240, 160, {{244, 244, 242}, {176, 178, 184}, {196, 72, 62}});
    canvas.Rectangle(0, 0, 240, 4, edge);
    canvas.Rectangle(0, 156, 240, 4, edge);
    canvas.Rectangle(0, 0, 4, 160, edge);
    canvas.Rectangle(236, 0, 4, 160, edge);
    for (int i = 0; i < 80; ++i) {
        canvas.Rectangle(80 + i, 40 + i, 6, 6, cross);
        canvas.Rectangle(80 + i, 119 - i, 6, 6, cross);
    }
    return canvas;
}

}
