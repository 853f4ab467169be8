#pragma once

#include "viewer/document/letter_set.h"
#include "viewer/ledger/ledger_records.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// All texts of the letters of one run, independent of its files.
class RunTexts {
public:
    RunTexts() = default;
    explicit RunTexts(std::vector<std::string> columns) : m_columns(std::move(columns)) {}

    [[nodiscard]] const std::vector<std::string> &columns() const { return m_columns; }
    [[nodiscard]] std::optional<std::size_t> columnOf(std::string_view name) const;
    [[nodiscard]] std::size_t size() const { return m_columns.empty() ? 0 : m_ends.size() / m_columns.size(); }
    [[nodiscard]] std::string_view value(std::size_t letter, std::size_t column) const;
    /// Empty without such a column.
    [[nodiscard]] std::string_view value(std::size_t letter, std::optional<std::size_t> column) const;
    /// Appends the next text; a letter has one for each column.
    void add(std::string_view text);

private:
    std::vector<std::string> m_columns;
    std::string m_text;
    std::vector<std::uint32_t> m_ends;
};

/// The texts of the letters. Columns of several reports are joined by their names. An unreadable row is in a column of its
/// own, as in the file. Letters of a form without any field have empty texts, because their paper shows none.
[[nodiscard]] RunTexts textsOf(const LetterSet &set);

/// What distinguishes a run from others.
struct RunMark {
    std::string csvFingerprint, formFingerprint;
    std::string title, formName;
    std::optional<MonthRange> period;
    std::size_t letters = 0;
};
/// Reads the letter files as bytes and only the first letter of each report.
[[nodiscard]] RunMark markOf(const LetterSet &set);

} // namespace inin::viewer
