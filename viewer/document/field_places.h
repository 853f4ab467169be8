#pragma once

#include "viewer/document/letter_renderer.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace inin::viewer {

/// A place on a page's paper, in points.
struct PlaceOnPage : Box {
    std::size_t page = 0;
};

/// The places of the texts of a letter that show any of these columns: the text's box, or a
/// square at the beginning of a text without one.
[[nodiscard]] std::vector<PlaceOnPage> placesOfColumns(LetterRenderer &renderer, std::size_t letter,
                                                       std::span<const std::string> columns);

} // namespace inin::viewer
