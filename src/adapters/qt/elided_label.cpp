#include "adapters/qt/elided_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace inin::qt {

/// The toolkit indents the text of a label with a frame by half a character.
QRect ElidedLabel::textRect() const
{
    const int indent = frameWidth() > 0 ? fontMetrics().horizontalAdvance(QLatin1Char('x')) / 2 : 0;
    return contentsRect().adjusted(indent + margin(), margin(), -margin(), -margin());
}

bool ElidedLabel::isCut() const
{
    return !text().contains(QLatin1Char('\n')) && fontMetrics().horizontalAdvance(text()) > textRect().width();
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !isCut()) return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), text(), this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent *event)
{
    if (!isCut()) return QLabel::paintEvent(event);
    QPainter painter(this);
    drawFrame(&painter);
    const QRect place = textRect();
    style()->drawItemText(&painter, place, static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), palette(), isEnabled(),
                          fontMetrics().elidedText(text(), Qt::ElideRight, place.width()), foregroundRole());
}

} // namespace inin::qt
