#include "viewer/paint/qt_page_painter.h"

#include "viewer/document/letter_press.h"

#include <QPainter>
#include <QPen>

#include <cmath>

namespace inin::viewer {

namespace {

QPainterPath qtPath(const Path &path)
{
    QPainterPath out;
    const auto at = [](const Point &point) { return QPointF(point.x, point.y); };
    for (const PathStep &step : path) {
        switch (step.kind) {
        case PathStep::Kind::move:
            out.moveTo(at(step.points[0]));
            break;
        case PathStep::Kind::line:
            out.lineTo(at(step.points[0]));
            break;
        case PathStep::Kind::curve:
            out.cubicTo(at(step.points[0]), at(step.points[1]), at(step.points[2]));
            break;
        case PathStep::Kind::close:
            out.closeSubpath();
            break;
        }
    }
    return out;
}

QColor qtColor(const Color &color)
{
    return {color.red, color.green, color.blue};
}

QTransform qtTransform(const Affine &at)
{
    return {at.a, at.b, at.c, at.d, at.e, at.f};
}

QPen qtPen(const Stroke &stroke)
{
    constexpr Qt::PenCapStyle caps[] = {Qt::FlatCap, Qt::RoundCap, Qt::SquareCap};
    constexpr Qt::PenJoinStyle joins[] = {Qt::SvgMiterJoin, Qt::RoundJoin, Qt::BevelJoin};
    QPen pen(qtColor(stroke.color), stroke.width, Qt::SolidLine, caps[static_cast<int>(stroke.cap)],
             joins[static_cast<int>(stroke.join)]);
    if (stroke.dashes.empty()) return pen;
    QList<qreal> dashes;
    // Qt counts dashes in widths of the pen.
    for (const double dash : stroke.dashes) dashes.append(dash / stroke.width);
    pen.setDashPattern(dashes);
    return pen;
}

} // namespace

const QPainterPath &QtGlyphs::outline(const Font &font, std::uint32_t glyph)
{
    auto &outlines = m_outlines[&font];
    const auto found = outlines.find(glyph);
    if (found != outlines.end()) return found->second;
    QPainterPath path = qtPath(font.outlineOf(glyph));
    path.setFillRule(Qt::WindingFill);
    return outlines.emplace(glyph, std::move(path)).first->second;
}

void QtPagePainter::paint(const PathCommand &command)
{
    QPainterPath path = qtPath(command.path);
    path.setFillRule(command.evenOdd ? Qt::OddEvenFill : Qt::WindingFill);
    if (command.fill) m_painter.fillPath(path, qtColor(*command.fill));
    if (command.stroke) m_painter.strokePath(path, qtPen(*command.stroke));
}

void QtPagePainter::paint(const GlyphRun &run)
{
    const QTransform before = m_painter.transform();
    const QTransform line = qtTransform(run.at) * before;
    const double step = run.size * run.stretch / 1000;
    double spaced = 0;
    for (const ShapedGlyph &glyph : run.glyphs) {
        const Affine place{run.size * run.stretch, 0, 0, run.size, double{glyph.x} * step + spaced, 0};
        m_painter.setTransform(qtTransform(place) * line);
        m_painter.fillPath(m_glyphs.outline(*run.font, glyph.glyph), qtColor(run.color));
        spaced += run.spacing * run.stretch;
    }
    m_painter.setTransform(before);
}

void paintLetter(LetterPress &press, std::size_t letter, QPainter &painter, QtGlyphs &glyphs)
{
    QtPagePainter page(painter, glyphs);
    const QTransform before = painter.transform();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(qtTransform(press.onPaper(letter)) * before);
    press.layoutOf(letter).paintShared(page);
    press.paintFields(letter, page);
    painter.setTransform(before);
}

QImage letterImage(LetterPress &press, std::size_t letter, double dotsPerInch, QtGlyphs &glyphs)
{
    constexpr double kPointsPerInch = 72;
    constexpr double kInchesPerMetre = 1000 / 25.4;
    const double scale = dotsPerInch / kPointsPerInch;
    const Point paper = press.paperSize();
    QImage image(static_cast<int>(std::lround(paper.x * scale)), static_cast<int>(std::lround(paper.y * scale)),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    image.setDotsPerMeterX(static_cast<int>(std::lround(dotsPerInch * kInchesPerMetre)));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    QPainter painter(&image);
    painter.scale(scale, scale);
    paintLetter(press, letter, painter, glyphs);
    return image;
}

} // namespace inin::viewer
