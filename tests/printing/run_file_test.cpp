#include "printing/run_file.h"

#include "printing/print_fixture.h"
#include "support/errors.h"

#include <doctest/doctest.h>

#include <algorithm>

namespace inin {

namespace {

using State = LockedFile::State;

constexpr const char *kLockedCsv = "C:\\SUITE\\TMP\\委任状.csv";
constexpr const char *kLockedScript = "C:\\SUITE\\TMP\\WfdCom.dat";
constexpr const char *kRun = "C:\\SUITE\\TMP\\委任状.run";
constexpr const char *kHolderLines = "PrintInin run 1\nholder RECEPTION1 1234\n";

/// A screen that prints two letters.
struct TwoLetters : PrintFixture {
    TwoLetters()
    {
        markScreen();
        answer(patients({{}, {}}));
    }
    /// Another program keeps the lock for this many attempts.
    void holdFor(int attempts)
    {
        world.files.put(kRun, "PrintInin run 1\nholder KEIRI 77\n");
        world.files.lockState = [left = attempts](const std::string &) mutable {
            return left-- > 0 ? State::busy : State::locked;
        };
    }
    [[nodiscard]] std::ptrdiff_t attempts() const
    {
        return std::ranges::count(world.files.log, std::string("lock ") + kRun);
    }
    [[nodiscard]] bool isPrinted() const { return world.files.has(kLockedCsv) && world.processes.started.size() == 1; }
};

} // namespace

TEST_CASE_FIXTURE(TwoLetters, "a run writes the holder, the size of the CSV and the number of letters to the run file")
{
    form.vRunPrint(1);

    CHECK(world.files.bytes(kRun) ==
          std::string(kHolderLines) + "csv " + std::to_string(world.files.bytes(kLockedCsv).size()) + "\nletters 2\n");
    CHECK(world.boxes.shown.empty());
}

TEST_CASE_FIXTURE(TwoLetters, "a run that fails in the CSV leaves only the holder and releases the lock")
{
    world.files.put(kRun, "PrintInin run 1\nholder OLD 1\ncsv 1\nletters 1\n");
    world.files.failingWrite = 2;

    CHECK(errorOf([&] { form.vRunPrint(1); }) == 61);

    CHECK(world.files.bytes(kRun) == kHolderLines);
    CHECK(std::ranges::count(world.files.log, std::string("unlock ") + kRun) == 1);
}

TEST_CASE_FIXTURE(TwoLetters, "a run prints without a lock if the locking fails with an error")
{
    world.files.lockState = [](const std::string &) -> State { throw RuntimeError(error_number::pathNotFound); };
    form.vRunPrint(1);

    CHECK(isPrinted());
    CHECK(world.boxes.shown.empty());
    CHECK_FALSE(world.files.has(kRun));
}

TEST_CASE_FIXTURE(TwoLetters,
                  "the lock extends from the removal of the old CSV to the start of the tool, without the store")
{
    world.files.put(kLockedCsv, "old");
    world.processes.onStart = [this] { world.files.log.emplace_back("start of the tool"); };
    world.files.log.clear();
    form.vRunPrint(1);

    const std::string expected[] = {std::string("lock ") + kRun,
                                    std::string("remove ") + kLockedCsv,
                                    std::string("open >") + kLockedCsv,
                                    std::string("open >") + kLockedScript,
                                    "start of the tool",
                                    std::string("unlock ") + kRun,
                                    "search C:\\SUITE\\DATA\\印刷設定.ini"};
    auto at = world.files.log.cbegin();
    for (const std::string &event : expected) {
        CAPTURE(event);
        at = std::find(at, world.files.log.cend(), event);
        REQUIRE(at != world.files.log.cend());
    }
}

TEST_CASE_FIXTURE(TwoLetters,
                  "a run waits while another program has the lock, and shows nothing if it is soon released")
{
    holdFor(5);
    form.vRunPrint(1);

    CHECK(world.boxes.shown.empty());
    CHECK(attempts() == 6);
    CHECK(world.clock.seconds == doctest::Approx(0.5));
    CHECK(isPrinted());
}

TEST_CASE_FIXTURE(TwoLetters, "after three seconds a run shows the holder and tries again if the operator agrees")
{
    holdFor(40);
    world.boxes.retries = 1;
    form.vRunPrint(1);

    CHECK(onlyBox() == ShownBox{"KEIRI（プロセス 77）が委任状を出力しています。\r"
                                "終わるのを待って「再試行」を押してください。「キャンセル」を押すと出力しません。",
                                Icon::exclamation, ""});
    CHECK(world.clock.seconds == doctest::Approx(3.9));
    CHECK(isPrinted());
}

TEST_CASE_FIXTURE(TwoLetters, "a run cancelled by the operator writes, starts and stores nothing")
{
    std::vector<std::int16_t> pointers;
    form.onMousePointer = [&pointers](std::int16_t kind) { pointers.push_back(kind); };
    world.files.put(kLockedCsv, "the other program's");
    holdFor(1000);
    form.vRunPrint(1);

    CHECK(world.boxes.shown.size() == 1);
    CHECK(attempts() == 30);
    CHECK(world.files.bytes(kLockedCsv) == "the other program's");
    CHECK_FALSE(world.files.has(kLockedScript));
    CHECK(world.processes.started.empty());
    CHECK_FALSE(world.files.has("C:\\SUITE\\DATA\\印刷設定.ini"));
    CHECK(pointers == std::vector<std::int16_t>{11, 0});
}

TEST_CASE("an unreadable holder is shown in general words")
{
    for (const char *content : {"", "PrintInin run 1\n", "PrintInin run 1\nholder KEIRI 77", "holder KEIRI\n"}) {
        TwoLetters fixture;
        CAPTURE(content);
        fixture.holdFor(1000);
        fixture.world.files.put(kRun, content);
        fixture.form.vRunPrint(1);
        CHECK(fixture.onlyBox().text.starts_with("ほかのプログラムが委任状を出力しています。\r"));
    }
}

TEST_CASE_FIXTURE(TwoLetters, "a run continues without a lock")
{
    world.files.lockState = [](const std::string &) { return State::unavailable; };
    form.vRunPrint(1);

    CHECK(world.boxes.shown.empty());
    CHECK(isPrinted());
    CHECK_FALSE(world.files.has(kRun));
}

TEST_CASE_FIXTURE(TwoLetters, "a run continues if nothing can be written to the locked file")
{
    world.files.lockedWriteError = 61;
    form.vRunPrint(1);

    CHECK(world.boxes.shown.empty());
    CHECK(isPrinted());
    CHECK(std::ranges::count(world.files.log, std::string("unlock ") + kRun) == 1);
}

TEST_CASE_FIXTURE(TwoLetters, "a holder is readable if the computer's name has a blank or is unknown")
{
    world.processes.name = "受付 1";
    form.vRunPrint(1);
    CHECK(world.files.bytes(kRun).starts_with("PrintInin run 1\nholder 受付 1 1234\n"));

    world.processes.name = std::string(300, 'x');
    answer(patients({{}}));
    form.vRunPrint(1);
    CHECK(world.files.bytes(kRun).starts_with("PrintInin run 1\nholder ? 1234\n"));
}

} // namespace inin
