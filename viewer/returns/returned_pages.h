#pragma once

#include "viewer/ledger/ledger.h"

#include <span>
#include <string>
#include <vector>

namespace inin::viewer {

/// A scanned page, or one of several letters on it.
struct ReturnedPage {
    std::string file;
    int page = 1;
    std::string code; ///< as on paper; empty for a page without a readable one
    ReturnedCode returned;
    /// Whether the operator has to look at the sheet, because its letter is not marked as returned.
    [[nodiscard]] bool needsAttention() const;
};

/// A file whose pages cannot be read.
struct UnreadFile {
    std::string file, sentence;
};

/// Collects the codes of scanned pages and marks their letters as returned, many in one record of the ledger.
class ReturnedPages {
public:
    /// `ledger` must outlive this object.
    explicit ReturnedPages(Ledger &ledger) : m_ledger(ledger) {}

    /// Adds a page with the texts of all codes on it. Those that are no letter's code are ignored.
    void add(const std::string &file, int page, std::span<const std::string> texts);
    void addUnread(const std::string &file, const std::string &sentence) { m_unread.push_back({file, sentence}); }
    /// Marks the letters that were added since the last call. Returns the number of pages before them.
    std::size_t mark(Date now);

    [[nodiscard]] const std::vector<ReturnedPage> &pages() const { return m_pages; }
    [[nodiscard]] const std::vector<UnreadFile> &unread() const { return m_unread; }
    [[nodiscard]] bool needsAttention() const;

private:
    Ledger &m_ledger;
    std::vector<ReturnedPage> m_pages;
    std::size_t m_marked = 0; ///< pages
    std::vector<UnreadFile> m_unread;
};

} // namespace inin::viewer
