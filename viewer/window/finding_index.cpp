#include "viewer/window/finding_index.h"

#include <algorithm>

namespace inin::viewer {

FindingIndex::FindingIndex(CheckResult result) : m_result(std::move(result))
{
    m_byLetter.reserve(all().size());
    for (const Finding &finding : all()) m_byLetter.push_back(&finding);
    std::ranges::stable_sort(m_byLetter, {}, [](const Finding *finding) { return finding->letter; });
}

std::span<const Finding *const> FindingIndex::of(std::size_t letter) const
{
    const auto isBefore = [](const Finding *finding, std::size_t wanted) { return finding->letter < wanted; };
    const auto begin = std::lower_bound(m_byLetter.begin(), m_byLetter.end(), letter, isBefore);
    const auto end = std::lower_bound(begin, m_byLetter.end(), letter + 1, isBefore);
    return {begin, end};
}

} // namespace inin::viewer
