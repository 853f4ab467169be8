#pragma once

#include "viewer/layout/fonts.h"
#include "viewer/layout/page_painter.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// What became of one text of a letter. A text that only was tightened or broken into its lines has no mark.
struct FieldMark {
    std::size_t field = 0; ///< index into LetterLayout::fields()
    bool shrunk = false;
    bool doesNotFit = false;       ///< it ends with … where the box ends
    bool noDate = false;           ///< a date pattern met a text that is none; the text is shown as it is
    std::vector<char32_t> missing; ///< characters that the font lacks
    [[nodiscard]] bool any() const { return shrunk || doesNotFit || noDate || !missing.empty(); }
};

/// A text of the form that holds columns, and which.
struct FormField {
    std::size_t command = 0; ///< index into FormDocument::commands
    std::vector<std::size_t> columns;
};

/// Where a letter's values come from: columns by number. The view stays good until the letter is laid out.
using LetterValues = std::function<std::string_view(std::size_t column)>;

/// The one layout of a form: the parts that every letter shares are laid out at once, the fields for each letter.
/// Painters only place what stands here.
class LetterLayout {
public:
    /// A placeholder that names none of `columns` is a RuntimeError that names it. `form` and `fonts` must outlive this.
    LetterLayout(const FormDocument &form, const std::vector<std::string> &columns, Fonts &fonts);
    LetterLayout(const LetterLayout &) = delete;
    LetterLayout &operator=(const LetterLayout &) = delete;
    ~LetterLayout();

    [[nodiscard]] const FormDocument &form() const;
    [[nodiscard]] const std::vector<FormField> &fields() const;
    /// Characters of the form's own texts that the font lacks.
    [[nodiscard]] const std::vector<char32_t> &missingInForm() const;

    /// Paints what every letter shares.
    void paintShared(PagePainter &painter) const;
    /// Lays a letter out and paints its fields; gives the marks of those that have one. A field whose value is that of the
    /// letter before is not laid out again.
    const std::vector<FieldMark> &paintLetter(const LetterValues &values, PagePainter &painter);

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace inin::viewer
