// What the ledger of letters reads: its file, also a damaged or foreign one, the texts inside it, and the codes that are
// scanned or typed.

#include "fuzz/fuzz_input.h"
#include "viewer/ledger/ledger_file.h"
#include "viewer/ledger/ledger_world.h"
#include "viewer/ledger/text_codec.h"

#include <filesystem>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;
using inin::fuzz::require;

namespace {

constexpr MonthRange kAllMonths{0, monthNumber(9999, 12)};

/// A ledger with a confirmed run of three letters, one of them returned.
std::string soundLedger()
{
    const LedgerWorld world;
    {
        Ledger ledger = world.open();
        const RunId run = LedgerWorld::print(ledger, runOf(3));
        PrintedLetter returned;
        returned.copies = {{run, 1}};
        require(ledger.setReturned({&returned, 1}, true, kPrintDay).has_value(), "a ledger in memory can be written");
    }
    return bytesOf(world.path);
}

/// Everything that the windows ask of a ledger, then a record.
void useLedger(const std::string &bytes)
{
    const LedgerWorld world;
    writeBytes(world.path, bytes);
    Ledger ledger = world.open();
    const TestRun next = runOf(2, kDecember);
    for (const RunSummary &run : ledger.runs()) {
        const std::size_t letters = ledger.states(run.id).size();
        // Damage that only the second question meets leaves its answer empty.
        require(ledger.returnTimes(run.id).size() == letters || !ledger.notice().empty(),
                "a letter has a state and a time of return, or a sentence names the damage");
        (void)ledger.texts(run.id);
        (void)ledger.openOutputs(run.id);
        (void)ledger.codeOf(run.id, 0);
    }
    (void)ledger.periods();
    for (const PrintedLetter &letter : ledger.printedLetters(kAllMonths))
        require(!letter.copies.empty(), "a printed letter is in a run");
    (void)ledger.printedAlready(next.mark, keysOf(next.texts));
    const auto recorded = ledger.recordRun(next.mark, next.texts, kPrintDay);
    require(recorded || !ledger.notice().empty(), "a run is recorded, or a sentence tells why not");
}

/// Three bytes each: a place in the file and its new value.
void checkDamagedFile(std::string_view input)
{
    static const std::string kSound = soundLedger();
    std::string bytes = kSound;
    for (; input.size() >= 3; input.remove_prefix(3)) {
        const auto high = static_cast<unsigned char>(input[0]), low = static_cast<unsigned char>(input[1]);
        bytes[(std::size_t{high} << 8U | low) * 7 % bytes.size()] = input[2];
    }
    useLedger(bytes);
}

void checkForeignFile(std::string_view input)
{
    useLedger(std::string(input));
}

/// A letter's bytes, after a run's first letter.
void checkStoredTexts(std::string_view input)
{
    for (const std::string &text : decodedList(input))
        require(text.size() <= input.size(), "a stored text is part of its bytes");
    const std::vector<std::string> texts{std::string(fuzz::takePart(input)), std::string(input), ""};
    require(decodedList(encodedList(texts)) == texts, "stored texts are read back");

    RunTexts run({"a", "b"});
    run.add("first");
    run.add("");
    addDecodedLetter(run, input);
    require(run.size() == 2, "damaged bytes are a letter, too");
    require(run.value(1, std::size_t{0}).size() <= input.size() + 5, "a stored text is part of its bytes");
    RunTexts again({"a", "b"});
    again.add("first");
    again.add("");
    addDecodedLetter(again, encodedLetter(run, 1));
    for (const std::size_t column : {0U, 1U})
        require(again.value(1, column) == run.value(1, column), "a stored letter is read back");
}

void checkCodes(std::string_view input)
{
    const auto code = readLetterCode(input);
    if (code) {
        require(readLetterCode(codeDigits(*code)) == code && readLetterCode(codeText(*code)) == code,
                "a written code is read the same");
        require(code->ledger >= kFirstLedger && code->ledger <= kLastLedger && code->letter >= 1 &&
                    code->letter <= kLastCodedLetter,
                "a code has numbers that a ledger gives");
    }
    const auto months = readMonthRange(input);
    require(!months || readMonthRange(monthRangeText(*months)) == months, "written months are read the same");
    (void)timeOf(input);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::runChoice({checkDamagedFile, checkForeignFile, checkStoredTexts, checkCodes}, data, size);
}
