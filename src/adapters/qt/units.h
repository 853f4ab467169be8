#pragma once

#include <cstdint>

namespace inin::qt {

/// The forms use twips. A logical pixel of the toolkit, which scales with the desktop, is 15 twips.
inline constexpr int kTwipsPerPixel = 15;

[[nodiscard]] inline constexpr int pixels(std::int32_t twips)
{
    return twips / kTwipsPerPixel;
}
[[nodiscard]] inline constexpr std::int32_t twips(int pixels)
{
    return pixels * kTwipsPerPixel;
}

} // namespace inin::qt
