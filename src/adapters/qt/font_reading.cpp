#include "adapters/qt/font_reading.h"

#include "adapters/qt/system_words.h"
#include "desktop_theme/japanese_font.h"

#include <QApplication>
#include <QFontDatabase>

namespace inin::qt {

NoJapaneseFont::NoJapaneseFont() : std::runtime_error(kWhatToInstall) {}

FontReading::FontReading()
    : m_hasJapanese(std::async(std::launch::async, [] {
          // The toolkit locks its list of fonts itself. The first query reads all fonts.
          return !QFontDatabase::families(QFontDatabase::Japanese).isEmpty();
      }))
{
}

void FontReading::finish()
{
    if (!m_hasJapanese.valid()) return;
    if (!m_hasJapanese.get()) throw NoJapaneseFont();
    theme::useJapaneseFont(*qApp);
}

} // namespace inin::qt
