#include "desktop_theme/theme.h"

#include "desktop_theme/application_icon.h"
#include "desktop_theme/change_filter.h"
#include "desktop_theme/clear_style.h"
#include "desktop_theme/contrast.h"

#include <QApplication>
#include <QStyleFactory>

namespace inin::theme {

namespace {

constexpr int kMiddle = 128;
/// Contrast ratios, above the required 4.5 and 3: the thin strokes of a painted glyph are paler than its colour.
constexpr double kText = 5.5, kDisabledText = 4.5, kOutline = 3.5;
/// The frame of the focus also differs from the light line that the base style paints inside the edge of a dark button.
constexpr double kFocus = 3.5, kFocusOnDark = 9;

/// The window colour of the light theme is that of PrintInin's frames, so that the whole window has one colour.
constexpr QRgb kWindow = 0xFFF6F6F6;

constexpr QPalette::ColorGroup kGroups[] = {QPalette::Active, QPalette::Inactive, QPalette::Disabled};

/// A text and the background that it is painted on.
struct TextPair {
    QPalette::ColorRole text, background;
};
constexpr TextPair kPairs[] = {
    {QPalette::WindowText, QPalette::Window},
    {QPalette::WindowText, QPalette::Base},
    {QPalette::Text, QPalette::Base},
    {QPalette::Text, QPalette::AlternateBase},
    {QPalette::Text, QPalette::Window},
    {QPalette::ButtonText, QPalette::Button},
    {QPalette::ButtonText, QPalette::Window},
    {QPalette::ToolTipText, QPalette::ToolTipBase},
    {QPalette::PlaceholderText, QPalette::Base},
    {QPalette::PlaceholderText, QPalette::Window},
    {QPalette::Link, QPalette::Base},
    {QPalette::Link, QPalette::Window},
};

/// Changes the first colour where its contrast to the second is below the ratio.
void separate(QPalette &palette, QPalette::ColorGroup group, const TextPair &pair, double ratio)
{
    const QColor background = palette.color(group, pair.background);
    const QColor text = opaque(palette.color(group, pair.text), background);
    const QColor readable = withContrast(text, background, ratio);
    if (readable != text) palette.setColor(group, pair.text, readable);
}

} // namespace

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < kMiddle;
}

QPalette darkPalette()
{
    const QColor text(0xE6, 0xE6, 0xE6);
    QPalette palette(QColor(0x3C, 0x3F, 0x43), QColor(0x2B, 0x2D, 0x30));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Base, QColor(0x1F, 0x20, 0x23));
    palette.setColor(QPalette::AlternateBase, QColor(0x27, 0x29, 0x2C));
    palette.setColor(QPalette::ToolTipBase, QColor(0x3C, 0x3F, 0x43));
    palette.setColor(QPalette::PlaceholderText, QColor(0x9A, 0x9C, 0xA0));
    palette.setColor(QPalette::Highlight, QColor(0x2F, 0x6F, 0xB5));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x85, 0x87, 0x8B));
    return readablePalette(palette);
}

QPalette readablePalette(QPalette palette)
{
    if (!isDark(palette)) palette.setColor(QPalette::Window, QColor::fromRgb(kWindow));
    for (const QPalette::ColorGroup group : kGroups) {
        const double ratio = group == QPalette::Disabled ? kDisabledText : kText;
        for (const TextPair &pair : kPairs) separate(palette, group, pair, ratio);
        // Selected text keeps its colour; the selection becomes darker or lighter.
        separate(palette, group, {QPalette::Highlight, QPalette::HighlightedText}, ratio);
    }
    return palette;
}

QColor outlineColour(const QPalette &palette)
{
    const QColor window = palette.color(QPalette::Window);
    return withContrast(window, window, kOutline);
}

QColor focusColour(const QPalette &palette)
{
    return withContrast(palette.color(QPalette::Active, QPalette::Highlight), palette.color(QPalette::Window),
                        isDark(palette) ? kFocusOnDark : kFocus);
}

void applyTheme(QApplication &application)
{
    // The style makes the desktop's palette readable. A palette that is set explicitly does not pass through it.
    application.setStyle(new ClearStyle(QStyleFactory::create(QStringLiteral("Fusion")))); // owned by the application
    const auto restore = [] {
        const QPalette readable = readablePalette(QApplication::palette());
        if (readable != QApplication::palette()) QApplication::setPalette(readable);
    };
    restore();
    new ChangeFilter(application, QEvent::ApplicationPaletteChange, restore);
    QApplication::setWindowIcon(applicationIcon());
}

} // namespace inin::theme
