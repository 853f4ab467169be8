#include "adapters/sqlite/sql_names.h"

#include "runtime/text.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace inin::sqlite {

namespace {

struct TypeWord {
    std::string_view word;
    ColumnKind kind;
};
/// Searched in this order, anywhere in the declared type.
constexpr TypeWord kTypeWords[] = {
    {"date", ColumnKind::date},     {"timestamp", ColumnKind::date}, {"char", ColumnKind::text},
    {"text", ColumnKind::text},     {"clob", ColumnKind::text},      {"blob", ColumnKind::binary},
    {"binary", ColumnKind::binary}, {"image", ColumnKind::binary},
};

constexpr std::array<std::string_view, 63> kKeywords{
    "add",       "all",     "alter",      "and",       "any",      "as",     "asc",      "begin", "between",
    "by",        "commit",  "create",     "cross",     "delete",   "desc",   "distinct", "drop",  "else",
    "end",       "escape",  "except",     "exists",    "foreign",  "from",   "full",     "group", "having",
    "in",        "inner",   "insert",     "intersect", "into",     "is",     "join",     "key",   "left",
    "like",      "limit",   "not",        "offset",    "on",       "or",     "order",    "outer", "over",
    "partition", "primary", "references", "right",     "rollback", "select", "set",      "some",  "table",
    "then",      "union",   "unique",     "update",    "using",    "values", "when",     "where", "with"};
static_assert(std::is_sorted(kKeywords.begin(), kKeywords.end()));

/// The keywords that end the list of tables after FROM.
constexpr std::array<std::string_view, 7> kEndsOfFrom{"group", "having", "order", "select", "set", "values", "where"};

bool endsFrom(const Token &token)
{
    return isSetOperator(token) || std::any_of(kEndsOfFrom.begin(), kEndsOfFrom.end(),
                                               [&token](std::string_view word) { return token.isWord(word); });
}

bool precedesTable(const Token &token)
{
    return token.isWord("from") || token.isWord("join") || token.isWord("update") || token.isWord("into");
}

} // namespace

ColumnKind kindOfDeclaredType(std::string_view declared)
{
    if (declared.empty()) return ColumnKind::unknown;
    const std::string lower = asciiLower(declared);
    for (const TypeWord &type : kTypeWords)
        if (lower.find(type.word) != std::string::npos) return type.kind;
    return ColumnKind::number;
}

void SqlSchema::add(std::string_view table, std::string_view column, std::string_view declaredType)
{
    m_tables[asciiLower(table)].push_back({asciiLower(column), kindOfDeclaredType(declaredType)});
}

const SqlSchema::Columns *SqlSchema::columnsOf(std::string_view table) const
{
    const std::string name = asciiLower(table);
    auto found = m_tables.find(name);
    if (found == m_tables.end() && m_read) found = m_tables.emplace(name, m_read(name)).first;
    return found == m_tables.end() || found->second.empty() ? nullptr : &found->second;
}

ColumnKind kindIn(const SqlSchema::Columns &columns, std::string_view lowerName)
{
    for (const SqlSchema::Column &column : columns)
        if (column.lowerName == lowerName) return column.kind;
    return ColumnKind::unknown;
}

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

bool isSetOperator(const Token &token)
{
    return token.isWord("union") || token.isWord("except") || token.isWord("intersect");
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
        if (inner[at] == closing) ++at; // the closing delimiter is doubled inside
    }
    return name;
}

std::string spelledName(const Token &token)
{
    // SQLite reads [name] too, but not with a doubled closing bracket; only such a name needs double quotes.
    if (token.text.front() != '[' || token.text.find("]]") == std::string_view::npos) return std::string(token.text);
    std::string spelled = "\"";
    for (const char c : nameOf(token)) spelled.append(c == '"' ? 2 : 1, c);
    return spelled + '"';
}

StatementTables::StatementTables(const std::vector<Token> &tokens, const SqlSchema &schema)
{
    struct Bracket {
        std::size_t scope;
        bool isInFrom;
    };
    std::vector<Bracket> open{{0, false}};
    bool expectsTable = false;
    m_scopeOf.reserve(tokens.size());
    std::size_t tableEnd = 0;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        const Token &token = tokens[at];
        // In a group of joins the expected table follows the bracket.
        if (token.isSymbol("(")) open.push_back({addScope(open.back().scope), false});
        m_scopeOf.push_back(open.back().scope);
        if (at < tableEnd || token.isSymbol("(")) continue;
        if (token.isSymbol(")") && open.size() > 1) open.pop_back();
        if (isSetOperator(token)) open.back().scope = addScope(m_parents[open.back().scope]);
        if (isSqlKeyword(token)) {
            open.back().isInFrom = token.isWord("from") || (open.back().isInFrom && !endsFrom(token));
            expectsTable = precedesTable(token);
            continue;
        }
        if (expectsTable) tableEnd = addTable(tokens, at, schema);
        expectsTable = token.isSymbol(",") && open.back().isInFrom;
    }
}

std::size_t StatementTables::addScope(std::size_t parent)
{
    m_parents.push_back(parent);
    return m_parents.size() - 1;
}

/// Adds the table at `at` and returns the position after its alias.
std::size_t StatementTables::addTable(const std::vector<Token> &tokens, std::size_t at, const SqlSchema &schema)
{
    const auto nameAt = [&tokens](std::size_t index) {
        return index < tokens.size() && !isSqlKeyword(tokens[index]) ? nameOf(tokens[index]) : std::string();
    };
    std::string name = nameAt(at++);
    while (at < tokens.size() && tokens[at].isSymbol(".")) {
        name = nameAt(at + 1);
        at += 2;
    }
    const SqlSchema::Columns *columns = schema.columnsOf(name);
    const std::size_t aliasAt = at + (at < tokens.size() && tokens[at].isWord("as") ? 1 : 0);
    if (std::string alias = nameAt(aliasAt); !alias.empty()) {
        name = std::move(alias);
        at = aliasAt + 1;
    }
    if (columns != nullptr) m_tables.push_back({asciiLower(name), columns, m_scopeOf.back()});
    return at;
}

template <class Fits> const StatementTables::Table *StatementTables::find(std::size_t at, Fits &&fits) const
{
    std::size_t scope = at < m_scopeOf.size() ? m_scopeOf[at] : 0;
    while (true) {
        for (const Table &table : m_tables)
            if (table.scope == scope && fits(table)) return &table;
        if (scope == 0) break;
        scope = m_parents[scope];
    }
    // A column of a sub-select or of a group of joins may be used outside the brackets.
    const auto found = std::find_if(m_tables.begin(), m_tables.end(), fits);
    return found == m_tables.end() ? nullptr : &*found;
}

ColumnKind StatementTables::kindOf(std::string_view qualifier, std::string_view column, std::size_t at) const
{
    const std::string lowerColumn = asciiLower(column), lowerTable = asciiLower(qualifier);
    const Table *table = nullptr;
    if (!qualifier.empty()) table = find(at, [&](const Table &known) { return known.lowerName == lowerTable; });
    if (table == nullptr)
        table =
            find(at, [&](const Table &known) { return kindIn(*known.columns, lowerColumn) != ColumnKind::unknown; });
    return table == nullptr ? ColumnKind::unknown : kindIn(*table->columns, lowerColumn);
}

} // namespace inin::sqlite
