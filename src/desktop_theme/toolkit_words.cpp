#include "desktop_theme/toolkit_words.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace inin::theme {

void useJapaneseWords(QApplication &application)
{
    auto *const words = new QTranslator(&application); // the application owns it
    if (words->load(QStringLiteral("qtbase_ja"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(words);
}

} // namespace inin::theme
