#include "adapters/database/connection_string.h"

#include "runtime/text.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace inin {

namespace {

constexpr std::array<std::string_view, 3> kOdbcKeys{"driver", "dsn", "filedsn"};

bool isBlankInLine(char c)
{
    return c == ' ' || c == '\t';
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlankInLine(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlankInLine(text.back())) text.remove_suffix(1);
    return text;
}

/// "Initial   Catalog" and "initial catalog" are the same key.
std::string normalKey(std::string_view key)
{
    std::string normal;
    for (const char c : trimmed(key))
        if (!isBlankInLine(c) || normal.back() != ' ') normal += isBlankInLine(c) ? ' ' : c;
    return asciiLower(normal);
}

class PairReader {
public:
    PairReader(std::string_view text, std::string_view openingQuotes) : m_text(text), m_opening(openingQuotes) {}

    ConnectionString read(ConnectionString::Form form)
    {
        m_result.form = form;
        while (m_at < m_text.size() && m_result.problem.empty()) readPair();
        return std::move(m_result);
    }

private:
    void readPair()
    {
        const std::size_t semicolon = std::min(m_text.find(';', m_at), m_text.size());
        const std::size_t equals = m_text.find('=', m_at);
        if (equals >= semicolon) { // an empty item, or a word without a value
            if (!trimmed(m_text.substr(m_at, semicolon - m_at)).empty()) fail("a part of it is no key with a value");
            m_at = semicolon + 1;
            return;
        }
        const std::string_view key = trimmed(m_text.substr(m_at, equals - m_at));
        if (key.empty()) return fail("a value has no key");
        ConnectionPair pair{normalKey(key), std::string(key), {}, {}};
        m_at = equals + 1;
        readValue(pair);
        m_result.pairs.push_back(std::move(pair));
    }

    void readValue(ConnectionPair &pair)
    {
        while (m_at < m_text.size() && isBlankInLine(m_text[m_at])) ++m_at;
        const std::size_t start = m_at;
        if (m_at < m_text.size() && m_opening.find(m_text[m_at]) != std::string_view::npos) {
            const char closing = m_text[m_at] == '{' ? '}' : m_text[m_at];
            if (!readQuoted(closing, pair.value)) return fail("a quoted value has no end");
            const std::size_t end = m_at;
            skipToSemicolon();
            if (!trimmed(m_text.substr(end, m_at - end)).empty())
                return fail("a quoted value does not end at its quote");
            pair.raw = m_text.substr(start, end - start);
        } else {
            skipToSemicolon();
            pair.raw = trimmed(m_text.substr(start, m_at - start));
            pair.value = pair.raw;
        }
        ++m_at;
    }

    /// A doubled closing character is one character of the value.
    bool readQuoted(char closing, std::string &value)
    {
        for (++m_at; m_at < m_text.size(); ++m_at) {
            if (m_text[m_at] == closing) {
                if (m_at + 1 >= m_text.size() || m_text[m_at + 1] != closing) {
                    ++m_at;
                    return true;
                }
                ++m_at;
            }
            value += m_text[m_at];
        }
        return false;
    }

    void skipToSemicolon() { m_at = std::min(m_text.find(';', m_at), m_text.size()); }
    void fail(std::string_view why)
    {
        m_result.problem = "the connection string cannot be read: ";
        m_result.problem += why;
    }

    std::string_view m_text;
    std::string_view m_opening;
    std::size_t m_at = 0;
    ConnectionString m_result;
};

bool namesDriver(const ConnectionString &text)
{
    return std::ranges::any_of(kOdbcKeys, [&text](std::string_view key) { return text.value(key).has_value(); });
}

bool isOdbcBridge(std::string_view provider)
{
    return asciiLower(provider).starts_with("msdasql");
}

} // namespace

std::optional<std::string> ConnectionString::value(std::string_view key) const
{
    const auto isKey = [key](const ConnectionPair &pair) { return pair.key == key; };
    if (form == Form::odbc) {
        const auto found = std::find_if(pairs.begin(), pairs.end(), isKey);
        return found == pairs.end() ? std::nullopt : std::optional(found->value);
    }
    const auto found = std::find_if(pairs.rbegin(), pairs.rend(), isKey);
    return found == pairs.rend() ? std::nullopt : std::optional(found->value);
}

bool ConnectionString::isForSqlite() const
{
    return equalsIgnoringAsciiCase(value("provider").value_or(""), "SQLite");
}

ConnectionString readOdbcString(std::string_view text)
{
    return PairReader(text, "{").read(ConnectionString::Form::odbc);
}

std::string odbcQuoted(std::string_view value)
{
    const bool isPlain = value.find_first_of("[]{}(),;?*=!@") == std::string_view::npos && trimmed(value) == value;
    if (isPlain) return std::string(value);
    std::string text = "{";
    for (const char c : value) text += c == '}' ? "}}" : std::string(1, c);
    return text + "}";
}

ConnectionString readConnectionString(std::string_view text)
{
    using Form = ConnectionString::Form;
    if (std::ranges::any_of(text, [](char c) { return c == '\0' || c == '\r' || c == '\n'; }))
        return {Form::ado, {}, "the connection string cannot be read: it holds a line end or a NUL"};
    if (trimmed(text).empty()) return {Form::ado, {}, "the connection string is empty"};
    if (text.find('=') == std::string_view::npos && text.find(';') == std::string_view::npos) {
        const std::string name(trimmed(text));
        return {Form::odbc, {{"dsn", "DSN", name, name}}, {}};
    }
    ConnectionString ado = PairReader(text, "\"'").read(Form::ado);
    const std::optional<std::string> provider = ado.value("provider");
    if (provider && isOdbcBridge(*provider)) return PairReader(text, "\"'{").read(Form::ado);
    if (provider || (ado.problem.empty() && !namesDriver(ado))) return ado;
    ConnectionString odbc = readOdbcString(text);
    return namesDriver(odbc) ? odbc : ado;
}

} // namespace inin
