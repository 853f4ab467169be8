#include "adapters/qt/theme.h"

#include "adapters/qt/clear_style.h"

#include <QApplication>
#include <QStyleFactory>
#include <QWidget>

namespace inin::qt {

namespace {

constexpr int kMiddle = 128;
/// A colour below this saturation is a grey, which is replaced by the desktop's own.
constexpr int kGrey = 24;
constexpr float kDarkLightness = 0.26F;

/// The window colour of the light theme is that of the frames, so that the whole window has one colour.
constexpr QRgb kWindow = 0xFFF6F6F6;

QPalette lightPalette(QPalette palette)
{
    palette.setColor(QPalette::Window, QColor::fromRgb(kWindow));
    return palette;
}

} // namespace

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < kMiddle;
}

QPalette darkPalette()
{
    const QColor letters(0xE6, 0xE6, 0xE6);
    QPalette palette(QColor(0x3C, 0x3F, 0x43), QColor(0x2B, 0x2D, 0x30));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, letters);
    palette.setColor(QPalette::Base, QColor(0x1F, 0x20, 0x23));
    palette.setColor(QPalette::AlternateBase, QColor(0x27, 0x29, 0x2C));
    palette.setColor(QPalette::ToolTipBase, QColor(0x3C, 0x3F, 0x43));
    palette.setColor(QPalette::PlaceholderText, QColor(0x9A, 0x9C, 0xA0));
    palette.setColor(QPalette::Highlight, QColor(0x2F, 0x6F, 0xB5));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x85, 0x87, 0x8B));
    return palette;
}

void applyTheme(QApplication &application)
{
    application.setStyle(new ClearStyle(QStyleFactory::create("Fusion"))); // the application owns its style
    const QPalette desktop = application.palette();
    if (!isDark(desktop)) application.setPalette(lightPalette(desktop));
}

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
