#pragma once

#include <string>
#include <string_view>

namespace inin {

/// Appends two hexadecimal digits per byte; with the prefix "0x" they are a binary value in a statement.
inline void appendHex(std::string &text, std::string_view bytes)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        text += kDigits[value >> 4U];
        text += kDigits[value & 0x0FU];
    }
}

} // namespace inin
