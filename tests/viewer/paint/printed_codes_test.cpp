#include "support/sample_size.h"
#include "system/whole_file.h"
#include "viewer/ledger/letter_code.h"
#include "viewer/paint/degraded_page.h"
#include "viewer/paint/scanned_pages.h"
#include "viewer/pdf/letters_pdf.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <QFile>
#include <QString>

#include <cstdio>
#include <cstdlib>
#include <numeric>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// 24 pages, fewer under the sanitizers; the whole proof of 300 is run with ININ_SCANNED_PAGES=300. ININ_SCANNED_FOLDER keeps the pages and the PDF of
/// each form, for a look and for scripts/test-windows.
int pagesToRead()
{
    const char *const pages = std::getenv("ININ_SCANNED_PAGES");
    return std::max(sampleSize(24), pages == nullptr ? 0 : std::atoi(pages));
}

QString folderToKeep()
{
    return qEnvironmentVariable("ININ_SCANNED_FOLDER");
}

void keep(const QImage &page, int number)
{
    if (const QString folder = folderToKeep(); !folder.isEmpty())
        page.save(folder + QString("/%1.png").arg(number, 3, 10, QChar('0')));
}

std::vector<std::string> lettersOf(int form, int count)
{
    std::vector<std::string> codes;
    for (int i = 1; i <= count; ++i) codes.push_back(codeText({271'828, static_cast<std::uint32_t>(1'000 * form + i)}));
    return codes;
}

/// Writes letters with these codes on a supplied form as a PDF.
std::string printed(const TempFolder &folder, const char *form, const std::vector<std::string> &codes)
{
    const LetterSet set = lettersOn(readWholeFile(std::string(ININ_SITE) + "/forms/" + form),
                                    std::vector<Row>(codes.size(), longestRow()));
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    renderer.setCodes(codes);
    std::vector<std::size_t> letters(codes.size());
    std::iota(letters.begin(), letters.end(), std::size_t{0});
    REQUIRE(writeLettersPdf(folder / "letters.pdf", renderer, letters));
    return folder / "letters.pdf";
}

} // namespace

TEST_CASE("stained, rotated and noisy prints of the three forms are read without a wrong code")
{
    const int each = pagesToRead() / 3;
    int read = 0, wrong = 0, number = 0;
    for (int form = 0; form < 3; ++form) {
        const TempFolder folder;
        const std::vector<std::string> codes = lettersOf(form, each);
        const std::string pdf = printed(folder, kForms[form], codes);
        if (const QString kept = folderToKeep(); !kept.isEmpty())
            QFile::copy(QString::fromStdString(pdf), kept + QString("/form %1.pdf").arg(form + 1));
        ScannedFile file(pdf);
        REQUIRE(file.pages() == each);
        for (int page = 0; page < each; ++page, ++number) {
            const QImage scan = degradedPage(file.page(page), number);
            keep(scan, number);
            std::string expected = codes[static_cast<std::size_t>(page)];
            std::erase(expected, '-');
            for (const std::string &code : codesOn(scan)) ++(code == expected ? read : wrong);
        }
    }
    std::printf("read %d of %d pages, %d wrong\n", read, number, wrong);
    CHECK(wrong == 0);
    CHECK(100 * read >= 99 * number);
}
