#include "viewer/window/print_letters.h"

#include "runtime/runtime_error.h"
#include "viewer/document/letter_bundles.h"
#include "viewer/document/letter_numbers.h"
#include "viewer/document/ruler_page.h"
#include "viewer/pdf/letters_pdf.h"
#include "viewer/window/open_letters.h"
#include "viewer/window/painted_job.h"
#include "viewer/window/qt_text.h"

#include <QPrinterInfo>
#include <QTemporaryDir>
#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <optional>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr double kTenth = kPointsPerMillimetre / 10;

std::string refusal(const PrintOrder &order, const std::string &words)
{
    const std::string sentence = fmt::format(
        "プリンター「{}」が印刷を受け付けませんでした。電源、用紙、接続を確認してください。", utf8Text(order.printer));
    return words.empty() ? sentence : fmt::format("{}\n（{}）", sentence, words);
}

QString jobName(const LetterSet &set, std::span<const std::size_t> sheets)
{
    QString title = qtText(set.shownTitle());
    const std::vector<std::size_t> letters = lettersAmong(set, sheets);
    if (letters.size() == set.size()) return title;
    return u"%1（%2-%3番）"_s.arg(title).arg(letters.front() + 1).arg(letters.back() + 1);
}

/// How a job ended, and how many of its sheets were sent.
struct JobResult {
    enum class End { done, cancelled, refused };
    End end = End::done;
    std::size_t sent = 0;
    std::string fault;
    std::string number = {}; ///< of the job in the queue
};

JobResult refused(const PrintOrder &order, const std::string &words = {})
{
    return {JobResult::End::refused, 0, refusal(order, words)};
}

struct JobOrder {
    LetterRenderer &renderer;
    QtGlyphs &glyphs;
    std::span<const std::size_t> which;
    const PrintOrder &order;
};

/// The paper of all pages of a job; empty if they differ.
std::optional<Point> paperOf(const JobOrder &job)
{
    const Point first = job.renderer.paperSize(job.which.front());
    for (const std::size_t letter : job.which)
        for (std::size_t page = 0; page < job.renderer.pageCount(letter); ++page)
            if (!isSamePaper(job.renderer.paperSize(letter, page), first)) return std::nullopt;
    return first;
}

JobResult spoolJob(const JobOrder &job, const SpoolPdf &spool, const PrintProgress &report)
try {
    // The letters are confidential: only the user can read the folder, and it is deleted together with the file.
    const QTemporaryDir folder;
    if (!folder.isValid())
        throw RuntimeError(error_number::pathAccess, "印刷用の一時ファイルを置くフォルダーを作成できません。");
    const QString path = folder.filePath(u"letters.pdf"_s);
    const PrinterOffset &offset = job.order.offset;
    if (!writeLettersPdf(utf8Text(path), job.renderer, job.which, report,
                         {PdfPurpose::printing, {offset.right * kTenth, offset.down * kTenth}, {}}))
        return {JobResult::End::cancelled, 0, {}};
    const LetterSet &set = job.renderer.set();
    const SpoolJob order{path, jobName(set, job.which), paperOf(job), job.order};
    const SpoolResult result = spool(order, [&] { return report(job.which.size()); });
    switch (result.end) {
    case SpoolResult::End::taken:
        return {JobResult::End::done, job.which.size(), {}, result.jobNumber};
    case SpoolResult::End::cancelled:
        return {JobResult::End::cancelled, 0, {}};
    case SpoolResult::End::refused:
        break;
    }
    return refused(job.order, result.words);
} catch (const RuntimeError &error) {
    return {JobResult::End::refused, 0, error.description()};
}

/// Paints all pages of a letter. False when the printer refuses.
bool paintLetter(const JobOrder &job, std::size_t letter, PaintedJob &paper)
{
    for (std::size_t page = 0; page < job.renderer.pageCount(letter); ++page) {
        QPainter &painter = paper.page(job.renderer.paperSize(letter, page));
        if (!paper.isGood()) return false;
        paintPage(job.renderer, {letter, page}, painter, job.glyphs);
    }
    return true;
}

JobResult paintJob(const JobOrder &job, const MakePrinter &makePrinter, const PrintProgress &report)
{
    PaintedJob paper(makePrinter(job.order), job.order, jobName(job.renderer.set(), job.which),
                     job.renderer.paperSize(job.which.front()));
    if (!paper.isGood()) return refused(job.order);
    for (int round = 0; round < paper.rounds(); ++round) {
        for (std::size_t i = 0; i < job.which.size(); ++i) {
            if (!paintLetter(job, job.which[i], paper)) {
                paper.takeBack();
                return refused(job.order);
            }
            const std::size_t painted = round == 0 ? i + 1 : job.which.size();
            if (!report(painted)) return {JobResult::End::cancelled, paper.takeBack() ? 0 : painted, {}};
        }
    }
    return paper.finish() ? JobResult{JobResult::End::done, job.which.size(), {}} : refused(job.order);
}

JobResult runJob(const JobOrder &job, const PrintPaths &paths, const PrintProgress &report)
{
    return paths.spool ? spoolJob(job, paths.spool, report) : paintJob(job, paths.makePrinter, report);
}

} // namespace

std::unique_ptr<QPrinter> systemPrinter(const PrintOrder &order)
{
    const QPrinterInfo info = QPrinterInfo::printerInfo(order.printer);
    // For a printer that no longer exists the toolkit would write a file.
    if (order.printer.isEmpty() || info.isNull()) return nullptr;
    return std::make_unique<QPrinter>(info, QPrinter::HighResolution);
}

PrintPaths systemPaths()
{
    return {systemSpool(), systemPrinter};
}

std::vector<std::size_t> inPrintOrder(std::vector<std::size_t> sheets, const PrintOrder &order)
{
    if (order.letterOrder == LetterOrder::reversed) std::ranges::reverse(sheets);
    return sheets;
}

PrintResult printLetters(OpenLetters &letters, std::span<const std::size_t> which, const PrintOrder &order,
                         const PrintPaths &paths, const PrintProgress &progress, const JobSent &onSent)
{
    PrintResult result;
    while (result.sent < which.size()) {
        const auto rest = which.subspan(result.sent);
        const auto part = order.lettersPerJob == 0
                              ? rest
                              : rest.first(sheetsOfJob(letters.set, rest, order.lettersPerJob, order.letterOrder));
        const auto report = [&](std::size_t done) { return !progress || progress(result.sent + done); };
        const JobResult job = runJob({letters.renderer, letters.glyphs, part, order}, paths, report);
        result.sent += job.sent;
        const std::vector<std::size_t> sent = lettersAmong(letters.set, part.first(job.sent));
        if (!sent.empty() && onSent) onSent(sent, job.number);
        result.isCancelled = job.end == JobResult::End::cancelled;
        result.fault = job.fault;
        result.mayBeOnPaper = job.end == JobResult::End::refused && !paths.spool;
        if (job.end != JobResult::End::done) return result;
    }
    return result;
}

std::string printPages(const LetterSet &set, Fonts &fonts, QtGlyphs &glyphs, const PrintOrder &order,
                       const PrintPaths &paths)
{
    LetterRenderer renderer(set, fonts);
    std::vector<std::size_t> all(set.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    return runJob({renderer, glyphs, all, order}, paths, [](std::size_t) { return true; }).fault;
}

std::string printRulerPage(OpenLetters &letters, const PrintOrder &order, const PrintPaths &paths)
{
    PrintOrder one = order;
    one.copies = 1;
    const LetterSet set =
        rulerLetters(letters.set.paper, utf8Text(order.printer), order.offset.right, order.offset.down);
    return printPages(set, letters.fonts, letters.glyphs, one, paths);
}

} // namespace inin::viewer
