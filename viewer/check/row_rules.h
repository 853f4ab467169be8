#pragma once

#include "viewer/check/cause.h"
#include "viewer/letters/letter_table.h"

#include <memory>
#include <string>
#include <vector>

namespace inin::viewer {

/// What a rule found in a row; the detail may be empty.
struct RowFinding {
    Cause cause;
    std::string detail;
};

/// The rules that look at one row's values alone. A rule whose columns the file does not have finds nothing.
class RowRules {
public:
    /// `table` must outlive this.
    explicit RowRules(const LetterTable &table);
    RowRules(const RowRules &) = delete;
    RowRules &operator=(const RowRules &) = delete;
    ~RowRules();

    /// Appends what is wrong with a row.
    void judge(std::size_t row, std::vector<RowFinding> &found);

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

/// The text without blanks, full-width ones too, at both ends.
[[nodiscard]] std::string_view withoutOuterBlanks(std::string_view text);

} // namespace inin::viewer
