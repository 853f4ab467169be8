#include "viewer/letters/letter_table.h"

#include "runtime/runtime_error.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace inin::viewer {

LetterTable::LetterTable(std::vector<std::string> columns, UnreadRows rows)
    : m_columns(std::move(columns)), m_rows(std::move(rows)), m_blocks(m_rows.blocks.size())
{
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
    const std::size_t begin = m_rows.blocks[block];
    const std::size_t end = block + 1 < m_rows.blocks.size() ? m_rows.blocks[block + 1] : m_rows.bytes.size();
    const std::string_view lines = std::string_view(m_rows.bytes).substr(begin, end - begin);
    m_blocks[block] = std::make_unique<LetterRows>(m_rows.read(lines, m_columns.size()));
    return *m_blocks[block];
}

} // namespace inin::viewer
