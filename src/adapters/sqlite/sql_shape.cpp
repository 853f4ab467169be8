#include "adapters/sqlite/sql_shape.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <optional>

namespace inin::sqlite {

namespace {

constexpr std::array<std::string_view, 16> kParameters{"?1", "?2",  "?3",  "?4",  "?5",  "?6",  "?7",  "?8",
                                                       "?9", "?10", "?11", "?12", "?13", "?14", "?15", "?16"};
constexpr std::array<std::string_view, 7> kComparisonSymbols{"=", "<", ">", "<=", ">=", "<>", "!="};

std::optional<std::int64_t> wholeNumber(const Token &token)
{
    constexpr std::size_t kMaxDigits = 18;
    if (token.kind != TokenKind::number || token.text.size() > kMaxDigits) return std::nullopt;
    std::int64_t value = 0;
    const char *end = token.text.data() + token.text.size();
    const auto [stopped, error] = std::from_chars(token.text.data(), end, value);
    return error == std::errc() && stopped == end ? std::optional(value) : std::nullopt;
}

bool isComparison(const Token &token)
{
    for (const std::string_view symbol : kComparisonSymbols)
        if (token.isSymbol(symbol)) return true;
    return false;
}

/// True after a comparison operator, and for both bounds of BETWEEN. Elsewhere a number may be part of the grammar.
bool isComparedAt(const std::vector<Token> &tokens, std::size_t at)
{
    if (at == 0) return false;
    const Token &before = tokens[at - 1];
    return isComparison(before) || before.isWord("between") ||
           (at >= 3 && before.isWord("and") && tokens[at - 3].isWord("between"));
}

} // namespace

SqlShape shapeOf(std::vector<Token> tokens)
{
    SqlShape shape;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        Token &token = tokens[at];
        if (shape.numbers.size() == kParameters.size() || !isComparedAt(tokens, at)) continue;
        const std::optional<std::int64_t> number = wholeNumber(token);
        if (!number) continue;
        token.text = kParameters[shape.numbers.size()];
        shape.numbers.push_back(*number);
    }
    std::size_t size = 0;
    for (const Token &token : tokens) size += token.gap.size() + token.text.size();
    shape.key.reserve(size);
    for (const Token &token : tokens) shape.key.append(token.gap).append(token.text);
    shape.tokens = std::move(tokens);
    return shape;
}

} // namespace inin::sqlite
