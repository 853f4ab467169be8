#pragma once

#include "support/file_bytes.h"

#include <string>

namespace inin::viewer::test {

/// The bytes of a picture in tests/data/viewer/pictures.
[[nodiscard]] inline std::string pictureBytes(const std::string &name)
{
    return bytesOf(std::string(ININ_TEST_DATA) + "/viewer/pictures/" + name);
}

/// The picture as a reference for an image element: data:image/png;base64,…
[[nodiscard]] inline std::string embedded(const std::string &bytes)
{
    constexpr const char *kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out = "data:image/png;base64,";
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        unsigned bits = 0;
        for (std::size_t j = i; j < i + 3; ++j)
            bits = bits << 8U | (j < bytes.size() ? static_cast<unsigned char>(bytes[j]) : 0U);
        for (std::size_t j = 0; j < 4; ++j) out += i + j <= bytes.size() ? kDigits[bits >> (18 - 6 * j) & 63U] : '=';
    }
    return out;
}

} // namespace inin::viewer::test
