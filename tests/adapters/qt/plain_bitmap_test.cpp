// The reader for wallpapers, compared with the toolkit's own, and the files that it leaves to the toolkit.

#include "adapters/qt/plain_bitmap.h"

#include <doctest/doctest.h>

#include <QBuffer>

#include <array>

using namespace inin;
using namespace inin::qt;

namespace {

/// A picture with different pixels side by side.
QImage chequered(int width, int height)
{
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) picture.setPixel(x, y, qRgb(x * 40 + 1, y * 50 + 2, (x + y) * 30 + 3));
    return picture;
}

/// The bitmap file as the toolkit writes it: 24 bits per pixel, uncompressed.
QByteArray bitmapOf(const QImage &picture)
{
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "BMP");
    return file;
}

} // namespace

TEST_CASE("every pixel of a bitmap is in its place at every row padding")
{
    for (int width = 1; width <= 5; ++width) {
        const QImage picture = chequered(width, 3);
        CAPTURE(width);
        CHECK(plainBitmap(bitmapOf(picture)) == picture);
    }
}

TEST_CASE("a hand-written bitmap of two pixels is read with its lower row first")
{
    const std::array<unsigned char, 62> bytes{
        'B', 'M', 62,  0, 0,   0, 0, 0, 0, 0, 54, 0, 0, 0,        // the file: its size, offset of the pixels
        40,  0,   0,   0, 1,   0, 0, 0, 2, 0, 0,  0, 1, 0, 24, 0, // the picture: 1 by 2, one plane, 24 bits
        0,   0,   0,   0, 8,   0, 0, 0, 0, 0, 0,  0, 0, 0, 0,  0, // not compressed
        0,   0,   0,   0, 0,   0, 0, 0,                           // no colour table
        0,   0,   255, 0, 255, 0, 0, 0,                           // blue, green, red and padding, twice
    };
    const QImage picture = plainBitmap(QByteArray(reinterpret_cast<const char *>(bytes.data()), bytes.size()));
    REQUIRE(picture.size() == QSize(1, 2));
    CHECK(picture.pixelColor(0, 1) == QColor(255, 0, 0));
    CHECK(picture.pixelColor(0, 0) == QColor(0, 0, 255));
}

TEST_CASE("files other than plain bitmaps are left to the toolkit")
{
    const QByteArray good = bitmapOf(chequered(4, 3));
    struct Case {
        const char *what;
        qsizetype place; ///< of the changed byte
        char value;
    };
    constexpr Case kCases[] = {
        {"another first letter", 0, 'X'},
        {"pixels within the headers", 10, 53},
        {"an older header", 14, 12},
        {"no width", 18, 0},
        {"a huge width", 20, 1},
        {"rows from the top", 25, '\xFF'},
        {"16 bits a pixel", 28, 16},
        {"8 bits a pixel", 28, 8},
        {"compressed", 30, 1},
        {"more rows than the file has", 22, 4},
    };
    for (const Case &each : kCases) {
        CAPTURE(each.what);
        QByteArray file = good;
        file[each.place] = each.value;
        CHECK(plainBitmap(file).isNull());
    }
}

TEST_CASE("a bitmap truncated at any length is left to the toolkit")
{
    const QByteArray good = bitmapOf(chequered(3, 2));
    for (qsizetype length = 0; length < good.size(); ++length) {
        CAPTURE(length);
        CHECK(plainBitmap(good.first(length)).isNull());
    }
}
