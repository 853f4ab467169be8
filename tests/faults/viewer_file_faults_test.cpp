#include "faults/fault_plan.h"
#include "faults/faulty_system_calls.h"
#include "runtime/runtime_error.h"
#include "suite_text/code_page_932.h"
#include "support/child_process.h"
#include "viewer/app/write_letters.h"
#include "viewer/ledger/ledger_world.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>
#include <sqlite3.h>

#include <functional>
#include <memory>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

constexpr const char *kOld = "old";

/// A program part that replaces one file.
struct FileWriter {
    const char *name;
    std::string output;
    std::function<void()> write;
    const char *end; ///< of the new file
};

std::vector<FileWriter> writersIn(const TempFolder &folder)
{
    ViewCommand toPdf;
    toPdf.script = writePrintJob(folder, kForm, std::vector<Row>(3, ordinaryRow()));
    toPdf.pdf = folder / "out.pdf";
    MergeCommand merge;
    merge.script = folder.put("merge.dat", encodeCp932("setreport,\"" + folder.path() + "/" + kForm + "\"\r\n"));
    merge.output = folder / "tmp.wfd";
    return {{"PDF", toPdf.pdf, [toPdf] { writeLetters(toPdf); }, "%%EOF\n"},
            {"combined form", merge.output, [merge] { writeCombinedForm(merge); }, "\n"}};
}

std::size_t countChanges(const std::function<void()> &act)
{
    FaultPlan counting;
    const FaultySystemCalls calls(counting);
    act();
    return counting.count();
}

/// Runs a body with one failing change of a file. Returns the sentence of its error, empty for none.
std::string sentenceAfter(FaultPlan &plan, const std::function<void()> &act)
try {
    const FaultySystemCalls calls(plan);
    act();
    return {};
} catch (const RuntimeError &error) {
    return error.description();
}

/// Kills a process at one change of a file.
ChildEnd killAt(std::size_t change, const std::function<void()> &act)
{
    return inChild([&] {
        FaultPlan plan(change);
        const FaultySystemCalls calls(plan, FaultySystemCalls::Fault::killed);
        act();
        return "not killed";
    });
}

const TestRun kRun = runOf(5);

/// Records a run and a print, and the return of its first letter.
void record(const LedgerWorld &world)
{
    Ledger ledger = world.open();
    const std::optional<RunId> run = ledger.recordRun(kRun.mark, kRun.texts, kPrintDay);
    if (!run) return;
    (void)ledger.recordOutput(*run, printJob(lettersFrom(0, 5)));
    (void)ledger.setReturned(printedLetter(*run, 0), true, kPrintDay);
}

std::size_t countRecord()
{
    const LedgerWorld world;
    return countChanges([&] { record(world); });
}

/// What is wrong with the ledger's file; "ok" for nothing. An incomplete run is wrong too.
std::string stateOfFile(const LedgerWorld &world)
{
    Ledger ledger = world.open();
    if (ledger.fault() != LedgerFault::none) return ledger.notice();
    for (const RunSummary &run : ledger.runs())
        if (run.letters != 5 || ledger.texts(run.id).size() != 5 || ledger.states(run.id).size() != 5)
            return "an incomplete run";
    sqlite3 *database = nullptr;
    std::string state;
    const auto keep = [](void *text, int, char **values, char **) {
        *static_cast<std::string *>(text) = values[0];
        return 0;
    };
    if (sqlite3_open(world.path.c_str(), &database) != SQLITE_OK ||
        sqlite3_exec(database, "PRAGMA integrity_check", keep, &state, nullptr) != SQLITE_OK)
        state = sqlite3_errmsg(database);
    sqlite3_close(database);
    return state;
}

} // namespace

TEST_CASE(
    "whatever change of a file fails, a form viewer's output is new or old as a whole, and a failure has a sentence")
{
    const TempFolder folder;
    std::size_t faults = 0;
    for (const FileWriter &writer : writersIn(folder)) {
        writeBytes(writer.output, kOld);
        const std::size_t count = countChanges(writer.write);
        const std::vector<std::string> names = folder.names();
        for (std::size_t change = 1; change <= count; ++change) {
            writeBytes(writer.output, kOld);
            FaultPlan plan(change);
            const std::string sentence = sentenceAfter(plan, writer.write);
            INFO(writer.name, ", change ", change, ": ", plan.failed(), ", ", sentence);
            const std::string bytes = bytesOf(writer.output);
            if (sentence.empty())
                CHECK(bytes.ends_with(writer.end));
            else
                CHECK(bytes == kOld);
            CHECK(folder.names() == names);
            ++faults;
        }
    }
    CHECK(faults > 8);
    MESSAGE(faults, " failed changes of files");
}

TEST_CASE(
    "a form viewer killed at any change of a file leaves the new or the old output, and the next one no other file")
{
    const TempFolder folder;
    for (const FileWriter &writer : writersIn(folder)) {
        writeBytes(writer.output, kOld);
        const std::size_t count = countChanges(writer.write);
        const std::vector<std::string> names = folder.names();
        for (std::size_t change = 1; change <= count; ++change) {
            INFO(writer.name, ", change ", change);
            writeBytes(writer.output, kOld);
            CHECK(killAt(change, writer.write).isKilled());
            const std::string bytes = bytesOf(writer.output);
            CHECK((bytes == kOld || bytes.ends_with(writer.end)));
            writer.write();
            CHECK(bytesOf(writer.output).ends_with(writer.end));
            CHECK(folder.names() == names);
        }
    }
}

TEST_CASE("whatever change of a file fails, the ledger is sound and holds whole runs")
{
    const std::size_t count = countRecord();
    for (std::size_t change = 1; change <= count; ++change) {
        const LedgerWorld world;
        FaultPlan plan(change);
        CHECK(sentenceAfter(plan, [&] { record(world); }).empty());
        INFO("change ", change, " of ", count, ": ", plan.failed());
        CHECK(stateOfFile(world) == "ok");
    }
    CHECK(count > 30);
    MESSAGE(count, " failed changes of files");
}

TEST_CASE("a process killed at any change of a file leaves a sound ledger with whole runs")
{
    const std::size_t count = countRecord();
    for (std::size_t change = 1; change <= count; ++change) {
        INFO("change ", change, " of ", count);
        const LedgerWorld world;
        CHECK(killAt(change, [&] { record(world); }).isKilled());
        CHECK(stateOfFile(world) == "ok");
        record(world);
        CHECK(world.open().runs().size() == 1);
    }
}
