#include "viewer/ledger/ledger.h"

#include "viewer/ledger/ledger_world.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

using enum LetterState;

std::vector<std::string> patientsOf(const std::vector<PrintedLetter> &letters)
{
    std::vector<std::string> patients;
    patients.reserve(letters.size());
    for (const PrintedLetter &letter : letters) patients.push_back(letter.patient);
    return patients;
}

} // namespace

TEST_CASE("a run is kept with all its texts")
{
    const LedgerWorld world;
    const TestRun run = runOfRows({textRow("山田"), textRow("鈴木"), TextRow(20, ""), textRow("\"佐,藤\"")});
    RunId id{};
    {
        Ledger ledger = world.open();
        id = ledger.recordRun(run.mark, run.texts, kPrintDay).value();
        CHECK(ledger.fault() == LedgerFault::none);
        CHECK(ledger.notice().empty());
    }
    Ledger ledger = world.open();
    const RunTexts kept = ledger.texts(id);
    REQUIRE(kept.size() == 4);
    CHECK(kept.columns() == run.texts.columns());
    for (std::size_t letter = 0; letter < 4; ++letter)
        for (std::size_t i = 0; i < kept.columns().size(); ++i)
            CHECK(kept.value(letter, i) == run.texts.value(letter, i));
    const RunSummary summary = ledger.run(id).value();
    CHECK(summary.title == "委任状");
    CHECK(summary.formName == "委任状37_01.wfd");
    CHECK(summary.letters == 4);
    CHECK(summary.period == kNovember);
    CHECK(summary.recorded == kPrintDay);
    CHECK(!summary.printed);
}

TEST_CASE("the same files are the same run")
{
    const LedgerWorld world;
    Ledger ledger = world.open();
    const TestRun run = runOf(3);
    CHECK(!ledger.findRun(run.mark));
    const RunId id = ledger.recordRun(run.mark, run.texts, kPrintDay).value();
    CHECK(ledger.recordRun(run.mark, run.texts, moment("2026-11-21 9:00:00")) == id);
    CHECK(ledger.findRun(run.mark).value().id == id);
    CHECK(ledger.runs().size() == 1);
    const TestRun other = runOf(4);
    CHECK(ledger.recordRun(other.mark, other.texts, kPrintDay) != id);
    CHECK(ledger.runs().size() == 2);
}

TEST_CASE("a letter is unprinted, sent and confirmed, and each job counts when it was accepted")
{
    const LedgerWorld world;
    Ledger ledger = world.open();
    const TestRun run = runOf(4);
    const RunId id = ledger.recordRun(run.mark, run.texts, kPrintDay).value();
    CHECK(ledger.states(id) == std::vector<LetterState>(4, unprinted));
    const std::optional<OutputId> output = ledger.recordOutput(id, printJob({0, 1}));
    REQUIRE(output);
    CHECK(ledger.states(id) == std::vector{sent, sent, unprinted, unprinted});
    CHECK(ledger.recordOutput(id, printJob({2}), output) == output);
    CHECK(ledger.states(id) == std::vector{sent, sent, sent, unprinted});
    REQUIRE(ledger.openOutputs(id).size() == 1);
    const OpenOutput open = ledger.openOutputs(id)[0];
    CHECK(open.letters == std::vector<std::size_t>{0, 1, 2});
    CHECK(open.printer == "受付のプリンター");
    CHECK(open.queueNumbers == std::vector<std::string>{"117", "117"});
    CHECK(open.time == kPrintDay);

    CHECK(ledger.confirmAll(*output));

    CHECK(ledger.states(id) == std::vector{onPaper, onPaper, onPaper, unprinted});
    CHECK(ledger.openOutputs(id).empty());
}

TEST_CASE("after a paper jam the letters up to the last good sheet are confirmed and the others are unprinted")
{
    const LedgerWorld world;
    Ledger ledger = world.open();
    const TestRun run = runOf(5);
    const RunId id = ledger.recordRun(run.mark, run.texts, kPrintDay).value();
    const OutputId reversed = ledger.recordOutput(id, printJob({4, 3, 2, 1, 0})).value();

    CHECK(ledger.confirmUpTo(reversed, 3) == std::vector<std::size_t>{2, 1, 0});

    CHECK(ledger.states(id) == std::vector{unprinted, unprinted, unprinted, onPaper, onPaper});
    const OutputId rest = ledger.recordOutput(id, printJob({2, 1, 0})).value();
    CHECK(ledger.confirmNone(rest));
    CHECK(ledger.states(id) == std::vector{unprinted, unprinted, unprinted, onPaper, onPaper});
    CHECK(ledger.openOutputs(id).empty());
}

TEST_CASE("a letter that was good in an earlier print stays confirmed when its second print jams")
{
    const LedgerWorld world;
    Ledger ledger = world.open();
    const RunId id = LedgerWorld::print(ledger, runOf(2));
    const OutputId again = ledger.recordOutput(id, printJob({0, 1})).value();
    CHECK(ledger.states(id) == std::vector{onPaper, onPaper});
    CHECK(ledger.confirmNone(again));
    CHECK(ledger.states(id) == std::vector{onPaper, onPaper});
}

TEST_CASE("an answer for an unknown letter or output is not recorded")
{
    const LedgerWorld world;
    Ledger ledger = world.open();
    const TestRun run = runOf(3);
    const RunId id = ledger.recordRun(run.mark, run.texts, kPrintDay).value();
    const OutputId output = ledger.recordOutput(id, printJob({0, 1})).value();
    CHECK(!ledger.confirmUpTo(output, 2));
    CHECK(!ledger.confirmAll(OutputId{99}));
    CHECK(!ledger.confirmNone(OutputId{99}));
    CHECK(!ledger.recordOutput(RunId{99}, printJob({0})));
    CHECK(!ledger.recordOutput(id, printJob({3})));
    CHECK(!ledger.recordOutput(id, printJob({})));
    CHECK(ledger.states(id) == std::vector{sent, sent, unprinted});
}

TEST_CASE("saved files are recorded but are not on paper")
{
    const LedgerWorld world;
    Ledger ledger = world.open();
    const TestRun run = runOf(2);
    const RunId id = ledger.recordRun(run.mark, run.texts, kPrintDay).value();
    CHECK(ledger.recordOutput(id, {OutputKind::pdf, "", "", {0, 1}, kPrintDay}));
    CHECK(ledger.states(id) == std::vector{unprinted, unprinted});
    CHECK(ledger.openOutputs(id).empty());
    CHECK(!ledger.run(id)->printed);
}

TEST_CASE("the earlier runs are those that were printed with the same form, the last print first")
{
    const LedgerWorld world;
    Ledger ledger = world.open();
    const TestRun now = runOf(5, kDecember), first = runOf(3), second = runOf(4), saved = runOf(6);
    const TestRun other = runOfRows({textRow("山田")}, kNovember, "委任状23.wfd");
    const RunId a = LedgerWorld::print(ledger, first), b = LedgerWorld::print(ledger, second);
    LedgerWorld::print(ledger, other);
    LedgerWorld::print(ledger, now);
    REQUIRE(ledger.recordRun(saved.mark, saved.texts, kPrintDay));
    const auto ids = [&] {
        std::vector<RunId> found;
        for (const RunSummary &run : ledger.earlierRuns(now.mark)) found.push_back(run.id);
        return found;
    };
    CHECK(ids() == std::vector{b, a});
    // A clock that is set back does not change the order of the prints.
    LedgerWorld::print(ledger, first, moment("2020-01-01 8:00:00"));
    CHECK(ids() == std::vector{a, b});
    CHECK(ledger.earlierRuns(now.mark)[0].printed == moment("2020-01-01 8:00:00"));
}

TEST_CASE("persons with a printed letter of an overlapping period are found")
{
    const LedgerWorld world;
    Ledger ledger = world.open();
    const TestRun before = runOfRows({textRow("山田"), textRow("鈴木"), textRow("佐藤")});
    const RunId id = ledger.recordRun(before.mark, before.texts, kPrintDay).value();
    REQUIRE(ledger.recordOutput(id, printJob({0, 1})));
    const std::vector<TextRow> rows = {textRow("高橋"), textRow("佐藤"), textRow("山田"), textRow("鈴　木")};
    const auto found = [&](const MonthRange &period) {
        const TestRun now = runOfRows(rows, period);
        return ledger.printedAlready(now.mark, keysOf(now.texts));
    };
    CHECK(found(kNovember) == std::vector<std::size_t>{2, 3});
    CHECK(found({kNovember.first - 2, kNovember.first}) == std::vector<std::size_t>{2, 3});
    CHECK(found(kDecember).empty());
    CHECK(ledger.printedAlready(before.mark, keysOf(before.texts)) == std::vector<std::size_t>{0, 1});
}

TEST_CASE("the codes of a run are consecutive and are never used again")
{
    const LedgerWorld world;
    Ledger ledger = world.open();
    const RunId first = LedgerWorld::print(ledger, runOf(3));
    const LetterCode code = ledger.codeOf(first, 0).value();
    CHECK(code.ledger == ledger.number());
    CHECK(ledger.codeOf(first, 2) == LetterCode{code.ledger, code.letter + 2});
    CHECK(!ledger.codeOf(first, 3));
    CHECK(!ledger.codeOf(RunId{99}, 0));
    REQUIRE(ledger.erase());
    const RunId second = LedgerWorld::print(ledger, runOf(2));
    CHECK(second != first);
    CHECK(ledger.codeOf(second, 0) == LetterCode{code.ledger, code.letter + 3});
}

TEST_CASE("a returned letter is marked by its code once")
{
    const LedgerWorld world;
    Ledger ledger = world.open();
    const RunId id = LedgerWorld::print(ledger, runOf(3));
    const std::vector<std::string> codes = {codeText(ledger.codeOf(id, 1).value()),
                                            codeDigits(ledger.codeOf(id, 2).value()),
                                            codeDigits(ledger.codeOf(id, 1).value())};
    const std::vector<ReturnedCode> results = ledger.markReturned(codes, kPrintDay);
    REQUIRE(results.size() == 3);
    CHECK(results[0].result == CodeResult::marked);
    CHECK(results[0].letter == LedgerLetter{id, 1});
    CHECK(results[0].patient == "利用者2");
    CHECK(results[0].insurer == "高松市");
    CHECK(results[1].patient == "利用者3");
    CHECK(results[2].result == CodeResult::already);
    CHECK(ledger.states(id) == std::vector{onPaper, returned, returned});
}

TEST_CASE("a code that is misread, of another ledger or of a deleted run marks nothing")
{
    const LedgerWorld world, elsewhere;
    Ledger ledger = world.open(), other = elsewhere.open();
    const RunId id = LedgerWorld::print(ledger, runOf(1));
    LetterCode code = ledger.codeOf(id, 0).value();
    LedgerWorld::print(ledger, runOf(1, kDecember));
    const auto resultOf = [&](const std::string &text) {
        return ledger.markReturned(std::vector{text}, kPrintDay).at(0).result;
    };
    CHECK(resultOf("山田") == CodeResult::unreadable);
    CHECK(resultOf(codeDigits({code.ledger == kLastLedger ? kFirstLedger : code.ledger + 1, code.letter})) ==
          CodeResult::otherLedger);
    CHECK(resultOf(codeDigits({code.ledger, 1000})) == CodeResult::unknown);
    REQUIRE(ledger.erase());
    CHECK(resultOf(codeDigits(code)) == CodeResult::unknown);
}

TEST_CASE("the list of returns has each printed letter of the months once, by insurer and patient")
{
    const LedgerWorld world;
    Ledger ledger = world.open();
    TextRow suzuki = textRow("すずき"), abe = textRow("あべ"), marugame = textRow("いとう");
    marugame[column::insurer] = "あ市";
    const RunId first = LedgerWorld::print(ledger, runOfRows({suzuki, abe}));
    // The same letters again with another account, and a third one.
    abe[column::account] = "(普) 9";
    const RunId second = LedgerWorld::print(ledger, runOfRows({abe, suzuki, marugame}));
    LedgerWorld::print(ledger, runOfRows({textRow("すずき", "2026/12")}, kDecember));

    std::vector<PrintedLetter> letters = ledger.printedLetters(kNovember);
    CHECK(patientsOf(letters) == std::vector<std::string>{"いとう", "あべ", "すずき"});
    CHECK(letters[1].copies == std::vector<LedgerLetter>{{second, 0}, {first, 1}});
    CHECK(letters[1].state == onPaper);
    CHECK(letters[1].period == kNovember);
    CHECK(ledger.printedLetters({kNovember.first, kDecember.last}).size() == 4);
    CHECK(ledger.periods() == std::vector{kDecember, kNovember});

    // The first copy comes back: the letter is not outstanding any more.
    const std::string code = codeText(ledger.codeOf(first, 1).value());
    CHECK(ledger.markReturned(std::vector{code}, moment("2026-12-01 9:00:00"))[0].result == CodeResult::marked);
    letters = ledger.printedLetters(kNovember);
    CHECK(letters[1].state == returned);
    CHECK(letters[1].returned == moment("2026-12-01 9:00:00"));
    CHECK(ledger.setReturned(std::span(letters).subspan(1, 1), false, kPrintDay) == std::vector{onPaper});
    CHECK(ledger.printedLetters(kNovember)[1].state == onPaper);
}

TEST_CASE("a letter that is unticked is again what it was before it came back")
{
    const LedgerWorld world;
    Ledger ledger = world.open();
    const TestRun run = runOf(2);
    const RunId id = ledger.recordRun(run.mark, run.texts, kPrintDay).value();
    (void)ledger.recordOutput(id, printJob({0})); // the sheet is not confirmed
    CHECK(ledger.setReturned(printedLetter(id, 0), true, kPrintDay) == std::vector{returned});
    CHECK(ledger.setReturned(printedLetter(id, 0), false, kPrintDay) == std::vector{sent});
    CHECK(ledger.setReturned(printedLetter(RunId{99}, 0), true, kPrintDay) == std::vector{unprinted});
}

TEST_CASE("runs are deleted when their months are over")
{
    const LedgerWorld world;
    const TestRun old = runOf(2), young = runOf(3);
    {
        Ledger ledger = world.open();
        LedgerWorld::print(ledger, old, moment("2024-11-19 10:00:00"));
        LedgerWorld::print(ledger, young, moment("2024-11-20 10:00:00"));
        CHECK(ledger.runs().size() == 2);
    }
    Ledger ledger = world.open(moment("2026-11-20 8:00:00"), 24);
    CHECK(!ledger.findRun(old.mark));
    CHECK(ledger.findRun(young.mark));
    Ledger shorter = world.open(moment("2026-11-20 8:00:00"), 0); // one month at least
    CHECK(shorter.runs().empty());
}

TEST_CASE("a run that is printed again is kept from then on")
{
    const LedgerWorld world;
    {
        Ledger ledger = world.open();
        const RunId id = LedgerWorld::print(ledger, runOf(2), moment("2024-10-01 10:00:00"));
        REQUIRE(ledger.recordOutput(id, printJob({0}, moment("2026-10-01 10:00:00"))));
    }
    CHECK(world.open().runs().size() == 1);
}

TEST_CASE("a clock that was set back deletes nothing, then or later")
{
    const LedgerWorld world;
    const TestRun before = runOf(2), wrong = runOf(3);
    {
        Ledger ledger = world.open();
        LedgerWorld::print(ledger, before);
    }
    {
        Ledger ledger = world.open(moment("2001-01-01 0:00:00"));
        CHECK(ledger.runs().size() == 1);
        LedgerWorld::print(ledger, wrong, moment("2001-01-01 0:05:00"));
    }
    Ledger ledger = world.open(moment("2026-11-21 8:00:00"));
    CHECK(ledger.findRun(before.mark));
    CHECK(ledger.findRun(wrong.mark));
}

TEST_CASE("erasing leaves no text of a letter in the file")
{
    const LedgerWorld world;
    Ledger ledger = world.open();
    LedgerWorld::print(ledger, runOfRows({textRow("消える人の名前")}));
    CHECK(world.folder.bytes("台帳.db").find("消える人の名前") != std::string::npos);
    CHECK(ledger.erase());
    CHECK(ledger.runs().empty());
    CHECK(world.folder.bytes("台帳.db").find("消える人の名前") == std::string::npos);
    CHECK(world.folder.entries() == 1);
}
