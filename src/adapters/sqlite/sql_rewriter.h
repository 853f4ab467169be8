#pragma once

#include "adapters/common/sql_tokenizer.h"
#include "adapters/sqlite/sql_names.h"
#include "adapters/sqlite/sql_schema.h"
#include "adapters/sqlite/sql_translator.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin {

// Names under which a connection registers what SQLite lacks.
inline constexpr std::string_view kTextCollation = "ININ_JA";
inline constexpr std::string_view kDateCollation = "ININ_DATE";

/// An expression or a part of one, turned over.
struct SqlPiece {
    std::string gap; ///< the white space before it
    std::string text{};
    ColumnKind kind = ColumnKind::unknown;
    bool isLiteral = false;  ///< one quoted text and nothing else
    bool isCompound = false; ///< more than one operand: wants brackets before a COLLATE
    std::string value{};     ///< of a literal: its characters

    [[nodiscard]] std::string whole() const { return gap + text; }
    /// An expression of texts that compares and sorts under the server's collation.
    [[nodiscard]] bool isCollatable() const { return kind == ColumnKind::text && !isLiteral; }
    void collate(std::string_view collation)
    {
        text = (isCompound ? "(" + text + ")" : text) + " COLLATE " + std::string(collation);
        isCompound = false;
    }
};

/// One walk over the tokens of a statement. Clauses pass through word by word; expressions are read operand by
/// operand, because only the operands tell what = or + or a quoted date means.
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
        results, ///< the list of a SELECT
        keys,    ///< of ORDER BY, GROUP BY and DISTINCT in an aggregate
        set
    };
    /// One SELECT between its brackets, and the TOP that becomes a LIMIT at its end; or one CASE.
    struct Frame {
        std::string out;
        Clause clause = Clause::other;
        ResultKinds results;        ///< of the SELECT's columns, or of a CASE's branches
        bool expectsResult = false; ///< the next expression is one of them
        bool isDistinct = false;
        std::size_t armStart = 0; ///< where the present SELECT of a UNION begins
        std::string top;
        bool isCompound = false;
        int items = 0;
        SqlPiece last; ///< the last expression; the kind of the whole where it is the only item
    };

    // Clauses.
    SqlPiece sequence(Until until);
    [[nodiscard]] bool atStop(Until until) const;
    void clauseWord(Frame &frame);
    void selectHead(Frame &frame);
    void expressionItem(Frame &frame);
    void symbolItem(Frame &frame);
    void resultItem(Frame &frame, SqlPiece &piece);
    static void flushTop(Frame &frame);
    void insertHead(Frame &frame);
    void insertRow(Frame &frame, const std::vector<ColumnKind> &kinds);
    [[nodiscard]] std::vector<ColumnKind> insertColumns(Frame &frame, const std::string &table);
    bool assignment(Frame &frame);

    // Expressions.
    SqlPiece comparison();
    SqlPiece additive();
    SqlPiece primary();
    SqlPiece bracketed();
    SqlPiece caseExpression();
    SqlPiece nameOrCall();
    SqlPiece call(const Token &name, std::string path);
    void adaptArgument(const Token &name, std::vector<SqlPiece> &arguments);
    SqlPiece convertCall(const std::vector<SqlPiece> &arguments);
    SqlPiece inList(SqlPiece left, std::string words);
    SqlPiece between(SqlPiece left, std::string words);
    SqlPiece compared(SqlPiece left, const Token &symbol, SqlPiece right);
    SqlPiece comparedWithDate(const SqlPiece &column, const Token &symbol, std::string_view comparison,
                              const SqlPiece &literal);
    [[nodiscard]] std::optional<std::string_view> comparisonAhead() const;
    [[nodiscard]] bool startsOperand(std::size_t at) const;
    [[nodiscard]] std::string stored(const SqlPiece &piece, ColumnKind target);
    void dateProblem(const SqlPiece &literal);

    // Tokens.
    [[nodiscard]] bool atEnd() const { return m_at >= m_tokens.size(); }
    [[nodiscard]] const Token &peek(std::size_t ahead = 0) const;
    [[nodiscard]] bool isFunctionAhead() const;
    /// Gap and text of the token, and on to the next.
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

} // namespace inin
