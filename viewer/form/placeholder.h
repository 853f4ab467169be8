#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// A part of a form's text: literal text or a placeholder for a column's value.
struct TextPiece {
    std::string literal;
    std::string column;    ///< empty for literal text
    std::string pattern;   ///< a date pattern; empty shows the value as it is
    std::string whenBlank; ///< shown instead of an empty or blank value
    [[nodiscard]] bool isField() const { return !column.empty(); }
};

/// The column of a letter's code (整理番号), which no letter file has. Its values are empty unless codes are printed.
inline constexpr std::string_view kLetterCodeColumn = "#整理番号";

/// Splits a text at `{{列名}}`, `{{列名|pattern}}` and `{{列名|pattern|text for an empty value}}`. Throws a RuntimeError
/// with a sentence if braces are not closed or contain no name.
[[nodiscard]] std::vector<TextPiece> readPieces(std::string_view text);
/// The full-width blank.
inline constexpr std::string_view kWideBlank = "\u3000";
/// True for an empty text and for one of blanks only, full-width ones included.
[[nodiscard]] bool isBlankText(std::string_view text);

} // namespace inin::viewer
