#pragma once

#include <QColor>

namespace inin::theme {

/// The opaque colour that a translucent one has on an opaque background.
[[nodiscard]] QColor opaque(const QColor &colour, const QColor &background);
/// The contrast ratio of two opaque colours, from 1 to 21, by the formula of WCAG 2.1 (relative luminance).
[[nodiscard]] double contrastRatio(const QColor &a, const QColor &b);
/// The colour itself if it has at least this contrast to the background; otherwise the colour of the same hue, darker
/// on a light background and lighter on a dark one, that has it.
[[nodiscard]] QColor withContrast(const QColor &colour, const QColor &background, double ratio);

} // namespace inin::theme
