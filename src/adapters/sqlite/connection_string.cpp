#include "adapters/sqlite/connection_string.h"

#include "runtime/text.h"

#include <cstddef>

namespace inin {

namespace {

/// Reads the value at `at` and moves `at` past its semicolon.
std::string readValue(std::string_view text, std::size_t &at)
{
    while (at < text.size() && text[at] == ' ') ++at;
    const char quote = at < text.size() && (text[at] == '"' || text[at] == '\'') ? text[at] : '\0';
    std::string value;
    if (quote != '\0') {
        for (++at; at < text.size(); ++at) {
            if (text[at] != quote) {
                value += text[at];
            } else if (at + 1 < text.size() && text[at + 1] == quote) {
                value += text[++at];
            } else {
                ++at;
                break;
            }
        }
    }
    const std::size_t start = at;
    while (at < text.size() && text[at] != ';') ++at;
    if (quote == '\0') value = rtrim(text.substr(start, at - start));
    if (at < text.size()) ++at;
    return value;
}

} // namespace

ConnectionString::ConnectionString(std::string_view text)
{
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t equals = text.find('=', at);
        const std::size_t semicolon = text.find(';', at);
        if (semicolon < equals) { // a key without a value, or two consecutive semicolons
            at = semicolon + 1;
            continue;
        }
        if (equals == std::string_view::npos) return;
        const std::string key = asciiLower(trim(text.substr(at, equals - at)));
        at = equals + 1;
        m_values[key] = readValue(text, at);
    }
}

std::string ConnectionString::value(std::string_view key) const
{
    const auto found = m_values.find(asciiLower(key));
    return found == m_values.end() ? std::string() : found->second;
}

} // namespace inin
