#include "viewer/paint/letter_pictures.h"

#include "viewer/document/letter_renderer.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace inin::viewer {

namespace {

/// The current page, its two neighbours and the previously shown one.
constexpr std::size_t kKept = 4;
/// A4 at 300 dots per inch; four bytes per dot.
constexpr double kMaxDots = 8.8e6;

} // namespace

bool LetterPictures::isWorthwhile(LetterPage which, double scale) const
{
    const Point paper = m_renderer.paperSize(which.letter, which.page);
    return paper.x * scale * paper.y * scale <= kMaxDots;
}

void LetterPictures::setScale(double scale, double dotsPerPixel)
{
    if (scale == m_scale && dotsPerPixel == m_dotsPerPixel) return;
    m_scale = scale;
    m_dotsPerPixel = dotsPerPixel;
    clearAll();
}

bool LetterPictures::has(LetterPage which) const
{
    return std::ranges::find(m_pages, which, &Page::which) != m_pages.end();
}

const QImage &LetterPictures::of(LetterPage which)
{
    const auto found = std::ranges::find(m_pages, which, &Page::which);
    if (found != m_pages.end()) {
        std::rotate(m_pages.begin(), found, found + 1);
    } else {
        // Reuse the memory of the oldest page: allocating it takes half as long as painting a page.
        QImage room;
        if (m_pages.size() == kKept) {
            room = std::move(m_pages.back().picture);
            m_pages.pop_back();
        }
        m_pages.push_front({which, painted(which, std::move(room))});
    }
    return m_pages.front().picture;
}

const QImage &LetterPictures::sharedOf(LetterPage which)
{
    const LetterLayout &layout = m_renderer.layoutOf(which.letter);
    const auto found = std::ranges::find_if(
        m_shared, [&](const Shared &shared) { return shared.layout == &layout && shared.page == which.page; });
    if (found != m_shared.end()) return found->picture;
    QImage picture = whitePaper(m_renderer, which, m_scale);
    QPainter painter(&picture);
    painter.scale(m_scale, m_scale);
    paintShared(m_renderer, which, painter, m_glyphs);
    return m_shared.emplace_back(Shared{&layout, which.page, std::move(picture)}).picture;
}

QImage LetterPictures::painted(LetterPage which, QImage picture)
{
    const QImage &shared = sharedOf(which);
    if (picture.size() == shared.size() && picture.isDetached()) {
        picture.setDevicePixelRatio(1);
        std::memcpy(picture.bits(), shared.constBits(), static_cast<std::size_t>(shared.sizeInBytes()));
    } else {
        picture = shared.copy();
    }
    QPainter painter(&picture);
    painter.scale(m_scale, m_scale);
    paintFields(m_renderer, which, painter, m_glyphs);
    painter.end();
    picture.setDevicePixelRatio(m_dotsPerPixel);
    return picture;
}

} // namespace inin::viewer
