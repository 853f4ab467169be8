#pragma once

#include <QProxyStyle>

namespace inin {

/// The style of all windows. On a dark desktop the signs of options and check boxes get an outline that can be seen; the
/// style below draws it darker than the window, whatever the window's colour is.
class ClearStyle : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
};

} // namespace inin
