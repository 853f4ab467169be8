#include "viewer/layout/letter_layout.h"

#include "runtime/runtime_error.h"
#include "viewer/form/date_pattern.h"
#include "viewer/form/placeholder.h"
#include "viewer/layout/code_setter.h"
#include "viewer/layout/text_setter.h"

#include <fmt/format.h>

#include <algorithm>
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
    // The setters point to the fields, so the vector must not grow after this.
    for (std::size_t i = 0; i < parts.fields.size(); ++i) {
        const auto &text = std::get<TextCommand>(form.commands[parts.fields[i].command]);
        parts.setters.emplace_back(i, parts.fields[i], text, fonts, page);
    }
    const auto code = std::ranges::find(columns, kLetterCodeColumn);
    if (!form.codes.empty() && code != columns.end())
        parts.codeColumn = static_cast<std::size_t>(code - columns.begin());
    parts.codes = CodeSetter(form.codes);
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
    if (m_parts->codeColumn) {
        m_parts->codes.show(values(*m_parts->codeColumn));
        for (const PathCommand &code : m_parts->codes.paths()) painter.paint(code);
    }
    return m_parts->marks;
}

} // namespace inin::viewer
