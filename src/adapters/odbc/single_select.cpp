#include "adapters/odbc/single_select.h"

#include "adapters/database/sql_tokenizer.h"
#include "runtime/utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace inin::odbc {

namespace {

/// Words that a read-only statement never contains outside quotes. The server starts a new statement at a keyword even
/// without a semicolon, so every word that begins one is listed; all are reserved, so no unquoted column has such a
/// name. INTO makes a SELECT create a table; the last row passes text to other servers or receives queue messages.
constexpr std::string_view kForbidden[] = {
    "add",         "alter",     "backup",         "begin",      "break",      "bulk",
    "checkpoint",  "close",     "commit",         "continue",   "create",     "dbcc",
    "deallocate",  "declare",   "delete",         "deny",       "disable",    "drop",
    "dump",        "enable",    "exec",           "execute",    "goto",       "grant",
    "if",          "insert",    "into",           "kill",       "load",       "merge",
    "open",        "print",     "proc",           "procedure",  "raiserror",  "readtext",
    "reconfigure", "restore",   "return",         "revert",     "revoke",     "rollback",
    "save",        "set",       "setuser",        "shutdown",   "tran",       "transaction",
    "trigger",     "truncate",  "update",         "updatetext", "use",        "waitfor",
    "while",       "writetext", "opendatasource", "openquery",  "openrowset", "receive",
    "conversation"};

/// Words that may precede a further SELECT of the same statement.
constexpr std::string_view kBeforeSelect[] = {"union", "all", "except", "intersect"};

bool isAny(const Token &token, const auto &words)
{
    return token.kind == TokenKind::word &&
           std::any_of(std::begin(words), std::end(words), [&](std::string_view word) { return token.isWord(word); });
}

struct NameRange {
    char32_t first;
    char32_t last;
};
/// Non-ASCII characters of names: kana, kanji, full-width digits and Latin characters. Any other (a wide blank, a
/// direction mark) might separate words for the server where this scanner sees one name.
constexpr NameRange kNameCharacters[] = {
    {0x3005, 0x3007}, {0x3041, 0x3096}, {0x3099, 0x309F}, {0x30A1, 0x30FF}, {0x3400, 0x4DBF}, {0x4E00, 0x9FFF},
    {0xF900, 0xFAFF}, {0xFF10, 0xFF19}, {0xFF21, 0xFF3A}, {0xFF41, 0xFF5A}, {0xFF66, 0xFF9F}, {0x20000, 0x3FFFF},
};

bool isPlainName(std::string_view word)
{
    std::u32string characters;
    appendCharacters(characters, word);
    return std::ranges::all_of(characters, [](char32_t character) {
        return character < 0x80 || std::ranges::any_of(kNameCharacters, [character](const NameRange &range) {
                   return character >= range.first && character <= range.last;
               });
    });
}

/// Characters that might end a comment for the server but not for this scanner: a lone carriage return, vertical tab,
/// form feed, and Unicode's line ends.
constexpr std::string_view kDoubtfulLineEnds[] = {"\v", "\f", "\u0085", "\u2028", "\u2029"};

bool isSoundGap(std::string_view gap)
{
    if (gap.find("--") == std::string_view::npos && gap.find("/*") == std::string_view::npos) return true;
    for (const std::string_view mark : kDoubtfulLineEnds)
        if (gap.find(mark) != std::string_view::npos) return false;
    for (std::size_t at = gap.find('\r'); at != std::string_view::npos; at = gap.find('\r', at + 1))
        if (at + 1 == gap.size() || gap[at + 1] != '\n') return false;
    return true;
}

class SelectReader {
public:
    explicit SelectReader(std::string_view sql) : m_sql(sql), m_tokens(tokenizeSql(sql)) {}

    std::string problem()
    {
        while (!m_tokens.empty() && m_tokens.back().isSymbol(";")) m_tokens.pop_back();
        if (m_tokens.empty()) return "there is no statement";
        if (m_sql.find('\0') != std::string_view::npos) return "a character that no statement holds";
        for (std::size_t at = 0; at < m_tokens.size(); ++at) {
            std::string problem = wordProblem(at);
            if (!problem.empty()) return problem;
        }
        const char *end = m_tokens.back().text.data() + m_tokens.back().text.size();
        if (!isSoundGap({end, static_cast<std::size_t>(m_sql.data() + m_sql.size() - end)})) return kDoubtfulComment;
        return isOneSelect() ? "" : "a read-only record set runs one SELECT and nothing else";
    }

private:
    static constexpr const char *kDoubtfulComment = "a comment whose end is in doubt";

    [[nodiscard]] std::string_view gapBefore(std::size_t at) const
    {
        const char *start = at == 0 ? m_sql.data() : m_tokens[at - 1].text.data() + m_tokens[at - 1].text.size();
        return {start, static_cast<std::size_t>(m_tokens[at].text.data() - start)};
    }
    [[nodiscard]] bool follows(std::size_t at, TokenKind kind) const
    {
        return at > 0 && m_tokens[at - 1].kind == kind && gapBefore(at).empty();
    }

    /// The problem with a single token, or empty.
    [[nodiscard]] std::string wordProblem(std::size_t at) const
    {
        const Token &token = m_tokens[at];
        if (token.kind == TokenKind::invalid) return "a quoted text, a name or a comment has no end";
        if (!isSoundGap(gapBefore(at))) return kDoubtfulComment;
        if (token.isSymbol("?")) return "a value for a parameter is missing";
        if (token.isSymbol("{") || token.isSymbol("}")) return "an escape of ODBC is no part of a statement";
        if (token.isSymbol("$") && (at + 1 == m_tokens.size() || !isNumberAt(at + 1))) return "a lone $";
        if (token.isSymbol(".") && !isNameBefore(at)) return "a point that is behind no name";
        if (token.kind == TokenKind::word) {
            if (!isPlainName(token.text)) return "a character that no name holds";
            // The server reads 1e as a number, so what follows would be a separate word.
            if (follows(at, TokenKind::number) || follows(at, TokenKind::binary)) return "a number with a tail";
        }
        if (token.kind == TokenKind::text && follows(at, TokenKind::word))
            return "a text with an unknown mark before it";
        return {};
    }
    [[nodiscard]] bool isNameBefore(std::size_t at) const
    {
        if (at == 0) return false;
        const Token &before = m_tokens[at - 1];
        return before.kind == TokenKind::word || before.kind == TokenKind::quotedName || before.isSymbol(".");
    }
    [[nodiscard]] bool isNumberAt(std::size_t at) const
    {
        return m_tokens[at].kind == TokenKind::number && gapBefore(at).empty();
    }

    /// A SELECT may begin the statement, continue it (UNION), or be in parentheses. After WITH the main SELECT follows
    /// the parentheses of the last common table expression.
    [[nodiscard]] bool isOneSelect() const
    {
        const bool isWith = m_tokens[0].isWord("with");
        if (!isWith && !m_tokens[0].isWord("select")) return false;
        bool hasChief = !isWith;
        int depth = 0;
        for (std::size_t at = 0; at < m_tokens.size(); ++at) {
            const Token &token = m_tokens[at];
            if (token.isSymbol("(")) ++depth;
            if (token.isSymbol(")") && --depth < 0) return false;
            if (token.isSymbol(";") || isAny(token, kForbidden) || isNextValue(at)) return false;
            if (at == 0 || !token.isWord("select")) continue;
            const Token &before = m_tokens[at - 1];
            if (isAny(before, kBeforeSelect) || (depth > 0 && before.isSymbol("("))) continue;
            if (depth > 0 || hasChief || !before.isSymbol(")")) return false;
            hasChief = true;
        }
        return depth == 0 && hasChief;
    }
    /// NEXT VALUE FOR changes a sequence.
    [[nodiscard]] bool isNextValue(std::size_t at) const
    {
        return at + 2 < m_tokens.size() && m_tokens[at].isWord("next") && m_tokens[at + 1].isWord("value") &&
               m_tokens[at + 2].isWord("for");
    }

    std::string_view m_sql;
    std::vector<Token> m_tokens;
};

} // namespace

std::string singleSelectProblem(std::string_view sql)
{
    return SelectReader(sql).problem();
}

} // namespace inin::odbc
