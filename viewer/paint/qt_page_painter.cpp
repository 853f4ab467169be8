#include "viewer/paint/qt_page_painter.h"

#include "viewer/paint/qt_convert.h"

#include <QGlyphRun>
#include <QGuiApplication>
#include <QPaintEngine>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <array>
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

/// Appends a curve as lines with an error of at most kOff, by the bound of the second differences.
void appendStraightened(Point from, const std::array<Point, 3> &curve, Path &out)
{
    constexpr double kOff = 0.0008; // of the font size: a twentieth of a pixel at kSmall
    const auto &[first, second, end] = curve;
    const double bendX = std::max(std::abs(from.x - 2 * first.x + second.x), std::abs(first.x - 2 * second.x + end.x));
    const double bendY = std::max(std::abs(from.y - 2 * first.y + second.y), std::abs(first.y - 2 * second.y + end.y));
    const int count = std::max(1, static_cast<int>(std::ceil(std::sqrt(0.75 * std::hypot(bendX, bendY) / kOff))));
    for (int i = 1; i <= count; ++i) {
        const double t = static_cast<double>(i) / count, u = 1 - t;
        const double a = u * u * u, b = 3 * u * u * t, c = 3 * u * t * t, d = t * t * t;
        out.push_back({PathStep::Kind::line,
                       {Point{a * from.x + b * first.x + c * second.x + d * end.x,
                              a * from.y + b * first.y + c * second.y + d * end.y}}});
    }
}

Path straightened(const Path &path)
{
    Path out;
    Point at;
    for (const PathStep &step : path) {
        if (step.kind == PathStep::Kind::curve)
            appendStraightened(at, step.points, out);
        else
            out.push_back(step);
        at = step.kind == PathStep::Kind::curve ? step.points[2] : step.points[0];
    }
    return out;
}

QColor qtColor(const Color &color)
{
    return {color.red, color.green, color.blue};
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

/// `size` is the font size in units of the painter.
QPen boldPen(const GlyphRun &run, double size)
{
    return {qtColor(run.color), GlyphRun::kBoldLine * size, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin};
}

} // namespace

const QPainterPath &QtGlyphs::outline(const Font &font, std::uint32_t glyph, double pixels)
{
    auto &outlines = m_outlines[&font];
    auto found = outlines.find(glyph);
    if (found == outlines.end()) {
        const Path path = font.outlineOf(glyph);
        found = outlines.emplace(glyph, Outline{qtPath(path), qtPath(straightened(path))}).first;
        found->second.curves.setFillRule(Qt::WindingFill);
        found->second.lines.setFillRule(Qt::WindingFill);
    }
    return pixels < kSmall ? found->second.lines : found->second.curves;
}

void QtPagePainter::paint(const PathCommand &command)
{
    QPainterPath path = qtPath(command.path);
    path.setFillRule(command.evenOdd ? Qt::OddEvenFill : Qt::WindingFill);
    if (command.fill) m_painter.fillPath(path, qtColor(*command.fill));
    if (command.stroke) m_painter.strokePath(path, qtPen(*command.stroke));
}

namespace {

/// The installed font that is this very file, because printer drivers support only installed fonts.
QRawFont installedFont(const QRawFont &file)
{
    QFont wanted(file.familyName());
    wanted.setPixelSize(static_cast<int>(QtGlyphs::kPrinterFontSize));
    wanted.setHintingPreference(QFont::PreferNoHinting);
    wanted.setStyleStrategy(QFont::NoFontMerging);
    const QRawFont found = QRawFont::fromFont(wanted);
    // The head table contains the checksum of the whole file.
    return found.isValid() && found.fontTable("head") == file.fontTable("head") ? found : QRawFont();
}

} // namespace

const QRawFont &QtGlyphs::printerFont(const Font &font)
{
    const auto [place, isNew] = m_printerFonts.try_emplace(&font);
    // Qt opens only the first font of a file, and none without an application.
    if (!isNew || font.index() != 0 || QGuiApplication::instance() == nullptr) return place->second;
    const QRawFont file(QString::fromStdString(font.path()), kPrinterFontSize, QFont::PreferNoHinting);
    if (file.isValid()) place->second = installedFont(file);
    return place->second;
}

namespace {

/// A raster painter is fastest with cached glyph outlines. A painter that writes a file, as printers do, writes much less
/// for one path of all outlines than for many.
bool writesFile(const QPainter &painter)
{
    return painter.paintEngine() != nullptr && painter.paintEngine()->type() != QPaintEngine::Raster;
}

/// Rounds the points of a path to a grid of at least 1200 per inch, finer than a printer's dots. Numbers with many digits
/// would not compress.
void snapToGrid(QPainterPath &path, int dotsPerInch)
{
    constexpr int kFine = 1200;
    const double grid = dotsPerInch >= kFine ? 1 : dotsPerInch >= kFine / 2 ? 2 : dotsPerInch >= kFine / 4 ? 4 : 16;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element corner = path.elementAt(i);
        path.setElementPositionAt(i, std::round(corner.x * grid) / grid, std::round(corner.y * grid) / grid);
    }
}

/// The horizontal and the vertical font size; a stretched run differs along its line.
Point emSizeOf(const GlyphRun &run)
{
    const double stretched = run.size * run.stretch;
    return run.isVertical ? Point{run.size, stretched} : Point{stretched, run.size};
}

/// Calls `body` with the number of each glyph and the transform of its outline to the run's line.
template <class Body> void forEachGlyph(const GlyphRun &run, Body &&body)
{
    const Point em = emSizeOf(run);
    const double step = run.size * run.stretch / 1000;
    double spaced = 0;
    for (const ShapedGlyph &glyph : run.glyphs) {
        const double along = double{glyph.x} * step + spaced;
        const Point at = run.isVertical
                             ? Point{double{glyph.offsetX} * run.size / 1000, along + double{glyph.offsetY} * step}
                             : Point{along, 0};
        body(glyph.glyph, Affine{em.x, 0, 0, em.y, at.x, at.y});
        spaced += run.spacing * run.stretch;
    }
}

} // namespace

void QtPagePainter::paint(const GlyphRun &run)
{
    const QTransform before = m_painter.transform();
    if (!writesFile(m_painter))
        paintOutlines(run);
    else if (run.isBold || !paintAsText(run))
        paintAsOnePath(run);
    m_painter.setTransform(before);
}

void QtPagePainter::paintOutlines(const GlyphRun &run)
{
    const QTransform line = qtTransform(run.at) * m_painter.transform();
    const double pixels = run.size * std::sqrt(std::abs(line.determinant()));
    forEachGlyph(run, [&](std::uint32_t glyph, const Affine &place) {
        const QPainterPath &outline = m_glyphs.outline(*run.font, glyph, pixels);
        m_painter.setTransform(qtTransform(place) * line);
        m_painter.fillPath(outline, qtColor(run.color));
        if (run.isBold) m_painter.strokePath(outline, boldPen(run, 1));
    });
}

/// Paints all outlines of a line as one path.
void QtPagePainter::paintAsOnePath(const GlyphRun &run)
{
    const QTransform line = qtTransform(run.at) * m_painter.transform();
    const double pixels = run.size * std::sqrt(std::abs(line.determinant()));
    QPainterPath gathered;
    gathered.setFillRule(Qt::WindingFill);
    forEachGlyph(run, [&](std::uint32_t glyph, const Affine &place) {
        gathered.addPath((qtTransform(place) * line).map(m_glyphs.outline(*run.font, glyph, pixels)));
    });
    snapToGrid(gathered, m_painter.device()->logicalDpiY());
    m_painter.resetTransform();
    m_painter.fillPath(gathered, qtColor(run.color));
    if (run.isBold) m_painter.strokePath(gathered, boldPen(run, pixels));
}

/// Paints glyphs by number, so that the printer driver stores each shape once. False when the font is not available.
bool QtPagePainter::paintAsText(const GlyphRun &run)
{
    const QRawFont &font = m_glyphs.printerFont(*run.font);
    if (!font.isValid()) return false;
    const double scaleX = emSizeOf(run).x / QtGlyphs::kPrinterFontSize;
    const double scaleY = emSizeOf(run).y / QtGlyphs::kPrinterFontSize;
    QList<quint32> numbers;
    QList<QPointF> places;
    forEachGlyph(run, [&](std::uint32_t glyph, const Affine &place) {
        numbers.append(glyph);
        places.append({place.e / scaleX, place.f / scaleY});
    });
    QGlyphRun text;
    text.setRawFont(font);
    text.setGlyphIndexes(numbers);
    text.setPositions(places);
    m_painter.setTransform(qtTransform(run.at * Affine{scaleX, 0, 0, scaleY, 0, 0}) * m_painter.transform());
    m_painter.setPen(qtColor(run.color));
    m_painter.drawGlyphRun({}, text);
    return true;
}

void QtPagePainter::paint(const PictureCommand &command)
{
    const Picture &picture = *command.picture;
    const QTransform before = m_painter.transform();
    m_painter.setTransform(qtTransform(command.at) * before);
    m_painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QTransform dots = m_painter.deviceTransform();
    const QSize size(static_cast<int>(std::ceil(std::hypot(dots.m11(), dots.m12()))),
                     static_cast<int>(std::ceil(std::hypot(dots.m21(), dots.m22()))));
    const QImage &whole = m_glyphs.image(picture);
    // A printer scales by itself. A raster painter would skip dots of a picture that is finer than the screen.
    const bool isReduced =
        !writesFile(m_painter) && !size.isEmpty() && size.width() < whole.width() && size.height() < whole.height();
    m_painter.drawImage(QRectF(0, 0, 1, 1), isReduced ? m_glyphs.reducedImage(picture, size) : whole);
    m_painter.setTransform(before);
}

} // namespace inin::viewer
