#include "viewer/layout/field_setter.h"

#include "viewer/form/date_pattern.h"
#include "viewer/form/placeholder.h"

namespace inin::viewer {

FieldSetter::FieldSetter(std::size_t index, const FormField &field, const TextCommand &command, Fonts &fonts,
                         Point page)
    : m_field(field), m_command(command), m_setter(command, fonts, page), m_last(field.columns.size())
{
    m_mark.field = index;
}

void FieldSetter::show(const LetterValues &values)
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
    m_mark.noDate = m_mark.noWord = false;
    m_setter.set(text());
    m_mark.shrunk = m_setter.isShrunk();
    m_mark.doesNotFit = m_setter.doesNotFit();
    m_mark.missing = m_setter.missing();
}

std::string_view FieldSetter::text()
{
    m_text.clear();
    m_lineBegin = 0;
    m_hasField = m_hasValue = false;
    std::size_t column = 0;
    for (const TextPiece &piece : m_command.pieces) {
        if (piece.isField())
            appendValue(piece, m_last[column++]);
        else
            appendLiteral(piece.literal);
    }
    endLine();
    // The last line ends without a line end.
    if (m_command.dropsEmptyLines && m_text.ends_with('\n')) m_text.pop_back();
    return m_text;
}

/// Drops the present line if its fields are all blank.
void FieldSetter::endLine()
{
    if (m_command.dropsEmptyLines && m_hasField && !m_hasValue) m_text.resize(m_lineBegin);
    m_hasField = m_hasValue = false;
}

void FieldSetter::appendLiteral(std::string_view literal)
{
    if (!m_command.dropsEmptyLines) {
        m_text += literal;
        return;
    }
    for (std::size_t end = literal.find('\n'); end != std::string_view::npos; end = literal.find('\n')) {
        m_text += literal.substr(0, end);
        const std::size_t before = m_text.size();
        endLine();
        // A dropped line takes its line end with it.
        if (m_text.size() == before) m_text += '\n';
        m_lineBegin = m_text.size();
        literal.remove_prefix(end + 1);
    }
    m_text += literal;
}

void FieldSetter::appendValue(const TextPiece &piece, const std::string &value)
{
    const bool isBlank = isBlankText(value);
    m_hasField = true;
    m_hasValue = m_hasValue || !isBlank || !isBlankText(piece.whenBlank);
    if (isBlank && !piece.whenBlank.empty()) {
        m_text += piece.whenBlank;
    } else if (isBlank) {
        m_text += piece.pattern.empty() ? value : blankDate(piece.pattern);
    } else if (!piece.words.isEmpty()) {
        const std::string *const word = piece.words.wordFor(value);
        m_mark.noWord = m_mark.noWord || word == nullptr;
        m_text += word == nullptr ? value : *word;
    } else if (piece.pattern.empty()) {
        m_text += value;
    } else {
        const auto written = formattedDate(value, piece.pattern);
        m_mark.noDate = m_mark.noDate || !written;
        m_text += written.value_or(value);
    }
}

} // namespace inin::viewer
