#include "support/file_bytes.h"
#include "system/whole_file.h"
#include "viewer/ledger/ledger_world.h"
#include "viewer/pdf/letters_pdf.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <cstdlib>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// Three printed letters in a ledger that the program uses, and the first two of them scanned.
struct ScanWorld : LedgerWorld {
    ScanWorld()
    {
        ::setenv("ININ_LEDGER", path.c_str(), 1);
        Ledger ledger = open();
        const RunId run = print(ledger, runOf(3));
        const LetterSet set =
            lettersOn(readWholeFile(std::string(ININ_SITE) + "/forms/" + kForm), std::vector<Row>(3, ordinaryRow()));
        Fonts fonts;
        LetterRenderer renderer(set, fonts);
        std::vector<std::string> codes;
        for (std::size_t letter = 0; letter < 3; ++letter)
            codes.push_back(codeText(ledger.codeOf(run, letter).value()));
        renderer.setCodes(codes);
        const std::vector<std::size_t> scanned = {0, 1};
        REQUIRE(writeLettersPdf(folder / "scan.pdf", renderer, scanned));
    }
    ~ScanWorld() { ::setenv("ININ_LEDGER", "off", 1); }
    ScanWorld(const ScanWorld &) = delete;
    ScanWorld &operator=(const ScanWorld &) = delete;

    [[nodiscard]] std::vector<LetterState> states() const
    {
        Ledger ledger = open();
        return ledger.states(ledger.runs().at(0).id);
    }
};

} // namespace

TEST_CASE("formviewer --returned marks the letters of scanned pages")
{
    const ScanWorld world;
    const Outcome first = runViewer(world.folder, "--returned scan.pdf");
    CHECK(first.code == 0);
    CHECK(contains(first.output, "scan.pdf 2ページ：返送済みにしました。"));
    CHECK(contains(first.output, "返送済みにした委任状 2通、すでに返送済み 0通、確かめるページ 0\n"));
    CHECK(world.states() ==
          std::vector<LetterState>{LetterState::returned, LetterState::returned, LetterState::onPaper});
    const Outcome again = runViewer(world.folder, "--json --returned scan.pdf");
    CHECK(again.code == 0);
    CHECK(contains(again.output, "\"already\": 2"));
}

TEST_CASE("formviewer --returned ends with 1 when a page or a file needs a look")
{
    const ScanWorld world;
    writeBytes(world.folder / "empty.pdf", "");
    const Outcome outcome = runViewer(world.folder, "--returned empty.pdf scan.pdf missing.png");
    CHECK(outcome.code == 1);
    CHECK(contains(outcome.output, "「empty.pdf」：PDF、PNG、JPEG、TIFF のどれでもありません。"));
    CHECK(contains(outcome.output, "missing.png"));
    CHECK(contains(outcome.output, "返送済みにした委任状 2通"));
}

TEST_CASE("formviewer --returned is refused without a ledger and together with other commands")
{
    const ScanWorld world;
    CHECK(runViewer(world.folder, "--check --returned scan.pdf").code == 2);
    ::setenv("ININ_LEDGER", "off", 1);
    const Outcome outcome = runViewer(world.folder, "--returned scan.pdf");
    CHECK(outcome.code == 2);
    CHECK(contains(outcome.errors, "台帳を使わない設定"));
}
