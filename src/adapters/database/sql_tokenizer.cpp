#include "adapters/database/sql_tokenizer.h"

#include "runtime/text.h"
#include "runtime/utf8.h"

#include <array>
#include <cstddef>

namespace inin {

namespace {

constexpr std::string_view kWideBlank = "\u3000";

bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}
bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}
bool isHexDigit(char c)
{
    return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}
bool startsWord(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '#' || c == '@' || !isAscii(c);
}

class Scanner {
public:
    explicit Scanner(std::string_view text) : m_text(text) {}

    std::vector<Token> all()
    {
        std::vector<Token> tokens;
        tokens.reserve(m_text.size() / 5 + 8);
        while (true) {
            const std::string_view gap = skipGap();
            if (atEnd() && !m_openComment) return tokens;
            const std::size_t start = m_at;
            const TokenKind kind = m_openComment ? rest() : next();
            tokens.push_back({kind, m_text.substr(start, m_at - start), gap});
            m_openComment = false;
        }
    }

private:
    [[nodiscard]] bool atEnd() const { return m_at >= m_text.size(); }
    [[nodiscard]] char peek(std::size_t ahead = 0) const
    {
        return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : '\0';
    }
    [[nodiscard]] bool at(std::string_view text) const { return m_text.substr(m_at, text.size()) == text; }
    TokenKind rest()
    {
        m_at = m_text.size();
        return TokenKind::invalid;
    }

    /// Plain white space is kept; a gap with a comment or a full-width blank becomes a single blank.
    std::string_view skipGap()
    {
        const std::size_t start = m_at;
        bool plain = true;
        while (!atEnd()) {
            if (isBlank(peek())) {
                ++m_at;
            } else if (at(kWideBlank)) {
                m_at += kWideBlank.size();
                plain = false;
            } else if (at("--")) {
                while (!atEnd() && peek() != '\n') ++m_at;
                plain = false;
            } else if (at("/*")) {
                plain = false;
                if (!skipNestedComment()) {
                    m_openComment = true;
                    return " ";
                }
            } else {
                break;
            }
        }
        return plain ? m_text.substr(start, m_at - start) : std::string_view(" ");
    }

    /// Comments nest on the server: /* /* */ */ is one comment. False, and nothing skipped, for an unterminated one.
    bool skipNestedComment()
    {
        const std::size_t start = m_at;
        int depth = 0;
        while (!atEnd()) {
            if (at("/*")) {
                ++depth;
                m_at += 2;
            } else if (at("*/")) {
                m_at += 2;
                if (--depth == 0) return true;
            } else {
                ++m_at;
            }
        }
        m_at = start;
        return false;
    }

    TokenKind next()
    {
        const char c = peek();
        if (c == '\'') return quoted('\'', 0, TokenKind::text);
        if ((c == 'N' || c == 'n') && peek(1) == '\'') return quoted('\'', 1, TokenKind::text);
        if (c == '"') return quoted('"', 0, TokenKind::quotedName);
        if (c == '[') return quoted(']', 0, TokenKind::quotedName);
        if (isDigit(c) || (c == '.' && isDigit(peek(1)))) return number();
        if (startsWord(c)) return word();
        return symbol();
    }

    /// A doubled closing delimiter is one character of the content.
    TokenKind quoted(char closing, std::size_t prefix, TokenKind kind)
    {
        m_at += prefix + 1;
        while (!atEnd()) {
            const char c = peek();
            if (c == '\0') return rest();
            ++m_at;
            if (c != closing) continue;
            if (peek() != closing || atEnd()) return kind;
            ++m_at;
        }
        return TokenKind::invalid;
    }

    TokenKind number()
    {
        if (peek() == '0' && (peek(1) == 'x' || peek(1) == 'X')) {
            m_at += 2;
            while (isHexDigit(peek())) ++m_at;
            return TokenKind::binary;
        }
        while (isDigit(peek())) ++m_at;
        if (peek() == '.') ++m_at;
        while (isDigit(peek())) ++m_at;
        const std::size_t sign = peek(1) == '+' || peek(1) == '-' ? 1 : 0;
        if ((peek() == 'e' || peek() == 'E') && isDigit(peek(1 + sign))) {
            m_at += 1 + sign;
            while (isDigit(peek())) ++m_at;
        }
        return TokenKind::number;
    }

    TokenKind word()
    {
        while (startsWord(peek()) || isDigit(peek()) || peek() == '$') {
            if (at(kWideBlank)) break;
            ++m_at;
        }
        return TokenKind::word;
    }

    /// A backtick must not pass: it is not part of the server's language, but opens a quoted name in SQLite.
    TokenKind symbol()
    {
        static constexpr std::array<std::string_view, 7> kPairs{"<=", ">=", "<>", "!=", "!<", "!>", "||"};
        for (const std::string_view pair : kPairs) {
            if (!at(pair)) continue;
            m_at += 2;
            return TokenKind::symbol;
        }
        const char c = peek();
        ++m_at;
        return c == '`' || static_cast<unsigned char>(c) < 0x20 || c == 0x7f ? TokenKind::invalid : TokenKind::symbol;
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    bool m_openComment = false;
};

} // namespace

bool Token::isWord(std::string_view lowerCase) const
{
    return kind == TokenKind::word && equalsIgnoringAsciiCase(text, lowerCase);
}

std::vector<Token> tokenizeSql(std::string_view sqlServerText)
{
    return Scanner(sqlServerText).all();
}

} // namespace inin
