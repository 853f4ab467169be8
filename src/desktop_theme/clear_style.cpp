#include "desktop_theme/clear_style.h"

#include "desktop_theme/contrast.h"
#include "desktop_theme/theme.h"

#include <QAbstractItemView>
#include <QIcon>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPushButton>
#include <QStyleOption>

#include <algorithm>

namespace inin::theme {

namespace {

constexpr int kFrameAlpha = 60;
constexpr qreal kRadius = 3;
/// The width of the frame that shows the focus; the frame of a list has room for it.
constexpr int kFocusFrame = 2;

/// Draws within the scope of one shape, with smooth edges.
class Smoothly {
public:
    explicit Smoothly(QPainter &painter) : m_painter(painter)
    {
        m_painter.save();
        m_painter.setRenderHint(QPainter::Antialiasing);
    }
    Smoothly(const Smoothly &) = delete;
    Smoothly &operator=(const Smoothly &) = delete;
    ~Smoothly() { m_painter.restore(); }

private:
    QPainter &m_painter;
};

/// A rectangle whose outline of this width fills whole pixels inside the given one.
QRectF inside(const QRect &rect, qreal width)
{
    return QRectF(rect).adjusted(width / 2, width / 2, -width / 2, -width / 2);
}

/// Draws a rounded outline inside a rectangle.
void drawOutline(QPainter &painter, const QRect &rect, const QColor &colour, qreal width)
{
    const Smoothly scope(painter);
    painter.setPen(QPen(colour, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(inside(rect, width), kRadius, kRadius);
}

/// Draws the border of a group box below its title, without the tint that the base style lays over the inside.
void drawGroupFrame(const QStyleOption &option, QPainter &painter, int titleHeight)
{
    QColor outline = option.palette.color(QPalette::WindowText);
    outline.setAlpha(kFrameAlpha);
    // Painted opaque: the toolkit paints large translucent shapes in other threads, and waiting for these takes longer.
    drawOutline(painter, option.rect.adjusted(0, titleHeight, 0, 0),
                opaque(outline, option.palette.color(QPalette::Window)), 1);
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

/// The box or circle of a check box or an option, without its mark.
void drawIndicatorBox(const QStyleOption &option, QPainter &painter, const QRectF &shape, bool isRound)
{
    const bool isPressed = (option.state & QStyle::State_Sunken) != 0;
    painter.setPen(QPen(outlineColour(option.palette), 1.2));
    painter.setBrush(option.palette.color(isPressed ? QPalette::AlternateBase : QPalette::Base));
    if (isRound)
        painter.drawEllipse(shape);
    else
        painter.drawRoundedRect(shape, 1.5, 1.5);
}

/// The dot of an option, the tick of a check box, or the line of a check box that is partly ticked.
void drawMark(const QStyleOption &option, QPainter &painter, const QRectF &shape, bool isRound)
{
    constexpr qreal kDot = 0.24, kLine = 0.15;
    const QColor colour = option.palette.color(QPalette::Text);
    const auto place = [&](qreal x, qreal y) {
        return QPointF(shape.left() + x * shape.width(), shape.top() + y * shape.height());
    };
    if (isRound) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        return painter.drawEllipse(shape.center(), kDot * shape.width(), kDot * shape.height());
    }
    QPainterPath mark;
    const bool isPartly = (option.state & QStyle::State_NoChange) != 0;
    mark.moveTo(place(0.22, isPartly ? 0.5 : 0.52));
    if (!isPartly) mark.lineTo(place(0.42, 0.74));
    mark.lineTo(place(0.78, isPartly ? 0.5 : 0.26));
    painter.setPen(QPen(colour, kLine * shape.width(), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(mark);
}

void drawIndicator(const QStyleOption &option, QPainter &painter, bool isRound)
{
    const Smoothly scope(painter);
    const int side = std::min(option.rect.width(), option.rect.height());
    QRect square(0, 0, side, side);
    square.moveCenter(option.rect.center());
    const QRectF shape = inside(square, 1);
    drawIndicatorBox(option, painter, shape, isRound);
    if ((option.state & (QStyle::State_On | QStyle::State_NoChange)) != 0) drawMark(option, painter, shape, isRound);
}

/// A cell of a list in the selected row needs no frame: the frame of the list shows the focus.
void drawFocusFrame(const QStyleOption &option, QPainter &painter, qreal width)
{
    if ((option.state & QStyle::State_Selected) != 0) return;
    drawOutline(painter, option.rect, focusColour(option.palette), width);
}

/// Draws the edge of a box over the pale one of the base style: on a background of nearly the same colour, only the edge
/// shows where the box is. A disabled box keeps the pale one.
void drawBoxEdge(const QStyleOption &option, QPainter &painter, const QRect &edge)
{
    if ((option.state & QStyle::State_HasFocus) != 0)
        drawOutline(painter, edge, focusColour(option.palette), kFocusFrame);
    else if ((option.state & QStyle::State_Enabled) != 0)
        drawOutline(painter, edge, outlineColour(option.palette), 1);
}

/// The sign "»".
QIcon twoArrows(const QColor &colour)
{
    QPixmap picture(16, 16);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1.5));
    for (const qreal left : {3.0, 8.0}) painter.drawPolyline(QPolygonF({{left, 4}, {left + 4, 8}, {left, 12}}));
    return QIcon(picture);
}

} // namespace

QString shownComboText(const QStyleOptionComboBox &option, const QWidget &combo)
{
    constexpr int kMargin = 2; // of the base style, on both sides together
    const QRect place =
        combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo);
    return option.fontMetrics.elidedText(option.currentText, Qt::ElideRight, place.width() - kMargin);
}

void ClearStyle::polish(QPalette &palette)
{
    QProxyStyle::polish(palette);
    palette = readablePalette(palette);
}

void ClearStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                             const QWidget *widget) const
{
    const auto *combo = qstyleoption_cast<const QStyleOptionComboBox *>(option);
    if (element == CE_ComboBoxLabel && combo != nullptr && widget != nullptr) {
        QStyleOptionComboBox fitting = *combo;
        fitting.currentText = shownComboText(*combo, *widget);
        return QProxyStyle::drawControl(element, &fitting, painter, widget);
    }
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    const bool isReached = element == CE_MenuBarItem && item != nullptr && (item->state & State_Selected) != 0 &&
                           widget != nullptr && widget->hasFocus();
    if (!isReached) return QProxyStyle::drawControl(element, option, painter, widget);
    QStyleOptionMenuItem marked = *item;
    marked.state |= State_Sunken;
    QProxyStyle::drawControl(element, &marked, painter, widget);
}

void ClearStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                                    const QWidget *widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox) drawBoxEdge(*option, *painter, option->rect);
    if (control == CC_SpinBox) drawBoxEdge(*option, *painter, option->rect.adjusted(0, 1, 0, -1));
}

void ClearStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                               const QWidget *widget) const
{
    switch (element) {
    case PE_FrameGroupBox: {
        constexpr int kTitleMargin = 3;
        const int title = std::max(pixelMetric(PM_IndicatorHeight, option, widget), option->fontMetrics.height());
        return drawGroupFrame(*option, *painter, title + kTitleMargin);
    }
    case PE_IndicatorRadioButton:
        return drawIndicator(*option, *painter, true);
    case PE_IndicatorCheckBox:
        return drawIndicator(*option, *painter, false);
    case PE_FrameFocusRect:
        return drawFocusFrame(*option, *painter, 1);
    default:
        break;
    }
    const bool isList = element == PE_Frame && qobject_cast<const QAbstractScrollArea *>(widget) != nullptr;
    if (isList && widget->isEnabled()) return drawBoxEdge(*option, *painter, option->rect);
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const auto *button = qobject_cast<const QPushButton *>(widget);
    const bool isButton = element == PE_PanelButtonCommand;
    if (isButton && button != nullptr && !button->isFlat()) drawFace(*option, *painter);
    if (isButton && widget != nullptr && widget->hasFocus()) drawFocusFrame(*option, *painter, kFocusFrame);
    if (element == PE_FrameLineEdit) drawBoxEdge(*option, *painter, option->rect);
}

QIcon ClearStyle::standardIcon(StandardPixmap kind, const QStyleOption *option, const QWidget *widget) const
{
    if (kind == SP_ToolBarHorizontalExtensionButton && widget != nullptr)
        return twoArrows(widget->palette().color(QPalette::ButtonText));
    return QProxyStyle::standardIcon(kind, option, widget);
}

int ClearStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    if (metric == PM_DefaultFrameWidth && qobject_cast<const QAbstractItemView *>(widget) != nullptr)
        return kFocusFrame;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

} // namespace inin::theme
