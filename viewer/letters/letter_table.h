#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// Why a row cannot be read reliably. Its columns are then empty, and its text is kept as in the file.
enum class RowFault : std::uint8_t {
    none,
    notQuoted,      ///< does not begin and end with a quote
    cutOff,         ///< the file ends in the middle of the line
    tooFewColumns,  ///< fewer than the title row has
    tooManyColumns, ///< more, and it is unknown which of them belong together
    ambiguous,      ///< quotes inside values allow more than one split
};
/// A sentence in Japanese.
[[nodiscard]] std::string_view faultText(RowFault fault);

/// Rows of a letter file. Their text is kept as one string, and the values are views of it.
class LetterRows {
public:
    LetterRows(std::size_t columns, std::string text);

    [[nodiscard]] std::size_t size() const { return m_faults.size(); }
    [[nodiscard]] std::string_view value(std::size_t row, std::size_t column) const;
    [[nodiscard]] RowFault fault(std::size_t row) const { return m_faults[row]; }
    /// The text of an unreadable row as in the file; empty for a good row.
    [[nodiscard]] std::string_view rawText(std::size_t row) const;

    /// The whole text; addRow() accepts views of it.
    [[nodiscard]] std::string_view text() const { return m_text; }
    /// Needs one value for each column.
    void addRow(const std::vector<std::string_view> &values);
    void addFaultyRow(RowFault fault, std::string_view rawText);

private:
    /// A part of the text. 32 bits suffice: letter files are far smaller than four gigabytes.
    struct Cell {
        std::uint32_t begin = 0, size = 0;
    };
    [[nodiscard]] Cell cellOf(std::string_view part) const;
    [[nodiscard]] std::string_view cell(std::size_t index) const;

    std::size_t m_columns;
    std::string m_text;
    std::vector<Cell> m_cells; ///< row by row; the first cell of a faulty row is the whole row
    std::vector<RowFault> m_faults;
};

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

/// The letters of one CSV file, loaded once: later changes of the file have no effect. Copies share the rows. Not
/// thread-safe: const operations parse rows on first use.
class LetterTable {
public:
    LetterTable() = default;
    /// Throws a RuntimeError for a repeated column name.
    LetterTable(std::vector<std::string> columns, UnreadRows rows);

    [[nodiscard]] const std::vector<std::string> &columns() const { return m_columns; }
    [[nodiscard]] std::optional<std::size_t> columnOf(std::string_view name) const;
    [[nodiscard]] std::size_t size() const { return m_content->unread.rows; }
    /// The bytes of the file.
    [[nodiscard]] std::string_view fileBytes() const { return m_content->unread.bytes; }
    /// The views stay valid as long as the table or a copy of it exists.
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
        const auto &block = m_content->blocks[row / UnreadRows::kBlock];
        return block ? *block : readBlock(row / UnreadRows::kBlock);
    }
    const LetterRows &readBlock(std::size_t block) const;

    struct Content {
        UnreadRows unread;
        std::vector<std::unique_ptr<LetterRows>> blocks; ///< null until one is read
    };
    std::vector<std::string> m_columns;
    std::shared_ptr<Content> m_content = std::make_shared<Content>();
};

/// A table of texts that do not come from a file, one vector for each row. Control characters become blanks.
[[nodiscard]] LetterTable tableOf(std::vector<std::string> columns, const std::vector<std::vector<std::string>> &rows);

} // namespace inin::viewer
