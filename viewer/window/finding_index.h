#pragma once

#include "viewer/check/check_result.h"

#include <span>
#include <vector>

namespace inin::viewer {

/// The result of a check, with its findings by letter.
class FindingIndex {
public:
    FindingIndex() = default;
    explicit FindingIndex(CheckResult result);
    /// By cause and letter.
    [[nodiscard]] const std::vector<Finding> &all() const { return m_result.findings; }
    [[nodiscard]] const std::vector<RunNote> &runNotes() const { return m_result.runNotes; }
    /// The findings of one letter, by cause.
    [[nodiscard]] std::span<const Finding *const> of(std::size_t letter) const;

private:
    CheckResult m_result;
    std::vector<const Finding *> m_byLetter;
};

} // namespace inin::viewer
