#include "runtime/runtime_error.h"
#include "viewer/document/letter_bundles.h"
#include "viewer/document/letter_file_name.h"
#include "viewer/document/letter_numbers.h"
#include "viewer/window/check_panel.h"
#include "viewer/window/ledger_lines.h"
#include "viewer/window/paper_bar.h"
#include "viewer/window/pdf_output.h"
#include "viewer/window/qt_text.h"
#include "viewer/window/range_box.h"
#include "viewer/window/task_bar.h"
#include "viewer/window/viewer_window.h"

#include <QFile>
#include <QFileInfo>
#include <QStatusBar>

#include <algorithm>
#include <iterator>
#include <numeric>

// The window's output: printed letters and PDF files.

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

QString numbersText(std::span<const std::size_t> letters)
{
    return letters.empty() ? u"なし"_s : qtText(letterListText({letters.begin(), letters.end()}));
}

} // namespace

/// Runs a long task, which returns true when it completes. The window then closes if the user chose that meanwhile.
void ViewerWindow::runTask(const QString &title, std::size_t total, const std::function<bool(const Progress &)> &task)
{
    if (m_task->isRunning()) return;
    m_closesAfterTask = false;
    bool isDone = false;
    m_taskState = u"%1（0／%2通）。"_s.arg(title).arg(total);
    m_task->run(title, total, [&](const std::function<bool(std::size_t)> &setDone) {
        isDone = task([&](std::size_t done) {
            m_taskState = u"%1（%2／%3通）。"_s.arg(title).arg(done).arg(total);
            return setDone(done);
        });
    });
    // A failed task has an error to show; a task cancelled by closing has already shown its result.
    const bool closes = m_closesAfterTask && isDone;
    m_closesAfterTask = false;
    if (closes) QTimer::singleShot(0, this, [this] { close(); });
}

/// What the user should know about these letters before printing them, one sentence a line.
QString ViewerWindow::printNotices(const LetterTicks &ticks) const
{
    QStringList lines;
    if (const QString warnings = warningText(); !warnings.isEmpty()) lines << warnings;
    const std::vector<std::size_t> letters = ticks.letters();
    const auto flagged = std::ranges::count_if(letters, [&](std::size_t at) { return !m_findings.of(at).empty(); });
    if (flagged > 0 || !m_findings.runNotes().empty())
        lines << checkHeading(static_cast<std::size_t>(flagged), m_findings.runNotes().size());
    const auto printed = std::ranges::count_if(letters, [&](std::size_t at) { return m_desk.isPrintedAlready(at); });
    if (printed > 0) lines << printedSentence(static_cast<std::size_t>(printed));
    return lines.join(u'\n');
}

std::unique_ptr<PrintDialog> ViewerWindow::printDialog(LetterTicks &ticks)
{
    finishCheck();
    auto dialog = std::make_unique<PrintDialog>(ticks, m_settings, m_services.printers(), this);
    dialog->showNotices([this](const LetterTicks &letters) { return printNotices(letters); });
    dialog->onTicksChanged = [this] { ticksChanged(); };
    dialog->onRulerPage = [this](const PrintOrder &order) {
        return printRulerPage(*m_letters, order, m_services.paths);
    };
    return dialog;
}

void ViewerWindow::askPrint()
{
    if (m_task->isRunning()) return;
    // Print nothing while the box shows other letters than those that are ticked.
    if (!m_range->isReadable()) return m_range->focusBox();
    const std::unique_ptr<PrintDialog> dialog = printDialog(m_letters->ticks);
    if (dialog->exec() == QDialog::Accepted)
        print(dialog->order());
    else
        m_closesWhenPrinted = false;
}

void ViewerWindow::askPrintThis()
{
    if (m_task->isRunning()) return;
    LetterTicks only(m_letters->set.size());
    only.setAll(false);
    only.set(m_page->letter(), true);
    askPrintOnly(only, u"印刷（%1）"_s.arg(qtText(m_letters->names.titleOf(m_page->letter()))));
}

/// Opens the print dialog for other letters than the ticked ones.
void ViewerWindow::askPrintOnly(LetterTicks &only, const QString &title)
{
    if (m_task->isRunning()) return;
    const std::unique_ptr<PrintDialog> dialog = printDialog(only);
    dialog->setWindowTitle(title);
    if (only.count() == 1) dialog->hideArrangement();
    if (dialog->exec() == QDialog::Accepted) print(dialog->order(), only);
}

void ViewerWindow::print(const PrintOrder &order)
{
    print(order, m_letters->ticks);
}

void ViewerWindow::print(const PrintOrder &order, const LetterTicks &ticks)
{
    if (ticks.count() == 0) return showMessage(QMessageBox::Information, u"印刷する委任状が選ばれていません。"_s);
    if (order.printer.isEmpty())
        return showMessage(QMessageBox::Warning, u"使えるプリンターがありません。PDF に保存することはできます。"_s);
    try {
        printSheets(order, inPrintOrder(m_letters->arrange(ticks.letters(), order.arrangement).sheets(), order));
    } catch (const RuntimeError &error) {
        showMessage(QMessageBox::Warning, qtText(error.description()));
    }
}

void ViewerWindow::printSheets(const PrintOrder &order, const std::vector<std::size_t> &sheets)
{
    recordBeforeOutput();
    m_paper->hide();
    const auto onSent = [&](std::span<const std::size_t> letters, const std::string &number) {
        m_desk.record(
            {OutputKind::print, utf8Text(order.printer), number, {letters.begin(), letters.end()}, m_services.now()});
    };
    runTask(u"印刷しています"_s, letterCount(m_letters->set, sheets), [&](const Progress &progress) {
        const PrintResult result =
            printLetters(*m_letters, sheets, order, m_services.paths, inLetters(progress, sheets), onSent);
        m_desk.refresh();
        showStates();
        showPrinted(result, sheets);
        // A print that was cancelled in order to close counts as complete; a refusal keeps the window open.
        return result.fault.empty();
    });
}

/// Reports the number of letters instead of that of sheets.
Progress ViewerWindow::inLetters(const Progress &progress, const std::vector<std::size_t> &sheets) const
{
    return [this, &progress, &sheets](std::size_t done) {
        return progress(letterCount(m_letters->set, std::span(sheets).first(done)));
    };
}

void ViewerWindow::showPrinted(const PrintResult &result, const std::vector<std::size_t> &sheets)
{
    if (result.isDone()) {
        statusBar()->showMessage(u"%1通をプリンターに送りました。"_s.arg(letterCount(m_letters->set, sheets)));
        if (m_closesWhenPrinted) m_closesAfterTask = true;
        return;
    }
    m_closesWhenPrinted = false;
    const std::span<const std::size_t> all(sheets);
    const QString parts = u"\n\nプリンターに送った番号：%1\n送っていない番号：%2"_s.arg(
        numbersText(lettersAmong(m_letters->set, all.first(result.sent))),
        numbersText(lettersAmong(m_letters->set, all.subspan(result.sent))));
    if (result.isCancelled)
        showMessage(QMessageBox::Information, u"印刷を中止しました。"_s + parts);
    else
        showMessage(QMessageBox::Warning,
                    qtText(result.fault) + parts +
                        (result.mayBeOnPaper
                             ? u"\n\n送っていない番号も、途中まで印刷されていないか用紙を確認してください。"_s
                             : QString()));
}

void ViewerWindow::askPdf()
{
    if (m_task->isRunning()) return;
    if (!m_range->isReadable()) return m_range->focusBox();
    PdfDialog dialog(*m_letters, m_settings, this);
    if (dialog.exec() == QDialog::Accepted) savePdf(dialog.order());
}

void ViewerWindow::savePdf(const PdfOrder &order)
{
    std::vector<std::size_t> which = m_letters->ticks.letters();
    if (!order.onlyTicked) {
        which.resize(m_letters->set.size());
        std::iota(which.begin(), which.end(), std::size_t{0});
    }
    if (which.empty()) return showMessage(QMessageBox::Information, u"保存する委任状が選ばれていません。"_s);
    try {
        if (order.fileEach) {
            which = sortedLetters(m_letters->names, which, order.arrangement.sort);
            return writePdfParts(order, which.size(), [&](const std::string &folder) {
                return letterParts(m_letters->set, which, folder, utf8Text(order.pattern));
            });
        }
        const ArrangedLetters arranged = m_letters->arrange(which, order.arrangement);
        if (!order.fileBundle) return writePdf(order, arranged.sheets());
        writePdfParts(order, which.size(), [&](const std::string &folder) {
            return bundleParts(m_letters->set, arranged.bundles, order.arrangement.sort, folder);
        });
    } catch (const RuntimeError &error) {
        showMessage(QMessageBox::Warning, qtText(error.description()));
    }
}

/// The next month's letters are usually saved beside this month's.
void ViewerWindow::keepPdfFolder(const QString &folder)
{
    m_settings.setPdfFolder(folder);
    // Unwritable settings must not interrupt the work.
    (void)m_settings.save();
}

void ViewerWindow::writePdf(const PdfOrder &order, const std::vector<std::size_t> &sheets)
{
    const std::vector<std::size_t> letters = lettersAmong(m_letters->set, sheets);
    const QString path =
        m_services.askPdfFile(this, m_settings.pdfFolder(), qtText(fileNameOfAll(m_letters->set, letters, ".pdf")));
    if (path.isEmpty()) return;
    keepPdfFolder(QFileInfo(path).absolutePath());
    if (m_settings.printsCodes()) recordBeforeOutput();
    runTask(u"PDF に保存しています"_s, letters.size(), [&](const Progress &progress) {
        const bool isDone =
            writeLettersPdf(utf8Text(path), m_letters->renderer, sheets, inLetters(progress, sheets), {order.purpose});
        if (isDone) recordSaved(letters);
        statusBar()->showMessage(isDone ? u"%1通を「%2」に保存しました。"_s.arg(letters.size()).arg(path)
                                        : u"保存を中止しました。ファイルは作られていません。"_s);
        return true;
    });
}

/// Saves letters as several files in a folder that the user chooses.
void ViewerWindow::writePdfParts(const PdfOrder &order, std::size_t letters,
                                 const std::function<std::vector<PdfPart>(const std::string &)> &partsIn)
{
    const QString folder = m_services.askFolder(this, m_settings.pdfFolder());
    if (folder.isEmpty()) return;
    keepPdfFolder(folder);
    const std::vector<PdfPart> parts = partsIn(utf8Text(folder));
    const auto old = std::ranges::count_if(parts, [](const PdfPart &part) { return QFile::exists(qtText(part.path)); });
    if (old > 0 && !m_services.mayReplace(this, u"同じ名前のファイルが%1個あります。上書きしますか。"_s.arg(old)))
        return;
    if (m_settings.printsCodes()) recordBeforeOutput();
    runTask(u"PDF に保存しています"_s, letters, [&](const Progress &progress) {
        const std::size_t files = viewer::writePdfParts(parts, m_letters->renderer, progress, order.purpose);
        std::vector<std::size_t> saved;
        for (const PdfPart &part : std::span(parts).first(files))
            std::ranges::copy(lettersAmong(m_letters->set, part.sheets), std::back_inserter(saved));
        recordSaved(saved);
        statusBar()->showMessage(files == parts.size()
                                     ? u"%1通を「%2」に保存しました。"_s.arg(letters).arg(folder)
                                     : u"保存を中止しました。%1通は保存してあります。"_s.arg(saved.size()));
        return true;
    });
}

} // namespace inin::viewer
