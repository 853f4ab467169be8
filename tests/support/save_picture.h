#pragma once

#include <QPixmap>
#include <QString>

namespace inin {

/// Writes a picture of a window as a small PNG file; false when it cannot be written.
[[nodiscard]] inline bool savePicture(const QPixmap &picture, const QString &file)
{
    constexpr int kSmallest = 0; // for the PNG writer the quality is the degree of compression
    return picture.toImage().convertToFormat(QImage::Format_RGB888).save(file, "PNG", kSmallest);
}

} // namespace inin
