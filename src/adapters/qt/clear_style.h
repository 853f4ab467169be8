#pragma once

#include <QProxyStyle>

namespace inin {

/// The style of all windows. A menu that the keys have reached in its bar is marked as an open one is; the style below
/// draws it as any other. On a dark desktop the signs of options and check boxes get an outline that can be seen; the
/// style below draws it darker than the window, whatever the window's colour is.
class ClearStyle : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
};

} // namespace inin
