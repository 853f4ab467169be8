#include "desktop_theme/toolkit_folder.h"
#include "runtime/runtime_error.h"
#include "system/file_path.h"
#include "system/local_time.h"
#include "system/program_edges.h"
#include "system/whole_file.h"
#include "viewer/app/ledger_report.h"
#include "viewer/app/toolkit.h"
#include "viewer/app/write_letters.h"
#include "viewer/io/system_edges.h"
#include "viewer/paint/qt_letter_page.h"
#include "viewer/paint/scanned_pages.h"
#include "viewer/returns/returned_text.h"
#include "viewer/window/run_window.h"
#include "viewer/window/viewer_settings.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>

namespace inin::viewer {

void prepareToolkit()
{
    theme::useToolkitFolder();
}

int showLetters(const ViewCommand &command, const std::string &programName)
{
    const std::string &path = command.form.empty() ? command.script : command.form;
    if (hasScreen())
        return runWindow(
            programName, path, [&] { return openedLetters(command); }, command.letters);
    showFailure("formviewer: 画面がないので、--pdf、--png、--check のどれかを指定してください。");
    return kBadCommand;
}

LedgerSettings ledgerSettings()
{
    return ViewerSettings().ledger();
}

bool printsCodes()
{
    return ViewerSettings().printsCodes();
}

namespace {

/// Pages whose letters are marked in one record.
constexpr int kPagesInRecord = 100;

void readScans(const std::string &path, ReturnedPages &pages)
try {
    ScannedFile file(path);
    for (int page = 0; page < file.pages(); ++page) {
        pages.add(path, page + 1, codesOn(file.page(page)));
        if ((page + 1) % kPagesInRecord == 0) pages.mark(presentMoment());
    }
} catch (const RuntimeError &error) {
    pages.addUnread(path, error.description());
}

} // namespace

int markReturned(const ReturnedCommand &command)
{
    if (!canReadScans()) {
        showFailure(std::string("formviewer: ") + kNoScans);
        return kBadCommand;
    }
    Ledger ledger = operatorLedger();
    if (ledger.fault() == LedgerFault::off) {
        showFailure("formviewer: 台帳を使わない設定なので、返送を記録できません。");
        return kBadCommand;
    }
    ReturnedPages pages(ledger);
    for (const std::string &path : command.files) readScans(path, pages);
    pages.mark(presentMoment());
    printText(stdout, command.json ? returnedJson(pages, ledger.notice()) : returnedText(pages, ledger.notice()));
    return pages.needsAttention() ? 1 : 0;
}

void writePngs(const ViewCommand &command, LetterRenderer &renderer, const std::vector<std::size_t> &letters)
{
    makeFolder(command.pngFolder);
    // With leading zeros, names sort in the order of the letters.
    const std::size_t digits = std::max<std::size_t>(3, std::to_string(renderer.set().size()).size());
    QtGlyphs glyphs;
    for (const std::size_t letter : letters) {
        const std::size_t pages = renderer.pageCount(letter);
        for (std::size_t page = 0; page < pages; ++page) {
            const std::string number = fmt::format("{:0{}}", letter + 1, digits);
            const std::string name = pages == 1 ? number : fmt::format("{}-{}", number, page + 1);
            writeWholeFile(pathOf(fmt::format("{}/{}.png", command.pngFolder, name)),
                           pagePng(renderer, {letter, page}, command.dotsPerInch, glyphs), NewFile::ownerOnly);
        }
    }
}

} // namespace inin::viewer
