#include "viewer/window/cut_text.h"

#include <QPaintEvent>
#include <QStyleOption>
#include <QStylePainter>

namespace inin::viewer {

void CutLabel::setLine(const QString &text)
{
    setText(text);
    setToolTip(text);
}

QSize CutLabel::minimumSizeHint() const
{
    return {fontMetrics().horizontalAdvance(u'…'), QLabel::minimumSizeHint().height()};
}

void CutLabel::paintEvent(QPaintEvent * /*event*/)
{
    QStylePainter painter(this);
    const QRect line = contentsRect();
    painter.drawItemText(line, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                         fontMetrics().elidedText(text(), Qt::ElideRight, line.width()), foregroundRole());
}

StatusLine::StatusLine(QWidget *parent) : QStatusBar(parent)
{
    QObject::connect(this, &QStatusBar::messageChanged, this, [this](const QString &text) { setToolTip(text); });
}

void StatusLine::paintEvent(QPaintEvent * /*event*/)
{
    QStylePainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    painter.drawPrimitive(QStyle::PE_PanelStatusBar, option);
    constexpr int kRoom = 6, kGrip = 20;
    const QRect line = rect().adjusted(kRoom, 0, -kGrip, 0);
    painter.drawItemText(line, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                         fontMetrics().elidedText(currentMessage(), Qt::ElideRight, line.width()), foregroundRole());
}

} // namespace inin::viewer
