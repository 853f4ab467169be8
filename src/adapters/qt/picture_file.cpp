#include "adapters/qt/picture_file.h"

#include "adapters/qt/qt_text.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QPixmapCache>

namespace inin {

namespace {
/// Kilobytes: room for one wallpaper of a large screen, which is checked first and shown then.
constexpr int kRoom = 64 * 1024;

/// A bitmap by its first bytes, as the suite's wallpapers are; nullptr for anything else. To find the format out the
/// toolkit loads all the libraries that it has for pictures, before the first window.
const char *knownFormat(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) && file.read(2) == "BM" ? "BMP" : nullptr;
}
} // namespace

QPixmap pictureOf(const std::string &systemPath)
{
    QPixmapCache::setCacheLimit(kRoom);
    const QString name = toQt(systemPath);
    // Another picture of the same name is another picture.
    const QString key = name + QString::number(QFileInfo(name).lastModified().toMSecsSinceEpoch());
    QPixmap picture;
    if (QPixmapCache::find(key, &picture)) return picture;
    if (picture.load(name, knownFormat(name))) QPixmapCache::insert(key, picture);
    return picture;
}

} // namespace inin
