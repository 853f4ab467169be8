#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace inin {

enum class TokenKind : std::uint8_t {
    word,       ///< a keyword or a plain name, Japanese ones too
    quotedName, ///< [name] or "name"
    number,
    binary, ///< 0x and its digits, perhaps none
    text,   ///< '…' or N'…'
    symbol, ///< an operator, a comma, a bracket, a semicolon
    invalid ///< a literal, name or comment without its end, or a byte that no statement holds
};

/// One token of a SQL Server text. The views point into that text and live as long as it does.
struct Token {
    TokenKind kind = TokenKind::invalid;
    std::string_view text;
    /// The white space before it. A comment counts as one blank, so SQLite, whose comments do not nest, sees none.
    std::string_view gap;

    [[nodiscard]] bool isSymbol(std::string_view symbol) const { return kind == TokenKind::symbol && text == symbol; }
    /// A word whatever its ASCII case; `lowerCase` is given in lower case.
    [[nodiscard]] bool isWord(std::string_view lowerCase) const;
};

/// The tokens in order; an empty list for blank text. Joined with their gaps they give the text without its comments.
[[nodiscard]] std::vector<Token> tokenizeSql(std::string_view sqlServerText);

} // namespace inin
