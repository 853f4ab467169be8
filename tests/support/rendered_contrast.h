#pragma once

#include "desktop_theme/contrast.h"

#include <QApplication>
#include <QImage>
#include <QPalette>
#include <QStyle>
#include <QStyleOption>
#include <QWidget>

#include <algorithm>
#include <map>

namespace inin {

/// A widget as it is painted in its window.
[[nodiscard]] inline QImage paintedImage(QWidget &widget)
{
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// The contrast of what is painted on the background of an area: the highest contrast of any pixel to the most frequent
/// colour. The area is in the coordinates of the widget that the image shows.
[[nodiscard]] inline double paintedContrast(const QImage &image, const QRect &area)
{
    const qreal scale = image.devicePixelRatio();
    const QRect pixels =
        QRectF(QPointF(area.topLeft()) * scale, QSizeF(area.size()) * scale).toAlignedRect() & image.rect();
    std::map<QRgb, int> counts;
    for (int y = pixels.top(); y <= pixels.bottom(); ++y)
        for (int x = pixels.left(); x <= pixels.right(); ++x) ++counts[image.pixel(x, y)];
    const auto background = std::ranges::max_element(counts, {}, [](const auto &each) { return each.second; });
    double highest = 1;
    for (const auto &each : counts)
        highest = std::max(highest, theme::contrastRatio(QColor(each.first), QColor(background->first)));
    return highest;
}
[[nodiscard]] inline double paintedContrast(QWidget &widget)
{
    return paintedContrast(paintedImage(widget), widget.rect());
}

/// The box or circle of an option or check box, in the coordinates of its widget.
[[nodiscard]] inline QRect indicatorRect(const QWidget &widget, QStyle::SubElement element)
{
    QStyleOptionButton option;
    option.initFrom(&widget);
    return widget.style()->subElementRect(element, &option, &widget).adjusted(-2, -2, 2, 2);
}

/// Restores the application's palette at the end of a test.
class PaletteForNow {
public:
    explicit PaletteForNow(const QPalette &palette) : m_before(QApplication::palette()) { change(palette); }
    PaletteForNow(const PaletteForNow &) = delete;
    PaletteForNow &operator=(const PaletteForNow &) = delete;
    ~PaletteForNow() { change(m_before); }
    static void change(const QPalette &palette)
    {
        QApplication::setPalette(palette);
        QApplication::processEvents();
    }

private:
    QPalette m_before;
};

} // namespace inin
