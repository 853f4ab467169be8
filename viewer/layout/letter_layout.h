#pragma once

#include "viewer/layout/fonts.h"
#include "viewer/layout/page_painter.h"
#include "viewer/layout/reading_order.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// The problems of one text of a letter. Narrower characters and line breaks are not problems.
struct FieldMark {
    std::size_t field = 0; ///< index into LetterLayout::fields()
    bool shrunk = false;
    bool doesNotFit = false;       ///< it is cut off with … at the end of the box
    bool noDate = false;           ///< the value of a date pattern is not a date and is shown unchanged
    bool noWord = false;           ///< the value is not in the field's list of codes and is shown unchanged
    std::vector<char32_t> missing; ///< characters that no font has
    [[nodiscard]] bool any() const { return shrunk || doesNotFit || noDate || noWord || !missing.empty(); }
};

/// A text of the form with placeholders, and their columns.
struct FormField {
    std::size_t command = 0; ///< index into FormDocument::commands
    std::vector<std::size_t> columns;
};

/// Returns the value of a column of a letter. The view must be valid until the letter is laid out.
using LetterValues = std::function<std::string_view(std::size_t column)>;

/// The layout of a form, the same for all painters. The parts that all letters share are laid out once, the fields for
/// each letter.
class LetterLayout {
public:
    /// Throws a RuntimeError that names the placeholders and conditions whose columns are not in `columns`. `form` and `fonts` must outlive
    /// this object.
    LetterLayout(const FormDocument &form, const std::vector<std::string> &columns, Fonts &fonts);
    LetterLayout(const LetterLayout &) = delete;
    LetterLayout &operator=(const LetterLayout &) = delete;
    ~LetterLayout();

    [[nodiscard]] const FormDocument &form() const;
    [[nodiscard]] const std::vector<FormField> &fields() const;
    /// Characters of the form's own texts that no font has.
    [[nodiscard]] const std::vector<char32_t> &missingInForm() const;

    /// Paints the parts of a page that all letters share.
    void paintShared(PagePainter &painter, std::size_t page = 0) const;
    /// The lines in which the texts of a page are read, as indices into FormDocument::commands.
    [[nodiscard]] const std::vector<ReadingLine> &readingLines(std::size_t page = 0) const;
    /// True for a text that all letters share.
    [[nodiscard]] bool isSharedText(std::size_t command) const;
    void paintSharedText(std::size_t command, PagePainter &painter) const;
    /// Paints what all letters share except for the texts in readingLines().
    void paintBackground(PagePainter &painter, std::size_t page = 0) const;
    /// Lays out a page of a letter, paints its fields and conditional parts and returns the marks of fields with problems. A
    /// field with the same values as in the previous letter is not laid out again.
    /// Texts are painted in the order of readingLines(), after everything else.
    const std::vector<FieldMark> &paintLetter(const LetterValues &values, PagePainter &painter, std::size_t page = 0);

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace inin::viewer
