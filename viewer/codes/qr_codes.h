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
    [[nodiscard]] bool isDark(int x, int y) const { return dark[std::size_t(y) * std::size_t(size) + std::size_t(x)]; }
};
/// The blank border that readers need around a code, in modules.
inline constexpr int kQuietZone = 4;
/// The digits that a code of the smallest size holds.
inline constexpr std::size_t kMostQrDigits = 17;

/// A picture in shades of grey; 0 is black.
struct GreyPicture {
    std::span<const std::uint8_t> pixels;
    int width = 0, height = 0, bytesPerRow = 0;
};

/// Writes digits as a code of the smallest size (version 1) with the strongest error correction (level H). Throws a
/// RuntimeError for another text.
[[nodiscard]] QrModules writeQr(std::string_view digits);

/// False in a build without a library that reads codes; readQrCodes() then finds nothing.
[[nodiscard]] bool canReadQrCodes();
/// The texts of all codes in a picture, which may be rotated and upside down. A code that cannot be corrected is left
/// out. Throws a RuntimeError when `pixels` is shorter than the picture.
[[nodiscard]] std::vector<std::string> readQrCodes(const GreyPicture &picture);

} // namespace inin::viewer
