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

LetterTable::LetterTable(std::vector<std::string> columns, std::string text)
    : m_columns(std::move(columns)), m_text(std::move(text))
{
    if (m_text.size() > std::numeric_limits<std::uint32_t>::max()) throw RuntimeError(error_number::outOfMemory);
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

LetterTable::Cell LetterTable::cellOf(std::string_view part) const
{
    if (part.empty()) return {};
    return {static_cast<std::uint32_t>(part.data() - m_text.data()), static_cast<std::uint32_t>(part.size())};
}

std::string_view LetterTable::cell(std::size_t index) const
{
    return std::string_view(m_text).substr(m_cells[index].begin, m_cells[index].size);
}

std::string_view LetterTable::value(std::size_t row, std::size_t column) const
{
    if (m_faults[row] != RowFault::none) return {};
    return cell(row * m_columns.size() + column);
}

std::string_view LetterTable::rawText(std::size_t row) const
{
    if (m_faults[row] == RowFault::none) return {};
    return cell(row * m_columns.size());
}

void LetterTable::reserve(std::size_t rows)
{
    m_cells.reserve(rows * m_columns.size());
    m_faults.reserve(rows);
}

void LetterTable::addRow(const std::vector<std::string_view> &values)
{
    for (const std::string_view value : values) m_cells.push_back(cellOf(value));
    m_faults.push_back(RowFault::none);
}

void LetterTable::addFaultyRow(RowFault fault, std::string_view rawText)
{
    m_cells.push_back(cellOf(rawText));
    m_cells.resize(m_cells.size() + m_columns.size() - 1);
    m_faults.push_back(fault);
}

} // namespace inin::viewer
