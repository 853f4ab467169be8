#include "viewer/window/scan_reader.h"

#include "runtime/runtime_error.h"

#include <algorithm>

namespace inin::viewer {

namespace {

/// Pages whose letters are marked in one record of the ledger.
constexpr int kPagesInRecord = 20;
constexpr int kThumbnailSide = 240;

} // namespace

ScanReader::ScanReader(Ledger &ledger, std::function<Date()> now) : m_pages(ledger), m_now(std::move(now))
{
    m_timer.callOnTimeout([this] { readNext(); });
}

void ScanReader::add(const std::string &path)
{
    m_waiting.push_back(path);
    m_timer.start(0);
}

void ScanReader::stop()
{
    m_waiting.clear();
    m_file.reset();
    mark();
    m_timer.stop();
    if (onProgress) onProgress({}, 0, 0);
}

void ScanReader::readNext()
{
    if (m_waiting.empty()) return stop();
    try {
        if (!m_file) {
            m_file = std::make_unique<ScannedFile>(m_waiting.front());
            m_page = 0;
        }
        readPage();
        if (m_page < m_file->pages()) return;
    } catch (const RuntimeError &error) {
        m_pages.addUnread(m_waiting.front(), error.description());
        if (onFault) onFault(error.description());
    }
    m_file.reset();
    m_waiting.pop_front();
}

void ScanReader::readPage()
{
    const std::string &path = m_waiting.front();
    if (onProgress) onProgress(path, m_page + 1, m_file->pages());
    const QImage page = m_file->page(m_page);
    const std::size_t before = m_pages.pages().size();
    m_pages.add(path, ++m_page, codesOn(page));
    if (m_pages.pages()[before].code.empty() && onUnreadable)
        onUnreadable(path, m_page,
                     page.isNull()
                         ? page
                         : page.scaled(kThumbnailSide, kThumbnailSide, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    if (++m_unmarked == kPagesInRecord) mark();
}

void ScanReader::mark()
{
    m_unmarked = 0;
    const std::size_t first = m_pages.mark(m_now());
    if (onMarked && first < m_pages.pages().size()) onMarked(first);
}

} // namespace inin::viewer
