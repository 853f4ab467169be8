#include "viewer/window/page_view.h"

#include "viewer/window/open_letters.h"
#include "viewer/window/page_marks.h"
#include "viewer/window/qt_text.h"

#include <QAccessible>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr double kZooms[] = {0.25, 0.33, 0.5, 0.67, 0.75, 1, 1.25, 1.5, 2, 3, 4};
constexpr int kMargin = 16;
constexpr double kPointsPerInch = 72;
/// Zoom factors closer than this are equal.
constexpr double kSame = 0.005;

} // namespace

PageView::PageView(QWidget *parent) : QAbstractScrollArea(parent)
{
    setObjectName(u"pageView"_s);
    setAccessibleName(u"委任状のページ"_s);
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    constexpr int kLeast = 200;
    setMinimumSize(kLeast, kLeast);
    m_ahead.setInterval(0);
    m_ahead.callOnTimeout([this] { makeAhead(); });
}

void PageView::showLetters(OpenLetters *letters)
{
    m_letters = letters;
    m_letter = 0;
    m_marks.clear();
    m_ahead.stop();
    zoomChanged();
    describeLetter();
}

void PageView::showLetter(std::size_t letter)
{
    if (m_letters == nullptr || letter == m_letter || letter >= m_letters->set.size()) return;
    m_direction = letter > m_letter ? 1 : -1;
    const QSize before = letterPixels();
    m_letter = letter;
    m_marks.clear();
    if (letterPixels() != before) zoomChanged();
    describeLetter();
    viewport()->update();
}

void PageView::setMarks(std::vector<PlaceOnPage> places)
{
    m_marks = std::move(places);
    if (!m_marks.empty()) bringIntoView(m_marks.front());
    viewport()->update();
}

void PageView::repaintLetter()
{
    if (m_letters != nullptr) m_letters->pictures.clear();
    viewport()->update();
}

void PageView::showForms()
{
    m_ahead.stop();
    zoomChanged();
}

/// Sets the text for screen readers: the letter and its fields.
void PageView::describeLetter()
{
    if (m_letters == nullptr) return;
    const LetterSet::Place place = m_letters->set.placeOf(m_letter);
    const LetterReport &report = m_letters->set.reports[place.report];
    QString text = qtText(m_letters->names.titleOf(m_letter));
    for (std::size_t column = 0; column < report.columns.size(); ++column) {
        const std::string_view value = report.value(place.row, column);
        if (!value.empty()) text += u"\n"_s + qtText(report.columns[column]) + u"："_s + qtText(value);
    }
    setAccessibleDescription(text);
    QAccessibleEvent event(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
}

double PageView::zoomFor(Fit fit) const
{
    Point paper; // the largest of all pages
    for (std::size_t page = 0; page < pageCount(); ++page) {
        const Point size = m_letters->renderer.paperSize(m_letter, page);
        paper = {std::max(paper.x, size.x), std::max(paper.y, size.y)};
    }
    const double point = logicalDpiY() / kPointsPerInch;
    // Fitting the page assumes no scroll bars; fitting the width assumes a vertical one.
    const int bar = fit == Fit::width ? verticalScrollBar()->sizeHint().width() : 0;
    const QSize room = maximumViewportSize() - QSize(2 * kMargin + bar, 2 * kMargin);
    const double across = room.width() / (paper.x * point), down = room.height() / (paper.y * point);
    return fit == Fit::width ? across : std::min(across, down);
}

bool PageView::usesWidthForPage() const
{
    return m_letters != nullptr && m_fit == Fit::page && zoomFor(Fit::page) < kReadableZoom &&
           zoomFor(Fit::width) > zoomFor(Fit::page);
}

double PageView::zoom() const
{
    if (m_letters == nullptr || m_fit == Fit::none) return m_zoom;
    return std::clamp(zoomFor(usesWidthForPage() ? Fit::width : m_fit), kZooms[0] / 2, *std::rbegin(kZooms));
}

double PageView::pixelsPerPoint() const
{
    return zoom() * logicalDpiY() / kPointsPerInch;
}

std::size_t PageView::pageCount() const
{
    return m_letters->renderer.pageCount(m_letter);
}

QSize PageView::paperPixels(std::size_t page) const
{
    const Point paper = m_letters->renderer.paperSize(m_letter, page);
    const double scale = pixelsPerPoint();
    return {static_cast<int>(std::lround(paper.x * scale)), static_cast<int>(std::lround(paper.y * scale))};
}

QSize PageView::letterPixels() const
{
    QSize whole(0, -kMargin);
    for (std::size_t page = 0; page < pageCount(); ++page) {
        const QSize paper = paperPixels(page);
        whole = {std::max(whole.width(), paper.width()), whole.height() + kMargin + paper.height()};
    }
    return whole;
}

QRect PageView::paperPlace(std::size_t page) const
{
    if (m_letters == nullptr) return {};
    const QSize whole = letterPixels(), room = viewport()->size(), paper = paperPixels(page);
    const auto place = [](int length, int from, int scrolled) {
        return length + 2 * kMargin <= from ? (from - length) / 2 : kMargin - scrolled;
    };
    int above = 0;
    for (std::size_t i = 0; i < page; ++i) above += paperPixels(i).height() + kMargin;
    return {{place(whole.width(), room.width(), horizontalScrollBar()->value()) + (whole.width() - paper.width()) / 2,
             place(whole.height(), room.height(), verticalScrollBar()->value()) + above},
            paper};
}

void PageView::setZoom(double zoom)
{
    m_fit = Fit::none;
    m_zoom = std::clamp(zoom, kZooms[0], *std::rbegin(kZooms));
    zoomChanged();
}

void PageView::setFit(Fit fit)
{
    m_zoom = zoom();
    m_fit = fit;
    zoomChanged();
}

void PageView::zoomIn()
{
    const double now = zoom();
    const auto *const next = std::ranges::find_if(kZooms, [&](double step) { return step > now + kSame; });
    setZoom(next == std::end(kZooms) ? now : *next);
}

void PageView::zoomOut()
{
    const double now = zoom();
    const auto next =
        std::find_if(std::rbegin(kZooms), std::rend(kZooms), [&](double step) { return step < now - kSame; });
    setZoom(next == std::rend(kZooms) ? now : *next);
}

void PageView::zoomChanged()
{
    if (m_letters == nullptr) return;
    const QSize room = maximumViewportSize();
    const QSize over = letterPixels() + QSize(2 * kMargin, 2 * kMargin) - room;
    const bool fitsPage = m_fit == Fit::page && !usesWidthForPage() && pageCount() == 1;
    for (auto [bar, length, page] : {std::tuple(horizontalScrollBar(), over.width(), room.width()),
                                     std::tuple(verticalScrollBar(), over.height(), room.height())}) {
        const bool wasIn = bar->maximum() > 0;
        const double middle = wasIn ? (bar->value() + page / 2.0) / (bar->maximum() + page) : 0;
        bar->setRange(0, fitsPage ? 0 : std::max(0, length));
        bar->setPageStep(page);
        constexpr int kSteps = 12;
        bar->setSingleStep(page / kSteps);
        // Keep the middle of the view where it was.
        if (wasIn) bar->setValue(static_cast<int>(std::lround(middle * (bar->maximum() + page) - page / 2.0)));
    }
    viewport()->update();
    if (onZoom) onZoom();
}

void PageView::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    const bool isAtTop = isAtEnd(-1);
    zoomChanged();
    if (isAtTop) verticalScrollBar()->setValue(verticalScrollBar()->minimum());
}

void PageView::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    const QColor desk = palette().color(QPalette::Window);
    constexpr int kDarker = 118;
    painter.fillRect(event->rect(), desk.darker(kDarker));
    if (m_letters == nullptr) return;
    for (std::size_t page = 0; page < pageCount(); ++page) {
        const QRect paper = paperPlace(page), frame = paper.adjusted(-1, -1, 1, 1);
        if (!frame.intersects(event->rect())) continue;
        painter.save();
        painter.setPen(desk.darker(2 * kDarker));
        painter.drawRect(paper.adjusted(-1, -1, 0, 0));
        painter.fillRect(paper, Qt::white);
        paintPaper(painter, page, event->rect());
        paintMarks(painter, paper.topLeft(), pixelsPerPoint(), m_marks, page);
        painter.restore();
    }
    if (const auto first = std::exchange(onFirstPaint, {})) first();
}

void PageView::paintPaper(QPainter &painter, std::size_t page, const QRect &visible)
{
    const QRect place = paperPlace(page);
    painter.setClipRect(place.intersected(visible));
    // The number of screen dots per toolkit pixel.
    const QTransform toDots = painter.deviceTransform();
    const double scale = pixelsPerPoint() * toDots.m11();
    LetterPictures &pictures = m_letters->pictures;
    const LetterPage which(m_letter, page);
    if (!pictures.isWorthwhile(which, scale)) {
        painter.translate(place.topLeft());
        painter.scale(pixelsPerPoint(), pixelsPerPoint());
        paintPage(m_letters->renderer, which, painter, m_letters->glyphs);
        return;
    }
    pictures.setScale(scale, toDots.m11());
    // Align to whole dots, or every edge would be blurred.
    const QPointF corner = toDots.map(QPointF(place.topLeft()));
    painter.drawImage(toDots.inverted().map(QPointF(std::round(corner.x()), std::round(corner.y()))),
                      pictures.of(which));
    // The cached pictures of more pages would displace one another.
    if (pageCount() == 1) m_ahead.start();
}

/// Paints one neighbouring page at a time, the next in the current direction first, so that user input never waits.
void PageView::makeAhead()
{
    if (m_letters != nullptr) {
        for (const std::ptrdiff_t step : {m_direction, -m_direction}) {
            const std::size_t neighbour = m_letter + static_cast<std::size_t>(step);
            if (neighbour >= m_letters->set.size() || m_letters->pictures.has(neighbour)) continue;
            (void)m_letters->pictures.of(neighbour); // cached until it is shown
            return;
        }
    }
    m_ahead.stop();
}

} // namespace inin::viewer
