#include "adapters/sqlite/sqlite_database.h"
#include "faults/faulty_allocations.h"
#include "faults/faulty_play.h"
#include "printing/print_form.h"
#include "support/child_process.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>
#include <sqlite3.h>

#include <exception>

using namespace inin;

namespace {

/// The conditions screen on the tables of a site, without a transcript: a failed allocation in the JSON library ends the
/// process.
struct Screen {
    explicit Screen(const TemporarySite &site)
    {
        world.files.putText("C:\\SUITE\\adodb.ini",
                            "[接続情報]\n接続情報=Provider=SQLite;Data Source=" + textOf(site.at("site.db")) + "\n");
        app.gcsAppPath = world.app.gcsAppPath;
        app.iKyotenCd = app.iKyotenEb = 1;
    }

    /// Loads the screen, prints the letters of a month and closes it, which ends the program.
    void print()
    try {
        frmPrintInin form(app);
        world.windows.acts.emplace_back([&](Form &) {
            form.optPrint(0).Value = true;
            form.optObject(0).Value = true;
            form.optTgtDate(0).Value = true;
            form.imD_Out.Value = Variant(DateSerial(2024, 5, 1));
            form.optTrust(0).Value = true;
            form.optDspPeriod(0).Value = true;
            form.optSyomei(0).Value = true;
            form.mnF01_Click();
        });
        world.windows.closeByControlBox();
        world.windows.show(form, Modality::modal);
    } catch (const ProcessEnded &) {
        // the usual end
    }
    [[nodiscard]] std::string fileOf(const char *name) const
    {
        const std::string path = std::string("C:\\SUITE\\TMP\\") + name;
        return world.files.has(path) ? world.files.bytes(path) : std::string();
    }

    FakeWorld world;
    std::unique_ptr<Database> database = sqlite::makeSqliteDatabase([](const std::string &source) { return source; });
    Platform platform{world.boxes,     world.windows, *database,    world.profile,   world.files,
                      world.processes, world.clock,   world.locale, world.automation};
    App app{platform};
};

/// Prints with one failing allocation. Returns what is wrong afterwards.
std::string printWithout(const TemporarySite &site, std::size_t allocation)
{
    Screen screen(site);
    bool isReported = false;
    try {
        const FaultyAllocations faults(allocation);
        screen.print();
    } catch (const std::bad_alloc &) {
        isReported = true; // by the program's main()
    } catch (const UnhandledError &) {
        isReported = true;
    }
    const bool isStarted = !screen.world.processes.started.empty();
    const bool isFinished =
        screen.fileOf("委任状.csv").ends_with("\r\n") && screen.fileOf("WfdCom.dat").ends_with("\r\n");
    if (isStarted && !isFinished) return "the form tool is started with unfinished files";
    if (!isReported && !isStarted && screen.world.boxes.shown.empty()) return "nothing is reported";
    return {};
}

/// The same, and what is not given back.
std::string faultOf(const TemporarySite &site, std::size_t allocation)
{
    const std::ptrdiff_t live = liveAllocations();
    const sqlite3_int64 ofSqlite = sqlite3_memory_used();
    std::string wrong = printWithout(site, allocation);
    if (!wrong.empty()) return wrong;
    if (sqlite3_memory_used() != ofSqlite) return "a database stays open";
    const std::ptrdiff_t lost = liveAllocations() - live;
    return lost == 0 ? std::string() : std::to_string(lost) + " allocations are not freed";
}

} // namespace

TEST_CASE(
    "whatever allocation fails in a print, it is reported, loses no memory and gives the form tool no unfinished file")
{
    const TemporarySite site(readPlay(ININ_SCENARIOS "/planned_month.play"));
    CHECK(faultOf(site, 0) == ""); // fills the caches that live as long as the process
    CHECK(faultOf(site, 0) == "");
    const std::size_t count = FaultyAllocations::count();
    std::size_t faults = 0;
    for (const std::size_t allocation : operationsToFail(count, 0)) {
        const ChildEnd end = inChild([&] { return faultOf(site, allocation); });
        INFO("allocation ", allocation, " of ", count);
        CHECK(end.isGood());
        CHECK(end.text == "");
        ++faults;
    }
    MESSAGE(faults, " failed allocations");
}
