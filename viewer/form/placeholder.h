#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace inin::viewer {

/// The words that a field shows instead of codes: `1=社保;2=国保;*=その他`.
struct CodeWords {
    std::vector<std::pair<std::string, std::string>> words; ///< sorted by code
    std::optional<std::string> otherwise;                   ///< the word of all other codes
    [[nodiscard]] bool isEmpty() const { return words.empty() && !otherwise; }
    /// The word for a value, compared without outer blanks; null if there is none.
    [[nodiscard]] const std::string *wordFor(std::string_view value) const;
};

/// A part of a form's text: literal text or a placeholder for a column's value.
struct TextPiece {
    std::string literal;
    std::string column;    ///< empty for literal text
    std::string pattern;   ///< a date pattern; empty shows the value as it is
    std::string whenBlank; ///< shown instead of an empty or blank value
    CodeWords words = {};  ///< instead of a date pattern
    /// A date that is printed as blanks to be filled in by hand if it is empty: without a text for that, or with one that
    /// leaves room to write, such as 令和　　年　　月　　日.
    [[nodiscard]] bool isDateToFillIn() const;
    [[nodiscard]] bool isField() const { return !column.empty(); }
};

/// The column of a letter's code (整理番号), which no letter file has. Its values are empty unless codes are printed.
inline constexpr std::string_view kLetterCodeColumn = "#整理番号";

/// Splits a text at `{{列名}}`, `{{列名|pattern}}` and `{{列名|pattern|text for an empty value}}`. A pattern with an equals
/// sign outside quotes is a list of codes and words. Throws a RuntimeError with a sentence if braces are not closed or
/// contain no name.
[[nodiscard]] std::vector<TextPiece> readPieces(std::string_view text);
/// The full-width blank.
inline constexpr std::string_view kWideBlank = "\u3000";
/// True for an empty text and for one of blanks only, full-width ones included.
[[nodiscard]] bool isBlankText(std::string_view text);
/// The text without leading and trailing blanks, full-width ones included.
[[nodiscard]] std::string_view withoutOuterBlanks(std::string_view text);

} // namespace inin::viewer
