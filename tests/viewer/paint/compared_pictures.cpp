#include "viewer/paint/compared_pictures.h"

#include "viewer/document/letter_renderer.h"

#include <doctest/doctest.h>

#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <cstdlib>

namespace inin::viewer::test {

double difference(const QImage &a, const QImage &b)
{
    if (a.size() != b.size()) return 1;
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))) > kGrayTolerance) ++count;
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

QImage rasterized(const std::string &pdf, int dotsPerInch, int page)
{
    const std::string command = "pdftoppm -f " + std::to_string(page) + " -l " + std::to_string(page) + " -r " +
                                std::to_string(dotsPerInch) + " -png -singlefile '" + pdf + "' '" + pdf + "'";
    REQUIRE(std::system(command.c_str()) == 0);
    QImage image;
    REQUIRE(image.load(QString::fromStdString(pdf + ".png")));
    return image;
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
