#pragma once

#include "viewer/letters/letter_rows.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// The bytes of a letter file with the places of its rows. Values are parsed on first use, so that the first of ten
/// thousand letters is shown without waiting for the others.
struct UnreadRows {
    static constexpr std::size_t kBlock = 256; ///< rows that are parsed together

    std::string bytes;
    std::size_t rows = 0;
    std::vector<std::size_t> blocks; ///< where each block begins
    /// Parses the lines of one block.
    LetterRows (*read)(std::string_view lines, std::size_t columns) = nullptr;
};

/// The letters of one CSV file, loaded once: later changes of the file have no effect. Not thread-safe: const
/// operations parse rows on first use.
class LetterTable {
public:
    LetterTable() = default;
    /// Throws a RuntimeError for a repeated column name.
    LetterTable(std::vector<std::string> columns, UnreadRows rows);

    [[nodiscard]] const std::vector<std::string> &columns() const { return m_columns; }
    [[nodiscard]] std::optional<std::size_t> columnOf(std::string_view name) const;
    [[nodiscard]] std::size_t size() const { return m_rows.rows; }
    /// The views stay valid as long as the table exists.
    [[nodiscard]] std::string_view value(std::size_t row, std::size_t column) const
    {
        return blockOf(row).value(row % UnreadRows::kBlock, column);
    }
    [[nodiscard]] RowFault fault(std::size_t row) const { return blockOf(row).fault(row % UnreadRows::kBlock); }
    /// The text of an unreadable row as in the file; empty for a good row.
    [[nodiscard]] std::string_view rawText(std::size_t row) const
    {
        return blockOf(row).rawText(row % UnreadRows::kBlock);
    }

private:
    [[nodiscard]] const LetterRows &blockOf(std::size_t row) const
    {
        const auto &block = m_blocks[row / UnreadRows::kBlock];
        return block ? *block : readBlock(row / UnreadRows::kBlock);
    }
    const LetterRows &readBlock(std::size_t block) const;

    std::vector<std::string> m_columns;
    UnreadRows m_rows;
    mutable std::vector<std::unique_ptr<LetterRows>> m_blocks;
};

} // namespace inin::viewer
