#include "viewer/window/print_letters.h"

#include "viewer/document/letter_list.h"
#include "viewer/window/open_letters.h"
#include "viewer/window/qt_text.h"
#include "viewer/window/ruler_page.h"

#include <QPainter>
#include <QPrinterInfo>
#include <fmt/format.h>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kTenth = kPointsPerMillimetre / 10;

std::string refusal(const PrintOrder &order)
{
    return fmt::format("プリンター「{}」が印刷を受け付けませんでした。電源、用紙、接続を確認してください。",
                       utf8Text(order.printer));
}

/// One job of one printer: its pages, in points.
class Job {
public:
    Job(std::unique_ptr<QPrinter> printer, const PrintOrder &order, const QString &name, Point paper)
        : m_printer(std::move(printer)), m_order(order)
    {
        if (!m_printer) return;
        m_printer->setDocName(name);
        // Page and letters are laid out for the whole sheet; what a printer cannot reach stays white.
        m_printer->setFullPage(true);
        m_printer->setPageSize(QPageSize(QSizeF(paper.x, paper.y), QPageSize::Point, {}, QPageSize::FuzzyMatch));
        m_printer->setPageOrientation(QPageLayout::Portrait);
        m_printer->setDuplex(order.duplex);
        if (m_printer->supportsMultipleCopies()) {
            m_printer->setCopyCount(order.copies);
            m_printer->setCollateCopies(true);
        } else {
            m_rounds = order.copies;
        }
        m_isGood = m_painter.begin(m_printer.get());
    }
    Job(const Job &) = delete;
    Job &operator=(const Job &) = delete;
    ~Job()
    {
        if (m_painter.isActive()) takeBack();
    }

    [[nodiscard]] bool isGood() const
    {
        return m_isGood && m_printer->printerState() != QPrinter::Error &&
               m_printer->printerState() != QPrinter::Aborted;
    }
    /// How often the letters must be painted for the copies that are wanted.
    [[nodiscard]] int rounds() const { return m_rounds; }

    /// The painter of a new page.
    QPainter &page()
    {
        if (m_hasPage && !m_printer->newPage()) m_isGood = false;
        m_hasPage = true;
        const double scale = m_printer->resolution() / kPointsPerInch;
        m_painter.resetTransform();
        m_painter.scale(scale, scale);
        m_painter.translate(m_order.offset.right * kTenth, m_order.offset.down * kTenth);
        return m_painter;
    }
    bool finish()
    {
        m_isGood = m_painter.end() && m_isGood;
        return isGood();
    }
    /// False when the system cannot take a job back: then the pages that it has go to the printer.
    bool takeBack()
    {
        const bool isGone = m_printer->abort();
        m_painter.end();
        return isGone;
    }

private:
    std::unique_ptr<QPrinter> m_printer;
    const PrintOrder &m_order;
    QPainter m_painter;
    int m_rounds = 1;
    bool m_isGood = false, m_hasPage = false;
};

QString jobName(const OpenLetters &letters, std::span<const std::size_t> which)
{
    QString title = letters.set.title.empty() ? u"委任状"_s : qtText(letters.set.title);
    if (which.size() == letters.set.size()) return title;
    return u"%1（%2-%3番）"_s.arg(title).arg(which.front() + 1).arg(which.back() + 1);
}

enum class JobEnd { done, cancelled, refused };

/// How a job ended, and how many of its letters went out.
struct JobResult {
    JobEnd end;
    std::size_t sent;
};

JobResult printJob(OpenLetters &letters, std::span<const std::size_t> which, const PrintOrder &order,
                   const MakePrinter &makePrinter, const std::function<bool(std::size_t)> &tell)
{
    Job job(makePrinter(order), order, jobName(letters, which), letters.press.paperSize());
    if (!job.isGood()) return {JobEnd::refused, 0};
    for (int round = 0; round < job.rounds(); ++round) {
        for (std::size_t i = 0; i < which.size(); ++i) {
            QPainter &painter = job.page();
            if (!job.isGood()) {
                job.takeBack();
                return {JobEnd::refused, 0};
            }
            paintLetter(letters.press, which[i], painter, letters.glyphs);
            const std::size_t painted = round == 0 ? i + 1 : which.size();
            if (!tell(painted)) return {JobEnd::cancelled, job.takeBack() ? 0 : painted};
        }
    }
    return job.finish() ? JobResult{JobEnd::done, which.size()} : JobResult{JobEnd::refused, 0};
}

} // namespace

std::unique_ptr<QPrinter> systemPrinter(const PrintOrder &order)
{
    const QPrinterInfo info = QPrinterInfo::printerInfo(order.printer);
    // A printer that is not there any more would leave the toolkit writing a file.
    if (order.printer.isEmpty() || info.isNull()) return nullptr;
    return std::make_unique<QPrinter>(info, QPrinter::HighResolution);
}

PrintResult printLetters(OpenLetters &letters, std::span<const std::size_t> which, const PrintOrder &order,
                         const MakePrinter &makePrinter, const PrintProgress &progress)
{
    PrintResult result;
    const std::size_t perJob = order.lettersPerJob == 0 ? which.size() : order.lettersPerJob;
    while (result.sent < which.size()) {
        const auto job = which.subspan(result.sent, std::min(perJob, which.size() - result.sent));
        const auto tell = [&](std::size_t done) { return !progress || progress(result.sent + done); };
        const JobResult printed = printJob(letters, job, order, makePrinter, tell);
        result.sent += printed.sent;
        result.isCancelled = printed.end == JobEnd::cancelled;
        if (printed.end == JobEnd::refused) result.fault = refusal(order);
        if (printed.end != JobEnd::done) return result;
    }
    return result;
}

std::string printRulerPage(const OpenLetters &letters, const PrintOrder &order, const MakePrinter &makePrinter)
{
    PrintOrder one = order;
    one.copies = 1;
    Job job(makePrinter(one), one, u"位置調整のテスト"_s, letters.press.paperSize());
    if (!job.isGood()) return refusal(order);
    paintRulerPage(job.page(), letters.press.paperSize(), order.offset, order.printer);
    return job.finish() ? std::string() : refusal(order);
}

} // namespace inin::viewer
