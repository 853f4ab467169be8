#include "viewer/layout/letter_layout.h"

#include "runtime/runtime_error.h"
#include "viewer/form/date_pattern.h"
#include "viewer/layout/mixed_text.h"
#include "viewer/layout/text_fit.h"
#include "viewer/layout/utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <type_traits>
#include <variant>

namespace inin::viewer {

namespace {

/// No page holds more; what is behind it is not even shaped.
constexpr std::size_t kMostCharacters = 4000;
constexpr std::u32string_view kCutMark = U"…";

bool isBlankText(std::string_view text)
{
    constexpr std::string_view kWideBlank = "\u3000";
    while (!text.empty()) {
        if (text.front() == ' ')
            text.remove_prefix(1);
        else if (text.starts_with(kWideBlank))
            text.remove_prefix(kWideBlank.size());
        else
            return false;
    }
    return true;
}

/// A text with its place, from characters to runs. Kept so that the letters' texts reuse the room of those before.
class TextSetter {
public:
    TextSetter(const TextCommand &command, Fonts &fonts, Point page)
        : m_command(command), m_runsDown(command.writing != WritingMode::across), m_font(fonts.font(command.family)),
          m_page(page), m_text(m_font, fonts, command.writing, command.upright)
    {
    }

    void set(std::string_view text)
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

    [[nodiscard]] const std::vector<GlyphRun> &runs() const { return m_runs; }
    [[nodiscard]] const std::vector<char32_t> &missing() const { return m_missing; }
    [[nodiscard]] bool isShrunk() const { return m_isShrunk; }
    [[nodiscard]] bool doesNotFit() const { return m_doesNotFit; }

private:
    /// The rule as the lines see it: the box's width is what a line has.
    [[nodiscard]] FitRule alongLines(FitRule rule) const
    {
        if (m_runsDown) std::swap(rule.box.width, rule.box.height);
        return rule;
    }

    void shape(std::string_view text)
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

    void place(const FittedText &fitted)
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
    [[nodiscard]] Affine along(double by) const
    {
        return m_runsDown ? Affine{1, 0, 0, 1, 0, by} : Affine{1, 0, 0, 1, by, 0};
    }

    /// From a run that lies on its side to the line that runs down: turned, its letters' middle on the line's.
    [[nodiscard]] Affine onItsSide(double size) const
    {
        return {0, 1, -1, 0, -size * (m_font.ascent() + m_font.descent()) / 2 / 1000, 0};
    }

    /// A run for each font and stance of the glyphs from `begin` to before `end`.
    void addRuns(const FittedText &fitted, std::size_t begin, std::size_t end, const Affine &at)
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

    void addToLineText(const MixedText::Part &part, std::span<const ShapedGlyph> glyphs, bool isFirst)
    {
        if (isFirst) {
            m_lineTexts.emplace_back();
            m_lineRuns = 0;
        }
        ++m_lineRuns;
        for (const ShapedGlyph &glyph : glyphs) m_lineTexts.back() += part.font->charactersOf(glyph.text);
    }

    [[nodiscard]] double shareBefore() const
    {
        return m_command.anchor == Anchor::start ? 0 : m_command.anchor == Anchor::middle ? 0.5 : 1;
    }

    /// Where a line begins on the page.
    Affine placeOf(const FittedText &fitted, std::size_t line, double width)
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
    Affine freePlace(double width, double aside)
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

    static constexpr double kEdge = 0.5;

    const TextCommand &m_command;
    bool m_runsDown;
    const Font &m_font;
    Point m_page;
    std::u32string m_characters;
    MixedText m_text;
    TextToFit m_toFit;
    std::size_t m_cutBegin = 0;
    std::vector<char32_t> m_missing, m_unused;
    std::vector<GlyphRun> m_runs;
    std::vector<std::u32string> m_lineTexts; ///< of the runs, which point at them: it has its room before it is filled
    std::size_t m_lineRuns = 0;              ///< of the last of them
    bool m_isShrunk = false, m_doesNotFit = false;
};

// A list of setters that grows must not copy them: runs point at the glyphs of their own.
static_assert(std::is_nothrow_move_constructible_v<TextSetter>);

std::string literalText(const TextCommand &command)
{
    std::string text;
    for (const TextPiece &piece : command.pieces) text += piece.literal;
    return text;
}

/// A field of the form with what it showed last.
class FieldSetter {
public:
    FieldSetter(std::size_t index, const FormField &field, const TextCommand &command, Fonts &fonts, Point page)
        : m_field(field), m_command(command), m_setter(command, fonts, page), m_last(field.columns.size())
    {
        m_mark.field = index;
    }

    void show(const LetterValues &values)
    {
        bool isNew = !m_isShown;
        for (std::size_t i = 0; i < m_last.size(); ++i) {
            const std::string_view value = values(m_field.columns[i]);
            if (value == m_last[i]) continue;
            m_last[i] = value;
            isNew = true;
        }
        if (!isNew) return;
        m_isShown = true;
        m_mark.noDate = false;
        m_setter.set(text());
        m_mark.shrunk = m_setter.isShrunk();
        m_mark.doesNotFit = m_setter.doesNotFit();
        m_mark.missing = m_setter.missing();
    }

    [[nodiscard]] const std::vector<GlyphRun> &runs() const { return m_setter.runs(); }
    [[nodiscard]] const FieldMark &mark() const { return m_mark; }

private:
    std::string_view text()
    {
        m_text.clear();
        std::size_t column = 0;
        for (const TextPiece &piece : m_command.pieces) {
            if (piece.isField())
                appendValue(piece, m_last[column++]);
            else
                m_text += piece.literal;
        }
        return m_text;
    }

    void appendValue(const TextPiece &piece, const std::string &value)
    {
        if (!piece.silent.empty() && isBlankText(value)) {
            m_text += piece.silent;
            return;
        }
        if (piece.pattern.empty() || isBlankText(value)) {
            m_text += value;
            return;
        }
        const auto written = writtenDate(value, piece.pattern);
        if (!written) m_mark.noDate = true;
        m_text += written.value_or(value);
    }

    const FormField &m_field;
    const TextCommand &m_command;
    TextSetter m_setter;
    std::vector<std::string> m_last;
    std::string m_text;
    FieldMark m_mark;
    bool m_isShown = false;
};

FormField bind(std::size_t command, const TextCommand &text, const std::vector<std::string> &columns)
{
    FormField field{command, {}};
    for (const TextPiece &piece : text.pieces) {
        if (!piece.isField()) continue;
        const auto found = std::ranges::find(columns, piece.column);
        if (found == columns.end())
            throw RuntimeError(
                error_number::noSuchField,
                fmt::format("帳票の差し込み「{{{{{0}}}}}」の列「{0}」が CSV にありません。", piece.column));
        field.columns.push_back(static_cast<std::size_t>(found - columns.begin()));
    }
    return field;
}

} // namespace

struct LetterLayout::Parts {
    const FormDocument *form;
    std::vector<FormField> fields;
    std::vector<TextSetter> shared; ///< the texts without columns
    std::vector<const PathCommand *> paths;
    /// In the order of the commands: true for a path, false for a shared text.
    std::vector<bool> order;
    std::vector<FieldSetter> setters;
    std::vector<char32_t> missing;
    std::vector<FieldMark> marks;
};

LetterLayout::LetterLayout(const FormDocument &form, const std::vector<std::string> &columns, Fonts &fonts)
    : m_parts(std::make_unique<Parts>())
{
    Parts &parts = *m_parts;
    parts.form = &form;
    const Point page{form.width, form.height};
    std::vector<std::size_t> fieldCommands;
    for (std::size_t i = 0; i < form.commands.size(); ++i) {
        if (const auto *path = std::get_if<PathCommand>(&form.commands[i])) {
            parts.paths.push_back(path);
            parts.order.push_back(true);
            continue;
        }
        const auto &text = std::get<TextCommand>(form.commands[i]);
        if (text.isField()) {
            parts.fields.push_back(bind(i, text, columns));
            continue;
        }
        TextSetter &setter = parts.shared.emplace_back(text, fonts, page);
        setter.set(literalText(text));
        parts.missing.insert(parts.missing.end(), setter.missing().begin(), setter.missing().end());
        parts.order.push_back(false);
    }
    // Setters point into the fields, which stay where they are from here on.
    for (std::size_t i = 0; i < parts.fields.size(); ++i) {
        const auto &text = std::get<TextCommand>(form.commands[parts.fields[i].command]);
        parts.setters.emplace_back(i, parts.fields[i], text, fonts, page);
    }
}

LetterLayout::~LetterLayout() = default;

const FormDocument &LetterLayout::form() const
{
    return *m_parts->form;
}

const std::vector<FormField> &LetterLayout::fields() const
{
    return m_parts->fields;
}

const std::vector<char32_t> &LetterLayout::missingInForm() const
{
    return m_parts->missing;
}

void LetterLayout::paintShared(PagePainter &painter) const
{
    std::size_t path = 0, text = 0;
    for (const bool isPath : m_parts->order) {
        if (isPath) {
            painter.paint(*m_parts->paths[path++]);
            continue;
        }
        for (const GlyphRun &run : m_parts->shared[text].runs()) painter.paint(run);
        ++text;
    }
}

const std::vector<FieldMark> &LetterLayout::paintLetter(const LetterValues &values, PagePainter &painter)
{
    m_parts->marks.clear();
    for (FieldSetter &setter : m_parts->setters) {
        setter.show(values);
        for (const GlyphRun &run : setter.runs()) painter.paint(run);
        if (setter.mark().any()) m_parts->marks.push_back(setter.mark());
    }
    return m_parts->marks;
}

} // namespace inin::viewer
