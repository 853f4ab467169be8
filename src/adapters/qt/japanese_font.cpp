#include "adapters/qt/japanese_font.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QStringList>

#include <algorithm>

namespace inin {

namespace {

/// Fonts with even strokes, which small sizes need, the clearest on a screen first.
constexpr const char *kGoodFonts[] = {"Noto Sans CJK JP", "Noto Sans JP", "Yu Gothic UI", "Meiryo UI",
                                      "Hiragino Sans",    "IPAexGothic",  "IPAGothic",    "VL Gothic"};
/// What the screen is drawn for, and the smallest at which the strokes of 﨑 or 療 stay apart.
constexpr double kPointSize = 9.75;

} // namespace

bool hasJapaneseFont()
{
    return !QFontDatabase::families(QFontDatabase::Japanese).isEmpty();
}

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

const char *missingFontAdvice()
{
    return "No Japanese font is installed. Please install the package fonts-ipaexfont.\n"
           "日本語フォントがありません。パッケージ fonts-ipaexfont をインストールしてください。";
}

} // namespace inin
