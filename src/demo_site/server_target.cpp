#include "demo_site/server_target.h"

#include "adapters/database/sql_tokenizer.h"
#include "demo_site/schema.h"

#include <fmt/format.h>

namespace inin::site {

namespace {

/// The server's limit of rows in one statement.
constexpr std::size_t kMaxRows = 1000;
/// A longer statement is no faster.
constexpr std::size_t kMaxBytes = 200000;

std::string textLiteral(std::string_view text)
{
    std::string literal = "'";
    for (const char c : text) {
        if (c == '\'') literal += '\'';
        literal += c;
    }
    return literal + "'";
}

/// "2024-06-28 10:30:15" as "20240628 10:30:15": with hyphens some server languages would swap month and day.
std::string dateLiteral(std::string_view iso)
{
    std::string text;
    for (const char c : iso)
        if (c != '-') text += c;
    return textLiteral(text);
}

} // namespace

class ServerTarget::Batch : public RowSink {
public:
    Batch(ServerTarget &target, std::string_view table, std::span<const std::string_view> columns)
        : m_target(target), m_start(fmt::format("INSERT INTO {} ({}) VALUES ", table, fmt::join(columns, ",")))
    {
        for (const std::string_view column : columns)
            m_isDate.push_back(target.m_dateColumns.contains(fmt::format("{}.{}", table, column)));
    }

    void row(std::span<const Cell> cells) override
    {
        m_rows += m_rows.empty() ? "(" : ",(";
        for (std::size_t at = 0; at < cells.size(); ++at) {
            if (at > 0) m_rows += ',';
            m_rows += literal(cells[at], m_isDate[at]);
        }
        m_rows += ')';
        if (++m_count == kMaxRows || m_rows.size() > kMaxBytes) flush();
    }

    void flush()
    {
        if (m_count == 0) return;
        m_target.m_connection.Execute(m_start + m_rows, adExecuteNoRecords);
        m_rows.clear();
        m_count = 0;
    }

private:
    [[nodiscard]] std::string literal(const Cell &cell, bool isDate) const
    {
        if (const auto *number = std::get_if<std::int64_t>(&cell)) return std::to_string(*number);
        if (const auto *text = std::get_if<std::string>(&cell))
            return isDate ? dateLiteral(*text) : "N" + textLiteral(*text);
        if (const auto *blob = std::get_if<Blob>(&cell)) {
            std::string digits(m_target.m_binary.start);
            for (const char byte : blob->bytes) digits += fmt::format("{:02X}", static_cast<unsigned char>(byte));
            return digits.append(m_target.m_binary.end);
        }
        return "NULL";
    }

    ServerTarget &m_target;
    std::string m_start;
    std::vector<bool> m_isDate;
    std::string m_rows;
    std::size_t m_count = 0;
};

ServerTarget::ServerTarget(Connection &connection, BinaryLiteral binary) : m_connection(connection), m_binary(binary)
{
    for (const TableColumns &table : schemaTables())
        for (const SchemaColumn &column : table.columns)
            if (column.type == "DATETIME") m_dateColumns.insert(table.name + "." + column.name);
}

ServerTarget::~ServerTarget() = default;

RowSink &ServerTarget::into(std::string_view table, std::span<const std::string_view> columns)
{
    m_batches.push_back(std::make_unique<Batch>(*this, table, columns));
    return *m_batches.back();
}

void ServerTarget::finish()
{
    for (const auto &batch : m_batches) batch->flush();
}

std::vector<std::string> statementsOf(std::string_view script)
{
    std::vector<std::string> statements(1);
    for (const Token &token : tokenizeSql(script)) {
        if (token.isSymbol(";")) {
            if (!statements.back().empty()) statements.emplace_back();
            continue;
        }
        if (!statements.back().empty()) statements.back() += token.gap;
        statements.back() += token.text;
    }
    if (statements.back().empty()) statements.pop_back();
    return statements;
}

} // namespace inin::site
