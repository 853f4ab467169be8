#pragma once

#include <QProxyStyle>

namespace inin::qt {

/// The style of all windows. It differs from its base style in four ways: a focused menu in the menu bar is highlighted
/// like an open one; options and check boxes have a visible outline on a dark desktop; a group box has its parent's
/// background colour without a tint; the centre of a push button has exactly the button's colour.
class ClearStyle : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
};

} // namespace inin::qt
