#include "adapters/native/native_platform.h"
#include "scenarios/script_driver.h"
#include "scenarios/short_timeout_database.h"
#include "support/file_bytes.h"

#ifndef _WIN32
#include "adapters/posix/ordinary_user.h"
#include "support/small_disk.h"
#endif

#include <doctest/doctest.h>
#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

using namespace inin;

namespace {

namespace fs = std::filesystem;

/// A print by planned month on a faulty site.
struct PrintOnASite {
    Play play = readPlay(ININ_SCENARIOS "/planned_month.play");
    TemporarySite site{play};
    ScriptDriver driver;

    [[nodiscard]] fs::path csv() const { return site.at("TMP\\委任状.csv"); }
    /// The number of the play's command that prints.
    [[nodiscard]] std::size_t printing() const
    {
        const auto prints = [](const PlayStep &step) { return step.command == R"json({"click":"btnPrint(0)"})json"; };
        return static_cast<std::size_t>(std::ranges::find_if(play.steps, prints) - play.steps.begin());
    }
    /// The events from the print on, one per line.
    std::string run()
    {
        const PlayRecord record = driver.run(play, site);
        std::string events;
        for (std::size_t step = printing(); step < record.events.size(); ++step)
            for (const std::string &event : record.events[step]) events += event + "\n";
        return events + "exit " + std::to_string(record.exitCode);
    }
};

/// Another program with an exclusive lock on the database file.
class OtherProgram {
public:
    explicit OtherProgram(const fs::path &database)
    {
        sqlite3 *db = nullptr;
        REQUIRE(sqlite3_open(database.string().c_str(), &db) == SQLITE_OK);
        m_db.reset(db);
        REQUIRE(sqlite3_exec(db, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) == SQLITE_OK);
    }

private:
    struct Close {
        void operator()(sqlite3 *db) const { sqlite3_close(db); }
    };
    std::unique_ptr<sqlite3, Close> m_db;
};

bool holds(const std::string &events, const std::string &part)
{
    return events.find(part) != std::string::npos;
}

[[maybe_unused]] constexpr const char *kFatal61 =
    R"({"event":"fatal","number":61,"text":"ディスクの空き容量が不足しています。"})";
constexpr const char *kFatal70 = R"({"event":"fatal","number":70,"text":"書き込みできません。"})";
[[maybe_unused]] constexpr const char *kFatal75 = R"({"event":"fatal","number":75,"text":"パス名が無効です。"})";

} // namespace

TEST_CASE_FIXTURE(PrintOnASite,
                  "a print on a database locked by another program times out with a box, and the screen stays open")
{
    driver.wrapDatabase = [](std::unique_ptr<Database> inner) {
        return std::make_unique<ShortTimeoutDatabase>(std::move(inner));
    };
    std::unique_ptr<OtherProgram> other;
    driver.onCommand = [&](std::size_t command) {
        if (command == printing()) other = std::make_unique<OtherProgram>(site.at("site.db"));
        if (command > printing()) other.reset();
    };
    const std::string events = run();
    CAPTURE(events);
    CHECK(holds(
        events,
        R"("text":"iGetKanjaData でエラー\r\n(-2147217871)データベースがほかのプログラムに使われています。（database is locked）)"));
    CHECK(holds(events, R"("text":"患者データの取得に失敗しました。")"));
    CHECK(events.ends_with("{\"event\":\"end\",\"code\":0}\nexit 0"));
    CHECK_FALSE(fs::exists(csv()));
}

TEST_CASE_FIXTURE(PrintOnASite, "a print during the run of another program names that program and writes nothing")
{
    const LockedFile other = makeSystemFiles("/")->openLocked(textOf(site.at("TMP\\委任状.run")));
    REQUIRE(other.output);
    other.output->write("PrintInin run 1\nholder KEIRI 77\n");
    const std::string events = run();
    CAPTURE(events);
    CHECK(holds(events, R"("text":"KEIRI（プロセス 77）が委任状を出力しています。\r)"));
    CHECK(events.ends_with("{\"event\":\"end\",\"code\":0}\nexit 0"));
    CHECK_FALSE(fs::exists(csv()));
    CHECK_FALSE(fs::exists(site.at("TMP\\WfdCom.dat")));
}

TEST_CASE_FIXTURE(PrintOnASite, "a print after the end of another program's run succeeds and becomes the holder")
{
    writeBytes(site.at("TMP\\委任状.run"), "PrintInin run 1\nholder KEIRI 77\n");
    const std::string events = run();
    CAPTURE(events);
    CHECK_FALSE(holds(events, R"("event":"box")"));
    const std::string left = bytesOf(site.at("TMP\\委任状.run"));
    CHECK(left.starts_with("PrintInin run 1\nholder "));
    CHECK(left.find("KEIRI") == std::string::npos);
    CHECK(holds(left, "\ncsv " + std::to_string(fs::file_size(csv())) + "\nletters "));
}

TEST_CASE_FIXTURE(PrintOnASite, "a table dropped while the screen is open fails the print with the provider's message")
{
    driver.onCommand = [&](std::size_t command) {
        if (command != printing()) return;
        sqlite3 *db = nullptr;
        REQUIRE(sqlite3_open(site.at("site.db").string().c_str(), &db) == SQLITE_OK);
        CHECK(sqlite3_exec(db, "DROP TABLE RIYOUSHA_SUB", nullptr, nullptr, nullptr) == SQLITE_OK);
        sqlite3_close(db);
    };
    const std::string events = run();
    CAPTURE(events);
    CHECK(holds(
        events,
        R"("text":"iGetKanjaData でエラー\r\n(-2147217865)テーブルがありません。（no such table: RIYOUSHA_SUB）)"));
    CHECK(events.ends_with("{\"event\":\"end\",\"code\":0}\nexit 0"));
}

#ifndef _WIN32 // there an open database cannot be deleted
TEST_CASE_FIXTURE(PrintOnASite, "a database file deleted while the screen is open fails the print's connect")
{
    driver.onCommand = [&](std::size_t command) {
        if (command == printing()) fs::remove(site.at("site.db"));
    };
    const std::string events = run();
    CAPTURE(events);
    CHECK(holds(
        events,
        R"("text":"iGetKanjaData でエラー\r\n(-2147467259)データベースのファイルを開けません。（unable to open database file: site.db）")"));
    CHECK(events.ends_with("{\"event\":\"end\",\"code\":0}\nexit 0"));
    CHECK_FALSE(fs::exists(site.at("site.db")));
}

TEST_CASE_FIXTURE(PrintOnASite, "a full temporary folder ends the program with error 61 and keeps what fitted")
{
    const SmallDisk disk(site.at("TMP").string(), 64);
    if (!disk.fault().empty()) {
        MESSAGE("skipped: ", disk.fault());
        return;
    }
    disk.fill();
    const std::string events = run();
    CAPTURE(events);
    CHECK(holds(events, kFatal61));
    CHECK(events.ends_with("exit 1"));
    CHECK(fs::file_size(csv()) == 0);
    CHECK_FALSE(fs::exists(site.at("TMP\\WfdCom.dat")));
}

TEST_CASE_FIXTURE(PrintOnASite, "a read-only temporary folder ends the program with error 75")
{
    fs::permissions(site.folder(), fs::perms::all);
    fs::permissions(site.at("site.db"), fs::perms::all);
    fs::permissions(site.at("TMP"),
                    fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec);
    const std::string events = asOrdinaryUser([&] { return run(); });
    CAPTURE(events);
    CHECK(holds(events, kFatal75));
    CHECK(events.ends_with("exit 1"));
    CHECK_FALSE(fs::exists(csv()));
}

TEST_CASE_FIXTURE(PrintOnASite, "a write-protected CSV ends the program with error 70 and stays")
{
    writeBytes(csv(), "before");
    fs::permissions(csv(), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    fs::permissions(site.folder(), fs::perms::all);
    fs::permissions(site.at("site.db"), fs::perms::all);
    fs::permissions(site.at("TMP"), fs::perms::all);
    const std::string events = asOrdinaryUser([&] { return run(); });
    CAPTURE(events);
    CHECK(holds(events, kFatal70));
    CHECK(events.ends_with("exit 1"));
    CHECK(bytesOf(csv()) == "before");
}

// A system that refuses to delete an open file reports error 70, see below; this one allows it.
TEST_CASE_FIXTURE(PrintOnASite,
                  "a CSV that the form tool is still reading is replaced, and its reader keeps the old one")
{
    writeBytes(csv(), "before");
    std::ifstream reader(csv());
    const std::string events = run();
    CAPTURE(events);
    CHECK(events.ends_with("{\"event\":\"end\",\"code\":0}\nexit 0"));
    CHECK(bytesOf(csv()).size() > 1000);
    std::string old;
    CHECK(std::getline(reader, old));
    CHECK(old == "before");
}

#else

TEST_CASE_FIXTURE(PrintOnASite, "a write-protected CSV ends the program with error 70 and stays")
{
    writeBytes(csv(), "before");
    fs::permissions(csv(), fs::perms::owner_read);
    const std::string events = run();
    CAPTURE(events);
    CHECK(holds(events, kFatal70));
    CHECK(events.ends_with("exit 1"));
    CHECK(bytesOf(csv()) == "before");
    fs::permissions(csv(), fs::perms::owner_all);
}

TEST_CASE_FIXTURE(PrintOnASite, "a CSV that the form tool is still reading ends the program with error 70 and stays")
{
    writeBytes(csv(), "before");
    std::ifstream reader(csv());
    const std::string events = run();
    CAPTURE(events);
    CHECK(holds(events, kFatal70));
    CHECK(events.ends_with("exit 1"));
    reader.close();
    CHECK(bytesOf(csv()) == "before");
}

TEST_CASE_FIXTURE(PrintOnASite, "a deleted temporary folder ends the program with error 76")
{
    driver.onCommand = [&](std::size_t command) {
        if (command == printing()) fs::remove_all(site.at("TMP"));
    };
    const std::string events = run();
    CAPTURE(events);
    CHECK(holds(events, R"("event":"fatal","number":76)"));
    CHECK(events.ends_with("exit 1"));
}

#endif
