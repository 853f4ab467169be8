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

bool LetterPictures::isWorthwhile(double scale) const
{
    const Point paper = m_renderer.paperSize();
    return paper.x * scale * paper.y * scale <= kMaxDots;
}

void LetterPictures::setScale(double scale, double dotsPerPixel)
{
    if (scale == m_scale && dotsPerPixel == m_dotsPerPixel) return;
    m_scale = scale;
    m_dotsPerPixel = dotsPerPixel;
    m_shared.clear();
    m_pages.clear();
}

bool LetterPictures::has(std::size_t letter) const
{
    return std::ranges::find(m_pages, letter, &Page::letter) != m_pages.end();
}

const QImage &LetterPictures::of(std::size_t letter)
{
    const auto found = std::ranges::find(m_pages, letter, &Page::letter);
    if (found != m_pages.end()) {
        std::rotate(m_pages.begin(), found, found + 1);
    } else {
        // Reuse the memory of the oldest page: allocating it takes half as long as painting a page.
        QImage room;
        if (m_pages.size() == kKept) {
            room = std::move(m_pages.back().picture);
            m_pages.pop_back();
        }
        m_pages.push_front({letter, painted(letter, std::move(room))});
    }
    return m_pages.front().picture;
}

const QImage &LetterPictures::sharedOf(std::size_t letter)
{
    const LetterLayout &layout = m_renderer.layoutOf(letter);
    const auto found = std::ranges::find(m_shared, &layout, &Shared::layout);
    if (found != m_shared.end()) return found->picture;
    QImage picture = whitePaper(m_renderer, m_scale);
    QPainter painter(&picture);
    painter.scale(m_scale, m_scale);
    paintShared(m_renderer, letter, painter, m_glyphs);
    return m_shared.emplace_back(Shared{&layout, std::move(picture)}).picture;
}

QImage LetterPictures::painted(std::size_t letter, QImage picture)
{
    const QImage &shared = sharedOf(letter);
    if (picture.size() == shared.size() && picture.isDetached()) {
        picture.setDevicePixelRatio(1);
        std::memcpy(picture.bits(), shared.constBits(), static_cast<std::size_t>(shared.sizeInBytes()));
    } else {
        picture = shared.copy();
    }
    QPainter painter(&picture);
    painter.scale(m_scale, m_scale);
    paintFields(m_renderer, letter, painter, m_glyphs);
    painter.end();
    picture.setDevicePixelRatio(m_dotsPerPixel);
    return picture;
}

} // namespace inin::viewer
