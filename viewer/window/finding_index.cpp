#include "viewer/window/finding_index.h"

#include <algorithm>

namespace inin::viewer {

FindingIndex::FindingIndex(std::vector<Finding> findings) : m_findings(std::move(findings))
{
    m_byLetter.reserve(m_findings.size());
    for (const Finding &finding : m_findings) m_byLetter.push_back(&finding);
    std::ranges::stable_sort(m_byLetter, {}, [](const Finding *finding) { return finding->letter; });
}

std::span<const Finding *const> FindingIndex::of(std::size_t letter) const
{
    const auto found =
        std::ranges::equal_range(m_byLetter, letter, {}, [](const Finding *finding) { return finding->letter; });
    return {found.begin(), found.end()};
}

} // namespace inin::viewer
