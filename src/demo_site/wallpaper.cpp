#include "demo_site/site_files.h"

#include <array>
#include <cstdint>

namespace inin::site {

namespace {

// The window stretches the picture, so it can be small. With this width rows are multiples of 4 bytes.
constexpr int kWidth = 192;
constexpr int kHeight = 120;
constexpr int kHeaderSize = 54;
constexpr int kPixelBytes = kWidth * kHeight * 3;

struct Colour {
    int red, green, blue;
};
struct Stop {
    int row; ///< from the bottom, where a bitmap starts
    Colour colour;
};
constexpr std::array<Stop, 4> kStops{{
    {0, {126, 164, 120}},
    {40, {214, 226, 196}},
    {60, {240, 240, 232}},
    {kHeight - 1, {150, 186, 214}},
}};

void little(std::string &bytes, std::uint32_t value, int count)
{
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
}

/// The file header and the information header of a bitmap without a palette.
std::string header()
{
    std::string bytes = "BM";
    little(bytes, kHeaderSize + kPixelBytes, 4);
    little(bytes, 0, 4);
    little(bytes, kHeaderSize, 4);
    little(bytes, 40, 4); // size of the information header
    little(bytes, kWidth, 4);
    little(bytes, kHeight, 4);
    little(bytes, 1, 2);  // planes
    little(bytes, 24, 2); // bits per pixel
    little(bytes, 0, 4);  // uncompressed
    little(bytes, kPixelBytes, 4);
    little(bytes, 2835, 4); // pixels per metre, 72 dpi
    little(bytes, 2835, 4);
    little(bytes, 0, 4);
    little(bytes, 0, 4);
    return bytes;
}

Colour colourOf(int row)
{
    std::size_t upper = 1;
    while (kStops[upper].row < row) ++upper;
    const Stop &from = kStops[upper - 1];
    const Stop &to = kStops[upper];
    const auto mix = [&](int a, int b) { return a + (b - a) * (row - from.row) / (to.row - from.row); };
    return {mix(from.colour.red, to.colour.red), mix(from.colour.green, to.colour.green),
            mix(from.colour.blue, to.colour.blue)};
}

} // namespace

std::string wallpaper()
{
    std::string bytes = header();
    for (int row = 0; row < kHeight; ++row) {
        const Colour colour = colourOf(row);
        for (int column = 0; column < kWidth; ++column) {
            bytes += static_cast<char>(colour.blue);
            bytes += static_cast<char>(colour.green);
            bytes += static_cast<char>(colour.red);
        }
    }
    return bytes;
}

} // namespace inin::site
