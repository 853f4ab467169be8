#include "viewer/layout/letter_layout.h"

#include "runtime/runtime_error.h"
#include "viewer/form/placeholder.h"
#include "viewer/layout/code_setter.h"
#include "viewer/layout/field_setter.h"
#include "viewer/layout/letter_reading.h"
#include "viewer/layout/text_setter.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <span>
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
    std::size_t command; ///< index into FormDocument::commands
    std::size_t index;   ///< in the texts or the fields
    [[nodiscard]] bool isText() const { return kind == Kind::text || kind == Kind::field; }
};

} // namespace

struct LetterLayout::Parts {
    const FormDocument *form;
    /// `own` differs between letters. Both are in the order of the commands, `own` at last in the order of reading.
    std::vector<LaidOut> shared, own;
    std::size_t unread = 0;        ///< the first items of `own` that are in no line
    std::vector<TextSetter> texts; ///< those without placeholders
    std::vector<FormField> fields;
    std::vector<FieldSetter> setters;
    std::optional<std::size_t> codeColumn; ///< empty for a form without codes
    CodeSetter codes;
    std::vector<std::size_t> ruleColumns; ///< of the form's show rules
    std::vector<bool> holds;              ///< which rules hold for the last letter; the first entry is always true
    std::vector<std::vector<ReadingLine>> lines; ///< of each page
    /// Of each command in the order of reading, counted from 1; 0 for what is not in a line.
    std::vector<std::size_t> rank;
    std::vector<char32_t> missing;
    std::vector<FieldMark> marks;

    LaidOut addText(std::size_t command, const TextCommand &text, Fonts &fonts)
    {
        TextSetter &setter = texts.emplace_back(text, fonts, form->pageSize(text.place.page));
        setter.set(literalText(text));
        missing.insert(missing.end(), setter.missing().begin(), setter.missing().end());
        return {LaidOut::Kind::text, text.place, command, texts.size() - 1};
    }

    void addField(std::size_t command, const TextCommand &text, ColumnFinder &finder)
    {
        FormField field{command, {}};
        for (const TextPiece &piece : text.pieces)
            if (piece.isField())
                field.columns.push_back(finder.find(piece.column, "差し込み「{{" + piece.column + "}}」"));
        own.push_back({LaidOut::Kind::field, text.place, command, fields.size()});
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
            return painter.paint(std::get<PathCommand>(form->commands[item.command]));
        case LaidOut::Kind::picture:
            return painter.paint(std::get<PictureCommand>(form->commands[item.command]));
        case LaidOut::Kind::text:
        case LaidOut::Kind::field:
            for (const GlyphRun &run : runsOf(item)) painter.paint(run);
            return;
        }
    }

    [[nodiscard]] const std::vector<GlyphRun> &runsOf(const LaidOut &text) const
    {
        return text.kind == LaidOut::Kind::text ? texts[text.index].runs() : setters[text.index].runs();
    }

    [[nodiscard]] std::vector<ReadingLine> linesOf(std::size_t page) const
    {
        LetterReading reading(*form, page);
        for (const std::vector<LaidOut> *const list : {&shared, &own})
            for (const LaidOut &item : *list) {
                if (item.place.page != page || !item.isText()) continue;
                if (item.kind == LaidOut::Kind::field)
                    reading.addField(item.command);
                else
                    reading.addText(item.command, runsOf(item));
            }
        return reading.lines();
    }

    void findReadingOrder()
    {
        rank.assign(form->commands.size(), 0);
        std::size_t last = 0;
        for (std::size_t page = 0; page < form->pageCount(); ++page) {
            lines.push_back(linesOf(page));
            for (const ReadingLine &line : lines.back())
                for (const std::size_t command : line) rank[command] = ++last;
        }
        const auto rankOf = [&](const LaidOut &item) { return rank[item.command]; };
        std::ranges::stable_sort(own, {}, rankOf);
        unread = static_cast<std::size_t>(std::ranges::count(own, std::size_t{0}, rankOf));
    }

    [[nodiscard]] std::vector<LaidOut>::const_iterator findShared(std::size_t command) const
    {
        const auto found = std::ranges::lower_bound(shared, command, {}, &LaidOut::command);
        return found != shared.end() && found->command == command ? found : shared.end();
    }

    void paintOwn(std::span<const LaidOut> items, const LetterValues &values, PagePainter &painter, std::size_t page)
    {
        for (const LaidOut &item : items) {
            if (item.place.page != page || !holds[item.place.rule]) continue;
            if (item.kind == LaidOut::Kind::field) {
                FieldSetter &setter = setters[item.index];
                setter.show(values);
                if (setter.mark().any()) marks.push_back(setter.mark());
            }
            if (item.isText() && !runsOf(item).empty()) painter.beginText(item.command);
            paint(item, painter);
        }
    }

    void paintCodes(const LetterValues &values, PagePainter &painter, std::size_t page)
    {
        if (!codeColumn) return;
        codes.show(values(*codeColumn));
        for (const PathCommand &code : codes.paths())
            if (code.place.page == page && holds[code.place.rule]) painter.paint(code);
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
                           ? parts.addText(i, *text, fonts)
                           : LaidOut{isPath ? LaidOut::Kind::path : LaidOut::Kind::picture, placeOf(command), i, 0});
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

const std::vector<ReadingLine> &LetterLayout::readingLines(std::size_t page) const
{
    return m_parts->lines[page];
}

bool LetterLayout::isSharedText(std::size_t command) const
{
    const auto found = m_parts->findShared(command);
    return found != m_parts->shared.end() && found->isText();
}

void LetterLayout::paintSharedText(std::size_t command, PagePainter &painter) const
{
    m_parts->paint(*m_parts->findShared(command), painter);
}

void LetterLayout::paintShared(PagePainter &painter, std::size_t page) const
{
    for (const LaidOut &item : m_parts->shared)
        if (item.place.page == page) m_parts->paint(item, painter);
}

void LetterLayout::paintBackground(PagePainter &painter, std::size_t page) const
{
    for (const LaidOut &item : m_parts->shared)
        if (item.place.page == page && m_parts->rank[item.command] == 0) m_parts->paint(item, painter);
}

const std::vector<FieldMark> &LetterLayout::paintLetter(const LetterValues &values, PagePainter &painter,
                                                        std::size_t page)
{
    Parts &parts = *m_parts;
    parts.marks.clear();
    parts.judgeRules(values);
    const std::span<const LaidOut> own(parts.own);
    parts.paintOwn(own.first(parts.unread), values, painter, page);
    parts.paintCodes(values, painter, page);
    parts.paintOwn(own.subspan(parts.unread), values, painter, page);
    std::ranges::sort(parts.marks, {}, &FieldMark::field);
    return parts.marks;
}

} // namespace inin::viewer
