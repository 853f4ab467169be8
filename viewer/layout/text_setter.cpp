#include "viewer/layout/text_setter.h"

#include "viewer/layout/fonts.h"
#include "viewer/layout/utf8.h"

#include <algorithm>

namespace inin::viewer {

namespace {

/// No page holds more; what is behind it is not even shaped.
constexpr std::size_t kMostCharacters = 4000;
constexpr std::u32string_view kCutMark = U"…";
constexpr double kEdge = 0.5; ///< points

} // namespace

TextSetter::TextSetter(const TextCommand &command, Fonts &fonts, Point page)
    : m_command(command), m_runsDown(command.writing != WritingMode::across), m_font(fonts.font(command.family)),
      m_page(page), m_text(m_font, fonts, command.writing, command.upright)
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
    const FittedText fitted = m_command.fit ? fitInBox(m_toFit, alongLines(*m_command.fit)) : unfitted(m_toFit);
    m_isShrunk = fitted.size < m_command.size;
    m_doesNotFit = fitted.isCut;
    place(fitted);
}

/// The rule as the lines see it: the box's width is what a line has.
FitRule TextSetter::alongLines(FitRule rule) const
{
    if (m_runsDown) std::swap(rule.box.width, rule.box.height);
    return rule;
}

void TextSetter::shape(std::string_view text)
{
    m_characters.clear();
    m_toFit.isTooLong = !appendCharacters(text, m_characters, kMostCharacters);
    m_toFit.paragraphEnds.clear();
    std::u32string_view rest = m_characters;
    while (true) {
        const std::size_t end = rest.find(U'\n');
        m_text.add(rest.substr(0, end), m_missing);
        m_toFit.paragraphEnds.push_back(m_text.glyphs().size());
        if (end == std::u32string_view::npos) break;
        rest.remove_prefix(end + 1);
    }
    m_cutBegin = m_text.glyphs().size();
    m_toFit.size = m_command.size;
    m_toFit.spacing = m_command.spacing;
    if (m_command.fit) {
        m_text.add(kCutMark, m_unused);
        m_toFit.cutMark = m_text.glyphs()[m_cutBegin].advance;
    }
    m_toFit.glyphs = m_text.glyphs();
}

void TextSetter::place(const FittedText &fitted)
{
    const double cutWidth = fitted.isCut ? m_toFit.cutMark * fitted.size * fitted.stretch / 1000 : 0;
    m_lineTexts.reserve(fitted.lines.size() + 1);
    for (std::size_t i = 0; i < fitted.lines.size(); ++i) {
        const FittedLine &line = fitted.lines[i];
        const bool endsCut = fitted.isCut && i + 1 == fitted.lines.size();
        const double width = line.width + (endsCut ? cutWidth : 0);
        const Affine at = placeOf(fitted, i, width);
        addRuns(fitted, line.begin, line.end, at);
        if (endsCut && m_command.fit) addRuns(fitted, m_cutBegin, m_cutBegin + 1, at * along(line.width));
    }
}

/// A move along the line.
Affine TextSetter::along(double by) const
{
    return m_runsDown ? Affine{1, 0, 0, 1, 0, by} : Affine{1, 0, 0, 1, by, 0};
}

/// From a run that lies on its side to the line that runs down: turned, its letters' middle on the line's.
Affine TextSetter::onItsSide(double size) const
{
    return {0, 1, -1, 0, -size * (m_font.ascent() + m_font.descent()) / 2 / 1000, 0};
}

/// A run for each font and stance of the glyphs from `begin` to before `end`.
void TextSetter::addRuns(const FittedText &fitted, std::size_t begin, std::size_t end, const Affine &at)
{
    if (begin == end) return;
    const std::span<const ShapedGlyph> glyphs = m_text.glyphs();
    const double start = double{glyphs[begin].x} * fitted.size * fitted.stretch / 1000;
    const double spacing = m_command.spacing * (fitted.size / m_command.size);
    for (std::size_t from = begin; from < end;) {
        const MixedText::Part part = m_text.partAt(from);
        const std::size_t to = std::min(part.end, end);
        // The glyphs' places know nothing of the spacing behind those of the parts before.
        const double spaced = static_cast<double>(from - begin) * spacing * fitted.stretch;
        const Affine line = at * along(spaced - start);
        m_runs.push_back({part.font, fitted.size, fitted.stretch, spacing, m_command.color,
                          m_runsDown && !part.runsDown ? line * onItsSide(fitted.size) : line,
                          glyphs.subspan(from, to - from), m_command.isBold, part.runsDown});
        if (m_runsDown) addToLineText(part, m_runs.back().glyphs, from == begin);
        from = to;
    }
    if (m_runsDown) m_runs.back().endsLineText = true;
    if (m_runsDown) m_runs[m_runs.size() - m_lineRuns].lineText = m_lineTexts.back();
}

void TextSetter::addToLineText(const MixedText::Part &part, std::span<const ShapedGlyph> glyphs, bool isFirst)
{
    if (isFirst) {
        m_lineTexts.emplace_back();
        m_lineRuns = 0;
    }
    ++m_lineRuns;
    for (const ShapedGlyph &glyph : glyphs) m_lineTexts.back() += part.font->charactersOf(glyph.text);
}

/// How much of the room that a line leaves over stands before it.
double TextSetter::shareBefore() const
{
    return m_command.anchor == Anchor::start ? 0 : m_command.anchor == Anchor::middle ? 0.5 : 1;
}

/// Where a line begins on the page.
Affine TextSetter::placeOf(const FittedText &fitted, std::size_t line, double width)
{
    const double aside = static_cast<double>(line) * fitted.size;
    if (!m_command.fit) return freePlace(width, aside * FitRule{}.leading);
    const FitRule rule = alongLines(*m_command.fit);
    const double height = fitted.size * (1 + static_cast<double>(fitted.lines.size() - 1) * rule.leading);
    const double room = rule.box.height - height;
    const double first = rule.vertical == Vertical::top ? 0 : rule.vertical == Vertical::middle ? room / 2 : room;
    const double begin = shareBefore() * (rule.box.width - width);
    const double ascent = fitted.size * m_font.ascent() / (m_font.ascent() - m_font.descent());
    const double base = first + (m_runsDown ? fitted.size / 2 : ascent) + aside * rule.leading;
    const Box &box = m_command.fit->box;
    switch (m_command.writing) {
    case WritingMode::downToLeft:
        return {1, 0, 0, 1, box.right() - base, box.top + begin};
    case WritingMode::downToRight:
        return {1, 0, 0, 1, box.left + base, box.top + begin};
    case WritingMode::across:
        break;
    }
    return {1, 0, 0, 1, box.left + begin, box.top + base};
}

/// Where a line without a box begins, `aside` behind the first.
Affine TextSetter::freePlace(double width, double aside)
{
    const double sideways = m_command.writing == WritingMode::downToLeft ? -aside : aside;
    const Affine move = m_runsDown ? Affine{1, 0, 0, 1, sideways, 0} : Affine{1, 0, 0, 1, 0, aside};
    const Affine at = m_command.at * move * along(-shareBefore() * width);
    const Point end = (at * along(width))({});
    const bool isOff =
        m_runsDown ? at.f < -kEdge || end.y > m_page.y + kEdge : at.e < -kEdge || end.x > m_page.x + kEdge;
    m_doesNotFit = m_doesNotFit || isOff;
    return at;
}

} // namespace inin::viewer
