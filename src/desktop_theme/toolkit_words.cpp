#include "desktop_theme/toolkit_words.h"

#include "desktop_theme/toolkit_folder.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace inin::theme {

void useJapaneseWords(QApplication &application)
{
    auto *const words = new QTranslator(&application);
    const QString name = QStringLiteral("qtbase_ja");
    if (words->load(name, toolkitFolder() + QStringLiteral("/translations")) ||
        words->load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(words);
}

} // namespace inin::theme
