#include "viewer/letters/letter_table.h"

#include "runtime/runtime_error.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace inin::viewer {

std::string_view faultText(RowFault fault)
{
    switch (fault) {
    case RowFault::none:
        return "";
    case RowFault::notQuoted:
        return "行の始まりか終わりに引用符がありません。";
    case RowFault::cutOff:
        return "行が途中で切れています。";
    case RowFault::tooFewColumns:
        return "列の数が見出し行より少ない行です。";
    case RowFault::tooManyColumns:
        return "列の数が見出し行より多い行です。";
    case RowFault::ambiguous:
        return "値の中の引用符のため、列の区切りを決められません。";
    }
    return "";
}

LetterRows::LetterRows(std::size_t columns, std::string text) : m_columns(columns), m_text(std::move(text))
{
    if (m_text.size() > std::numeric_limits<std::uint32_t>::max()) throw RuntimeError(error_number::outOfMemory);
}

LetterRows::Cell LetterRows::cellOf(std::string_view part) const
{
    if (part.empty()) return {};
    return {static_cast<std::uint32_t>(part.data() - m_text.data()), static_cast<std::uint32_t>(part.size())};
}

std::string_view LetterRows::cell(std::size_t index) const
{
    return std::string_view(m_text).substr(m_cells[index].begin, m_cells[index].size);
}

std::string_view LetterRows::value(std::size_t row, std::size_t column) const
{
    if (m_faults[row] != RowFault::none) return {};
    return cell(row * m_columns + column);
}

std::string_view LetterRows::rawText(std::size_t row) const
{
    if (m_faults[row] == RowFault::none) return {};
    return cell(row * m_columns);
}

void LetterRows::addRow(const std::vector<std::string_view> &values)
{
    for (const std::string_view value : values) m_cells.push_back(cellOf(value));
    m_faults.push_back(RowFault::none);
}

void LetterRows::addFaultyRow(RowFault fault, std::string_view rawText)
{
    m_cells.push_back(cellOf(rawText));
    m_cells.resize(m_cells.size() + m_columns - 1);
    m_faults.push_back(fault);
}

LetterTable::LetterTable(std::vector<std::string> columns, UnreadRows rows) : m_columns(std::move(columns))
{
    m_content->blocks.resize(rows.blocks.size());
    m_content->unread = std::move(rows);
    std::vector<std::string_view> sorted(m_columns.begin(), m_columns.end());
    std::ranges::sort(sorted);
    const auto twice = std::ranges::adjacent_find(sorted);
    if (twice != sorted.end())
        throw RuntimeError(error_number::invalidCall, fmt::format("見出し行に列「{}」が二つあります。", *twice));
}

std::optional<std::size_t> LetterTable::columnOf(std::string_view name) const
{
    const auto found = std::ranges::find(m_columns, name);
    if (found == m_columns.end()) return std::nullopt;
    return static_cast<std::size_t>(found - m_columns.begin());
}

const LetterRows &LetterTable::readBlock(std::size_t block) const
{
    const UnreadRows &unread = m_content->unread;
    const std::size_t begin = unread.blocks[block];
    const std::size_t end = block + 1 < unread.blocks.size() ? unread.blocks[block + 1] : unread.bytes.size();
    const std::string_view lines = std::string_view(unread.bytes).substr(begin, end - begin);
    m_content->blocks[block] = std::make_unique<LetterRows>(unread.read(lines, m_columns.size()));
    return *m_content->blocks[block];
}

namespace {

/// Ends each value of a table that does not come from a file.
constexpr char kValueEnd = '\x1F';

LetterRows readValues(std::string_view values, std::size_t columns)
{
    LetterRows rows(columns, std::string(values));
    std::string_view rest = rows.text();
    std::vector<std::string_view> row;
    while (!rest.empty()) {
        const std::size_t end = rest.find(kValueEnd);
        row.push_back(rest.substr(0, end));
        rest.remove_prefix(end + 1);
        if (row.size() < columns) continue;
        rows.addRow(row);
        row.clear();
    }
    return rows;
}

} // namespace

LetterTable tableOf(std::vector<std::string> columns, const std::vector<std::vector<std::string>> &rows)
{
    UnreadRows values{{}, rows.size(), {}, readValues};
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (row % UnreadRows::kBlock == 0) values.blocks.push_back(values.bytes.size());
        for (const std::string &value : rows[row]) {
            for (const char c : value) values.bytes += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
            values.bytes += kValueEnd;
        }
    }
    return {std::move(columns), std::move(values)};
}

} // namespace inin::viewer
