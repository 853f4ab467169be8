#include "viewer/paint/qt_letter_page.h"

#include "runtime/runtime_error.h"
#include "viewer/document/letter_renderer.h"
#include "viewer/paint/qt_convert.h"

#include <QBuffer>
#include <QPainter>

#include <cmath>

namespace inin::viewer {

namespace {

template <class Body>
void onPaper(const LetterRenderer &renderer, LetterPage which, QPainter &painter, QtGlyphs &glyphs, Body &&body)
{
    QtPagePainter page(painter, glyphs);
    const QTransform before = painter.transform();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(qtTransform(renderer.onPaper(which.letter, which.page)) * before);
    body(page);
    painter.setTransform(before);
}

} // namespace

void paintShared(LetterRenderer &renderer, LetterPage which, QPainter &painter, QtGlyphs &glyphs)
{
    onPaper(renderer, which, painter, glyphs,
            [&](QtPagePainter &page) { renderer.layoutOf(which.letter).paintShared(page, which.page); });
}

void paintFields(LetterRenderer &renderer, LetterPage which, QPainter &painter, QtGlyphs &glyphs)
{
    onPaper(renderer, which, painter, glyphs,
            [&](QtPagePainter &page) { renderer.paintFields(which.letter, page, which.page); });
}

void paintPage(LetterRenderer &renderer, LetterPage which, QPainter &painter, QtGlyphs &glyphs)
{
    paintShared(renderer, which, painter, glyphs);
    paintFields(renderer, which, painter, glyphs);
}

QImage whitePaper(const LetterRenderer &renderer, LetterPage which, double scale)
{
    const Point paper = renderer.paperSize(which.letter, which.page);
    QImage image(static_cast<int>(std::lround(paper.x * scale)), static_cast<int>(std::lround(paper.y * scale)),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

QImage pageImage(LetterRenderer &renderer, LetterPage which, double dotsPerInch, QtGlyphs &glyphs)
{
    constexpr double kPointsPerInch = 72;
    constexpr double kInchesPerMetre = 1000 / 25.4;
    const double scale = dotsPerInch / kPointsPerInch;
    QImage image = whitePaper(renderer, which, scale);
    image.setDotsPerMeterX(static_cast<int>(std::lround(dotsPerInch * kInchesPerMetre)));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    QPainter painter(&image);
    painter.scale(scale, scale);
    paintPage(renderer, which, painter, glyphs);
    return image;
}

std::string pagePng(LetterRenderer &renderer, LetterPage which, double dotsPerInch, QtGlyphs &glyphs)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!pageImage(renderer, which, dotsPerInch, glyphs).save(&buffer, "PNG"))
        throw RuntimeError(error_number::outOfMemory);
    return buffer.data().toStdString();
}

} // namespace inin::viewer
