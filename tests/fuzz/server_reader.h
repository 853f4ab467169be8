#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace inin::fuzz {

/// Reads a text as the most tolerant T-SQL server would: quotes, brackets and nested comments hide their content, every
/// character that some server treats as a blank is one, and a number ends as early as possible. It is independent of the
/// code under test and simpler, as it only searches for a word that begins a writing statement.
class ServerReader {
public:
    explicit ServerReader(std::string_view text) : m_text(text) {}

    /// The first word that would write, or a semicolon that more text follows; empty when there is none.
    std::string firstWrite()
    {
        while (m_at < m_text.size()) {
            if (skipHidden()) continue;
            if (m_text[m_at] == ';' && hasMoreAfter()) return ";";
            const std::size_t before = m_at;
            std::string word = takeWord();
            for (const char *write :
                 {"insert",  "update", "delete",  "merge",  "drop", "create",    "alter",      "truncate", "exec",
                  "execute", "into",   "grant",   "revoke", "deny", "openquery", "openrowset", "dbcc",     "shutdown",
                  "kill",    "backup", "restore", "use",    "set",  "declare",   "begin"})
                if (word == write) return word;
            if (m_at == before) m_at += std::max<std::size_t>(blankAt(m_at), 1);
        }
        return {};
    }

private:
    bool skipHidden()
    {
        const char c = m_text[m_at];
        if (c == '\'' || c == '"') return skipQuoted(c);
        if (c == '[') return skipQuoted(']');
        if (m_text.substr(m_at, 2) == "--") {
            // A server may end the comment at any kind of line end.
            m_at = std::min(m_text.find_first_of("\r\n\v\f", m_at), m_text.size());
            return true;
        }
        if (m_text.substr(m_at, 2) != "/*") return false;
        int depth = 0;
        do {
            if (m_text.substr(m_at, 2) == "/*") {
                ++depth;
                m_at += 2;
            } else if (m_text.substr(m_at, 2) == "*/") {
                --depth;
                m_at += 2;
            } else {
                ++m_at;
            }
        } while (depth > 0 && m_at < m_text.size());
        return true;
    }
    bool skipQuoted(char closing)
    {
        for (++m_at; m_at < m_text.size(); ++m_at) {
            if (m_text[m_at] != closing) continue;
            if (m_at + 1 >= m_text.size() || m_text[m_at + 1] != closing) break;
            ++m_at;
        }
        ++m_at;
        return true;
    }
    [[nodiscard]] bool hasMoreAfter() const
    {
        ServerReader rest(m_text.substr(m_at + 1));
        while (rest.m_at < rest.m_text.size()) {
            const char c = rest.m_text[rest.m_at];
            const bool isComment = rest.m_text.substr(rest.m_at, 2) == "--" || rest.m_text.substr(rest.m_at, 2) == "/*";
            if (isComment)
                (void)rest.skipHidden();
            else if (static_cast<unsigned char>(c) <= ' ' || c == ';')
                ++rest.m_at;
            else if (rest.m_text.substr(rest.m_at).starts_with("\u3000"))
                rest.m_at += 3;
            else
                return true;
        }
        return false;
    }
    /// The size in bytes of the blank or zero-width character at `at`; 0 for none.
    [[nodiscard]] std::size_t blankAt(std::size_t at) const
    {
        for (const std::string_view blank :
             {"\u0085", "\u00A0", "\u1680", "\u180E", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005",
              "\u2006", "\u2007", "\u2008", "\u2009", "\u200A", "\u200B", "\u200C", "\u200D", "\u200E", "\u200F",
              "\u2028", "\u2029", "\u202A", "\u202E", "\u202F", "\u205F", "\u2060", "\u3000", "\uFEFF"})
            if (m_text.substr(at).starts_with(blank)) return blank.size();
        return 0;
    }
    /// A number includes an "e" after it; the text that follows is a word of its own.
    std::string takeWord()
    {
        const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
        if (isDigit(m_text[m_at])) {
            while (m_at < m_text.size() && (isDigit(m_text[m_at]) || m_text[m_at] == '.')) ++m_at;
            if (m_at < m_text.size() && (m_text[m_at] == 'e' || m_text[m_at] == 'E')) ++m_at;
        }
        std::string word;
        while (m_at < m_text.size() && (isNamePart(m_at) || (!word.empty() && m_text[m_at] == '$'))) {
            const char c = m_text[m_at++];
            word += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        }
        return word;
    }
    [[nodiscard]] bool isNamePart(std::size_t at) const
    {
        const char c = m_text[at];
        const bool isAscii = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
                             c == '#' || c == '@';
        return isAscii || (static_cast<unsigned char>(c) >= 0x80 && blankAt(at) == 0);
    }

    std::string_view m_text;
    std::size_t m_at = 0;
};

} // namespace inin::fuzz
