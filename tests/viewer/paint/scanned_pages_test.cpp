#include "runtime/runtime_error.h"
#include "support/file_bytes.h"
#include "viewer/codes/qr_codes.h"
#include "viewer/paint/scanned_pages.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <QImageWriter>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <cstdlib>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

const std::vector<std::string> kOne = {"271828000000142"};

void paintCode(QPainter &painter, int dots)
{
    const QrModules modules = writeQr(kOne.front());
    for (int y = 0; y < modules.size; ++y)
        for (int x = 0; x < modules.size; ++x)
            if (modules.isDark(x, y)) painter.fillRect(100 + x * dots, 900 + y * dots, dots, dots, Qt::black);
}

QImage pageWithCode(QImage::Format format, int scale = 1)
{
    QImage page(827 * scale, 1169 * scale, QImage::Format_ARGB32);
    page.fill(format == QImage::Format_ARGB32 ? Qt::transparent : Qt::white);
    QPainter painter(&page);
    paintCode(painter, 4 * scale);
    painter.end();
    return page.convertToFormat(format);
}

/// A number with the low byte first.
std::string littleEndian(std::uint32_t number, int count)
{
    std::string bytes;
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(number >> 8 * i & 0xFF);
    return bytes;
}

/// Grey pages, uncompressed; the toolkit writes TIFF files of one page only.
std::string tiffOf(const std::vector<QImage> &pages)
{
    constexpr std::uint32_t kLong = 4, kStrip = 273;
    std::string bytes("II*\0\0\0\0\0", 8);
    std::size_t link = 4; // where the position of the next page is written
    for (const QImage &page : pages) {
        const auto width = static_cast<std::uint32_t>(page.width()), height = static_cast<std::uint32_t>(page.height());
        // Width, height, bits, compression (none), meaning (0 is black), place, samples, rows and bytes of the pixels.
        const std::pair<std::uint32_t, std::uint32_t> entries[] = {{256, width}, {257, height}, {258, 8},
                                                                   {259, 1},     {262, 1},      {kStrip, 0},
                                                                   {277, 1},     {278, height}, {279, width * height}};
        const auto begin = static_cast<std::uint32_t>(bytes.size());
        const auto entryCount = static_cast<std::uint32_t>(std::size(entries));
        const std::uint32_t pixels = begin + 2 + entryCount * 12 + 4;
        bytes.replace(link, 4, littleEndian(begin, 4));
        bytes += littleEndian(entryCount, 2);
        for (const auto &entry : entries)
            bytes += littleEndian(entry.first, 2) + littleEndian(kLong, 2) + littleEndian(1, 4) +
                     littleEndian(entry.first == kStrip ? pixels : entry.second, 4);
        link = bytes.size();
        bytes += littleEndian(0, 4);
        for (int y = 0; y < page.height(); ++y)
            bytes.append(reinterpret_cast<const char *>(page.constScanLine(y)), width);
    }
    return bytes;
}

std::string sentenceOf(const std::string &path)
{
    try {
        (void)ScannedFile(path);
    } catch (const RuntimeError &error) {
        return error.description();
    }
    return {};
}

} // namespace

TEST_CASE("the code of a scanned picture is read from PNG, JPEG and TIFF in colour, grey and black and white")
{
    const TempFolder folder;
    for (const char *kind : {"png", "jpg", "tif"}) {
        for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_Grayscale8, QImage::Format_Mono}) {
            CAPTURE(kind);
            const std::string path = folder / (std::string("scan.") + kind);
            REQUIRE(pageWithCode(format).save(QString::fromStdString(path)));
            ScannedFile file(path);
            REQUIRE(file.pages() == 1);
            CHECK(file.page(0).format() == QImage::Format_Grayscale8);
            CHECK(codesOn(file.page(0)) == kOne);
        }
    }
}

TEST_CASE("transparent parts of a picture are white paper")
{
    const TempFolder folder;
    REQUIRE(pageWithCode(QImage::Format_ARGB32).save(QString::fromStdString(folder / "clear.png")));
    ScannedFile file(folder / "clear.png");
    CHECK(qGray(file.page(0).pixel(0, 0)) == 255);
    CHECK(codesOn(file.page(0)) == kOne);
}

TEST_CASE("a large picture is read at a smaller size")
{
    const TempFolder folder;
    REQUIRE(pageWithCode(QImage::Format_Grayscale8, 6).save(QString::fromStdString(folder / "large.png")));
    ScannedFile file(folder / "large.png");
    CHECK(file.page(0).height() == ScannedFile::kLongestSide);
    CHECK(codesOn(file.page(0)) == kOne);
}

TEST_CASE("every page of a PDF and of a TIFF is read")
{
    const TempFolder folder;
    QPdfWriter writer(QString::fromStdString(folder / "scans.pdf"));
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setResolution(100);
    QPainter painter(&writer);
    writer.newPage();
    paintCode(painter, 4);
    painter.end();
    ScannedFile pdf(folder / "scans.pdf");
    REQUIRE(pdf.pages() == 2);
    CHECK(codesOn(pdf.page(0)).empty());
    CHECK(codesOn(pdf.page(1)) == kOne);

    QImage blank(827, 1169, QImage::Format_Grayscale8);
    blank.fill(Qt::white);
    writeBytes(folder / "both.tif", tiffOf({blank, pageWithCode(QImage::Format_Grayscale8)}));
    ScannedFile tiff(folder / "both.tif");
    REQUIRE(tiff.pages() == 2);
    CHECK(codesOn(tiff.page(1)) == kOne);
    CHECK(codesOn(tiff.page(0)).empty());
}

TEST_CASE("a file that is missing, damaged or of another kind is refused with a sentence that names it")
{
    const TempFolder folder;
    writeBytes(folder / "words.pdf", "no PDF at all");
    writeBytes(folder / "cut.pdf", "%PDF-1.7\nnothing else");
    CHECK(sentenceOf(folder / "words.pdf") ==
          "「" + folder / "words.pdf" + "」：PDF、PNG、JPEG、TIFF のどれでもありません。");
    CHECK(sentenceOf(folder / "cut.pdf") == "「" + folder / "cut.pdf" + "」：壊れているため、PDF として開けません。");
    CHECK(contains(sentenceOf(folder / "missing.png"), "missing.png"));
}

TEST_CASE("a cut picture is a damaged page")
{
    const TempFolder folder;
    REQUIRE(pageWithCode(QImage::Format_Grayscale8).save(QString::fromStdString(folder / "whole.png")));
    writeBytes(folder / "cut.png", bytesOf(folder / "whole.png").substr(0, 200));
    ScannedFile file(folder / "cut.png");
    CHECK(file.page(0).isNull());
    CHECK(codesOn(file.page(0)).empty());
}
