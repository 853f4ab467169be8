#include "viewer/layout/letter_reading.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace inin::viewer {

namespace {

/// The parts of a character's size above and below the baseline.
constexpr double kAbove = 0.88, kBelow = 0.12;

bool meets(const Box &a, const Box &b)
{
    return a.left < b.right() && b.left < a.right() && a.top < b.bottom() && b.top < a.bottom();
}

/// The bounding box of a box in text space.
Box placed(const Affine &at, const Box &box)
{
    Path corners = rectanglePath(box, 0, 0);
    transformPath(corners, at);
    return boundsOf(corners);
}

Box boxOf(const GlyphRun &run)
{
    const ShapedGlyph &first = run.glyphs.front(), &last = run.glyphs.back();
    const double scale = run.size * run.stretch / 1000;
    const double begin = double{first.x} * scale, length = double{last.x + last.advance - first.x} * scale;
    const Box across{-run.size / 2, begin, run.size, length}, along{begin, -kAbove * run.size, length, run.size};
    return placed(run.at, run.isVertical ? across : along);
}

Box boxOf(std::span<const GlyphRun> runs)
{
    Path corners;
    for (const GlyphRun &run : runs) {
        const Path corner = rectanglePath(boxOf(run), 0, 0);
        corners.insert(corners.end(), corner.begin(), corner.end());
    }
    return boundsOf(corners);
}

/// The box of a field: its own, or one character at its place.
Box boxOf(const TextCommand &field)
{
    if (field.fit) return field.fit->box;
    const double before = field.anchor == Anchor::start ? 0 : field.anchor == Anchor::middle ? 0.5 : 1;
    if (field.writing != WritingMode::horizontal)
        return placed(field.at, {-field.size / 2, -before * field.size, field.size, field.size});
    return placed(field.at, {-before * field.size, -kAbove * field.size, field.size, (kAbove + kBelow) * field.size});
}

/// True for a path that is a rectangle along the axes.
bool isRectangle(const Path &path)
{
    constexpr std::size_t kSteps = 5;
    if (path.size() < kSteps || path.size() > kSteps + 1) return false;
    const Box bounds = boundsOf(path);
    const auto isOn = [](double value, double a, double b) {
        return std::abs(value - a) < 0.01 || std::abs(value - b) < 0.01;
    };
    return std::ranges::all_of(path, [&](const PathStep &step) {
        if (step.kind == PathStep::Kind::close) return true;
        return step.kind != PathStep::Kind::curve && isOn(step.points[0].x, bounds.left, bounds.right()) &&
               isOn(step.points[0].y, bounds.top, bounds.bottom());
    });
}

Box inflated(const Box &box, double by)
{
    return {box.left - by, box.top - by, box.width + 2 * by, box.height + 2 * by};
}

/// True when a step from `from` may be stroked within the box; `begin` is the beginning of its part of the path.
bool strokesIn(const PathStep &step, Point from, Point begin, const Box &box)
{
    Path whole{{PathStep::Kind::move, {from}}, step};
    if (step.kind == PathStep::Kind::close) whole.back() = {PathStep::Kind::line, {begin}};
    return meets(boundsOf(whole), box);
}

} // namespace

bool paintsIn(const PathCommand &command, const Box &box)
{
    if (command.fill) return meets(inflated(boundsOf(command.path), command.stroke ? command.stroke->width : 0), box);
    if (!command.stroke) return false;
    const Box reached = inflated(box, command.stroke->width / 2);
    Point from, begin;
    for (const PathStep &step : command.path) {
        if (step.kind != PathStep::Kind::move && strokesIn(step, from, begin, reached)) return true;
        if (step.kind == PathStep::Kind::move) begin = step.points[0];
        from = step.kind == PathStep::Kind::close   ? begin
               : step.kind == PathStep::Kind::curve ? step.points[2]
                                                    : step.points[0];
    }
    return false;
}

LetterReading::LetterReading(const FormDocument &form, std::size_t page) : m_form(form)
{
    for (std::size_t i = 0; i < form.commands.size(); ++i) {
        const DrawCommand &command = form.commands[i];
        const CommandPlace &place = placeOf(command);
        if (place.page != page) continue;
        if (const auto *const path = std::get_if<PathCommand>(&command))
            m_shapes.push_back(
                {i, path, place.rule == 0, inflated(boundsOf(path->path), path->stroke ? path->stroke->width : 0)});
        else if (const auto *const picture = std::get_if<PictureCommand>(&command))
            m_shapes.push_back({i, nullptr, place.rule == 0, placed(picture->at, {0, 0, 1, 1})});
    }
}

void LetterReading::add(std::size_t command, const PlacedText &text)
{
    if (!isDrawable(text.box) || isCovered(command, text)) return;
    m_texts.push_back(text);
    m_commands.push_back(command);
}

void LetterReading::addText(std::size_t command, std::span<const GlyphRun> runs)
{
    if (runs.empty()) return;
    const auto &text = std::get<TextCommand>(m_form.commands[command]);
    const bool isSingle = runs.size() == 1 && runs.front().glyphs.size() == 1;
    add(command, {boxOf(runs), text.place.rule != 0, text.writing != WritingMode::horizontal, isSingle});
}

void LetterReading::addField(std::size_t command)
{
    const auto &text = std::get<TextCommand>(m_form.commands[command]);
    add(command, {boxOf(text), true, text.writing != WritingMode::horizontal, false});
}

bool LetterReading::isCovered(std::size_t command, const PlacedText &text) const
{
    return std::ranges::any_of(m_shapes, [&](const Shape &shape) {
        // What differs between letters is painted above everything that they share.
        const bool isSharedText = !text.isField;
        const bool isLater = isSharedText == shape.isShared ? shape.command > command : isSharedText;
        return isLater && meets(shape.bounds, text.box) && (shape.path == nullptr || paintsIn(*shape.path, text.box));
    });
}

std::vector<ReadingLine> LetterReading::lines() const
{
    std::vector<Box> frames;
    for (const Shape &shape : m_shapes)
        if (shape.path != nullptr && isRectangle(shape.path->path)) frames.push_back(boundsOf(shape.path->path));
    std::vector<ReadingLine> lines = readingLines(m_texts, frames);
    for (ReadingLine &line : lines)
        for (std::size_t &text : line) text = m_commands[text];
    return lines;
}

} // namespace inin::viewer
