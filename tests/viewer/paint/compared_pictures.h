#pragma once

#include "viewer/paint/qt_letter_page.h"

#include <QImage>

#include <string>

namespace inin::viewer::test {

// Rounding of edges differs between processors and versions of the toolkit. A line or glyph that moved is detected.
inline constexpr int kTolerance = 48; ///< of red, green and blue each
inline constexpr double kShareTolerance = 0.0005;

/// The share of pixels whose red, green or blue differs by more than the tolerance; 1 for pictures of different sizes.
[[nodiscard]] double difference(const QImage &a, const QImage &b, int tolerance = kTolerance);
/// Compares with a stored picture, in colour. To change the reference pictures, run once with ININ_WRITE_GOLDENS set, inspect the
/// pictures and commit them.
void compareWithGolden(const QImage &picture, const std::string &name);
/// Rasterisers differ at every edge. At low resolution, only differences of position or shape remain.
[[nodiscard]] QImage coarse(const QImage &image);
/// A page of a PDF, counted from 1, rendered by another program.
[[nodiscard]] QImage rasterized(const std::string &pdf, int dotsPerInch, int page = 1);
/// The same by a program without corrections for screens: lines keep their width and place.
[[nodiscard]] QImage drawnByCairo(const std::string &pdf, int dotsPerInch, int page);
/// A picture in which each pixel is the mean of a square of `factor` pixels, without incomplete squares at its edges.
[[nodiscard]] QImage averaged(const QImage &image, int factor);
/// Prints the pages of the first letter.
void printPages(LetterRenderer &renderer, const std::string &path, QtGlyphs &glyphs);

} // namespace inin::viewer::test
