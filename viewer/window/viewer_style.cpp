#include "viewer/window/viewer_style.h"

#include "desktop_theme/japanese_font.h"
#include "desktop_theme/theme.h"
#include "desktop_theme/toolkit_words.h"

#include <QApplication>

namespace inin::viewer {

void applyStyle(QApplication &application)
{
    theme::useJapaneseWords(application);
    theme::applyTheme(application);
    theme::useJapaneseFont(application);
    // Desktops append this name to every window title that does not already end with it; the main window's title does.
    application.setApplicationDisplayName(QStringLiteral("印刷プレビュー"));
}

QPalette noticePalette(QPalette palette)
{
    const bool dark = theme::isDark(palette);
    palette.setColor(QPalette::Window, dark ? QColor(0x4A, 0x42, 0x1E) : QColor(0xFF, 0xF4, 0xC8));
    palette.setColor(QPalette::WindowText, dark ? QColor(0xF4, 0xEC, 0xC8) : QColor(0x3A, 0x30, 0x00));
    return palette;
}

QPalette warningPalette(QPalette palette)
{
    palette.setColor(QPalette::WindowText,
                     theme::isDark(palette) ? QColor(0xFF, 0x9C, 0x90) : QColor(0xA8, 0x1C, 0x10));
    return palette;
}

} // namespace inin::viewer
