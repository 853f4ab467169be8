#include "faults/fault_plan.h"
#include "faults/faulty_system_calls.h"
#include "faults/viewer_outputs.h"
#include "runtime/runtime_error.h"
#include "support/child_process.h"

#include <doctest/doctest.h>

#include <functional>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

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

std::size_t countRecord()
{
    const LedgerWorld world;
    return countChanges([&] { recordRunAndReturn(world); });
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
        CHECK(sentenceAfter(plan, [&] { recordRunAndReturn(world); }).empty());
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
        CHECK(killAt(change, [&] { recordRunAndReturn(world); }).isKilled());
        CHECK(stateOfFile(world) == "ok");
        recordRunAndReturn(world);
        CHECK(world.open().runs().size() == 1);
    }
}
