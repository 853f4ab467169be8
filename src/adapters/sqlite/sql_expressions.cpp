#include "adapters/sqlite/sql_date_text.h"
#include "adapters/sqlite/sql_rewriter.h"

#include "runtime/text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace inin {

namespace {

/// A comparison, the same with its operands changed over, and SQLite's spelling.
struct Comparison {
    std::string_view symbol;
    std::string_view mirrored;
    std::string_view spelled;
};
constexpr std::array<Comparison, 9> kComparisons{{{"=", "=", "="},
                                                  {"<>", "<>", "<>"},
                                                  {"!=", "!=", "!="},
                                                  {"<", ">", "<"},
                                                  {">", "<", ">"},
                                                  {"<=", ">=", "<="},
                                                  {">=", "<=", ">="},
                                                  {"!<", "<=", ">="},
                                                  {"!>", ">=", "<="}}};

const Comparison *comparisonOf(const Token &token)
{
    if (token.kind != TokenKind::symbol) return nullptr;
    const auto *found = std::find_if(kComparisons.begin(), kComparisons.end(),
                                     [&](const Comparison &comparison) { return comparison.symbol == token.text; });
    return found == kComparisons.end() ? nullptr : found;
}

bool isArithmetic(const Token &token)
{
    constexpr std::string_view kSymbols = "+-*/%&|";
    return token.kind == TokenKind::symbol && token.text.size() == 1 &&
           kSymbols.find(token.text.front()) != std::string_view::npos;
}

bool isSign(const Token &token)
{
    return token.isSymbol("-") || token.isSymbol("+") || token.isSymbol("~");
}

std::string quotedText(std::string_view content)
{
    return "'" + std::string(content) + "'";
}

/// x'…' with whole bytes: a lone first digit gets its zero, as on the server.
std::string binaryLiteral(std::string_view token)
{
    const std::string_view digits = token.substr(2);
    return std::string(digits.size() % 2 == 0 ? "x'" : "x'0") + std::string(digits) + "'";
}

std::string literalValue(std::string_view token)
{
    if (token.front() != '\'') token.remove_prefix(1);
    const std::string_view inner = token.substr(1, token.size() - 2);
    std::string value;
    for (std::size_t at = 0; at < inner.size(); ++at) {
        value += inner[at];
        if (inner[at] == '\'') ++at;
    }
    return value;
}

/// Two texts, or a text and something unknown: they compare under the server's collation.
bool comparesAsText(const SqlPiece &left, const SqlPiece &right)
{
    const auto fits = [](const SqlPiece &p) { return p.kind == ColumnKind::text || p.kind == ColumnKind::unknown; };
    return fits(left) && fits(right) && (left.kind == ColumnKind::text || right.kind == ColumnKind::text);
}

} // namespace

bool SqlRewriter::isFunctionAhead() const
{
    return (peek().isWord("left") || peek().isWord("right")) && peek(1).isSymbol("(");
}

bool SqlRewriter::startsOperand(std::size_t at) const
{
    if (at >= m_tokens.size()) return false;
    const Token &token = m_tokens[at];
    if (token.kind == TokenKind::symbol)
        return token.isSymbol("(") ||
               (isSign(token) && at + 1 < m_tokens.size() && !isSign(m_tokens[at + 1]) && startsOperand(at + 1));
    if (token.isWord("left") || token.isWord("right"))
        return at + 1 < m_tokens.size() && m_tokens[at + 1].isSymbol("(");
    return token.kind != TokenKind::invalid && !isSqlKeyword(token);
}

SqlPiece SqlRewriter::comparison()
{
    SqlPiece left = additive();
    if (const Comparison *found = comparisonOf(peek()); found != nullptr && startsOperand(m_at + 1)) {
        const Token symbol = {TokenKind::symbol, found->symbol, peek().gap};
        ++m_at;
        return compared(std::move(left), symbol, additive());
    }
    const bool negated = peek().isWord("not");
    const Token &word = peek(negated ? 1 : 0);
    const std::size_t operand = m_at + (negated ? 2 : 1);
    const bool isIn = word.isWord("in") && peek(negated ? 2 : 1).isSymbol("(");
    const bool isBetween = word.isWord("between") && startsOperand(operand);
    const bool isLike = word.isWord("like") && startsOperand(operand);
    if (!isIn && !isBetween && !isLike) return left;
    std::string words = negated ? take() : std::string();
    words += take();
    if (isIn) return inList(std::move(left), std::move(words));
    if (isBetween) return between(std::move(left), std::move(words));
    left.text += words + additive().whole();
    return {left.gap, left.text, ColumnKind::unknown, false, true, {}};
}

SqlPiece SqlRewriter::compared(SqlPiece left, const Token &symbol, SqlPiece right)
{
    const Comparison &comparison = *comparisonOf(symbol);
    if (left.kind == ColumnKind::date && right.isLiteral)
        return comparedWithDate(left, symbol, comparison.spelled, right);
    if (right.kind == ColumnKind::date && left.isLiteral) {
        std::swap(left.gap, right.gap);
        return comparedWithDate(right, symbol, comparison.mirrored, left);
    }
    SqlPiece result{left.gap, left.text + std::string(symbol.gap) + std::string(comparison.spelled)};
    const bool dates = (left.kind == ColumnKind::date && right.kind != ColumnKind::number) ||
                       (right.kind == ColumnKind::date && left.kind != ColumnKind::number);
    if (dates || comparesAsText(left, right)) right.collate(dates ? kDateCollation : kTextCollation);
    result.text += right.whole();
    result.isCompound = true;
    return result;
}

void SqlRewriter::dateProblem(const SqlPiece &literal)
{
    m_problem = "'" + literal.value + "' is not a date and time";
}

SqlPiece SqlRewriter::comparedWithDate(const SqlPiece &column, const Token &symbol, std::string_view comparison,
                                       const SqlPiece &literal)
{
    const std::optional<SqlMoment> moment = momentFromText(literal.value);
    if (!moment) dateProblem(literal);
    const SqlMoment ends = moment.value_or(SqlMoment{});
    SqlPiece result{column.gap, column.text};
    result.isCompound = true;
    const bool isEqual = comparison == "=";
    if (isEqual || comparison == "<>" || comparison == "!=") {
        result.text += std::string(isEqual ? " BETWEEN " : " NOT BETWEEN ") + quotedText(ends.lowest) + " AND " +
                       quotedText(ends.highest);
        return result;
    }
    const bool fromLowest = comparison == ">=" || comparison == "<";
    result.text += std::string(symbol.gap) + std::string(comparison) + literal.gap +
                   quotedText(fromLowest ? ends.lowest : ends.highest);
    return result;
}

SqlPiece SqlRewriter::between(SqlPiece left, std::string words)
{
    SqlPiece low = additive();
    const std::string andWord = peek().isWord("and") ? take() : std::string();
    SqlPiece high = startsOperand(m_at) ? additive() : SqlPiece{};
    for (SqlPiece *bound : {&low, &high}) {
        if (left.kind != ColumnKind::date || !bound->isLiteral) continue;
        const std::optional<SqlMoment> moment = momentFromText(bound->value);
        if (!moment) dateProblem(*bound);
        const SqlMoment ends = moment.value_or(SqlMoment{});
        bound->text = quotedText(bound == &low ? ends.lowest : ends.highest);
    }
    if (comparesAsText(left, low) || comparesAsText(left, high)) left.collate(kTextCollation);
    return {left.gap, left.text + words + low.whole() + andWord + high.whole(), ColumnKind::unknown, false, true, {}};
}

/// IN with a list: a quoted date stands in each form that a date column may hold it in.
SqlPiece SqlRewriter::inList(SqlPiece left, std::string words)
{
    std::string list = take();
    bool texts = false;
    const Until until = peek().isWord("select") ? Until::bracket : Until::comma;
    while (!atStop(Until::bracket)) {
        const SqlPiece item = sequence(until);
        texts = texts || comparesAsText(left, item);
        if (left.kind == ColumnKind::date && item.isLiteral) {
            const std::optional<SqlMoment> moment = momentFromText(item.value);
            if (!moment) dateProblem(item);
            const SqlMoment ends = moment.value_or(SqlMoment{});
            list +=
                item.gap + quotedText(ends.lowest) + ", " + quotedText(ends.stored) + ", " + quotedText(ends.highest);
        } else {
            list += item.whole();
        }
        if (peek().isSymbol(",")) list += take();
    }
    if (!atEnd()) list += take();
    if (texts) left.collate(kTextCollation);
    return {left.gap, left.text + words + list, ColumnKind::unknown, false, true, {}};
}

/// Operands joined by + - * / and the like. A chain of + that holds a text and no number joins texts.
SqlPiece SqlRewriter::additive()
{
    std::vector<SqlPiece> operands{primary()};
    std::vector<Token> symbols;
    while (isArithmetic(peek()) && startsOperand(m_at + 1)) {
        symbols.push_back(peek());
        ++m_at;
        operands.push_back(primary());
    }
    if (symbols.empty()) return std::move(operands.front());
    const auto isKind = [](ColumnKind kind) { return [kind](const SqlPiece &p) { return p.kind == kind; }; };
    const bool joins = std::all_of(symbols.begin(), symbols.end(), [](const Token &t) { return t.text == "+"; }) &&
                       std::any_of(operands.begin(), operands.end(), isKind(ColumnKind::text)) &&
                       std::none_of(operands.begin(), operands.end(), isKind(ColumnKind::number)) &&
                       std::none_of(operands.begin(), operands.end(), isKind(ColumnKind::date));
    SqlPiece result{operands.front().gap, operands.front().text, joins ? ColumnKind::text : ColumnKind::number};
    result.isCompound = true;
    for (std::size_t at = 0; at < symbols.size(); ++at)
        result.text +=
            std::string(symbols[at].gap) + (joins ? "||" : std::string(symbols[at].text)) + operands[at + 1].whole();
    return result;
}

SqlPiece SqlRewriter::primary()
{
    const Token &token = peek();
    SqlPiece piece{gapOf(m_at), std::string(token.text)};
    switch (token.kind) {
    case TokenKind::text:
        ++m_at;
        if (piece.text.front() != '\'') piece.text.erase(0, 1); // N'…': every text is Unicode here
        piece.value = literalValue(token.text);
        piece.kind = ColumnKind::text;
        piece.isLiteral = true;
        return piece;
    case TokenKind::number:
        ++m_at;
        piece.kind = ColumnKind::number;
        return piece;
    case TokenKind::binary:
        ++m_at;
        piece.text = binaryLiteral(token.text);
        piece.kind = ColumnKind::binary;
        return piece;
    default:
        break;
    }
    if (token.isSymbol("(")) return bracketed();
    if (token.isWord("case")) return caseExpression();
    if (!isSign(token)) return nameOrCall();
    ++m_at;
    piece.text += primary().whole();
    piece.kind = ColumnKind::number;
    return piece;
}

SqlPiece SqlRewriter::bracketed()
{
    SqlPiece piece{gapOf(m_at), "("};
    ++m_at;
    const SqlPiece inner = sequence(Until::bracket);
    piece.text += inner.whole();
    piece.kind = inner.kind;
    if (peek().isSymbol(")")) piece.text += take();
    return piece;
}

SqlPiece SqlRewriter::caseExpression()
{
    SqlPiece piece{gapOf(m_at), std::string(peek().text)};
    ++m_at;
    if (startsOperand(m_at)) { // CASE operand WHEN value …
        SqlPiece operand = comparison();
        if (operand.kind == ColumnKind::text) operand.collate(kTextCollation);
        piece.text += operand.whole();
    }
    const SqlPiece branches = sequence(Until::caseEnd);
    piece.text += branches.whole();
    piece.kind = branches.kind;
    if (peek().isWord("end")) piece.text += take();
    return piece;
}

SqlPiece SqlRewriter::nameOrCall()
{
    SqlPiece piece{gapOf(m_at), {}};
    const Token *last = nullptr;
    std::string qualifier;
    while (true) {
        if (last != nullptr) qualifier = nameOf(*last);
        last = &peek();
        piece.text += spelledName(*last);
        ++m_at;
        if (!peek().isSymbol(".")) break;
        piece.text += take();
        if (peek().isSymbol("*")) {
            piece.text += take();
            return piece;
        }
        if (nameOf(peek()).empty()) return piece;
        piece.text += gapOf(m_at);
    }
    if (peek().isSymbol("(")) {
        const std::string gap = piece.gap;
        piece = call(*last, piece.text);
        piece.gap = gap;
        return piece;
    }
    piece.kind = m_tables.kindOf(qualifier, nameOf(*last), m_at - 1);
    return piece;
}

std::string SqlRewriter::stored(const SqlPiece &piece, ColumnKind target)
{
    if (target != ColumnKind::date || !piece.isLiteral) return piece.whole();
    const std::optional<SqlMoment> moment = momentFromText(piece.value);
    if (!moment) dateProblem(piece);
    return piece.gap + quotedText(moment.value_or(SqlMoment{}).stored);
}

} // namespace inin
