#include "adapters/qt/picture_file.h"

#include "adapters/qt/plain_bitmap.h"
#include "adapters/qt/qt_text.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QPixmapCache>

namespace inin {

namespace {
/// Kilobytes: room for one wallpaper of a large screen, which is checked first and shown then.
constexpr int kRoom = 64 * 1024;

QPixmap readPicture(const QString &name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QImage plain = plainBitmap(file.readAll());
    return plain.isNull() ? QPixmap(name) : QPixmap::fromImage(plain);
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
    picture = readPicture(name);
    if (!picture.isNull()) QPixmapCache::insert(key, picture);
    return picture;
}

} // namespace inin
