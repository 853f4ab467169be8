#pragma once

#include "viewer/check/letter_check.h"

#include <span>
#include <vector>

namespace inin::viewer {

/// The findings of a check, by letter.
class FindingIndex {
public:
    FindingIndex() = default;
    explicit FindingIndex(std::vector<Finding> findings);
    /// By cause and letter.
    [[nodiscard]] const std::vector<Finding> &all() const { return m_findings; }
    /// The findings of one letter, by cause.
    [[nodiscard]] std::span<const Finding *const> of(std::size_t letter) const;

private:
    std::vector<Finding> m_findings;
    std::vector<const Finding *> m_byLetter;
};

} // namespace inin::viewer
