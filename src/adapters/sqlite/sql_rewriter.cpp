#include "adapters/sqlite/sql_rewriter.h"

#include "runtime/text.h"

#include <algorithm>
#include <utility>

namespace inin {

namespace {

/// More nested brackets than in any statement of the suite. SQLite's own limit would come too late for this recursion.
constexpr int kMaxDepth = 100;

/// The kind of a CASE on the server: a date takes precedence. A branch of unknown kind is ignored, as it may be NULL.
ColumnKind commonKind(const ResultKinds &branches)
{
    ColumnKind common = ColumnKind::unknown;
    bool isMixed = false;
    for (const std::optional<ColumnKind> &branch : branches) {
        const ColumnKind kind = branch.value_or(ColumnKind::unknown);
        if (kind == ColumnKind::date) return kind;
        if (kind == ColumnKind::unknown) continue;
        isMixed = isMixed || (common != ColumnKind::unknown && common != kind);
        common = kind;
    }
    return isMixed ? ColumnKind::unknown : common;
}

bool isWholeNumber(const Token &token)
{
    return token.kind == TokenKind::number &&
           std::all_of(token.text.begin(), token.text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace

Translation SqlRewriter::run()
{
    SqlExpression all = sequence(Until::end);
    while (!atEnd() && m_problem.empty()) all.text += take(); // an excess closing bracket, which SQLite reports
    return {all.whole(), m_problem, std::move(m_results)};
}

const Token &SqlRewriter::peek(std::size_t ahead) const
{
    static const Token kNone{TokenKind::symbol, {}, {}};
    return m_at + ahead < m_tokens.size() ? m_tokens[m_at + ahead] : kNone;
}

/// Separates adjacent words, literals and numbers: SQLite would read x'41' as one literal and 5AND as a malformed
/// number where the server reads two tokens.
std::string SqlRewriter::gapOf(std::size_t at) const
{
    const Token &token = m_tokens[at];
    if (!token.gap.empty() || at == 0) return std::string(token.gap);
    const auto isSolid = [](const Token &t) { return t.kind != TokenKind::symbol; };
    return isSolid(token) && isSolid(m_tokens[at - 1]) ? " " : "";
}

std::string SqlRewriter::take()
{
    std::string text = gapOf(m_at);
    text += m_tokens[m_at].text;
    ++m_at;
    return text;
}

bool SqlRewriter::atStop(Until until) const
{
    if (atEnd() || !m_problem.empty()) return true;
    if (until == Until::caseEnd && peek().isWord("end")) return true;
    return until != Until::end && (peek().isSymbol(")") || (until == Until::comma && peek().isSymbol(",")));
}

SqlExpression SqlRewriter::sequence(Until until)
{
    if (++m_depth > kMaxDepth) m_problem = "the statement is nested too deeply";
    Frame frame;
    while (!atStop(until)) {
        if (isSqlKeyword(peek()) && !isFunctionAhead())
            clauseWord(frame);
        else if (startsOperand(m_at))
            expressionItem(frame);
        else
            symbolItem(frame);
    }
    flushTop(frame);
    --m_depth;
    SqlExpression whole;
    if (frame.items == 1) whole = frame.last;
    if (frame.items != 1 || whole.text.empty()) whole.text = frame.out;
    if (frame.items != 1) whole.isCompound = true;
    if (until == Until::caseEnd) whole.kind = commonKind(frame.results);
    if (until == Until::bracket && frame.results.size() == 1)
        whole.kind = frame.results.front().value_or(ColumnKind::unknown);
    if (until == Until::end) m_results = std::move(frame.results);
    return whole;
}

void SqlRewriter::symbolItem(Frame &frame)
{
    if (peek().isSymbol(";")) flushTop(frame);
    if (peek().isSymbol("*") && frame.expectsResult) frame.results.emplace_back();
    frame.expectsResult = peek().isSymbol(",") && frame.clause == Clause::results;
    frame.out += take();
    ++frame.items;
}

void SqlRewriter::expressionItem(Frame &frame)
{
    ++frame.items;
    if (frame.clause == Clause::set && assignment(frame)) return;
    SqlExpression expression = comparison();
    if (frame.clause == Clause::keys && expression.isCollatable()) expression.collate(kTextCollation);
    if (std::exchange(frame.expectsResult, false)) resultItem(frame, expression);
    frame.out += expression.whole();
    frame.last = std::move(expression);
}

/// Adds the collation to a text of SELECT DISTINCT. For SQLite, a column with a COLLATE is an expression without a
/// name, so the name is added as an alias.
void SqlRewriter::resultItem(Frame &frame, SqlExpression &expression)
{
    const Token &last = m_tokens[m_at - 1];
    const bool isStar = last.isSymbol("*");
    frame.results.push_back(isStar ? std::nullopt : std::optional(expression.kind));
    if (!frame.isDistinct || !expression.isCollatable()) return;
    const bool isColumn = !expression.isCompound && !nameOf(last).empty();
    expression.collate(kTextCollation);
    const bool hasAlias = peek().isWord("as") || startsOperand(m_at);
    if (isColumn && !hasAlias) expression.text += " AS " + spelledName(last);
}

void SqlRewriter::clauseWord(Frame &frame)
{
    frame.items += 2; // the frame is not a single expression
    const Token &word = peek();
    if (word.isWord("select")) return selectHead(frame);
    if (word.isWord("insert")) return insertHead(frame);
    if (isSetOperator(word)) {
        frame.isCompound = true;
        flushTop(frame);
    }
    if (word.isWord("order") && frame.isCompound) flushTop(frame);
    if (word.isWord("order") || word.isWord("group") || word.isWord("distinct")) frame.clause = Clause::keys;
    if (word.isWord("set")) frame.clause = Clause::set;
    if (word.isWord("where") || word.isWord("from") || word.isWord("having") || isSetOperator(word))
        frame.clause = Clause::other;
    frame.expectsResult = word.isWord("then") || word.isWord("else");
    frame.out += take();
}

void SqlRewriter::selectHead(Frame &frame)
{
    const std::string gap = gapOf(m_at);
    frame.armStart = frame.out.size() + gap.size();
    frame.clause = frame.isCompound ? Clause::other : Clause::results;
    frame.expectsResult = !frame.isCompound;
    frame.out += take();
    while (peek().isWord("all") || peek().isWord("distinct")) {
        frame.isDistinct = frame.isDistinct || peek().isWord("distinct");
        frame.out += take();
    }
    if (!peek().isWord("top")) return;
    const bool bracketed = peek(1).isSymbol("(") && isWholeNumber(peek(2)) && peek(3).isSymbol(")");
    if (!bracketed && !isWholeNumber(peek(1))) return;
    frame.top = peek(bracketed ? 2 : 1).text;
    m_at += bracketed ? 4 : 2;
}

/// Writes the TOP of the SELECT that ends here. In a UNION, SQLite allows a LIMIT only inside a sub-select.
void SqlRewriter::flushTop(Frame &frame)
{
    if (frame.top.empty()) return;
    if (frame.isCompound) frame.out.insert(frame.armStart, "SELECT * FROM (");
    frame.out += " LIMIT " + frame.top;
    if (frame.isCompound) frame.out += ")";
    frame.top.clear();
}

/// INSERT [INTO] table [(columns)] VALUES (...): a date literal for a date column is written in the stored format.
void SqlRewriter::insertHead(Frame &frame)
{
    frame.out += take();
    if (peek().isWord("into")) frame.out += take();
    std::string table;
    while (!nameOf(peek()).empty() && !isSqlKeyword(peek())) {
        table = nameOf(peek());
        frame.out += take();
        if (!peek().isSymbol(".")) break;
        frame.out += take();
    }
    const std::vector<ColumnKind> kinds = insertColumns(frame, table);
    if (!peek().isWord("values")) return;
    frame.out += take();
    while (peek().isSymbol("(")) {
        insertRow(frame, kinds);
        if (!peek().isSymbol(",")) return;
        frame.out += take();
    }
}

std::vector<ColumnKind> SqlRewriter::insertColumns(Frame &frame, const std::string &table)
{
    std::vector<ColumnKind> kinds;
    const SqlSchema::Columns *columns = m_schema.columnsOf(table);
    if (!peek().isSymbol("(")) {
        if (columns != nullptr)
            for (const SqlSchema::Column &column : *columns) kinds.push_back(column.kind);
        return kinds;
    }
    frame.out += take();
    while (!atEnd() && !peek().isSymbol(")")) {
        const std::string name = asciiLower(nameOf(peek()));
        if (!name.empty()) kinds.push_back(columns == nullptr ? ColumnKind::unknown : kindIn(*columns, name));
        frame.out += take();
    }
    if (!atEnd()) frame.out += take();
    return kinds;
}

void SqlRewriter::insertRow(Frame &frame, const std::vector<ColumnKind> &kinds)
{
    frame.out += take();
    for (std::size_t index = 0; !atStop(Until::bracket); ++index) {
        const SqlExpression value = sequence(Until::comma);
        frame.out += stored(value, index < kinds.size() ? kinds[index] : ColumnKind::unknown);
        if (peek().isSymbol(",")) frame.out += take();
    }
    if (!atEnd()) frame.out += take();
}

/// column = value after SET, where = is not a comparison.
bool SqlRewriter::assignment(Frame &frame)
{
    if (nameOf(peek()).empty() || !peek(1).isSymbol("=")) return false;
    const ColumnKind kind = m_tables.kindOf({}, nameOf(peek()), m_at);
    frame.out += take();
    frame.out += take();
    if (startsOperand(m_at)) frame.out += stored(additive(), kind);
    return true;
}

} // namespace inin
