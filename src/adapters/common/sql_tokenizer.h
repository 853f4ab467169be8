#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace inin {

enum class TokenKind : std::uint8_t {
    word,       ///< a keyword or an unquoted name, which may be Japanese
    quotedName, ///< [name] or "name"
    number,
    binary, ///< 0x and its digits, if any
    text,   ///< '…' or N'…'
    symbol, ///< an operator, a comma, a bracket, a semicolon
    invalid ///< an unterminated literal, name or comment, or a byte that is not allowed in a statement
};

/// One token of a SQL Server statement. The views point into its text and are valid as long as it is.
struct Token {
    TokenKind kind = TokenKind::invalid;
    std::string_view text;
    /// The white space before the token. A comment is replaced by one blank, because SQLite's comments do not nest.
    std::string_view gap;

    [[nodiscard]] bool isSymbol(std::string_view symbol) const { return kind == TokenKind::symbol && text == symbol; }
    /// True for a word that equals `lowerCase` ignoring ASCII case.
    [[nodiscard]] bool isWord(std::string_view lowerCase) const;
};

/// The tokens in order; none for blank text. Concatenated with their gaps they are the text without its comments.
[[nodiscard]] std::vector<Token> tokenizeSql(std::string_view sqlServerText);

} // namespace inin
