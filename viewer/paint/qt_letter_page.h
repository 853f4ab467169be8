#pragma once

#include "viewer/paint/qt_page_painter.h"

#include <QImage>

#include <cstddef>
#include <string>

namespace inin::viewer {

class LetterRenderer;

/// A page of a letter, both counted from 0. A letter converts to its first page.
struct LetterPage {
    LetterPage(std::size_t ofLetter, std::size_t number = 0) : letter(ofLetter), page(number) {}
    std::size_t letter, page;
    friend bool operator==(const LetterPage &, const LetterPage &) = default;
};

/// Paints a page on its paper. The painter's unit must be the point.
void paintPage(LetterRenderer &renderer, LetterPage which, QPainter &painter, QtGlyphs &glyphs);
/// The two halves of paintPage(): first the part that all letters of the form share, then the letter's fields.
void paintShared(LetterRenderer &renderer, LetterPage which, QPainter &painter, QtGlyphs &glyphs);
void paintFields(LetterRenderer &renderer, LetterPage which, QPainter &painter, QtGlyphs &glyphs);
/// Blank paper at `scale` dots per point.
[[nodiscard]] QImage whitePaper(const LetterRenderer &renderer, LetterPage which, double scale);
/// A page as a picture on white paper. Needs no display.
[[nodiscard]] QImage pageImage(LetterRenderer &renderer, LetterPage which, double dotsPerInch, QtGlyphs &glyphs);
/// The same as the bytes of a PNG file.
[[nodiscard]] std::string pagePng(LetterRenderer &renderer, LetterPage which, double dotsPerInch, QtGlyphs &glyphs);

} // namespace inin::viewer
