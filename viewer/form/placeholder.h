#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// A part of a form's text: literal text, or the place of a column's value.
struct TextPiece {
    std::string literal;
    std::string column;  ///< empty for literal text
    std::string pattern; ///< a date pattern; empty shows the value as it is
    std::string silent;  ///< stands there when the value is empty or blank
    [[nodiscard]] bool isField() const { return !column.empty(); }
};

/// Splits `{{列名}}`, `{{列名|pattern}}` and `{{列名|pattern|text for an empty value}}` out of a text. A RuntimeError with
/// a sentence for braces that are not closed or have no name in them.
[[nodiscard]] std::vector<TextPiece> readPieces(std::string_view text);

} // namespace inin::viewer
