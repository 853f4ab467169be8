#include "adapters/sqlite/sql_translator.h"

#include "adapters/sqlite/sql_names.h"
#include "adapters/sqlite/sql_rewriter.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace inin {

namespace {

/// Words that must not appear unquoted in a SELECT: the server would start a second statement even without a semicolon.
/// INTO makes a SELECT create a table.
constexpr std::array<std::string_view, 16> kForbiddenInSelect{
    "alter", "begin",  "commit", "create", "delete", "drop",     "exec",     "execute",
    "grant", "insert", "into",   "merge",  "revoke", "rollback", "truncate", "update"};

constexpr std::array<std::string_view, 9> kStatementVerbs{"alter",  "create", "delete", "drop",   "insert",
                                                          "select", "update", "with",   "replace"};

template <std::size_t size> bool isAnyWord(const Token &token, const std::array<std::string_view, size> &words)
{
    return token.kind == TokenKind::word &&
           std::any_of(words.begin(), words.end(), [&](std::string_view word) { return token.isWord(word); });
}

/// A column may have a forbidden word as its name only after a dot; elsewhere the word begins a statement.
bool isForbidden(const std::vector<Token> &tokens, std::size_t at)
{
    return isAnyWord(tokens[at], kForbiddenInSelect) && (at == 0 || !tokens[at - 1].isSymbol("."));
}

/// True for the second SELECT of a batch without a semicolon.
bool startsSecondSelect(const std::vector<Token> &tokens, std::size_t at)
{
    if (at == 0 || !tokens[at].isWord("select")) return false;
    const Token &before = tokens[at - 1];
    return !before.isSymbol(")") && !before.isWord("union") && !before.isWord("all") && !before.isWord("except") &&
           !before.isWord("intersect");
}

/// The number of tokens without trailing semicolons.
std::size_t countWithoutTail(const std::vector<Token> &tokens)
{
    std::size_t count = tokens.size();
    while (count > 0 && tokens[count - 1].isSymbol(";")) --count;
    return count;
}

bool hasInnerSemicolon(const std::vector<Token> &tokens, std::size_t count)
{
    return std::any_of(tokens.begin(), tokens.begin() + static_cast<std::ptrdiff_t>(count),
                       [](const Token &token) { return token.isSymbol(";"); });
}

} // namespace

std::string lexicalProblem(const std::vector<Token> &tokens)
{
    for (const Token &token : tokens) {
        // SQLite would read these as parameters and silently take NULL for each one without a value.
        const bool isParameter = token.isSymbol("?") || token.isSymbol(":") || token.isSymbol("$");
        if (isParameter || (token.kind == TokenKind::word && token.text.front() == '@'))
            return "a value for a parameter is missing";
        if (token.kind != TokenKind::invalid) continue;
        if (token.text.substr(0, 2) == "/*") return "the comment has no end";
        const char first = token.text.front();
        const bool isQuote = first == '\'' || first == '"' || first == '[' || first == 'N' || first == 'n';
        return isQuote ? "the quoted text or name has no end" : "a character that no statement holds";
    }
    return {};
}

bool isSingleSelect(const std::vector<Token> &tokens)
{
    const std::size_t count = countWithoutTail(tokens);
    if (count == 0 || !lexicalProblem(tokens).empty() || hasInnerSemicolon(tokens, count)) return false;
    if (!tokens[0].isWord("select") && !tokens[0].isWord("with")) return false;
    int depth = 0;
    bool hasSelect = false;
    for (std::size_t at = 0; at < count; ++at) {
        if (tokens[at].isSymbol("(")) ++depth;
        if (tokens[at].isSymbol(")") && --depth < 0) return false;
        if (isForbidden(tokens, at)) return false;
        if (depth == 0 && startsSecondSelect(tokens, at)) return false;
        hasSelect = hasSelect || (depth == 0 && tokens[at].isWord("select"));
    }
    return depth == 0 && hasSelect;
}

bool isSingleSelect(std::string_view sqlServerText)
{
    return isSingleSelect(tokenizeSql(sqlServerText));
}

bool isSingleStatement(const std::vector<Token> &tokens)
{
    const std::size_t count = countWithoutTail(tokens);
    return count > 0 && !hasInnerSemicolon(tokens, count) && isAnyWord(tokens[0], kStatementVerbs);
}

Translation translateSql(const std::vector<Token> &tokens, const SqlSchema &schema)
{
    std::string problem = lexicalProblem(tokens);
    if (!problem.empty()) return {{}, std::move(problem)};
    return SqlRewriter(tokens, schema).run();
}

Translation translateSql(std::string_view sqlServerText, const SqlSchema &schema)
{
    return translateSql(tokenizeSql(sqlServerText), schema);
}

} // namespace inin
