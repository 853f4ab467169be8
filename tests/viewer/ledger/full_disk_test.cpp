// A ledger on a disk without room. Where no disk can be mounted, ledger_faults_test.cpp limits the file instead.
#include "support/small_disk.h"
#include "viewer/ledger/ledger_database.h"
#include "viewer/ledger/ledger_world.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <cstdlib>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

constexpr std::size_t kKilobytes = 400;
const std::string kNoRoom = "台帳のあるディスクに空きがないため、印刷や返送は台帳に記録されません。";

/// Whether a test must be skipped, with the reason on the output.
bool isMissing(const SmallDisk &disk)
{
    if (!disk.fault().empty()) MESSAGE("skipped: ", disk.fault());
    return !disk.fault().empty();
}

std::string integrityOf(const std::string &path)
{
    LedgerDatabase database(path);
    LedgerStatement check(database, "PRAGMA integrity_check");
    return check.step() ? std::string(check.text(0)) : std::string();
}

} // namespace

TEST_CASE("on a full disk the ledger stays intact, and records again when there is room")
{
    const TempFolder place;
    const SmallDisk disk(place.path(), kKilobytes);
    if (isMissing(disk)) return;
    const std::string path = disk / "台帳.db";
    Ledger ledger(path, 24, kPrintDay);
    const TestRun before = runOf(100);
    LedgerWorld::print(ledger, before);
    disk.fill();
    int attempts = 0;
    for (const std::size_t letters : std::initializer_list<std::size_t>{1, 10, 300, 1000, 3000}) {
        const TestRun run = runOf(letters);
        if (ledger.recordRun(run.mark, run.texts, kPrintDay)) continue; // the last page of the file had room
        ++attempts;
        CHECK(ledger.notice() == kNoRoom);
        CHECK(!ledger.findRun(run.mark));
        CHECK(integrityOf(path) == "ok");
    }
    CHECK(attempts >= 3);
    CHECK(ledger.states(ledger.findRun(before.mark).value().id) == std::vector(100, LetterState::onPaper));
    CHECK(Ledger(path, 24, kPrintDay).texts(ledger.findRun(before.mark).value().id).size() == 100);
    disk.clear();
    LedgerWorld::print(ledger, runOf(200));
    CHECK(ledger.notice().empty());
    CHECK(integrityOf(path) == "ok");
}

TEST_CASE("letters are saved by a command while the disk of the ledger is full, and one sentence reports it")
{
    const TempFolder place, folder;
    const SmallDisk disk(place.path(), kKilobytes);
    if (isMissing(disk)) return;
    const std::string script = writePrintJob(folder, kForm, std::vector<Row>(300, ordinaryRow()));
    for (const std::size_t runs : std::initializer_list<std::size_t>{0, 1}) {
        CAPTURE(runs);
        const std::string path = disk / std::to_string(runs) + ".db";
        if (runs > 0) {
            Ledger ledger(path, 24, kPrintDay);
            LedgerWorld::print(ledger, runOf(50));
        }
        disk.fill();
        ::setenv("ININ_LEDGER", path.c_str(), 1);
        const Outcome outcome = runViewer(folder, "--pdf o.pdf " + script);
        ::setenv("ININ_LEDGER", "off", 1);
        CHECK(outcome.code == 0);
        CHECK(outcome.errors == kNoRoom + "\n");
        CHECK(pagesOf(folder / "o.pdf").size() == 300);
        disk.clear();
        CHECK(integrityOf(path) == "ok");
        CHECK(Ledger(path, 24, kPrintDay).runs().size() == runs);
    }
}
