#include "viewer/layout/letter_layout.h"

#include "runtime/runtime_error.h"
#include "viewer/form/placeholder.h"
#include "viewer/layout/code_setter.h"
#include "viewer/layout/field_setter.h"
#include "viewer/layout/text_setter.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
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

/// Finds the columns of a form, and collects the names of those that do not exist.
class ColumnFinder {
public:
    explicit ColumnFinder(const std::vector<std::string> &columns) : m_columns(columns) {}

    std::size_t find(const std::string &column, const std::string &quoted)
    {
        const auto found = std::ranges::find(m_columns, column);
        if (found != m_columns.end()) return static_cast<std::size_t>(found - m_columns.begin());
        if (std::ranges::find(m_unknown, column) == m_unknown.end()) {
            m_unknown.push_back(column);
            m_quoted.push_back(quoted);
        }
        return 0;
    }

    /// Throws a RuntimeError that names all unknown columns.
    void requireAll() const
    {
        if (m_unknown.empty()) return;
        if (m_unknown.size() == 1)
            throw RuntimeError(error_number::noSuchField,
                               fmt::format("帳票の{}の列「{}」が CSV にありません。", m_quoted[0], m_unknown[0]));
        throw RuntimeError(error_number::noSuchField, fmt::format("帳票の差し込みや条件の列「{}」が CSV にありません。",
                                                                  fmt::join(m_unknown, "」「")));
    }

private:
    const std::vector<std::string> &m_columns;
    std::vector<std::string> m_unknown, m_quoted;
};

// A growing vector of setters must not copy them, because their runs point to their glyphs.
static_assert(std::is_nothrow_move_constructible_v<TextSetter>);

/// A command with its laid-out text, if it has one.
struct LaidOut {
    enum class Kind : std::uint8_t { path, picture, text, field };
    Kind kind;
    CommandPlace place;
    std::size_t index; ///< in the form's commands, the texts or the fields
};

} // namespace

struct LetterLayout::Parts {
    const FormDocument *form;
    std::vector<LaidOut> shared, own; ///< in the order of the commands; `own` differs between letters
    std::vector<TextSetter> texts;    ///< those without placeholders
    std::vector<FormField> fields;
    std::vector<FieldSetter> setters;
    std::optional<std::size_t> codeColumn; ///< empty for a form without codes
    CodeSetter codes;
    std::vector<std::size_t> ruleColumns; ///< of the form's show rules
    std::vector<bool> holds;              ///< which rules hold for the last letter; the first entry is always true
    std::vector<char32_t> missing;
    std::vector<FieldMark> marks;

    LaidOut addText(const TextCommand &text, Fonts &fonts)
    {
        TextSetter &setter = texts.emplace_back(text, fonts, form->pageSize(text.place.page));
        setter.set(literalText(text));
        missing.insert(missing.end(), setter.missing().begin(), setter.missing().end());
        return {LaidOut::Kind::text, text.place, texts.size() - 1};
    }

    void addField(std::size_t command, const TextCommand &text, ColumnFinder &finder)
    {
        FormField field{command, {}};
        for (const TextPiece &piece : text.pieces)
            if (piece.isField())
                field.columns.push_back(finder.find(piece.column, "差し込み「{{" + piece.column + "}}」"));
        own.push_back({LaidOut::Kind::field, text.place, fields.size()});
        fields.push_back(std::move(field));
    }

    void judgeRules(const LetterValues &values)
    {
        holds.assign(1, true);
        for (std::size_t i = 0; i < ruleColumns.size(); ++i) {
            const ShowRule &rule = form->rules[i];
            holds.push_back(holds[rule.parent] && rule.holds(values(ruleColumns[i])));
        }
    }

    void paint(const LaidOut &item, PagePainter &painter) const
    {
        switch (item.kind) {
        case LaidOut::Kind::path:
            return painter.paint(std::get<PathCommand>(form->commands[item.index]));
        case LaidOut::Kind::picture:
            return painter.paint(std::get<PictureCommand>(form->commands[item.index]));
        case LaidOut::Kind::text:
            for (const GlyphRun &run : texts[item.index].runs()) painter.paint(run);
            return;
        case LaidOut::Kind::field:
            for (const GlyphRun &run : setters[item.index].runs()) painter.paint(run);
            return;
        }
    }
};

LetterLayout::LetterLayout(const FormDocument &form, const std::vector<std::string> &columns, Fonts &fonts)
    : m_parts(std::make_unique<Parts>())
{
    Parts &parts = *m_parts;
    parts.form = &form;
    ColumnFinder finder(columns);
    for (const ShowRule &rule : form.rules)
        parts.ruleColumns.push_back(finder.find(rule.column, "条件「" + rule.column + "」"));
    for (std::size_t i = 0; i < form.commands.size(); ++i) {
        const DrawCommand &command = form.commands[i];
        const auto *const text = std::get_if<TextCommand>(&command);
        if (text != nullptr && text->isField()) {
            parts.addField(i, *text, finder);
            continue;
        }
        std::vector<LaidOut> &list = placeOf(command).rule == 0 ? parts.shared : parts.own;
        const bool isPath = std::holds_alternative<PathCommand>(command);
        list.push_back(text != nullptr
                           ? parts.addText(*text, fonts)
                           : LaidOut{isPath ? LaidOut::Kind::path : LaidOut::Kind::picture, placeOf(command), i});
    }
    finder.requireAll();
    // The setters point to the fields, so the vector must not grow after this.
    for (std::size_t i = 0; i < parts.fields.size(); ++i) {
        const auto &text = std::get<TextCommand>(form.commands[parts.fields[i].command]);
        parts.setters.emplace_back(i, parts.fields[i], text, fonts, form.pageSize(text.place.page));
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

void LetterLayout::paintShared(PagePainter &painter, std::size_t page) const
{
    for (const LaidOut &item : m_parts->shared)
        if (item.place.page == page) m_parts->paint(item, painter);
}

const std::vector<FieldMark> &LetterLayout::paintLetter(const LetterValues &values, PagePainter &painter,
                                                        std::size_t page)
{
    Parts &parts = *m_parts;
    parts.marks.clear();
    parts.judgeRules(values);
    for (const LaidOut &item : parts.own) {
        if (item.place.page != page || !parts.holds[item.place.rule]) continue;
        if (item.kind == LaidOut::Kind::field) {
            FieldSetter &setter = parts.setters[item.index];
            setter.show(values);
            if (setter.mark().any()) parts.marks.push_back(setter.mark());
        }
        parts.paint(item, painter);
    }
    if (parts.codeColumn) {
        parts.codes.show(values(*parts.codeColumn));
        for (const PathCommand &code : parts.codes.paths())
            if (code.place.page == page && parts.holds[code.place.rule]) painter.paint(code);
    }
    return parts.marks;
}

} // namespace inin::viewer
