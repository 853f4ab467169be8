#include "viewer/window/page_view.h"

#include "viewer/window/open_letters.h"
#include "viewer/window/page_marks.h"
#include "viewer/window/qt_text.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstdlib>
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
    m_letter = letter;
    m_marks.clear();
    describeLetter();
    viewport()->update();
}

void PageView::setMarks(std::vector<viewer::Box> places)
{
    m_marks = std::move(places);
    viewport()->update();
}

void PageView::repaintLetter()
{
    if (m_letters != nullptr) m_letters->pictures.clear();
    viewport()->update();
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
    const Point paper = m_letters->renderer.paperSize();
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

QSize PageView::paperPixels() const
{
    const Point paper = m_letters->renderer.paperSize();
    const double scale = pixelsPerPoint();
    return {static_cast<int>(std::lround(paper.x * scale)), static_cast<int>(std::lround(paper.y * scale))};
}

QRect PageView::paperPlace() const
{
    if (m_letters == nullptr) return {};
    const QSize paper = paperPixels(), room = viewport()->size();
    const auto place = [](int length, int from, int scrolled) {
        return length + 2 * kMargin <= from ? (from - length) / 2 : kMargin - scrolled;
    };
    return {{place(paper.width(), room.width(), horizontalScrollBar()->value()),
             place(paper.height(), room.height(), verticalScrollBar()->value())},
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
    const QSize over = paperPixels() + QSize(2 * kMargin, 2 * kMargin) - room;
    const bool fitsPage = m_fit == Fit::page && !usesWidthForPage();
    for (auto [bar, length, page] : {std::tuple(horizontalScrollBar(), over.width(), room.width()),
                                     std::tuple(verticalScrollBar(), over.height(), room.height())}) {
        const bool wasIn = bar->maximum() > 0;
        const double middle = wasIn ? (bar->value() + page / 2.0) / (bar->maximum() + page) : 0;
        bar->setRange(0, fitsPage ? 0 : std::max(0, length));
        bar->setPageStep(page);
        constexpr int kSteps = 12;
        bar->setSingleStep(page / kSteps);
        // Keep the middle of the view where it was.
        if (wasIn) bar->setValue(static_cast<int>(middle * (bar->maximum() + page) - page / 2.0));
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
    const QRect paper = paperPlace();
    painter.setPen(desk.darker(2 * kDarker));
    painter.drawRect(paper.adjusted(-1, -1, 0, 0));
    painter.fillRect(paper, Qt::white);
    painter.setClipRect(paper.intersected(event->rect()));
    paintPaper(painter, paper);
    paintMarks(painter, paper.topLeft(), pixelsPerPoint(), m_marks);
    if (const auto first = std::exchange(onFirstPaint, {})) first();
}

void PageView::paintPaper(QPainter &painter, const QRect &place)
{
    // The number of screen dots per toolkit pixel.
    const QTransform toDots = painter.deviceTransform();
    const double scale = pixelsPerPoint() * toDots.m11();
    LetterPictures &pictures = m_letters->pictures;
    if (!pictures.isWorthwhile(scale)) {
        painter.translate(place.topLeft());
        painter.scale(pixelsPerPoint(), pixelsPerPoint());
        paintLetter(m_letters->renderer, m_letter, painter, m_letters->glyphs);
        return;
    }
    pictures.setScale(scale, toDots.m11());
    // Align to whole dots, or every edge would be blurred.
    const QPointF corner = toDots.map(QPointF(place.topLeft()));
    painter.drawImage(toDots.inverted().map(QPointF(std::round(corner.x()), std::round(corner.y()))),
                      pictures.of(m_letter));
    m_ahead.start();
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

bool PageView::isAtEnd(int direction) const
{
    const QScrollBar *const bar = verticalScrollBar();
    return bar->value() == (direction > 0 ? bar->maximum() : bar->minimum());
}

/// Continues in the next letter at its top, or in the previous one at its end.
void PageView::turn(int direction)
{
    if (!onTurn) return;
    QScrollBar *const bar = verticalScrollBar();
    const std::size_t before = m_letter;
    onTurn(direction);
    if (m_letter != before) bar->setValue(direction > 0 ? bar->minimum() : bar->maximum());
}

void PageView::turnOrScroll(int direction)
{
    if (isAtEnd(direction)) return turn(direction);
    QScrollBar *const bar = verticalScrollBar();
    bar->setValue(bar->value() + direction * bar->pageStep());
}

/// Turns one letter for each notch. A touch pad sends fractions of a notch, and more of them after the finger has left
/// it: those must not turn several letters.
void PageView::turnByWheel(const QWheelEvent &event)
{
    if (event.phase() == Qt::ScrollMomentum) return;
    const int angle = event.angleDelta().y();
    if ((angle < 0) != (m_wheel < 0)) m_wheel = 0;
    m_wheel += angle;
    constexpr int kNotch = QWheelEvent::DefaultDeltasPerStep;
    if (std::abs(m_wheel) < kNotch) return;
    m_wheel = 0;
    turn(angle < 0 ? 1 : -1);
}

void PageView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_PageDown) return turnOrScroll(1);
    if (event->key() == Qt::Key_PageUp) return turnOrScroll(-1);
    QAbstractScrollArea::keyPressEvent(event);
}

void PageView::wheelEvent(QWheelEvent *event)
{
    const int angle = event->angleDelta().y();
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        if (angle != 0) angle > 0 ? zoomIn() : zoomOut();
    } else if (angle != 0 && isAtEnd(angle < 0 ? 1 : -1)) {
        turnByWheel(*event);
    } else {
        m_wheel = 0;
        return QAbstractScrollArea::wheelEvent(event);
    }
    event->accept();
}

} // namespace inin::viewer
