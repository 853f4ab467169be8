#include "adapters/qt/picture_file.h"

#include "adapters/qt/plain_bitmap.h"
#include "adapters/qt/qt_text.h"

#include <QFile>

namespace inin::qt {

QPixmap pictureOf(const std::string &systemPath)
{
    QFile file(toQt(systemPath));
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QByteArray bytes = file.readAll();
    if (const QImage plain = plainBitmap(bytes); !plain.isNull()) return QPixmap::fromImage(plain);
    QPixmap picture;
    picture.loadFromData(bytes);
    return picture;
}

} // namespace inin::qt
