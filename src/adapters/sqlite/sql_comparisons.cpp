#include "adapters/sqlite/sql_date_text.h"
#include "adapters/sqlite/sql_rewriter.h"

#include <algorithm>
#include <array>
#include <utility>

// Comparisons, and what a date literal becomes in them.

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

std::string quotedText(std::string_view content)
{
    return "'" + std::string(content) + "'";
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

std::string SqlRewriter::stored(const SqlExpression &expression, ColumnKind target)
{
    if (target != ColumnKind::date || !expression.isLiteral) return expression.whole();
    const std::optional<SqlMoment> moment = momentFromText(expression.value);
    if (!moment) dateProblem(expression);
    return expression.gap + quotedText(moment.value_or(SqlMoment{}).stored);
}

} // namespace inin::sqlite
