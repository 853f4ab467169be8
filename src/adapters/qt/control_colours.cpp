#include "adapters/qt/control_colours.h"

#include "desktop_theme/theme.h"

#include <QApplication>
#include <QWidget>

namespace inin::qt {

using theme::isDark;

namespace {

/// A colour below this saturation is a grey, which is replaced by the desktop's own.
constexpr int kGrey = 24;
constexpr float kDarkLightness = 0.26F;

} // namespace

std::optional<QColor> themedColour(std::int32_t blueGreenRed, const QPalette &palette)
{
    if (blueGreenRed < 0) return std::nullopt;
    constexpr int kByte = 0xFF;
    const QColor colour(blueGreenRed & kByte, (blueGreenRed >> 8) & kByte, (blueGreenRed >> 16) & kByte);
    if (!isDark(palette)) return colour;
    if (colour.hslSaturation() < kGrey) return std::nullopt;
    return QColor::fromHslF(colour.hslHueF(), colour.hslSaturationF() / 2, kDarkLightness);
}

void paintWith(QWidget &widget, std::int32_t blueGreenRed)
{
    const QPalette desktop = QApplication::palette(&widget);
    const std::optional<QColor> colour = themedColour(blueGreenRed, desktop);
    if (!colour) return widget.setPalette({});
    QPalette own;
    for (const auto role : {QPalette::Button, QPalette::Window}) own.setColor(role, *colour);
    widget.setPalette(own);
}

void colourByReading(QWidget &box, Reading reading)
{
    const bool dark = isDark(QApplication::palette());
    QPalette own;
    if (reading == Reading::unreadable)
        own.setColor(QPalette::Base, dark ? QColor(0x5A, 0x24, 0x28) : QColor(0xFF, 0xDF, 0xDC));
    else if (reading == Reading::doubtful)
        own.setColor(QPalette::Base, dark ? QColor(0x4D, 0x45, 0x1C) : QColor(0xFF, 0xF6, 0xCC));
    box.setPalette(own);
}

} // namespace inin::qt
