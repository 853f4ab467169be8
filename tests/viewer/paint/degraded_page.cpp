#include "viewer/paint/degraded_page.h"

#include <QPainter>
#include <QRadialGradient>
#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <random>

namespace inin::viewer::test {

namespace {

constexpr double kPageWidth = 210; ///< millimetres

double between(std::mt19937 &random, double least, double most)
{
    // The distributions of the standard library differ between its versions.
    return least + (most - least) * (static_cast<double>(random()) / 4294967296.0);
}

/// The ring that a cup leaves, darker at its edges, with three drops.
void spillCoffee(QPainter &painter, QPointF onRing, std::mt19937 &random)
{
    const double outer = between(random, 32, 40), direction = between(random, 0, 2 * 3.14159);
    const QPointF centre = onRing + outer * 0.95 * QPointF(std::cos(direction), std::sin(direction));
    QRadialGradient ring(centre, outer);
    const auto coffee = [](int alpha) { return QColor(92, 54, 22, alpha); };
    ring.setColorAt(0.86, coffee(10));
    ring.setColorAt(0.89, coffee(150));
    ring.setColorAt(0.94, coffee(70));
    ring.setColorAt(0.985, coffee(170));
    ring.setColorAt(1, coffee(0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(ring);
    painter.drawEllipse(centre, outer, outer);
    for (int drop = 0; drop < 3; ++drop) {
        const QPointF place = onRing + QPointF(between(random, -25, 25), between(random, -25, 10));
        painter.setBrush(coffee(120));
        painter.drawEllipse(place, between(random, 1, 3), between(random, 1, 3));
    }
}

QImage turned(const QImage &page, double degrees)
{
    QImage sheet(page.size(), QImage::Format_RGB32);
    sheet.fill(QColor(236, 236, 232)); // the scanner's lid beside the sheet
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(page.width() / 2.0, page.height() / 2.0);
    painter.rotate(degrees);
    painter.drawImage(QPointF(-page.width() / 2.0, -page.height() / 2.0), page);
    return sheet;
}

void addNoise(QImage &grey, std::mt19937 &random)
{
    constexpr double kDeviation = 22;
    std::array<int, 4099> noise{};
    for (int &value : noise) {
        double sum = -6; // of twelve uniform numbers: nearly a normal distribution
        for (int i = 0; i < 12; ++i) sum += between(random, 0, 1);
        value = static_cast<int>(sum * kDeviation);
    }
    for (int y = 0; y < grey.height(); ++y) {
        uchar *const row = grey.scanLine(y);
        std::size_t at = random() % noise.size();
        for (int x = 0; x < grey.width(); ++x) {
            if (++at == noise.size()) at = 0;
            row[x] = static_cast<uchar>(std::clamp(row[x] + noise[at], 0, 255));
        }
    }
}

} // namespace

QImage degradedPage(const QImage &page, int number)
{
    std::mt19937 random(static_cast<std::uint32_t>(number) + 1);
    QImage sheet = page.convertToFormat(QImage::Format_RGB32);
    {
        QPainter painter(&sheet);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setCompositionMode(QPainter::CompositionMode_Multiply);
        const double dots = page.width() / kPageWidth;
        painter.scale(dots, dots);
        spillCoffee(painter, {between(random, 20, 42), between(random, 268, 290)}, random);
    }
    const double degrees = (number % 4 < 2 ? 2 : -2) + (number % 2 == 0 ? 0 : 180);
    QImage grey = turned(sheet, degrees).convertToFormat(QImage::Format_Grayscale8);
    addNoise(grey, random);
    return grey;
}

} // namespace inin::viewer::test
