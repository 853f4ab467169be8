#include "viewer/layout/text_setter.h"

#include "runtime/utf8.h"
#include "viewer/layout/fonts.h"

#include <algorithm>

namespace inin::viewer {

namespace {

/// More than fits on a page. Further characters are not even shaped.
constexpr std::size_t kMaxCharacters = 4000;
constexpr std::u32string_view kEllipsis = U"…";
constexpr double kEdge = 0.5; ///< points

} // namespace

TextSetter::TextSetter(const TextCommand &command, Fonts &fonts, Point page)
    : m_command(command), m_isVertical(command.writing != WritingMode::horizontal), m_font(fonts.font(command.family)),
      m_page(page), m_text(m_font, fonts, command)
{
}

void TextSetter::set(std::string_view text)
{
    m_text.clear();
    m_missing.clear();
    m_runs.clear();
    m_lineTexts.clear();
    m_isShrunk = m_doesNotFit = false;
    if (text.empty()) return;
    shape(text);
    const FittedText fitted = m_command.fit ? fitInBox(m_toFit, inLineDirection(*m_command.fit)) : unfitted(m_toFit);
    m_isShrunk = fitted.size < m_command.size;
    m_doesNotFit = fitted.isTruncated;
    place(fitted);
}

/// The rule with the box turned so that its width is the length of a line.
FitRule TextSetter::inLineDirection(FitRule rule) const
{
    if (m_isVertical) std::swap(rule.box.width, rule.box.height);
    return rule;
}

void TextSetter::shape(std::string_view text)
{
    m_characters.clear();
    m_toFit.isTooLong = !appendCharacters(m_characters, text, kMaxCharacters);
    m_toFit.paragraphEnds.clear();
    std::u32string_view rest = m_characters;
    while (true) {
        const std::size_t end = rest.find(U'\n');
        m_text.add(rest.substr(0, end), m_missing);
        m_toFit.paragraphEnds.push_back(m_text.glyphs().size());
        if (end == std::u32string_view::npos) break;
        rest.remove_prefix(end + 1);
    }
    m_ellipsisBegin = m_text.glyphs().size();
    m_toFit.size = m_command.size;
    m_toFit.spacing = m_command.spacing;
    if (m_command.fit) {
        m_text.add(kEllipsis, m_unused);
        m_toFit.ellipsisWidth = m_text.glyphs()[m_ellipsisBegin].advance;
    }
    m_toFit.glyphs = m_text.glyphs();
}

void TextSetter::place(const FittedText &fitted)
{
    const double ellipsisWidth = fitted.isTruncated ? m_toFit.ellipsisWidth * fitted.size * fitted.stretch / 1000 : 0;
    m_lineTexts.reserve(fitted.lines.size() + 1);
    for (std::size_t i = 0; i < fitted.lines.size(); ++i) {
        const FittedLine &line = fitted.lines[i];
        const bool hasEllipsis = fitted.isTruncated && i + 1 == fitted.lines.size();
        const double width = line.width + (hasEllipsis ? ellipsisWidth : 0);
        const Affine at = placeOf(fitted, i, width);
        addRuns(fitted, line.begin, line.end, at);
        if (hasEllipsis && m_command.fit) addRuns(fitted, m_ellipsisBegin, m_ellipsisBegin + 1, at * along(line.width));
    }
}

/// A translation along the line.
Affine TextSetter::along(double by) const
{
    return m_isVertical ? Affine{1, 0, 0, 1, 0, by} : Affine{1, 0, 0, 1, by, 0};
}

/// Rotates a horizontal run clockwise and centres it on the vertical line.
Affine TextSetter::rotated(double size) const
{
    return {0, 1, -1, 0, -size * (m_font.ascent() + m_font.descent()) / 2 / 1000, 0};
}

/// Adds a run for each part of the glyphs from `begin` to `end` (exclusive).
void TextSetter::addRuns(const FittedText &fitted, std::size_t begin, std::size_t end, const Affine &at)
{
    if (begin == end) return;
    const std::span<const ShapedGlyph> glyphs = m_text.glyphs();
    const double start = double{glyphs[begin].x} * fitted.size * fitted.stretch / 1000;
    const double spacing = m_command.spacing * (fitted.size / m_command.size);
    for (std::size_t from = begin; from < end;) {
        const MixedText::Part part = m_text.partAt(from);
        const std::size_t to = std::min(part.end, end);
        // The glyphs' positions do not include the spacing of the previous parts.
        const double spaced = static_cast<double>(from - begin) * spacing * fitted.stretch;
        const Affine line = at * along(spaced - start);
        if (part.combinedScale > 0) {
            addCombined(fitted, part, glyphs.subspan(from, to - from), line);
            addToLineText(part, glyphs.subspan(from, to - from), from == begin, to - from);
            from = to;
            continue;
        }
        m_runs.push_back({part.font, fitted.size, fitted.stretch, spacing, m_command.color,
                          m_isVertical && !part.isVertical ? line * rotated(fitted.size) : line,
                          glyphs.subspan(from, to - from), m_command.isBold, part.isVertical});
        if (m_isVertical) addToLineText(part, m_runs.back().glyphs, from == begin, 1);
        from = to;
    }
    if (m_isVertical) m_runs.back().endsLineText = true;
    if (m_isVertical) m_runs[m_runs.size() - m_lineRuns].lineText = m_lineTexts.back();
}

/// Adds a run for each of the digits that share a cell, beside one another on the cell's baseline.
void TextSetter::addCombined(const FittedText &fitted, const MixedText::Part &part, std::span<const ShapedGlyph> digits,
                             const Affine &line)
{
    const double em = fitted.size / 1000;
    const double baseline = fitted.size * m_font.ascent() / (m_font.ascent() - m_font.descent());
    for (std::size_t i = 0; i < digits.size(); ++i) {
        const double x = double{digits[i].x}, aside = double{digits[i].offsetX};
        // A horizontal run moves its glyphs by their x.
        const Affine place{1, 0, 0, 1, (aside - x * part.combinedScale) * em, x * em * fitted.stretch + baseline};
        m_runs.push_back({part.font, fitted.size, part.combinedScale, 0, m_command.color, line * place,
                          digits.subspan(i, 1), m_command.isBold, false});
    }
}

void TextSetter::addToLineText(const MixedText::Part &part, std::span<const ShapedGlyph> glyphs, bool isFirst,
                               std::size_t runs)
{
    if (isFirst) {
        m_lineTexts.emplace_back();
        m_lineRuns = 0;
    }
    m_lineRuns += runs;
    for (const ShapedGlyph &glyph : glyphs) m_lineTexts.back() += part.font->charactersOf(glyph.text);
}

/// The share of a line's free space that is before it.
double TextSetter::shareBefore() const
{
    return m_command.anchor == Anchor::start ? 0 : m_command.anchor == Anchor::middle ? 0.5 : 1;
}

Affine TextSetter::placeOf(const FittedText &fitted, std::size_t line, double width)
{
    const double distance = static_cast<double>(line) * fitted.size;
    if (!m_command.fit) return placeWithoutBox(width, distance * FitRule{}.leading);
    const FitRule rule = inLineDirection(*m_command.fit);
    const double height = fitted.size * (1 + static_cast<double>(fitted.lines.size() - 1) * rule.leading);
    const double room = rule.box.height - height;
    const double first = rule.verticalAlignment == VerticalAlignment::top      ? 0
                         : rule.verticalAlignment == VerticalAlignment::middle ? room / 2
                                                                               : room;
    const double begin = shareBefore() * (rule.box.width - width);
    const double ascent = fitted.size * m_font.ascent() / (m_font.ascent() - m_font.descent());
    const double base = first + (m_isVertical ? fitted.size / 2 : ascent) + distance * rule.leading;
    const Box &box = m_command.fit->box;
    switch (m_command.writing) {
    case WritingMode::verticalRl:
        return {1, 0, 0, 1, box.right() - base, box.top + begin};
    case WritingMode::verticalLr:
        return {1, 0, 0, 1, box.left + base, box.top + begin};
    case WritingMode::horizontal:
        break;
    }
    return {1, 0, 0, 1, box.left + begin, box.top + base};
}

/// The position of a line without a box, at `distance` from the first line.
Affine TextSetter::placeWithoutBox(double width, double distance)
{
    const double sideways = m_command.writing == WritingMode::verticalRl ? -distance : distance;
    const Affine move = m_isVertical ? Affine{1, 0, 0, 1, sideways, 0} : Affine{1, 0, 0, 1, 0, distance};
    const Affine at = m_command.at * move * along(-shareBefore() * width);
    const Point end = (at * along(width))({});
    const bool isOff =
        m_isVertical ? at.f < -kEdge || end.y > m_page.y + kEdge : at.e < -kEdge || end.x > m_page.x + kEdge;
    m_doesNotFit = m_doesNotFit || isOff;
    return at;
}

} // namespace inin::viewer
