// Scrolling and turning in the page view, by keys, by the wheel and to a place.
#include "viewer/window/page_view.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <cstdlib>

namespace inin::viewer {

bool PageView::isAtEnd(int direction) const
{
    const QScrollBar *const bar = verticalScrollBar();
    return bar->value() == (direction > 0 ? bar->maximum() : bar->minimum());
}

/// Scrolls no further than needed.
void PageView::bringIntoView(const PlaceOnPage &place)
{
    constexpr int kRoom = 16; // pixels around the place
    const double scale = pixelsPerPoint();
    const int top = paperPlace(place.page).top() + static_cast<int>(place.top * scale);
    const int above = top - kRoom, below = top + static_cast<int>(place.height * scale) + kRoom - viewport()->height();
    QScrollBar *const bar = verticalScrollBar();
    if (above < 0)
        bar->setValue(bar->value() + above);
    else if (below > 0)
        bar->setValue(bar->value() + below);
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
