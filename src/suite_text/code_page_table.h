#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace inin {

/// Decodes consecutive characters of `width` bytes each with the system's code page 932, which need not be its active
/// code page. Returns their UTF-16 units, 0 for bytes that are not a character.
[[nodiscard]] std::vector<char16_t> systemUnits(const std::string &bytes, std::size_t width);

} // namespace inin
