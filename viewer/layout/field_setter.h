#pragma once

#include "viewer/layout/letter_layout.h"
#include "viewer/layout/text_setter.h"

#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// A field of the form with its last values.
class FieldSetter {
public:
    /// `index` is the number of the field. The field, the command and the fonts must outlive this object.
    FieldSetter(std::size_t index, const FormField &field, const TextCommand &command, Fonts &fonts, Point page);

    /// Lays the field out for a letter, unless its values are those of the previous letter.
    void show(const LetterValues &values);
    [[nodiscard]] const std::vector<GlyphRun> &runs() const { return m_setter.runs(); }
    [[nodiscard]] const FieldMark &mark() const { return m_mark; }

private:
    std::string_view text();
    void appendValue(const TextPiece &piece, const std::string &value);
    void appendLiteral(std::string_view literal);
    void endLine();

    const FormField &m_field;
    const TextCommand &m_command;
    TextSetter m_setter;
    std::vector<std::string> m_last;
    std::string m_text;
    FieldMark m_mark;
    bool m_isShown = false;
    // Of the present line.
    std::size_t m_lineBegin = 0;
    bool m_hasField = false, m_hasValue = false;
};

} // namespace inin::viewer
