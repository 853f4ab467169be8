#include "adapters/qt/plain_bitmap.h"

#include <QtEndian>

namespace inin::qt {

namespace {

// Offsets in a bitmap file: the file header, then the picture header. All numbers are little-endian.
constexpr qsizetype kPixelsAt = 10;
constexpr qsizetype kPictureHeader = 14;
constexpr qsizetype kWidthAt = 18;
constexpr qsizetype kHeightAt = 22;
constexpr qsizetype kBitsAt = 28;
constexpr qsizetype kCompressionAt = 30;
constexpr qsizetype kHeaders = 54;

constexpr qsizetype kPixelBytes = 3;
/// A row is padded to a multiple of this many bytes.
constexpr qsizetype kRowUnit = 4;
/// Larger than any screen, and small enough that no size overflows.
constexpr qint32 kMaxPixels = 1 << 15;

template <class Number> Number numberAt(const QByteArray &file, qsizetype place)
{
    return qFromLittleEndian<Number>(file.constData() + place);
}

bool isSide(qint32 pixels)
{
    return pixels > 0 && pixels <= kMaxPixels;
}

} // namespace

QImage plainBitmap(const QByteArray &file)
{
    constexpr quint32 kInfoHeader = kHeaders - kPictureHeader;
    if (file.size() < kHeaders || !file.startsWith("BM")) return {};
    if (numberAt<quint32>(file, kPictureHeader) != kInfoHeader || numberAt<quint32>(file, kCompressionAt) != 0)
        return {};
    const auto width = numberAt<qint32>(file, kWidthAt);
    const auto height = numberAt<qint32>(file, kHeightAt);
    if (!isSide(width) || !isSide(height) || numberAt<quint16>(file, kBitsAt) != kPixelBytes * 8) return {};
    const qsizetype rowBytes = (width * kPixelBytes + kRowUnit - 1) / kRowUnit * kRowUnit;
    const qsizetype first = numberAt<quint32>(file, kPixelsAt);
    if (first < kHeaders || file.size() - first < rowBytes * height) return {};

    QImage picture(width, height, QImage::Format_RGB32);
    for (qint32 row = 0; row < height; ++row) {
        // The rows are stored from bottom to top.
        const auto *from = reinterpret_cast<const uchar *>(file.constData()) + first + (height - 1 - row) * rowBytes;
        auto *to = reinterpret_cast<QRgb *>(picture.scanLine(row));
        for (qint32 column = 0; column < width; ++column, from += kPixelBytes)
            to[column] = qRgb(from[2], from[1], from[0]);
    }
    return picture;
}

} // namespace inin::qt
