#pragma once

#include "viewer/paint/qt_page_painter.h"

#include <QImage>

#include <cstddef>
#include <deque>
#include <vector>

namespace inin::viewer {

class LetterLayout;

/// Letters as pictures on white paper, all at one scale. What the letters of a form share is painted once, and the pages
/// that were made last are kept: turning a page is often no more than showing the one that was made ahead. Each picture
/// is, dot for dot, what painting the letter as a whole gives.
class LetterPictures {
public:
    /// Both must outlive this.
    LetterPictures(LetterPress &press, QtGlyphs &glyphs) : m_press(press), m_glyphs(glyphs) {}

    /// Dots to the point, and to the toolkit's pixel, which the pictures then say of themselves. Another scale than before
    /// lets all pictures go.
    void setScale(double scale, double dotsPerPixel = 1);
    /// Good until the next call.
    [[nodiscard]] const QImage &of(std::size_t letter);
    [[nodiscard]] bool has(std::size_t letter) const;
    /// False for a scale at which pictures would take more memory than they save time.
    [[nodiscard]] bool isWorthwhile(double scale) const;

private:
    struct Shared {
        const LetterLayout *layout;
        QImage picture;
    };
    struct Page {
        std::size_t letter;
        QImage picture;
    };
    [[nodiscard]] const QImage &sharedOf(std::size_t letter);
    /// In the room of another picture, where that has one.
    [[nodiscard]] QImage painted(std::size_t letter, QImage picture);

    LetterPress &m_press;
    QtGlyphs &m_glyphs;
    double m_scale = 1, m_dotsPerPixel = 1;
    std::vector<Shared> m_shared;
    std::deque<Page> m_pages; ///< the one that was used last in front
};

} // namespace inin::viewer
