#pragma once

#include "viewer/check/cause.h"
#include "viewer/letters/letter_table.h"

#include <memory>
#include <string>
#include <vector>

namespace inin::viewer {

/// A finding in a row; the detail may be empty.
struct RowFinding {
    Cause cause;
    std::string detail;
};

/// The rules for the values of a single row. A rule whose columns are missing from the file finds nothing.
class RowRules {
public:
    /// `table` must outlive this.
    explicit RowRules(const LetterTable &table);
    RowRules(const RowRules &) = delete;
    RowRules &operator=(const RowRules &) = delete;
    ~RowRules();

    /// Appends the findings of a row.
    void judge(std::size_t row, std::vector<RowFinding> &found);

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

/// The text without leading and trailing blanks, full-width ones included.
[[nodiscard]] std::string_view withoutOuterBlanks(std::string_view text);

} // namespace inin::viewer
