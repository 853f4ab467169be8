#include "demo_site/site_maker.h"

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

struct HeaderField {
    std::uint32_t value;
    int bytes;
};
/// The file header and the information header of a bitmap without a palette, after its first two characters.
constexpr HeaderField kHeader[] = {
    {kHeaderSize + kPixelBytes, 4},
    {0, 4},
    {kHeaderSize, 4},
    {40, 4}, // size of the information header
    {kWidth, 4},
    {kHeight, 4},
    {1, 2},
    {24, 2},
    {0, 4}, // planes, bits per pixel, uncompressed
    {kPixelBytes, 4},
    {2835, 4},
    {2835, 4}, // pixels per metre, 72 dpi
    {0, 4},
    {0, 4},
};

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
    std::string bytes = "BM";
    for (const HeaderField &field : kHeader)
        for (int at = 0; at < field.bytes; ++at) bytes += static_cast<char>(field.value >> (8 * at) & 0xFFU);
    for (int row = 0; row < kHeight; ++row) {
        const Colour colour = colourOf(row);
        for (int column = 0; column < kWidth; ++column)
            for (const int part : {colour.blue, colour.green, colour.red}) bytes += static_cast<char>(part);
    }
    return bytes;
}

} // namespace inin::site
