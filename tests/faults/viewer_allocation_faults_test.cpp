#include "faults/fault_plan.h"
#include "faults/faulty_allocations.h"
#include "faults/viewer_outputs.h"
#include "support/child_process.h"

#include <doctest/doctest.h>

#include <functional>
#include <new>

using namespace inin;
using namespace inin::viewer::test;

namespace {

enum class End : std::uint8_t { usual, outOfMemory };

/// Runs an operation with one failing allocation.
End runWithout(std::size_t allocation, const std::function<void()> &act)
try {
    const FaultyAllocations faults(allocation);
    act();
    return End::usual;
} catch (const std::bad_alloc &) {
    return End::outOfMemory; // which the program's main() reports
}

/// What is wrong after a file was written with one failing allocation; empty for nothing.
std::string faultOf(const FileWriter &writer, const TempFolder &folder, std::size_t allocation)
{
    writeBytes(writer.output, kOld);
    const std::vector<std::string> names = folder.names();
    const std::ptrdiff_t live = liveAllocations();
    const End end = runWithout(allocation, writer.write);
    const std::ptrdiff_t lost = liveAllocations() - live;
    const std::string bytes = bytesOf(writer.output);
    const bool isNew = bytes.ends_with(writer.end);
    // The record of the run in the ledger follows the file and may lack memory too.
    if (!isNew && (end == End::usual || bytes != kOld)) return "another file: " + bytes.substr(0, 40);
    if (folder.names() != names) return "another file name";
    return lost == 0 ? std::string() : std::to_string(lost) + " allocations are not freed";
}

std::string faultOfLedger(std::size_t allocation)
{
    const LedgerWorld world;
    const std::ptrdiff_t live = liveAllocations();
    (void)runWithout(allocation, [&] { recordRunAndReturn(world); });
    const std::ptrdiff_t lost = liveAllocations() - live;
    if (lost != 0) return std::to_string(lost) + " allocations are not freed";
    const std::string state = stateOfFile(world);
    return state == "ok" ? std::string() : state;
}

constexpr const char *kNotFailed = "the allocation did not fail";

/// Lets allocations of an operation fail in turn, each in a process of its own, after a run that fills the caches that live as
/// long as the process. Returns how many failed.
std::size_t failEach(const std::function<std::string(std::size_t)> &faultWithout)
{
    (void)faultWithout(0);
    CHECK(faultWithout(0) == "");
    const std::size_t count = FaultyAllocations::count();
    std::size_t failed = 0;
    for (const std::size_t allocation : operationsToFail(count, 0)) {
        const ChildEnd end = inChild([&] {
            const std::string wrong = faultWithout(allocation);
            return wrong.empty() && !FaultyAllocations::hasFailed() ? kNotFailed : wrong;
        });
        INFO("allocation ", allocation, " of ", count);
        CHECK(end.isGood());
        if (end.text == kNotFailed) continue;
        CHECK(end.text == "");
        ++failed;
    }
    return failed;
}

} // namespace

TEST_CASE("whatever allocation fails, a form viewer's output is new or old as a whole and no memory is lost")
{
    const TempFolder folder;
    std::size_t faults = 0;
    for (const FileWriter &writer : writersIn(folder)) {
        INFO(std::string(writer.name));
        faults += failEach([&](std::size_t allocation) { return faultOf(writer, folder, allocation); });
    }
    CHECK(faults > 5);
    MESSAGE(faults, " failed allocations");
}

TEST_CASE("whatever allocation fails, the ledger is sound and holds whole runs")
{
    const std::size_t faults = failEach(faultOfLedger);
    CHECK(faults > 3);
    MESSAGE(faults, " failed allocations");
}
