#pragma once

#include "viewer/document/letter_renderer.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace inin::viewer {

/// The places on the paper, in points, of the texts of a letter that show any of these columns: the text's box, or a
/// square at the beginning of a text without one.
[[nodiscard]] std::vector<Box> placesOfColumns(LetterRenderer &renderer, std::size_t letter,
                                               std::span<const std::string> columns);

} // namespace inin::viewer
