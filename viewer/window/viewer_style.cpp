#include "viewer/window/viewer_style.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLibraryInfo>
#include <QStyleFactory>
#include <QTranslator>

namespace inin::viewer {

namespace {

/// Fonts with strokes of even width, which small sizes need, the most legible on a screen first.
constexpr const char *kFonts[] = {"Noto Sans CJK JP", "Noto Sans JP", "Yu Gothic UI", "Meiryo UI",
                                  "Hiragino Sans",    "IPAexGothic",  "IPAGothic",    "VL Gothic"};
/// Below this the strokes of 療 merge.
constexpr double kMinPoints = 9.75;
constexpr int kMiddle = 128;

/// The style draws the edges of boxes darker than the window: on a darker background they would be invisible.
QPalette readableDark(QPalette palette)
{
    constexpr int kLighter = 160, kAlternate = 175;
    const QColor window = palette.color(QPalette::Window);
    if (palette.color(QPalette::Base).lightness() >= window.lightness()) return palette;
    palette.setColor(QPalette::Base, window.lighter(kLighter));
    palette.setColor(QPalette::AlternateBase, window.lighter(kAlternate));
    return palette;
}

QFont windowFont(QFont font)
{
    font.setPointSizeF(std::max(font.pointSizeF(), kMinPoints));
    if (QFontDatabase::writingSystems(QFontInfo(font).family()).contains(QFontDatabase::Japanese)) return font;
    const QStringList japanese = QFontDatabase::families(QFontDatabase::Japanese);
    for (const char *good : kFonts)
        if (japanese.contains(QLatin1String(good))) {
            font.setFamilies({QLatin1String(good)});
            return font;
        }
    if (!japanese.isEmpty()) font.setFamilies({japanese.front()});
    return font;
}

} // namespace

void applyStyle(QApplication &application)
{
    // The Japanese texts of the toolkit's own dialogs, where the system has them.
    auto *const texts = new QTranslator(&application);
    if (texts->load(QStringLiteral("qtbase_ja"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(texts);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setFont(windowFont(QApplication::font()));
    if (isDark(QApplication::palette())) QApplication::setPalette(readableDark(QApplication::palette()));
    // Desktops append this name to every window title that does not already end with it; the main window's title does.
    application.setApplicationDisplayName(QStringLiteral("印刷プレビュー"));
}

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < kMiddle;
}

QPalette noticePalette(QPalette palette)
{
    const bool dark = isDark(palette);
    palette.setColor(QPalette::Window, dark ? QColor(0x4A, 0x42, 0x1E) : QColor(0xFF, 0xF4, 0xC8));
    palette.setColor(QPalette::WindowText, dark ? QColor(0xF4, 0xEC, 0xC8) : QColor(0x3A, 0x30, 0x00));
    return palette;
}

QPalette warningPalette(QPalette palette)
{
    palette.setColor(QPalette::WindowText, isDark(palette) ? QColor(0xFF, 0x9C, 0x90) : QColor(0xA8, 0x1C, 0x10));
    return palette;
}

} // namespace inin::viewer
