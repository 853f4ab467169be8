#pragma once

#include <QProxyStyle>

namespace inin::qt {

/// The style of all windows. It differs from the style below it in four things: a menu that the keys have reached in its
/// bar is marked like an open one; on a dark desktop options and check boxes have a visible outline; a group box shows the
/// colour behind it, without a tint; the middle of a push button's face has exactly the button's colour.
class ClearStyle : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
};

} // namespace inin::qt
