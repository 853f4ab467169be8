// A thousand scanned pages: reading their codes and marking the letters in the ledger, compared with a loop that only
// decodes the same pictures and calls the library. Both read the same files in turn, so that a busy machine slows both.

#include "bench/figures.h"
#include "bench/letter_rows.h"
#include "runtime/date.h"
#include "suite_text/code_page_932.h"
#include "support/temp_folder.h"
#include "system/whole_file.h"
#include "viewer/document/letter_renderer.h"
#include "viewer/form/svg_reader.h"
#include "viewer/letters/csv_reader.h"
#include "viewer/paint/qt_letter_page.h"
#include "viewer/paint/scanned_pages.h"
#include "viewer/returns/returned_pages.h"

#define ZX_USE_UTF8
#include <ReadBarcode.h>

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <exception>
#include <stdexcept>

namespace inin::bench {

namespace {

using namespace viewer;

constexpr std::size_t kFiles = 50, kRounds = 20;
constexpr double kDotsPerInch = 200;

LetterSet letters()
{
    std::string csv;
    for (std::size_t i = 0; i < kFiles; ++i) csv += fmt::format("\"{}\"\r\n", fmt::join(letterRow(i), "\",\""));
    LetterSet set;
    LetterReport &report = set.reports.emplace_back();
    report.form = readSvg(readWholeFile(std::string(ININ_SITE) + "/forms/委任状37_01.wfd"));
    report.letters = readLetters(encodeCp932(csv), TitleRow::none);
    report.columns = report.letters.columns();
    return set;
}

/// Prints the letters with their codes as pictures and returns the files.
std::vector<std::string> scans(const TempFolder &folder, Ledger &ledger)
{
    const LetterSet set = letters();
    const RunId run = ledger.recordRun(markOf(set), textsOf(set), DateSerial(2026, 11, 20)).value();
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    std::vector<std::string> codes, files;
    for (std::size_t i = 0; i < kFiles; ++i) codes.push_back(codeText(ledger.codeOf(run, i).value()));
    renderer.setCodes(codes);
    QtGlyphs glyphs;
    for (std::size_t i = 0; i < kFiles; ++i) {
        files.push_back(folder / fmt::format("{:03}.png", i));
        const QImage page = pageImage(renderer, i, kDotsPerInch, glyphs).convertToFormat(QImage::Format_Grayscale8);
        if (!page.save(QString::fromStdString(files.back()))) throw std::runtime_error("a picture was not written");
    }
    return files;
}

std::size_t readBare(const std::vector<std::string> &files)
{
    std::size_t found = 0;
    for (const std::string &file : files) {
        const QImage page = QImage(QString::fromStdString(file)).convertToFormat(QImage::Format_Grayscale8);
        const ZXing::ImageView view(page.constBits(), page.width(), page.height(), ZXing::ImageFormat::Lum,
                                    static_cast<int>(page.bytesPerLine()));
        const auto hints = ZXing::DecodeHints().setFormats(ZXing::BarcodeFormat::QRCode);
        found += ZXing::ReadBarcodes(view, hints).size();
    }
    return found;
}

std::size_t readReturned(const std::vector<std::string> &files, Ledger &ledger)
{
    ReturnedPages pages(ledger);
    for (const std::string &path : files) {
        ScannedFile file(path);
        pages.add(path, 1, codesOn(file.page(0)));
    }
    pages.mark(DateSerial(2026, 12, 10));
    return files.size() - static_cast<std::size_t>(std::ranges::count_if(pages.pages(), &ReturnedPage::needsAttention));
}

template <class Body> double secondsOf(const Body &body)
{
    const auto begin = std::chrono::steady_clock::now();
    if (body() != kFiles) throw std::runtime_error("not every page was read");
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

void run()
{
    const TempFolder folder;
    Ledger ledger(folder / "台帳.db", 24, DateSerial(2026, 12, 10));
    const std::vector<std::string> files = scans(folder, ledger);
    double bare = 0, ours = 0;
    for (std::size_t round = 0; round < kRounds; ++round) {
        bare += secondsOf([&] { return readBare(files); });
        ours += secondsOf([&] { return readReturned(files, ledger); });
    }
    print({.name = fmt::format("{} scanned pages read", kFiles * kRounds),
           .ours = secondsText(ours),
           .peer = secondsText(bare) + " bare loop",
           .ratio = ratioText(ours / bare)});
}

} // namespace

} // namespace inin::bench

int main()
try {
    inin::bench::run();
    return 0;
} catch (const std::exception &error) {
    fmt::print(stderr, "{}\n", error.what());
    return 1;
}
