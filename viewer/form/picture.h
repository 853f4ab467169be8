#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace inin::viewer {

/// The pixels of a picture, eight bits a channel, in rows from the top.
struct Picture {
    std::size_t width = 0, height = 0;
    std::size_t channels = 3; ///< 1 for gray, 3 for red, green, blue
    std::string pixels;
    std::string alpha; ///< one byte a pixel; empty for an opaque picture
    std::string jpeg;  ///< the bytes of a JPEG file that a PDF may contain unchanged; otherwise empty
    bool isAnimated = false;
};

/// Decodes a PNG or JPEG file. Throws a RuntimeError with a sentence for other files, damaged ones, more than `mostPixels`
/// pixels and JPEG in CMYK. Of an animated picture only the first image is read.
[[nodiscard]] Picture decodePicture(std::string_view bytes, std::size_t mostPixels);
/// Multiplies the alpha channel.
void fade(Picture &picture, double opacity);

} // namespace inin::viewer
