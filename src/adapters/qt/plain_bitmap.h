#pragma once

#include <QByteArray>
#include <QImage>

namespace inin::qt {

/// The picture of a bitmap file of the plain kind, with 24 bits a pixel and not compressed, as the suite's wallpapers are.
/// Null for every other content, a damaged one too, which the toolkit may know. It takes pictures of each kind by a library
/// of its own and loads all of these to read one, which a start need not wait for.
[[nodiscard]] QImage plainBitmap(const QByteArray &file);

} // namespace inin::qt
