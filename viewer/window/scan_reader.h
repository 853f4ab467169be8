#pragma once

#include "viewer/paint/scanned_pages.h"
#include "viewer/returns/returned_pages.h"

#include <QImage>
#include <QTimer>

#include <deque>
#include <functional>
#include <memory>
#include <string>

namespace inin::viewer {

/// Reads scanned files page by page between other events, and marks their letters as returned.
class ScanReader {
public:
    /// `ledger` must outlive this object; `now` is the local time.
    ScanReader(Ledger &ledger, std::function<Date()> now);

    void add(const std::string &path);
    [[nodiscard]] bool isReading() const { return m_timer.isActive(); }
    /// Leaves out the files and pages that are not read yet.
    void stop();
    [[nodiscard]] const ReturnedPages &pages() const { return m_pages; }

    /// Called for pages whose letters were marked, from `first` of pages().pages() on.
    std::function<void(std::size_t first)> onMarked;
    /// Called for each page without a readable code, with a small picture of it.
    std::function<void(const std::string &file, int page, const QImage &thumbnail)> onUnreadable;
    /// Called for a file that cannot be read.
    std::function<void(const std::string &sentence)> onFault;
    /// Called before each page and at the end, when there is no file.
    std::function<void(const std::string &file, int page, int pages)> onProgress;

private:
    void readNext();
    void readPage();
    void mark();

    ReturnedPages m_pages;
    std::function<Date()> m_now;
    std::deque<std::string> m_waiting;
    std::unique_ptr<ScannedFile> m_file; ///< the first of m_waiting, once it is open
    int m_page = 0, m_unmarked = 0;
    QTimer m_timer;
};

} // namespace inin::viewer
