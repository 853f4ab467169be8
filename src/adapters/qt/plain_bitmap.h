#pragma once

#include <QByteArray>
#include <QImage>

namespace inin::qt {

/// Decodes an uncompressed bitmap file with 24 bits per pixel, as the suite's wallpapers are. Null for any other or
/// damaged content, which the toolkit may be able to decode. The toolkit has a plug-in for each picture format and
/// loads all of them to read one picture, which would delay program start.
[[nodiscard]] QImage plainBitmap(const QByteArray &file);

} // namespace inin::qt
