#pragma once

#include "viewer/form/form_document.h"
#include "viewer/layout/font.h"

#include <cstddef>
#include <span>
#include <vector>

namespace inin::viewer {

struct FittedLine {
    std::size_t begin = 0, end = 0;
    double width = 0; ///< in points, as drawn
};

/// A text that was fitted into its box.
struct FittedText {
    std::vector<FittedLine> lines;
    double size = 0;
    double stretch = 1;
    bool isTruncated = false;
};

/// The input of a fit. Paragraphs end at the line ends of the text; the glyphs of each begin at x 0.
struct TextToFit {
    std::span<const ShapedGlyph> glyphs;
    std::vector<std::size_t> paragraphEnds;
    double size = 10;
    double spacing = 0;
    double ellipsisWidth = 0; ///< in thousandths of the size
    bool isTooLong = false;   ///< too long for any box
};

/// Tries narrower characters first, then more lines, then smaller sizes within the limits of the rule, and truncates the
/// text if nothing fits.
[[nodiscard]] FittedText fitInBox(const TextToFit &text, const FitRule &rule);
/// Each paragraph on a line of its own, at its natural width.
[[nodiscard]] FittedText unfitted(const TextToFit &text);
/// True when a line may end between two characters: not before closing punctuation, after opening punctuation or inside
/// a word.
[[nodiscard]] bool mayBreakBetween(char32_t before, char32_t after);

} // namespace inin::viewer
