#include "viewer/paint/compared_pictures.h"

#include "viewer/document/letter_renderer.h"

#include <doctest/doctest.h>

#include <QImageReader>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <cstdlib>
#include <vector>

namespace inin::viewer::test {

namespace {

constexpr int kWhite = 255;

} // namespace

double difference(const QImage &a, const QImage &b, int grayTolerance)
{
    if (a.size() != b.size()) return 1;
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))) > grayTolerance) ++count;
    return static_cast<double>(count) / (a.width() * a.height());
}

void compareWithGolden(const QImage &picture, const std::string &name)
{
    const QString path = QString::fromStdString(std::string(ININ_TEST_DATA) + "/viewer/" + name);
    CAPTURE(name);
    if (std::getenv("ININ_WRITE_GOLDENS") != nullptr)
        picture.convertToFormat(QImage::Format_Grayscale8).save(path, "PNG", 0);
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

/// A page of a PDF, drawn by a program with the options of both.
QImage drawnBy(const std::string &program, const std::string &pdf, int dotsPerInch, int page)
{
    const std::string number = std::to_string(page);
    const std::string command = program + " -f " + number + " -l " + number + " -r " + std::to_string(dotsPerInch) +
                                " -png -singlefile '" + pdf + "' '" + pdf + "'";
    REQUIRE(std::system(command.c_str()) == 0);
    QImageReader::setAllocationLimit(0); // an envelope has more dots than the toolkit loads by itself
    QImage image;
    REQUIRE(image.load(QString::fromStdString(pdf + ".png")));
    return image;
}

} // namespace

QImage rasterized(const std::string &pdf, int dotsPerInch, int page)
{
    return drawnBy("pdftoppm", pdf, dotsPerInch, page);
}

QImage drawnByCairo(const std::string &pdf, int dotsPerInch, int page)
{
    return drawnBy("pdftocairo -gray", pdf, dotsPerInch, page);
}

QImage averaged(const QImage &image, int factor)
{
    QImage means((image.width() + factor - 1) / factor, (image.height() + factor - 1) / factor,
                 QImage::Format_Grayscale8);
    const QImage gray = image.convertToFormat(QImage::Format_Grayscale8);
    const auto grayAt = [](const uchar *line, int x, int width) {
        return line != nullptr && x < width ? line[x] : kWhite;
    };
    for (int y = 0; y < means.height(); ++y) {
        std::vector<int> sums(static_cast<std::size_t>(means.width()));
        for (int row = y * factor; row < (y + 1) * factor; ++row) {
            const uchar *const line = row < gray.height() ? gray.constScanLine(row) : nullptr;
            for (int x = 0; x < means.width() * factor; ++x)
                sums[static_cast<std::size_t>(x / factor)] += grayAt(line, x, gray.width());
        }
        uchar *mean = means.scanLine(y);
        for (const int sum : sums) *mean++ = static_cast<uchar>(sum / (factor * factor));
    }
    return means;
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
