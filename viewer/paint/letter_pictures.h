#pragma once

#include "viewer/paint/qt_letter_page.h"

#include <QImage>

#include <cstddef>
#include <deque>
#include <vector>

namespace inin::viewer {

class LetterLayout;

/// Pages of letters as pictures on white paper at one scale. Caches the shared part of each form and the most recent pages,
/// so that turning a page is often immediate. Each picture has exactly the pixels of a page that is painted as a whole.
class LetterPictures {
public:
    /// `renderer` and `glyphs` must outlive this object.
    LetterPictures(LetterRenderer &renderer, QtGlyphs &glyphs) : m_renderer(renderer), m_glyphs(glyphs) {}

    /// Dots per point, and dots per pixel of the toolkit as the pictures' device pixel ratio. A change clears the cache.
    void setScale(double scale, double dotsPerPixel = 1);
    /// Paints the letters again: their fields have changed.
    void clear() { m_pages.clear(); }
    /// Paints forms and letters again: the layouts have changed.
    void clearAll()
    {
        m_shared.clear();
        m_pages.clear();
    }
    /// Valid until the next call.
    [[nodiscard]] const QImage &of(LetterPage which);
    [[nodiscard]] bool has(LetterPage which) const;
    /// False for a scale at which the cached picture of a page would need too much memory.
    [[nodiscard]] bool isWorthwhile(LetterPage which, double scale) const;

private:
    struct Shared {
        const LetterLayout *layout;
        std::size_t page;
        QImage picture;
    };
    struct Page {
        LetterPage which;
        QImage picture;
    };
    [[nodiscard]] const QImage &sharedOf(LetterPage which);
    /// Reuses the memory of `picture` if it is suitable.
    [[nodiscard]] QImage painted(LetterPage which, QImage picture);

    LetterRenderer &m_renderer;
    QtGlyphs &m_glyphs;
    double m_scale = 1, m_dotsPerPixel = 1;
    std::vector<Shared> m_shared;
    std::deque<Page> m_pages; ///< the most recently used first
};

} // namespace inin::viewer
