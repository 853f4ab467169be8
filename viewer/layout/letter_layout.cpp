#include "viewer/layout/letter_layout.h"

#include "runtime/runtime_error.h"
#include "viewer/form/date_pattern.h"
#include "viewer/form/placeholder.h"
#include "viewer/layout/code_setter.h"
#include "viewer/layout/letter_reading.h"
#include "viewer/layout/text_setter.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <numeric>
#include <type_traits>
#include <variant>

namespace inin::viewer {

namespace {

std::string literalText(const TextCommand &command)
{
    std::string text;
    for (const TextPiece &piece : command.pieces) text += piece.literal;
    return text;
}

/// A field of the form with its last values.
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
        if (!piece.whenBlank.empty() && isBlankText(value)) {
            m_text += piece.whenBlank;
            return;
        }
        if (piece.pattern.empty() || isBlankText(value)) {
            m_text += value;
            return;
        }
        const auto written = formattedDate(value, piece.pattern);
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

// A growing vector of setters must not copy them, because their runs point to their glyphs.
static_assert(std::is_nothrow_move_constructible_v<TextSetter>);

} // namespace

struct LetterLayout::Parts {
    const FormDocument *form;
    std::vector<FormField> fields;
    std::vector<TextSetter> shared; ///< the texts without placeholders
    std::vector<const PathCommand *> paths;
    /// In the order of the commands: true for a path, false for a shared text.
    std::vector<bool> order;
    std::vector<FieldSetter> setters;
    std::optional<std::size_t> codeColumn; ///< empty for a form without codes
    CodeSetter codes;
    std::vector<std::size_t> textCommands; ///< of the shared texts, ascending
    std::vector<ReadingLine> lines;
    std::vector<std::size_t> rank;       ///< of each command in the order of reading
    std::vector<std::size_t> readFields; ///< the fields in the order of reading
    std::vector<char32_t> missing;
    std::vector<FieldMark> marks;

    enum class Texts { all, unread };
    static constexpr std::size_t kUnread = std::numeric_limits<std::size_t>::max();

    void findReadingOrder()
    {
        LetterReading reading(*form);
        for (std::size_t i = 0; i < shared.size(); ++i) reading.addShared(textCommands[i], shared[i].runs());
        for (const FormField &field : fields) reading.addField(field.command);
        lines = reading.lines();
        rank.assign(form->commands.size(), kUnread);
        std::size_t next = 0;
        for (const ReadingLine &line : lines)
            for (const std::size_t command : line) rank[command] = next++;
        readFields.resize(fields.size());
        std::iota(readFields.begin(), readFields.end(), std::size_t{0});
        std::ranges::stable_sort(readFields, {}, [&](std::size_t field) { return rank[fields[field].command]; });
    }

    void paint(Texts texts, PagePainter &painter) const
    {
        std::size_t path = 0, text = 0;
        for (const bool isPath : order) {
            if (isPath) {
                painter.paint(*paths[path++]);
                continue;
            }
            if (texts == Texts::all || rank[textCommands[text]] == kUnread)
                for (const GlyphRun &run : shared[text].runs()) painter.paint(run);
            ++text;
        }
    }
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
        parts.textCommands.push_back(i);
        parts.order.push_back(false);
    }
    // The setters point to the fields, so the vector must not grow after this.
    for (std::size_t i = 0; i < parts.fields.size(); ++i) {
        const auto &text = std::get<TextCommand>(form.commands[parts.fields[i].command]);
        parts.setters.emplace_back(i, parts.fields[i], text, fonts, page);
    }
    const auto code = std::ranges::find(columns, kLetterCodeColumn);
    if (!form.codes.empty() && code != columns.end())
        parts.codeColumn = static_cast<std::size_t>(code - columns.begin());
    parts.codes = CodeSetter(form.codes);
    parts.findReadingOrder();
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

const std::vector<ReadingLine> &LetterLayout::readingLines() const
{
    return m_parts->lines;
}

bool LetterLayout::isSharedText(std::size_t command) const
{
    return std::ranges::binary_search(m_parts->textCommands, command);
}

void LetterLayout::paintSharedText(std::size_t command, PagePainter &painter) const
{
    const auto text = std::ranges::lower_bound(m_parts->textCommands, command) - m_parts->textCommands.begin();
    for (const GlyphRun &run : m_parts->shared[static_cast<std::size_t>(text)].runs()) painter.paint(run);
}

void LetterLayout::paintShared(PagePainter &painter) const
{
    m_parts->paint(Parts::Texts::all, painter);
}

void LetterLayout::paintBackground(PagePainter &painter) const
{
    m_parts->paint(Parts::Texts::unread, painter);
}

const std::vector<FieldMark> &LetterLayout::paintLetter(const LetterValues &values, PagePainter &painter)
{
    Parts &parts = *m_parts;
    parts.marks.clear();
    for (FieldSetter &setter : parts.setters) {
        setter.show(values);
        if (setter.mark().any()) parts.marks.push_back(setter.mark());
    }
    if (parts.codeColumn) {
        parts.codes.show(values(*parts.codeColumn));
        for (const PathCommand &code : parts.codes.paths()) painter.paint(code);
    }
    for (const std::size_t field : parts.readFields) {
        const std::vector<GlyphRun> &runs = parts.setters[field].runs();
        if (!runs.empty()) painter.beginText(parts.fields[field].command);
        for (const GlyphRun &run : runs) painter.paint(run);
    }
    return parts.marks;
}

} // namespace inin::viewer
