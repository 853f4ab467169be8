#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace inin {

/// What the system's own code page 932, which need not be the code page that it works in, makes of characters that stand
/// side by side, `width` bytes each: their UTF-16 units, 0 where the bytes are no character.
[[nodiscard]] std::vector<char16_t> systemUnits(const std::string &bytes, std::size_t width);

} // namespace inin
