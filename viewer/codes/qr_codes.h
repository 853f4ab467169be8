#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// A QR code as a square of modules, without its quiet zone.
struct QrModules {
    int size = 0;           ///< modules per side
    std::vector<bool> dark; ///< row by row
    [[nodiscard]] bool isDark(int x, int y) const { return dark[static_cast<std::size_t>(y * size + x)]; }
};
/// The blank border that readers need around a code, in modules.
inline constexpr int kQuietZone = 4;

/// A picture in shades of grey; 0 is black.
struct GreyPicture {
    std::span<const std::uint8_t> pixels;
    int width = 0, height = 0, bytesPerRow = 0;
};

/// False in a build without the library for codes: writeQr() then returns a square without modules, and readQrCodes()
/// finds nothing.
[[nodiscard]] bool hasQrCodes();
/// Writes a short text with the strongest error correction.
[[nodiscard]] QrModules writeQr(std::string_view text);
/// The texts of all codes in a picture, which may be rotated and upside down. A code that cannot be corrected is left
/// out. Throws a RuntimeError when `pixels` is shorter than the picture.
[[nodiscard]] std::vector<std::string> readQrCodes(const GreyPicture &picture);

} // namespace inin::viewer
