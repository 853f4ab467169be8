#pragma once

#include <string>

namespace inin::viewer {

/// An ICC profile (version 4.2, ICC.1:2004-10) of the colour space sRGB, IEC 61966-2-1: the meaning of the numbers of
/// colours in an archived PDF.
[[nodiscard]] std::string srgbProfile();

} // namespace inin::viewer
