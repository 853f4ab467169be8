#include "adapters/sqlite/sql_date_text.h"
#include "adapters/sqlite/sql_rewriter.h"

#include "runtime/text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace inin::sqlite {

namespace {

/// A comparison operator, the one for swapped operands, and SQLite's spelling.
struct Comparison {
    std::string_view symbol;
    std::string_view mirrored;
    std::string_view spelled;
};
constexpr std::array<Comparison, 9> kMirroredComparisons{{{"=", "=", "="},
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
    const auto *found = std::find_if(kMirroredComparisons.begin(), kMirroredComparisons.end(),
                                     [&](const Comparison &comparison) { return comparison.symbol == token.text; });
    return found == kMirroredComparisons.end() ? nullptr : found;
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

/// x'…' with whole bytes: an odd number of digits gets a leading zero, as on the server.
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

/// Two texts, or a text and an operand of unknown kind, compare under the server's collation.
bool comparesAsText(const SqlExpression &left, const SqlExpression &right)
{
    const auto fits = [](const SqlExpression &p) {
        return p.kind == ColumnKind::text || p.kind == ColumnKind::unknown;
    };
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

SqlExpression SqlRewriter::comparison()
{
    SqlExpression left = additive();
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

SqlExpression SqlRewriter::compared(SqlExpression left, const Token &symbol, SqlExpression right)
{
    const Comparison &comparison = *comparisonOf(symbol);
    if (left.kind == ColumnKind::date && right.isLiteral)
        return comparedWithDate(left, symbol, comparison.spelled, right);
    if (right.kind == ColumnKind::date && left.isLiteral) {
        std::swap(left.gap, right.gap);
        return comparedWithDate(right, symbol, comparison.mirrored, left);
    }
    SqlExpression result{left.gap, left.text + std::string(symbol.gap) + std::string(comparison.spelled)};
    const bool dates = (left.kind == ColumnKind::date && right.kind != ColumnKind::number) ||
                       (right.kind == ColumnKind::date && left.kind != ColumnKind::number);
    if (dates || comparesAsText(left, right)) right.collate(dates ? kDateCollation : kTextCollation);
    result.text += right.whole();
    result.isCompound = true;
    return result;
}

void SqlRewriter::dateProblem(const SqlExpression &literal)
{
    m_problem = "'" + literal.value + "' is not a date and time";
}

SqlExpression SqlRewriter::comparedWithDate(const SqlExpression &column, const Token &symbol,
                                            std::string_view comparison, const SqlExpression &literal)
{
    const std::optional<SqlMoment> moment = momentFromText(literal.value);
    if (!moment) dateProblem(literal);
    const SqlMoment ends = moment.value_or(SqlMoment{});
    SqlExpression result{column.gap, column.text};
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

SqlExpression SqlRewriter::between(SqlExpression left, std::string words)
{
    SqlExpression low = additive();
    const std::string andWord = peek().isWord("and") ? take() : std::string();
    SqlExpression high = startsOperand(m_at) ? additive() : SqlExpression{};
    for (SqlExpression *bound : {&low, &high}) {
        if (left.kind != ColumnKind::date || !bound->isLiteral) continue;
        const std::optional<SqlMoment> moment = momentFromText(bound->value);
        if (!moment) dateProblem(*bound);
        const SqlMoment ends = moment.value_or(SqlMoment{});
        bound->text = quotedText(bound == &low ? ends.lowest : ends.highest);
    }
    if (comparesAsText(left, low) || comparesAsText(left, high)) left.collate(kTextCollation);
    return {left.gap, left.text + words + low.whole() + andWord + high.whole(), ColumnKind::unknown, false, true, {}};
}

/// IN with a list: a date literal is listed in each format that a date column may contain.
SqlExpression SqlRewriter::inList(SqlExpression left, std::string words)
{
    std::string list = take();
    bool texts = false;
    const Until until = peek().isWord("select") ? Until::bracket : Until::comma;
    while (!atStop(Until::bracket)) {
        const SqlExpression item = sequence(until);
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

/// Operands of binary arithmetic operators. A chain of + with a text and neither a number nor a date concatenates.
SqlExpression SqlRewriter::additive()
{
    std::vector<SqlExpression> operands{primary()};
    std::vector<Token> symbols;
    while (isArithmetic(peek()) && startsOperand(m_at + 1)) {
        symbols.push_back(peek());
        ++m_at;
        operands.push_back(primary());
    }
    if (symbols.empty()) return std::move(operands.front());
    const auto isKind = [](ColumnKind kind) { return [kind](const SqlExpression &p) { return p.kind == kind; }; };
    const bool joins = std::all_of(symbols.begin(), symbols.end(), [](const Token &t) { return t.text == "+"; }) &&
                       std::any_of(operands.begin(), operands.end(), isKind(ColumnKind::text)) &&
                       std::none_of(operands.begin(), operands.end(), isKind(ColumnKind::number)) &&
                       std::none_of(operands.begin(), operands.end(), isKind(ColumnKind::date));
    SqlExpression result{operands.front().gap, operands.front().text, joins ? ColumnKind::text : ColumnKind::number};
    result.isCompound = true;
    for (std::size_t at = 0; at < symbols.size(); ++at)
        result.text +=
            std::string(symbols[at].gap) + (joins ? "||" : std::string(symbols[at].text)) + operands[at + 1].whole();
    return result;
}

SqlExpression SqlRewriter::primary()
{
    const Token &token = peek();
    SqlExpression expression{gapOf(m_at), std::string(token.text)};
    switch (token.kind) {
    case TokenKind::text:
        ++m_at;
        if (expression.text.front() != '\'') expression.text.erase(0, 1); // the N of N'…', which SQLite does not know
        expression.value = literalValue(token.text);
        expression.kind = ColumnKind::text;
        expression.isLiteral = true;
        return expression;
    case TokenKind::number:
        ++m_at;
        expression.kind = ColumnKind::number;
        return expression;
    case TokenKind::binary:
        ++m_at;
        expression.text = binaryLiteral(token.text);
        expression.kind = ColumnKind::binary;
        return expression;
    default:
        break;
    }
    if (token.isSymbol("(")) return bracketed();
    if (token.isWord("case")) return caseExpression();
    if (!isSign(token)) return nameOrCall();
    ++m_at;
    expression.text += primary().whole();
    expression.kind = ColumnKind::number;
    return expression;
}

SqlExpression SqlRewriter::bracketed()
{
    SqlExpression expression{gapOf(m_at), "("};
    ++m_at;
    const SqlExpression inner = sequence(Until::bracket);
    expression.text += inner.whole();
    expression.kind = inner.kind;
    if (peek().isSymbol(")")) expression.text += take();
    return expression;
}

SqlExpression SqlRewriter::caseExpression()
{
    SqlExpression expression{gapOf(m_at), std::string(peek().text)};
    ++m_at;
    if (startsOperand(m_at)) { // CASE operand WHEN value …
        SqlExpression operand = comparison();
        if (operand.kind == ColumnKind::text) operand.collate(kTextCollation);
        expression.text += operand.whole();
    }
    const SqlExpression branches = sequence(Until::caseEnd);
    expression.text += branches.whole();
    expression.kind = branches.kind;
    if (peek().isWord("end")) expression.text += take();
    return expression;
}

SqlExpression SqlRewriter::nameOrCall()
{
    SqlExpression expression{gapOf(m_at), {}};
    const Token *last = nullptr;
    std::string qualifier;
    while (true) {
        if (last != nullptr) qualifier = nameOf(*last);
        last = &peek();
        expression.text += spelledName(*last);
        ++m_at;
        if (!peek().isSymbol(".")) break;
        expression.text += take();
        if (peek().isSymbol("*")) {
            expression.text += take();
            return expression;
        }
        if (nameOf(peek()).empty()) return expression;
        expression.text += gapOf(m_at);
    }
    if (peek().isSymbol("(")) {
        const std::string gap = expression.gap;
        expression = call(*last, expression.text);
        expression.gap = gap;
        return expression;
    }
    expression.kind = m_tables.kindOf(qualifier, nameOf(*last), m_at - 1);
    return expression;
}

std::string SqlRewriter::stored(const SqlExpression &expression, ColumnKind target)
{
    if (target != ColumnKind::date || !expression.isLiteral) return expression.whole();
    const std::optional<SqlMoment> moment = momentFromText(expression.value);
    if (!moment) dateProblem(expression);
    return expression.gap + quotedText(moment.value_or(SqlMoment{}).stored);
}

} // namespace inin::sqlite
