#pragma once

#include "viewer/form/geometry.h"

#include <cstddef>
#include <span>
#include <vector>

namespace inin::viewer {

/// A text of a page, as far as its place decides when it is read.
struct PlacedText {
    Box box;
    bool isField = false;    ///< its content differs between letters
    bool isVertical = false; ///< its lines are columns from right to left
    bool isSingle = false;   ///< a single character, which may belong to others above and below it
};

/// The texts of one line, as indices in the order of reading.
using ReadingLine = std::vector<std::size_t>;

/// The lines of a page in the order in which a person reads them, a label before its value:
/// - Single characters below one another are one word.
/// - A text that is alone in a frame, such as the cell of a table, takes the whole frame.
/// - The page is divided at gaps, again and again: at horizontal gaps into rows, and a part without any at a vertical gap,
///   the one that isolates the fewest texts beside rows (the tall heading of a group of rows). Texts beside one another
///   that cannot be divided further are one line.
/// - Lines of the form's own text directly below one another are one paragraph.
/// A page whose texts are mostly vertical is divided in the same way, from right to left.
[[nodiscard]] std::vector<ReadingLine> readingLines(std::span<const PlacedText> texts, std::span<const Box> frames);

} // namespace inin::viewer
