// Several processes on one ledger, and processes that are killed. ININ_LEDGER_ROUNDS sets how often each is tried.

#include "viewer/ledger/ledger_world.h"

#include <doctest/doctest.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <random>
#include <set>
#include <sstream>
#include <thread>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

constexpr std::size_t kLetters = 40;
constexpr std::size_t kPerJob = 8;

int roundsOr(int usual)
{
    const char *const rounds = std::getenv("ININ_LEDGER_ROUNDS");
    return rounds == nullptr ? usual : std::atoi(rounds);
}

/// A run of this number, with its number in each patient's name.
TestRun numberedRun(int number, std::size_t letters)
{
    std::vector<TextRow> rows;
    for (std::size_t i = 0; i < letters; ++i) rows.push_back(textRow(std::to_string(number) + "-" + std::to_string(i)));
    return runOfRows(rows);
}

/// Runs `body` in a process of its own, which ends with 0 if it returns true.
template <class Body> pid_t startProcess(const Body &body)
{
    const pid_t process = fork();
    if (process != 0) return process;
    bool isGood = false;
    try {
        isGood = body();
    } catch (const std::exception &) {
        isGood = false;
    }
    _exit(isGood ? 0 : 1);
}

bool endsWell(pid_t process)
{
    int status = 0;
    return waitpid(process, &status, 0) == process && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// Records runs as a viewer does, each with a print and its answer.
bool recordRuns(const LedgerWorld &world, int first, int count)
{
    for (int number = first; number < first + count; ++number) {
        Ledger ledger = world.open(); // a new start each time
        const TestRun run = numberedRun(number, 3);
        const auto id = ledger.recordRun(run.mark, run.texts, kPrintDay);
        if (!id) return false;
        const auto output = ledger.recordOutput(*id, printJob({0, 1, 2}));
        if (!output || ledger.confirmUpTo(*output, 1) != std::vector<std::size_t>{2}) return false;
        if (!ledger.setReturned(printedLetter(*id, 0), true, kPrintDay)) return false;
    }
    return true;
}

/// Prints runs until it is killed: each job is noted in the file "sent" when the queue has it, and then recorded.
bool printRuns(const LedgerWorld &world, int first)
{
    std::ofstream sent(world.folder / "sent", std::ios::app);
    Ledger ledger = world.open();
    for (int number = first;; ++number) {
        const TestRun run = numberedRun(number, kLetters);
        const auto id = ledger.recordRun(run.mark, run.texts, kPrintDay);
        std::optional<OutputId> output;
        for (std::size_t letter = 0; letter < kLetters; letter += kPerJob) {
            for (std::size_t i = letter; i < letter + kPerJob; ++i) sent << number << '-' << i << '\n';
            sent.flush();
            output = ledger.recordOutput(id.value(), printJob(lettersFrom(letter, letter + kPerJob)), output);
            if (!output) return false;
        }
    }
}

std::set<std::string> sentLetters(const LedgerWorld &world)
{
    std::istringstream lines(world.folder.bytes("sent"));
    std::set<std::string> sent;
    for (std::string line; std::getline(lines, line);) sent.insert(line);
    return sent;
}

} // namespace

TEST_CASE("two viewers record in one ledger at once and nothing is lost")
{
    const int rounds = roundsOr(20);
    const LedgerWorld world;
    const pid_t one = startProcess([&] { return recordRuns(world, 0, rounds); });
    const pid_t two = startProcess([&] { return recordRuns(world, rounds, rounds); });
    const bool isOneGood = endsWell(one), isTwoGood = endsWell(two);
    REQUIRE(isOneGood);
    REQUIRE(isTwoGood);
    Ledger ledger = world.open();
    CHECK(ledger.fault() == LedgerFault::none);
    std::set<std::uint32_t> codes;
    for (int number = 0; number < 2 * rounds; ++number) {
        const std::optional<RunSummary> run = ledger.findRun(numberedRun(number, 3).mark);
        REQUIRE(run);
        CHECK(ledger.texts(run->id).size() == 3);
        CHECK(ledger.states(run->id) ==
              std::vector{LetterState::returned, LetterState::onPaper, LetterState::unprinted});
        for (std::size_t letter = 0; letter < 3; ++letter) codes.insert(ledger.codeOf(run->id, letter).value().letter);
    }
    CHECK(ledger.runs().size() == static_cast<std::size_t>(2 * rounds));
    CHECK(codes.size() == static_cast<std::size_t>(6 * rounds));
}

TEST_CASE("a killed viewer leaves whole runs, and no letter counts as printed that was not sent")
{
    std::mt19937 random(3);
    const LedgerWorld world;
    (void)world.open();
    std::size_t checked = 0;
    for (int round = 0; round < roundsOr(8); ++round) {
        const pid_t viewer = startProcess([&] { return printRuns(world, round * 10'000); });
        std::this_thread::sleep_for(std::chrono::microseconds(5'000 + random() % 45'000));
        REQUIRE(kill(viewer, SIGKILL) == 0);
        int status = 0;
        REQUIRE(waitpid(viewer, &status, 0) == viewer);
        REQUIRE(WIFSIGNALED(status)); // it was still printing

        const std::set<std::string> sent = sentLetters(world);
        Ledger ledger = world.open();
        REQUIRE(ledger.fault() == LedgerFault::none);
        checked = 0;
        for (const RunSummary &run : ledger.runs()) {
            const RunTexts texts = ledger.texts(run.id);
            const std::vector<LetterState> states = ledger.states(run.id);
            REQUIRE(texts.size() == kLetters);
            REQUIRE(run.letters == kLetters);
            for (std::size_t letter = 0; letter < kLetters; ++letter)
                if (states[letter] != LetterState::unprinted)
                    REQUIRE(sent.contains(std::string(texts.value(letter, column::patient))));
            checked += kLetters;
        }
    }
    CHECK(checked > 0);
}
