#pragma once

#include "viewer/form/form_document.h"
#include "viewer/layout/font.h"

#include <cstddef>
#include <span>
#include <vector>

namespace inin::viewer {

/// A part of the glyphs that stands on one line.
struct FittedLine {
    std::size_t begin = 0, end = 0;
    double width = 0; ///< in points, as it is drawn
};

/// A text as it stands in its box.
struct FittedText {
    std::vector<FittedLine> lines;
    double size = 0;
    double stretch = 1;
    bool isCut = false; ///< the last line ends before the text does
};

/// What is to be fitted. Paragraphs end where the form breaks its lines; each begins at x 0 again.
struct TextToFit {
    std::span<const ShapedGlyph> glyphs;
    std::vector<std::size_t> paragraphEnds;
    double size = 10;
    double spacing = 0;
    double cutMark = 0;     ///< width of what is put behind a cut text, in thousandths of the size
    bool isTooLong = false; ///< no box could hold it
};

/// Narrower first, then more lines, then smaller, down to what the rule allows; then cut.
[[nodiscard]] FittedText fitInBox(const TextToFit &text, const FitRule &rule);
/// Every paragraph on a line of its own, as wide as it is.
[[nodiscard]] FittedText unfitted(const TextToFit &text);
/// True when a line may end between two characters: not before closing or after opening marks, not inside a word.
[[nodiscard]] bool mayBreakBetween(char32_t before, char32_t after);

} // namespace inin::viewer
