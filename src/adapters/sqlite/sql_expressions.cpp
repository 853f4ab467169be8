#include "adapters/sqlite/sql_rewriter.h"

#include "runtime/text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace inin::sqlite {

namespace {

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

} // namespace inin::sqlite
