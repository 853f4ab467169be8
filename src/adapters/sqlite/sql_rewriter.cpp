#include "adapters/sqlite/sql_rewriter.h"

#include "runtime/text.h"

#include <algorithm>
#include <utility>

namespace inin {

namespace {

/// Deeper brackets than any statement has; SQLite's own parser would give up later, but our walk recurses.
constexpr int kDeepest = 100;

/// The server's kind of a CASE: a date wins over all others, a branch of unknown kind may be NULL.
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
    SqlPiece all = sequence(Until::end);
    while (!atEnd() && m_problem.empty()) all.text += take(); // a bracket too many: SQLite tells it
    return {all.whole(), m_problem, std::move(m_results)};
}

const Token &SqlRewriter::peek(std::size_t ahead) const
{
    static const Token kNone{TokenKind::symbol, {}, {}};
    return m_at + ahead < m_tokens.size() ? m_tokens[m_at + ahead] : kNone;
}

/// A word that touches a literal or a number behind it stays apart from it: SQLite would read x'41' as one literal
/// and 5AND as a bad number where the server reads two tokens.
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

SqlPiece SqlRewriter::sequence(Until until)
{
    if (++m_depth > kDeepest) m_problem = "the statement is nested too deeply";
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
    SqlPiece whole;
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
    SqlPiece piece = comparison();
    if (frame.clause == Clause::keys && piece.isCollatable()) piece.collate(kTextCollation);
    if (std::exchange(frame.expectsResult, false)) resultItem(frame, piece);
    frame.out += piece.whole();
    frame.last = std::move(piece);
}

/// Adds the collation to a text of SELECT DISTINCT. With it SQLite takes a column for an expression, which has no name of
/// its own, so it gets its name back as an alias.
void SqlRewriter::resultItem(Frame &frame, SqlPiece &piece)
{
    const Token &last = m_tokens[m_at - 1];
    const bool isStar = last.isSymbol("*");
    frame.results.push_back(isStar ? std::nullopt : std::optional(piece.kind));
    if (!frame.isDistinct || !piece.isCollatable()) return;
    const bool isColumn = !piece.isCompound && !nameOf(last).empty();
    piece.collate(kTextCollation);
    const bool hasAlias = peek().isWord("as") || startsOperand(m_at);
    if (isColumn && !hasAlias) piece.text += " AS " + spelledName(last);
}

void SqlRewriter::clauseWord(Frame &frame)
{
    frame.items += 2; // no single expression any more
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

/// The TOP of the SELECT that ends here. SQLite has no LIMIT on one arm of a UNION: there the arm becomes a sub-select.
void SqlRewriter::flushTop(Frame &frame)
{
    if (frame.top.empty()) return;
    if (frame.isCompound) frame.out.insert(frame.armStart, "SELECT * FROM (");
    frame.out += " LIMIT " + frame.top;
    if (frame.isCompound) frame.out += ")";
    frame.top.clear();
}

/// INSERT [INTO] table [(columns)] VALUES (...): a quoted date that goes into a date column is written in its one form.
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
        const SqlPiece value = sequence(Until::comma);
        frame.out += stored(value, index < kinds.size() ? kinds[index] : ColumnKind::unknown);
        if (peek().isSymbol(",")) frame.out += take();
    }
    if (!atEnd()) frame.out += take();
}

/// column = value behind SET: here = is no comparison.
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
