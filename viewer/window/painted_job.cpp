#include "viewer/window/painted_job.h"

#include "viewer/document/paper_size.h"
#include "viewer/window/tray_text.h"

#include <algorithm>

namespace inin::viewer {

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kTenth = kPointsPerMillimetre / 10;

} // namespace

PaintedJob::PaintedJob(std::unique_ptr<QPrinter> printer, const PrintOrder &order, const QString &name, Point paper)
    : m_printer(std::move(printer)), m_order(order)
{
    if (!m_printer) return;
    m_printer->setDocName(name);
    // Lay out page and letters for the whole sheet; the printer's unprintable margin stays white.
    m_printer->setFullPage(true);
    setPaper(paper);
    m_printer->setDuplex(order.duplex);
    if (const auto tray = paintedTray(order.tray)) m_printer->setPaperSource(*tray);
    if (m_printer->supportsMultipleCopies()) {
        m_printer->setCopyCount(order.copies);
        m_printer->setCollateCopies(true);
    } else {
        m_rounds = order.copies;
    }
    m_isGood = m_painter.begin(m_printer.get());
}

PaintedJob::~PaintedJob()
{
    if (m_painter.isActive()) takeBack();
}

bool PaintedJob::isGood() const
{
    return m_isGood && m_printer->printerState() != QPrinter::Error && m_printer->printerState() != QPrinter::Aborted;
}

void PaintedJob::setPaper(Point paper)
{
    m_paper = paper;
    const QSizeF upright(std::min(paper.x, paper.y), std::max(paper.x, paper.y));
    m_printer->setPageSize(QPageSize(upright, QPageSize::Point, {}, QPageSize::FuzzyMatch));
    m_printer->setPageOrientation(paper.x > paper.y ? QPageLayout::Landscape : QPageLayout::Portrait);
}

QPainter &PaintedJob::page(Point paper)
{
    if (!isSamePaper(paper, m_paper)) setPaper(paper);
    if (m_hasPage && !m_printer->newPage()) m_isGood = false;
    m_hasPage = true;
    const double scale = m_printer->resolution() / kPointsPerInch;
    m_painter.resetTransform();
    m_painter.scale(scale, scale);
    m_painter.translate(m_order.offset.right * kTenth, m_order.offset.down * kTenth);
    return m_painter;
}

bool PaintedJob::finish()
{
    m_isGood = m_painter.end() && m_isGood;
    return isGood();
}

bool PaintedJob::takeBack()
{
    const bool isGone = m_printer->abort();
    m_painter.end();
    return isGone;
}

} // namespace inin::viewer
