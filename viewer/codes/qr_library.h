#pragma once

#include "viewer/codes/qr_codes.h"

namespace inin::viewer {

/// How a decoder separates ink from paper.
enum class InkThreshold {
    local,     ///< by the brightness around each pixel
    blackWhite ///< the pixels are already 0 or 255
};

/// The code of valid digits.
[[nodiscard]] QrModules encodeQr(const std::string &digits);
/// The texts of the codes that the library finds in a picture, whose size is valid.
[[nodiscard]] std::vector<std::string> decodeQr(const GreyPicture &picture, InkThreshold threshold);

} // namespace inin::viewer
