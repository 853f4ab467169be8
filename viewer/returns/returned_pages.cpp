#include "viewer/returns/returned_pages.h"

#include <algorithm>
#include <utility>

namespace inin::viewer {

bool ReturnedPage::needsAttention() const
{
    return returned.result != CodeResult::marked && returned.result != CodeResult::already;
}

void ReturnedPages::add(const std::string &file, int page, std::span<const std::string> texts)
{
    std::vector<std::string> codes;
    for (const std::string &text : texts) {
        const std::optional<LetterCode> code = readLetterCode(text);
        if (code && std::ranges::find(codes, codeText(*code)) == codes.end()) codes.push_back(codeText(*code));
    }
    if (codes.empty()) codes.emplace_back();
    for (std::string &code : codes) m_pages.push_back({file, page, std::move(code), {}});
}

std::size_t ReturnedPages::mark(Date now)
{
    const std::size_t first = std::exchange(m_marked, m_pages.size());
    std::vector<std::string> codes;
    for (std::size_t i = first; i < m_pages.size(); ++i)
        if (!m_pages[i].code.empty()) codes.push_back(m_pages[i].code);
    if (codes.empty()) return first;
    const std::vector<ReturnedCode> results = m_ledger.markReturned(codes, now);
    std::size_t next = 0;
    for (std::size_t i = first; i < m_pages.size(); ++i)
        if (!m_pages[i].code.empty()) m_pages[i].returned = results[next++];
    return first;
}

bool ReturnedPages::needsAttention() const
{
    return !m_unread.empty() || std::ranges::any_of(m_pages, &ReturnedPage::needsAttention);
}

} // namespace inin::viewer
