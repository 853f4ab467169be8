#include "adapters/qt/clear_style.h"

#include "adapters/qt/theme.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>

#include <algorithm>

namespace inin::qt {

namespace {
constexpr int kOutlineAlpha = 150;
constexpr int kDisabledAlpha = 70;
constexpr int kFrameAlpha = 60;
} // namespace

void ClearStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                             const QWidget *widget) const
{
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    const bool isReached = element == CE_MenuBarItem && item != nullptr && (item->state & State_Selected) != 0 &&
                           widget != nullptr && widget->hasFocus();
    if (!isReached) return QProxyStyle::drawControl(element, option, painter, widget);
    QStyleOptionMenuItem marked = *item;
    marked.state |= State_Sunken;
    QProxyStyle::drawControl(element, &marked, painter, widget);
}

namespace {

/// Draws the border of a group box below its title, without the tint that the base style lays over the inside.
void drawGroupFrame(const QStyleOption &option, QPainter &painter, int titleHeight)
{
    constexpr qreal kRadius = 3;
    constexpr qreal kHalfPen = 0.5;
    QColor outline = option.palette.color(QPalette::WindowText);
    outline.setAlpha(kFrameAlpha);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(outline);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(kHalfPen, titleHeight + kHalfPen, -kHalfPen, -kHalfPen),
                            kRadius, kRadius);
    painter.restore();
}

/// Draws the face of a push button inside its edge. The base style would make it paler than the button's colour.
void drawFace(const QStyleOption &option, QPainter &painter)
{
    constexpr int kEdge = 2;                                  // the outline and the light line inside it
    constexpr int kCurve = 104, kHover = 103, kPressed = 112; // percent
    constexpr qreal kMiddleFrom = 0.4, kMiddleTo = 0.6;
    QColor colour = option.palette.color(QPalette::Button);
    const bool isPressed = (option.state & (QStyle::State_Sunken | QStyle::State_On)) != 0;
    if (isPressed)
        colour = colour.darker(kPressed);
    else if ((option.state & QStyle::State_MouseOver) != 0)
        colour = colour.lighter(kHover);
    const QRect face = option.rect.adjusted(kEdge, kEdge, -kEdge, -kEdge);
    QLinearGradient gradient(face.topLeft(), face.bottomLeft());
    gradient.setColorAt(0, isPressed ? colour : colour.lighter(kCurve));
    gradient.setColorAt(kMiddleFrom, colour);
    gradient.setColorAt(kMiddleTo, colour);
    gradient.setColorAt(1, isPressed ? colour : colour.darker(kCurve));
    painter.fillRect(face, gradient);
}

/// Draws the outline of options and check boxes. The base style always draws it darker than the window.
void drawIndicatorOutline(const QStyleOption &option, QPainter &painter, bool isRound)
{
    QColor outline = option.palette.color(QPalette::WindowText);
    outline.setAlpha((option.state & QStyle::State_Enabled) != 0 ? kOutlineAlpha : kDisabledAlpha);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(outline);
    painter.setBrush(Qt::NoBrush);
    const QRectF sign = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (isRound)
        painter.drawEllipse(sign);
    else
        painter.drawRect(sign);
    painter.restore();
}

} // namespace

void ClearStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                               const QWidget *widget) const
{
    if (element == PE_FrameGroupBox) {
        constexpr int kTitleMargin = 3;
        const int title = std::max(pixelMetric(PM_IndicatorHeight, option, widget), option->fontMetrics.height());
        return drawGroupFrame(*option, *painter, title + kTitleMargin);
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const auto *button = qobject_cast<const QPushButton *>(widget);
    if (element == PE_PanelButtonCommand && button != nullptr && !button->isFlat()) drawFace(*option, *painter);
    const bool isRound = element == PE_IndicatorRadioButton;
    if ((isRound || element == PE_IndicatorCheckBox) && isDark(option->palette))
        drawIndicatorOutline(*option, *painter, isRound);
}

} // namespace inin::qt
