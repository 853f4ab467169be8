#include "desktop_theme/japanese_font.h"

#include "desktop_theme/change_filter.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QStringList>

#include <algorithm>

namespace inin::theme {

namespace {

/// Fonts with even strokes, which small sizes need, the clearest on a screen first. The names of the Windows fonts are
/// the same in all its languages.
constexpr const char *kGoodFonts[] = {"Noto Sans CJK JP", "Noto Sans JP", "Yu Gothic UI", "Meiryo UI", "MS UI Gothic",
                                      "Hiragino Sans",    "IPAexGothic",  "IPAGothic",    "VL Gothic"};
/// The size that the screens are designed for, and the smallest at which the strokes of 﨑 or 療 stay distinct.
constexpr double kPointSize = 9.75;

} // namespace

QFont japaneseFont(const QFont &desktop)
{
    QFont font = desktop;
    font.setPointSizeF(std::max(desktop.pointSizeF(), kPointSize));
    const QString family = QFontInfo(desktop).family();
    if (QFontDatabase::writingSystems(family).contains(QFontDatabase::Japanese)) return font;
    const QStringList japanese = QFontDatabase::families(QFontDatabase::Japanese);
    for (const char *good : kGoodFonts)
        if (japanese.contains(QLatin1String(good))) {
            font.setFamilies({QLatin1String(good)});
            return font;
        }
    if (!japanese.isEmpty()) font.setFamilies({japanese.front()});
    return font;
}

void useJapaneseFont(QApplication &application)
{
    const auto restore = [] {
        const QFont font = japaneseFont(QApplication::font());
        if (font != QApplication::font()) QApplication::setFont(font);
    };
    restore();
    new ChangeFilter(application, QEvent::ApplicationFontChange, restore); // owned by the application
}

} // namespace inin::theme
