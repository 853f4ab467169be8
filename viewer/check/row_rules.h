#pragma once

#include "runtime/date.h"
#include "viewer/check/cause.h"
#include "viewer/letters/letter_table.h"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace inin::viewer {

/// A finding in a row; the detail may be empty.
struct RowFinding {
    Cause cause;
    std::string detail;
};

/// The columns whose values a form needs. Empty for an unknown form, which may need all.
using NeededColumns = std::optional<std::set<std::string, std::less<>>>;

/// The rules for the values of a single row. A rule whose columns are missing from the file finds nothing.
class RowRules {
public:
    /// `table` must outlive this. Empty and incomplete values are found in the needed columns only.
    RowRules(const LetterTable &table, const NeededColumns &needed, Date today);
    RowRules(const RowRules &) = delete;
    RowRules &operator=(const RowRules &) = delete;
    ~RowRules();

    /// Appends the findings of a row.
    void judge(std::size_t row, std::vector<RowFinding> &found);

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

/// True for a text with the braces of a placeholder, in half or full width.
[[nodiscard]] bool hasPlaceholderBraces(std::string_view text);

} // namespace inin::viewer
