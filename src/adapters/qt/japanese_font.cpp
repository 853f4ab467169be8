#include "adapters/qt/japanese_font.h"

#include "adapters/qt/system_words.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QStringList>
#include <QTimer>

#include <algorithm>

namespace inin::qt {

namespace {

/// Fonts with even strokes, which small sizes need, the clearest on a screen first. The names of the Windows fonts are
/// the same in all its languages.
constexpr const char *kGoodFonts[] = {"Noto Sans CJK JP", "Noto Sans JP", "Yu Gothic UI", "Meiryo UI", "MS UI Gothic",
                                      "Hiragino Sans",    "IPAexGothic",  "IPAGothic",    "VL Gothic"};
/// The size that the screen is designed for, and the smallest at which the strokes of 﨑 or 療 stay distinct.
constexpr double kPointSize = 9.75;

} // namespace

NoJapaneseFont::NoJapaneseFont() : std::runtime_error(kWhatToInstall) {}

FontReading::FontReading()
{
    QTimer::singleShot(0, &m_firstWait, [this] { begin(); });
}

void FontReading::begin()
{
    if (m_hasBegun) return;
    m_hasBegun = true;
    m_hasJapanese = std::async(std::launch::async, [] {
        // The toolkit locks its list of fonts itself. The first query reads all fonts.
        return !QFontDatabase::families(QFontDatabase::Japanese).isEmpty();
    });
}

void FontReading::finish()
{
    begin();
    if (!m_hasJapanese.valid()) return;
    if (!m_hasJapanese.get()) throw NoJapaneseFont();
    QApplication::setFont(japaneseFont(QApplication::font()));
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

} // namespace inin::qt
