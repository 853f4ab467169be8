#pragma once

#include "adapters/database/sql_tokenizer.h"
#include "adapters/sqlite/sql_names.h"
#include "adapters/sqlite/sql_translator.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin::sqlite {

// The names under which a connection registers the collations.
inline constexpr std::string_view kTextCollation = "ININ_JA";
inline constexpr std::string_view kDateCollation = "ININ_DATE";

/// An expression, or a part of one, translated to SQLite.
struct SqlExpression {
    std::string gap; ///< the white space before it
    std::string text{};
    ColumnKind kind = ColumnKind::unknown;
    bool isLiteral = false;  ///< a single quoted text
    bool isCompound = false; ///< more than one operand, so that COLLATE requires brackets
    std::string value{};     ///< the characters of a literal

    [[nodiscard]] std::string whole() const { return gap + text; }
    /// True for a text expression, which compares and sorts under the server's collation.
    [[nodiscard]] bool isCollatable() const { return kind == ColumnKind::text && !isLiteral; }
    void collate(std::string_view collation)
    {
        text = (isCompound ? "(" + text + ")" : text) + " COLLATE " + std::string(collation);
        isCompound = false;
    }
};

/// Translates the tokens of a statement in one pass. Clauses pass through word by word. Expressions are parsed, because
/// the meaning of =, + or a date literal depends on the operands.
class SqlRewriter {
public:
    SqlRewriter(const std::vector<Token> &tokens, const SqlSchema &schema)
        : m_tokens(tokens), m_schema(schema), m_tables(tokens, schema)
    {
    }
    [[nodiscard]] Translation run();

private:
    enum class Until { end, bracket, comma, caseEnd };
    enum class Clause {
        other,
        results, ///< the result list of a SELECT
        keys,    ///< the expressions of ORDER BY, GROUP BY and DISTINCT in an aggregate
        set
    };
    /// The state of one SELECT, whose TOP becomes a LIMIT at its end, or of one CASE.
    struct Frame {
        std::string out;
        Clause clause = Clause::other;
        ResultKinds results;        ///< of the SELECT's columns, or of a CASE's branches
        bool expectsResult = false; ///< the next expression is a result
        bool isDistinct = false;
        std::size_t armStart = 0; ///< the start of the present SELECT of a UNION
        std::string top;
        bool isCompound = false;
        int items = 0;
        SqlExpression last; ///< the whole frame when it is the only item
    };

    // Clauses.
    SqlExpression sequence(Until until);
    [[nodiscard]] bool atStop(Until until) const;
    void clauseWord(Frame &frame);
    void selectHead(Frame &frame);
    void expressionItem(Frame &frame);
    void symbolItem(Frame &frame);
    void resultItem(Frame &frame, SqlExpression &expression);
    static void flushTop(Frame &frame);
    void insertHead(Frame &frame);
    void insertRow(Frame &frame, const std::vector<ColumnKind> &kinds);
    [[nodiscard]] std::vector<ColumnKind> insertColumns(Frame &frame, const std::string &table);
    bool assignment(Frame &frame);

    // Expressions.
    SqlExpression comparison();
    SqlExpression additive();
    SqlExpression primary();
    SqlExpression bracketed();
    SqlExpression caseExpression();
    SqlExpression nameOrCall();
    SqlExpression call(const Token &name, std::string path);
    void adaptArgument(const Token &name, std::vector<SqlExpression> &arguments);
    SqlExpression convertCall(const std::vector<SqlExpression> &arguments);
    SqlExpression inList(SqlExpression left, std::string words);
    SqlExpression between(SqlExpression left, std::string words);
    SqlExpression compared(SqlExpression left, const Token &symbol, SqlExpression right);
    SqlExpression comparedWithDate(const SqlExpression &column, const Token &symbol, std::string_view comparison,
                                   const SqlExpression &literal);
    [[nodiscard]] bool startsOperand(std::size_t at) const;
    [[nodiscard]] std::string stored(const SqlExpression &expression, ColumnKind target);
    void dateProblem(const SqlExpression &literal);

    // Tokens.
    [[nodiscard]] bool atEnd() const { return m_at >= m_tokens.size(); }
    [[nodiscard]] const Token &peek(std::size_t ahead = 0) const;
    [[nodiscard]] bool isFunctionAhead() const;
    /// Returns the gap and text of the present token and moves to the next one.
    std::string take();
    [[nodiscard]] std::string gapOf(std::size_t at) const;

    const std::vector<Token> &m_tokens;
    const SqlSchema &m_schema;
    StatementTables m_tables;
    std::size_t m_at = 0;
    int m_depth = 0;
    std::string m_problem;
    ResultKinds m_results;
};

} // namespace inin::sqlite
