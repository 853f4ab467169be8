#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// Why a row cannot be read for sure; its columns are then empty and its text is kept as it stands in the file.
enum class RowFault : std::uint8_t {
    none,
    notQuoted,      ///< does not begin and end with a quote
    cutOff,         ///< the file ends in the middle of the line
    tooFewColumns,  ///< fewer than the title row has
    tooManyColumns, ///< more, and which of them belong together cannot be told
    ambiguous,      ///< quotes inside values leave more than one reading
};
/// A sentence in Japanese.
[[nodiscard]] std::string_view faultText(RowFault fault);

/// Rows of a letter file. Their text is kept as one piece, and a value is a part of it.
class LetterRows {
public:
    LetterRows(std::size_t columns, std::string text);

    [[nodiscard]] std::size_t size() const { return m_faults.size(); }
    [[nodiscard]] std::string_view value(std::size_t row, std::size_t column) const;
    [[nodiscard]] RowFault fault(std::size_t row) const { return m_faults[row]; }
    /// The text of a row that cannot be read, as it stands in the file; empty for a good row.
    [[nodiscard]] std::string_view rawText(std::size_t row) const;

    /// The whole text; rows are added as parts of it.
    [[nodiscard]] std::string_view text() const { return m_text; }
    /// As many values as columns.
    void addRow(const std::vector<std::string_view> &values);
    void addFaultyRow(RowFault fault, std::string_view rawText);

private:
    /// A part of the text. No letter file comes near four gigabytes.
    struct Cell {
        std::uint32_t begin = 0, size = 0;
    };
    [[nodiscard]] Cell cellOf(std::string_view part) const;
    [[nodiscard]] std::string_view cell(std::size_t index) const;

    std::size_t m_columns;
    std::string m_text;
    std::vector<Cell> m_cells; ///< row by row; the first cell of a faulty row is all of it
    std::vector<RowFault> m_faults;
};

} // namespace inin::viewer
