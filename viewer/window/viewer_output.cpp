#include "runtime/runtime_error.h"
#include "viewer/document/letter_file_name.h"
#include "viewer/document/letter_numbers.h"
#include "viewer/window/check_panel.h"
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

std::unique_ptr<PrintDialog> ViewerWindow::printDialog(LetterTicks &ticks)
{
    finishCheck();
    auto dialog = std::make_unique<PrintDialog>(ticks, m_settings, m_services.printers(), this);
    QStringList lines;
    if (const QString warnings = warningText(); !warnings.isEmpty()) lines << warnings;
    if (!m_findings.all().empty() || !m_findings.runNotes().empty()) lines << m_checkPanel->heading();
    dialog->showCheck(lines.join(u'\n'));
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
    if (dialog->exec() == QDialog::Accepted) print(dialog->order(), only);
}

void ViewerWindow::print(const PrintOrder &order)
{
    print(order, m_letters->ticks);
}

void ViewerWindow::print(const PrintOrder &order, const LetterTicks &ticks)
{
    const std::vector<std::size_t> which = inPrintOrder(ticks.letters(), order);
    if (which.empty()) return showMessage(QMessageBox::Information, u"印刷する委任状が選ばれていません。"_s);
    if (order.printer.isEmpty())
        return showMessage(QMessageBox::Warning, u"使えるプリンターがありません。PDF に保存することはできます。"_s);
    m_paper->hide();
    recordBeforeOutput();
    const auto onSent = [&](std::span<const std::size_t> letters, const std::string &number) {
        m_desk.record(
            {OutputKind::print, utf8Text(order.printer), number, {letters.begin(), letters.end()}, m_services.now()});
    };
    runTask(u"印刷しています"_s, which.size(), [&](const Progress &progress) {
        const PrintResult result = printLetters(*m_letters, which, order, m_services.paths, progress, onSent);
        m_desk.refresh();
        showStates();
        showPrinted(result, which);
        // A print that was cancelled in order to close counts as complete; a refusal keeps the window open.
        return result.fault.empty();
    });
}

void ViewerWindow::showPrinted(const PrintResult &result, const std::vector<std::size_t> &which)
{
    if (result.isDone()) {
        statusBar()->showMessage(u"%1通をプリンターに送りました。"_s.arg(which.size()));
        if (m_closesWhenPrinted) m_closesAfterTask = true;
        return;
    }
    m_closesWhenPrinted = false;
    const std::span<const std::size_t> all(which);
    const QString parts = u"\n\nプリンターに送った番号：%1\n送っていない番号：%2"_s.arg(
        numbersText(all.first(result.sent)), numbersText(all.subspan(result.sent)));
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
        order.fileEach ? writePdfEach(order, which) : writePdf(which);
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

void ViewerWindow::writePdf(const std::vector<std::size_t> &which)
{
    const QString path =
        m_services.askPdfFile(this, m_settings.pdfFolder(), qtText(fileNameOfAll(m_letters->set, which, ".pdf")));
    if (path.isEmpty()) return;
    keepPdfFolder(QFileInfo(path).absolutePath());
    if (m_settings.printsCodes()) recordBeforeOutput();
    runTask(u"PDF に保存しています"_s, which.size(), [&](const Progress &progress) {
        const bool isDone = writeLettersPdf(utf8Text(path), m_letters->renderer, which, progress);
        if (isDone) recordSaved(which);
        statusBar()->showMessage(isDone ? u"%1通を「%2」に保存しました。"_s.arg(which.size()).arg(path)
                                        : u"保存を中止しました。ファイルは作られていません。"_s);
        return true;
    });
}

void ViewerWindow::writePdfEach(const PdfOrder &order, const std::vector<std::size_t> &which)
{
    const QString folder = m_services.askFolder(this, m_settings.pdfFolder());
    if (folder.isEmpty()) return;
    keepPdfFolder(folder);
    const std::vector<std::string> paths =
        letterPdfPaths(m_letters->set, which, utf8Text(folder), utf8Text(order.pattern));
    const auto old = std::ranges::count_if(paths, [](const std::string &path) { return QFile::exists(qtText(path)); });
    if (old > 0 && !m_services.mayReplace(this, u"同じ名前のファイルが%1個あります。上書きしますか。"_s.arg(old)))
        return;
    if (m_settings.printsCodes()) recordBeforeOutput();
    runTask(u"PDF に保存しています"_s, which.size(), [&](const Progress &progress) {
        const std::size_t written = writeLetterPdfs(paths, m_letters->renderer, which, progress);
        recordSaved(std::span(which).first(written));
        statusBar()->showMessage(written == which.size()
                                     ? u"%1通を「%2」に保存しました。"_s.arg(written).arg(folder)
                                     : u"保存を中止しました。%1通は保存してあります。"_s.arg(written));
        return true;
    });
}

} // namespace inin::viewer
