#pragma once

#include <QProxyStyle>

class QStyleOptionComboBox;

namespace inin::theme {

/// The text that a drop-down list shows: its chosen text, ending in "…" if there is no room for all of it.
[[nodiscard]] QString shownComboText(const QStyleOptionComboBox &option, const QWidget &combo);

/// The style of all windows. It differs from its base style:
/// - the desktop's palette is made readable;
/// - the focus is always visible, not only after the tab key, on scrolled lists without a selected row too;
/// - boxes for text, drop-down lists and lists have a visible edge, on a dark desktop too;
/// - options and check boxes have a visible outline and mark, on a dark desktop and when they are disabled too;
/// - a focused menu in the menu bar is highlighted like an open one;
/// - a group box has its parent's background colour without a tint;
/// - the centre of a push button has exactly the button's colour;
/// - the text of a drop-down list that does not fit ends in "…";
/// - the button for the menus that a menu bar has no room for is drawn: the base style reads it from a file, for which the
///   toolkit loads its icon plugins at program start.
class ClearStyle : public QProxyStyle {
public:
    using QProxyStyle::polish;
    using QProxyStyle::QProxyStyle;
    void polish(QPalette &palette) override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    [[nodiscard]] QIcon standardIcon(StandardPixmap kind, const QStyleOption *option,
                                     const QWidget *widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;
};

} // namespace inin::theme
