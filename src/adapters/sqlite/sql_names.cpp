#include "adapters/sqlite/sql_names.h"

#include "runtime/text.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace inin {

namespace {

constexpr std::array<std::string_view, 63> kKeywords{
    "add",       "all",     "alter",      "and",       "any",      "as",     "asc",      "begin", "between",
    "by",        "commit",  "create",     "cross",     "delete",   "desc",   "distinct", "drop",  "else",
    "end",       "escape",  "except",     "exists",    "foreign",  "from",   "full",     "group", "having",
    "in",        "inner",   "insert",     "intersect", "into",     "is",     "join",     "key",   "left",
    "like",      "limit",   "not",        "offset",    "on",       "or",     "order",    "outer", "over",
    "partition", "primary", "references", "right",     "rollback", "select", "set",      "some",  "table",
    "then",      "union",   "unique",     "update",    "using",    "values", "when",     "where", "with"};
static_assert(std::is_sorted(kKeywords.begin(), kKeywords.end()));

} // namespace

bool isSqlKeyword(const Token &token)
{
    constexpr std::size_t kLongest = 10;
    if (token.kind != TokenKind::word || token.text.size() > kLongest) return false;
    std::array<char, kLongest> lower{};
    std::transform(token.text.begin(), token.text.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    const std::string_view word(lower.data(), token.text.size());
    return std::binary_search(kKeywords.begin(), kKeywords.end(), word);
}

std::string nameOf(const Token &token)
{
    if (token.kind == TokenKind::word) return std::string(token.text);
    if (token.kind != TokenKind::quotedName) return {};
    const std::string_view inner = token.text.substr(1, token.text.size() - 2);
    const char closing = token.text.back();
    std::string name;
    for (std::size_t at = 0; at < inner.size(); ++at) {
        name += inner[at];
        if (inner[at] == closing) ++at; // a closing sign stands twice inside
    }
    return name;
}

StatementTables::StatementTables(const std::vector<Token> &tokens, const SqlSchema &schema)
{
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        if (at > 0 && tokens[at - 1].isSymbol(".")) continue;
        const std::string name = nameOf(tokens[at]);
        const SqlSchema::Columns *columns = name.empty() ? nullptr : schema.columnsOf(name);
        if (columns == nullptr) continue;
        addTable(asciiLower(name), columns);
        std::size_t next = at + 1;
        if (next < tokens.size() && tokens[next].isWord("as")) ++next;
        if (next >= tokens.size() || isSqlKeyword(tokens[next])) continue;
        const std::string alias = nameOf(tokens[next]);
        if (!alias.empty()) addTable(asciiLower(alias), columns);
    }
}

void StatementTables::addTable(std::string lowerName, const SqlSchema::Columns *columns)
{
    for (const auto &[name, known] : m_tables)
        if (name == lowerName) return;
    m_tables.emplace_back(std::move(lowerName), columns);
}

ColumnKind StatementTables::kindOf(std::string_view qualifier, std::string_view column) const
{
    const std::string lowerColumn = asciiLower(column);
    if (!qualifier.empty()) {
        const std::string lowerTable = asciiLower(qualifier);
        for (const auto &[name, columns] : m_tables)
            if (name == lowerTable) return kindIn(*columns, lowerColumn);
    }
    for (const auto &[name, columns] : m_tables) {
        const ColumnKind kind = kindIn(*columns, lowerColumn);
        if (kind != ColumnKind::unknown) return kind;
    }
    return ColumnKind::unknown;
}

} // namespace inin
