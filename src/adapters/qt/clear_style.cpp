#include "adapters/qt/clear_style.h"

#include "adapters/qt/theme.h"

#include <QPainter>
#include <QStyleOption>
#include <QWidget>

namespace inin {

namespace {
constexpr int kOutlineAlpha = 150;
constexpr int kDisabledAlpha = 70;
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

void ClearStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                               const QWidget *widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isRound = element == PE_IndicatorRadioButton;
    if ((!isRound && element != PE_IndicatorCheckBox) || !isDark(option->palette)) return;
    QColor outline = option->palette.color(QPalette::WindowText);
    outline.setAlpha((option->state & State_Enabled) != 0 ? kOutlineAlpha : kDisabledAlpha);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(outline);
    painter->setBrush(Qt::NoBrush);
    const QRectF sign = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (isRound)
        painter->drawEllipse(sign);
    else
        painter->drawRect(sign);
    painter->restore();
}

} // namespace inin
