#include "viewer/paint/compared_pictures.h"

#include "viewer/document/letter_renderer.h"

#include <doctest/doctest.h>

#include <QImageReader>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <cstdlib>

namespace inin::viewer::test {

double difference(const QImage &a, const QImage &b, int tolerance)
{
    if (a.size() != b.size()) return 1;
    const QImage first = a.convertToFormat(QImage::Format_RGB32), second = b.convertToFormat(QImage::Format_RGB32);
    int count = 0;
    for (int y = 0; y < first.height(); ++y) {
        const auto *left = reinterpret_cast<const QRgb *>(first.constScanLine(y));
        const auto *right = reinterpret_cast<const QRgb *>(second.constScanLine(y));
        for (const QRgb *const end = left + first.width(); left < end; ++left, ++right)
            if (std::abs(qRed(*left) - qRed(*right)) > tolerance ||
                std::abs(qGreen(*left) - qGreen(*right)) > tolerance ||
                std::abs(qBlue(*left) - qBlue(*right)) > tolerance)
                ++count;
    }
    return static_cast<double>(count) / (a.width() * a.height());
}

void compareWithGolden(const QImage &picture, const std::string &name)
{
    const QString path = QString::fromStdString(std::string(ININ_TEST_DATA) + "/viewer/" + name);
    CAPTURE(name);
    if (std::getenv("ININ_WRITE_GOLDENS") != nullptr)
        picture.convertToFormat(picture.allGray() ? QImage::Format_Grayscale8 : QImage::Format_RGB888)
            .save(path, "PNG", 0);
    QImage golden;
    REQUIRE(golden.load(path));
    CHECK(difference(picture, golden) < kShareTolerance);
}

QImage coarse(const QImage &image)
{
    constexpr int kFactor = 4;
    return image.scaled(image.width() / kFactor, image.height() / kFactor, Qt::IgnoreAspectRatio,
                        Qt::SmoothTransformation);
}

namespace {

/// A page of a PDF, drawn by a program into a file of this type.
QImage drawnBy(const std::string &program, const char *type, const std::string &pdf, int dotsPerInch, int page)
{
    const std::string number = std::to_string(page);
    const std::string command = program + " -f " + number + " -l " + number + " -r " + std::to_string(dotsPerInch) +
                                " -singlefile '" + pdf + "' '" + pdf + "'";
    REQUIRE(std::system(command.c_str()) == 0);
    QImageReader::setAllocationLimit(0); // an envelope has more dots than the toolkit loads by itself
    QImage image;
    REQUIRE(image.load(QString::fromStdString(pdf + type)));
    return image;
}

} // namespace

QImage rasterized(const std::string &pdf, int dotsPerInch, int page)
{
    return drawnBy("pdftoppm -png", ".png", pdf, dotsPerInch, page);
}

QImage drawnByCairo(const std::string &pdf, int dotsPerInch, int page)
{
    // Compressing a picture takes far longer than drawing it.
    return drawnBy("pdftocairo -tiff -tiffcompression none", ".tif", pdf, dotsPerInch, page);
}

QImage averaged(const QImage &image, int factor)
{
    const int width = image.width() / factor, height = image.height() / factor;
    return image.copy(0, 0, factor * width, factor * height)
        .scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

void printPages(LetterRenderer &renderer, const std::string &path, QtGlyphs &glyphs)
{
    constexpr int kPrinterDots = 600;
    QPdfWriter writer(QString::fromStdString(path));
    const auto setPaper = [&](std::size_t page) {
        const Point paper = renderer.paperSize(0, page);
        writer.setPageSize(QPageSize(QSizeF(paper.x, paper.y), QPageSize::Point, {}, QPageSize::ExactMatch));
        writer.setPageMargins({});
    };
    setPaper(0);
    writer.setResolution(kPrinterDots);
    QPainter painter(&writer);
    for (std::size_t page = 0; page < renderer.pageCount(0); ++page) {
        if (page > 0) {
            setPaper(page);
            writer.newPage();
        }
        painter.resetTransform();
        painter.scale(kPrinterDots / 72.0, kPrinterDots / 72.0);
        paintPage(renderer, {0, page}, painter, glyphs);
    }
}

} // namespace inin::viewer::test
