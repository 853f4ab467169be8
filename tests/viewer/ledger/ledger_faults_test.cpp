#include "viewer/ledger/ledger_database.h"
#include "viewer/ledger/ledger_file.h"
#include "viewer/ledger/ledger_world.h"
#include "viewer/support/viewer_jobs.h"

#include <doctest/doctest.h>
#include <sqlite3.h>

#include <filesystem>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

namespace fs = std::filesystem;

/// Everything that a window does with a ledger: none of it may throw, whatever is wrong with the file.
bool recordsPrint(Ledger &ledger, const TestRun &run)
{
    const std::optional<RunId> id = ledger.recordRun(run.mark, run.texts, kPrintDay);
    const RunId shown = id.value_or(RunId{1});
    const std::optional<OutputId> output = ledger.recordOutput(shown, printJob({0}));
    const bool isConfirmed = ledger.confirmAll(output.value_or(OutputId{1}));
    CHECK(ledger.confirmUpTo(output.value_or(OutputId{1}), 0).has_value() == isConfirmed);
    CHECK(ledger.confirmNone(output.value_or(OutputId{1})) == isConfirmed);
    (void)ledger.printedAlready(run.mark, keysOf(run.texts));
    (void)ledger.openOutputs(shown);
    (void)ledger.earlierRuns(run.mark);
    (void)ledger.printedLetters(kNovember);
    (void)ledger.periods();
    CHECK(ledger.markReturned(std::vector<std::string>{"x"}, kPrintDay).size() == 1);
    return id && output && isConfirmed;
}

void execute(const std::string &path, const char *sql)
{
    LedgerDatabase(path).execute(sql);
}

bool isIntact(const std::string &path)
{
    LedgerDatabase database(path);
    LedgerStatement check(database, "PRAGMA integrity_check");
    return check.step() && check.text(0) == "ok";
}

std::int64_t versionOf(const std::string &path)
{
    LedgerDatabase database(path);
    LedgerStatement version(database, "PRAGMA user_version");
    return version.step() ? version.integer(0) : -1;
}

} // namespace

TEST_CASE("a ledger that is switched off records nothing and has no notice")
{
    Ledger ledgers[] = {Ledger(), Ledger("", 24, kPrintDay)};
    for (Ledger &ledger : ledgers) {
        CHECK(ledger.fault() == LedgerFault::off);
        CHECK(!recordsPrint(ledger, runOf(2)));
        CHECK(ledger.notice().empty());
        CHECK(!ledger.isReadable());
        CHECK(!ledger.erase());
    }
}

TEST_CASE("a place that cannot be reached is a notice")
{
    const LedgerWorld world;
    world.folder.put("file", "");
    for (const char *const place : {"file/台帳.db", "."}) {
        Ledger ledger(world.folder / place, 24, kPrintDay);
        CHECK(ledger.fault() == LedgerFault::unavailable);
        CHECK(contains(ledger.notice(), "読み書きできない"));
        CHECK(!recordsPrint(ledger, runOf(2)));
    }
}

TEST_CASE("a ledger that another program holds records again after that")
{
    const LedgerWorld world;
    (void)world.open();
    const TestRun run = runOf(2);
    {
        LedgerDatabase other(world.path);
        LedgerTransaction writing(other, LedgerTransaction::Kind::writing);
        Ledger ledger = world.open();
        CHECK(ledger.fault() == LedgerFault::none);
        CHECK(ledger.patience() == kPatience);
        CHECK(!ledger.recordRun(run.mark, run.texts, kPrintDay));
        CHECK(ledger.fault() == LedgerFault::locked);
        CHECK(contains(ledger.notice(), "ほかのプログラム"));
        CHECK(ledger.runs().empty());
        CHECK(ledger.patience() == kShortPatience);
        writing.commit();
        CHECK(ledger.recordRun(run.mark, run.texts, kPrintDay));
        CHECK(ledger.fault() == LedgerFault::none);
        CHECK(ledger.patience() == kPatience);
        CHECK(ledger.notice().empty());
    }
    LedgerDatabase other(world.path);
    other.execute("BEGIN EXCLUSIVE");
    Ledger ledger = world.open();
    CHECK(ledger.fault() == LedgerFault::locked);
    CHECK(!ledger.isReadable());
    CHECK(ledger.patience() == kShortPatience);
    other.execute("COMMIT");
    CHECK(ledger.findRun(run.mark));
    CHECK(ledger.patience() == kPatience);
    CHECK(recordsPrint(ledger, runOf(3)));
    CHECK(ledger.notice().empty());
}

TEST_CASE("a read-only ledger shows its records and adds none")
{
    const LedgerWorld world;
    const TestRun run = runOf(2);
    {
        Ledger ledger = world.open();
        LedgerWorld::print(ledger, run);
    }
    const std::string before = world.folder.bytes("台帳.db");
    fs::permissions(pathOf(world.path), fs::perms::owner_read);
    Ledger ledger = world.open(moment("2036-01-01 0:00:00")); // old runs are not deleted either
    CHECK(ledger.fault() == LedgerFault::readOnly);
    CHECK(contains(ledger.notice(), "権限"));
    CHECK(ledger.states(ledger.findRun(run.mark).value().id) == std::vector(2, LetterState::onPaper));
    CHECK(!recordsPrint(ledger, runOf(3)));
    CHECK(!ledger.erase());
    CHECK(world.folder.bytes("台帳.db") == before);
}

TEST_CASE("a file that is not a database is kept under another name, and a new ledger begins")
{
    const LedgerWorld world;
    const std::string damaged(10'000, 'x');
    writeBytes(world.path, damaged);
    Ledger ledger = world.open();
    CHECK(ledger.fault() == LedgerFault::damaged);
    const std::string kept = "台帳（壊れたファイル 2026-11-20 103205）.db";
    CHECK(contains(ledger.notice(), kept));
    CHECK(contains(ledger.notice(), "新しい台帳"));
    CHECK(world.folder.bytes(kept) == damaged);
    CHECK(recordsPrint(ledger, runOf(2)));
    CHECK(contains(ledger.notice(), kept));
    CHECK(world.open().fault() == LedgerFault::none);
}

TEST_CASE("the journal of a damaged file is kept beside it, so that it is not applied to the new ledger")
{
    const LedgerWorld world;
    const std::string journal("\0journal", 8); // SQLite deletes one that it could apply
    writeBytes(world.path, std::string(10'000, 'x'));
    writeBytes(world.path + "-journal", journal);
    Ledger ledger = world.open();
    CHECK(ledger.fault() == LedgerFault::damaged);
    CHECK(world.folder.bytes("台帳（壊れたファイル 2026-11-20 103205）.db-journal") == journal);
    CHECK_FALSE(world.folder.has("台帳.db-journal"));
    CHECK(recordsPrint(ledger, runOf(2)));
}

TEST_CASE("damage that appears while the ledger is used ends its use, and the next start begins a new one")
{
    const LedgerWorld world;
    const TestRun run = runOf(300);
    {
        Ledger ledger = world.open();
        LedgerWorld::print(ledger, run);
    }
    std::string bytes = world.folder.bytes("台帳.db");
    const std::size_t half = bytes.size() / 2;
    bytes.replace(half, bytes.size() - half, bytes.size() - half, 'x');
    writeBytes(world.path, bytes);
    Ledger ledger = world.open();
    REQUIRE(ledger.fault() == LedgerFault::none);
    CHECK(ledger.texts(ledger.findRun(run.mark).value().id).size() == 0);
    CHECK(ledger.fault() == LedgerFault::damaged);
    CHECK(contains(ledger.notice(), "壊れている"));
    CHECK(!recordsPrint(ledger, run));
    Ledger next = world.open();
    CHECK(next.fault() == LedgerFault::none);
    CHECK(next.runs().empty());
    CHECK(world.folder.entries() == 2);
}

TEST_CASE("a damaged text costs this text only")
{
    const LedgerWorld world;
    const TestRun run = runOf(2);
    {
        Ledger ledger = world.open();
        LedgerWorld::print(ledger, run);
    }
    execute(world.path, "UPDATE letter SET texts = x'05FFFFFFFFFFFFFFFF' WHERE number = 1");
    execute(world.path, "UPDATE job SET letters = '9-'");
    Ledger ledger = world.open();
    const RunId id = ledger.findRun(run.mark).value().id;
    CHECK(ledger.texts(id).size() == 2);
    CHECK(ledger.texts(id).value(0, column::patient) == "利用者1");
    CHECK(ledger.states(id) == std::vector(2, LetterState::unprinted));
    CHECK(ledger.fault() == LedgerFault::none);
}

TEST_CASE("a ledger of a newer version is neither used nor changed")
{
    const LedgerWorld world;
    (void)world.open();
    execute(world.path, "PRAGMA user_version = 99");
    const std::string before = world.folder.bytes("台帳.db");
    Ledger ledger = world.open();
    CHECK(ledger.fault() == LedgerFault::newer);
    CHECK(contains(ledger.notice(), "新しい版"));
    CHECK(!recordsPrint(ledger, runOf(2)));
    CHECK(world.folder.bytes("台帳.db") == before);
}

TEST_CASE("the database of another program is neither used nor changed")
{
    const LedgerWorld world;
    execute(world.path, "CREATE TABLE patient (name TEXT)");
    const std::string before = world.folder.bytes("台帳.db");
    Ledger ledger = world.open();
    CHECK(ledger.fault() == LedgerFault::unavailable);
    CHECK(!recordsPrint(ledger, runOf(2)));
    CHECK(world.folder.bytes("台帳.db") == before);
    CHECK(world.folder.entries() == 1);
}

TEST_CASE("only a ledger that was locked waits for a short time")
{
    for (const LedgerFault fault : {LedgerFault::none, LedgerFault::readOnly, LedgerFault::diskFull})
        CHECK(patienceAfter(fault) == kPatience);
    CHECK(patienceAfter(LedgerFault::locked) == kShortPatience);
    CHECK(kShortPatience < kPatience);
}

TEST_CASE("each fault has its sentence")
{
    CHECK(faultOf(SQLITE_FULL) == LedgerFault::diskFull);
    CHECK(contains(faultSentence(LedgerFault::diskFull, ""), "空きがない"));
    CHECK(faultOf(SQLITE_IOERR) == LedgerFault::unavailable);
    CHECK(contains(faultSentence(LedgerFault::unavailable, "D:\\台帳.db"), "D:\\台帳.db"));
}

/// While it exists, no new connection can let its file grow, as on a full disk.
struct FullFiles {
    FullFiles() { sqlite3_auto_extension(entry()); }
    ~FullFiles() { sqlite3_cancel_auto_extension(entry()); }
    FullFiles(const FullFiles &) = delete;
    FullFiles &operator=(const FullFiles &) = delete;

private:
    using Entry = void (*)();
    static int limit(sqlite3 *database, char **, const sqlite3_api_routines *)
    {
        return sqlite3_exec(database, "PRAGMA max_page_count = 1", nullptr, nullptr, nullptr); // the present size
    }
    static Entry entry() { return reinterpret_cast<Entry>(limit); }
};

TEST_CASE("a ledger that cannot grow keeps its records and reports what is not recorded")
{
    const LedgerWorld world;
    const TestRun before = runOf(20), larger = runOf(300);
    {
        Ledger ledger = world.open();
        LedgerWorld::print(ledger, before);
    }
    {
        const FullFiles full;
        Ledger ledger = world.open();
        CHECK(ledger.fault() == LedgerFault::none);
        CHECK(!ledger.recordRun(larger.mark, larger.texts, kPrintDay));
        CHECK(ledger.fault() == LedgerFault::diskFull);
        CHECK(contains(ledger.notice(), "空きがないため、印刷や返送は台帳に記録されません。"));
        CHECK(ledger.states(ledger.findRun(before.mark).value().id) == std::vector(20, LetterState::onPaper));
        CHECK(!ledger.findRun(larger.mark));
    }
    CHECK(isIntact(world.path));
    Ledger ledger = world.open();
    CHECK(recordsPrint(ledger, larger));
    CHECK(ledger.notice().empty());
}

TEST_CASE("a ledger that begins on a full disk records as soon as there is room")
{
    const LedgerWorld world;
    Ledger ledger;
    {
        const FullFiles full;
        ledger = world.open();
        CHECK(ledger.fault() == LedgerFault::diskFull);
        CHECK(!recordsPrint(ledger, runOf(2)));
        CHECK(contains(ledger.notice(), "空きがない"));
    }
    CHECK(recordsPrint(ledger, runOf(2)));
    CHECK(ledger.notice().empty());
}

TEST_CASE("a ledger of version 1 is brought up to date with all its records")
{
    const LedgerWorld world;
    writeBytes(world.path, bytesOf(std::string(ININ_TEST_DATA) + "/viewer/ledger_version_1.db"));
    REQUIRE(versionOf(world.path) == 1);
    Ledger ledger = world.open();
    CHECK(ledger.fault() == LedgerFault::none);
    CHECK(versionOf(world.path) == 2);
    CHECK(ledger.number() == 654'321);
    REQUIRE(ledger.runs().size() == 1);
    const RunSummary run = ledger.runs()[0];
    CHECK(run.period == kNovember);
    CHECK(run.printed == moment("2026-11-20 10:32:05"));
    const RunTexts texts = ledger.texts(run.id);
    CHECK(texts.columns() == std::vector<std::string>{"保険者名", "利用者氏名"});
    REQUIRE(texts.size() == 3);
    CHECK(texts.value(2, 0) == "高松市");
    CHECK(texts.value(2, 1) == "佐藤三郎");
    CHECK(ledger.states(run.id) == std::vector{LetterState::sent, LetterState::sent, LetterState::unprinted});
    const std::vector<std::string> codes = {codeText({654'321, 1})};
    CHECK(ledger.markReturned(codes, kPrintDay).at(0).patient == "山田太郎");
    CHECK(ledger.states(run.id)[0] == LetterState::returned);
}

#ifndef _WIN32
TEST_CASE("only its owner may read a new ledger")
{
    const LedgerWorld world;
    Ledger ledger = world.open();
    LedgerWorld::print(ledger, runOf(2));
    CHECK(fs::status(pathOf(world.path)).permissions() == (fs::perms::owner_read | fs::perms::owner_write));
}
#endif
