// What the form viewer reads beside form documents: letter files, lists of letters, run records and command scripts.

#include "fuzz/fuzz_input.h"
#include "suite_text/code_page_932.h"
#include "transfer/run_record.h"
#include "viewer/document/letter_numbers.h"
#include "viewer/letters/csv_reader.h"
#include "viewer/script/command_script.h"

#include <string>
#include <vector>

using namespace inin;
using namespace inin::viewer;
using inin::fuzz::require;

namespace {

/// The lines that are not empty, decoded, with U+FFFD for NUL.
std::vector<std::string> linesOf(std::string_view bytes)
{
    std::vector<std::string> lines;
    while (!bytes.empty()) {
        std::string_view line = fuzz::takePart(bytes);
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (line.empty()) continue;
        std::string text;
        for (const char c : decodeCp932(line)) text += c == '\0' ? std::string("\uFFFD") : std::string(1, c);
        lines.push_back(text);
    }
    return lines;
}

std::string rowText(const LetterTable &table, std::size_t row)
{
    if (table.fault(row) != RowFault::none) return std::string(table.rawText(row));
    std::string text;
    for (std::size_t column = 0; column < table.columns().size(); ++column)
        text.append(column == 0 ? "\"" : "\",\"").append(table.value(row, column));
    return text + '"';
}

void checkLetters(std::string_view input, TitleRow titles)
{
    const LetterTable table = readLetters(std::string(input), titles);
    const std::vector<std::string> lines = linesOf(input);
    const std::size_t first = titles == TitleRow::first ? 1 : 0;
    require(table.size() + first == lines.size(), "each line after the titles is one row");
    for (std::size_t row = 0; row < table.size(); ++row)
        require(rowText(table, row) == lines[row + first], "the values of a row make up its line");
    const std::string_view last = input.substr(input.rfind('\n') + 1);
    if (!last.empty() && last != "\r" && table.size() > 0)
        require(table.fault(table.size() - 1) == RowFault::cutOff, "a last line without its end counts as cut off");
}

void checkTitledLetters(std::string_view input)
{
    checkLetters(input, TitleRow::first);
}

void checkUntitledLetters(std::string_view input)
{
    checkLetters(input, TitleRow::none);
}

/// A character for the number of letters, then the list.
void checkLetterList(std::string_view input)
{
    constexpr std::size_t kLettersPerStep = 37;
    const std::size_t count = fuzz::takeChoice(input, 256) * kLettersPerStep;
    std::vector<std::size_t> letters = readLetterList(input, count);
    require(letters.size() <= count, "a list has no letter twice");
    const std::string written = letterListText(letters);
    std::ranges::sort(letters);
    require(std::ranges::adjacent_find(letters) == letters.end(), "a list has no letter twice");
    require(letters.empty() || letters.back() < count, "a list has only letters that exist");
    if (!letters.empty()) require(readLetterList(written, count) == letters, "a written list is read the same");
}

void checkRunRecord(std::string_view input)
{
    const auto record = readRunRecord(input);
    if (!record) return;
    const auto again = readRunRecord(runStartLines({"PC-1", "1"}) + runEndLines(*record));
    require(again && again->fileSize == record->fileSize && again->letters == record->letters,
            "a written record is read the same");
}

void checkCommandScript(std::string_view input)
{
    const CommandScript script = readCommandScript(input);
    const auto lines = static_cast<std::size_t>(std::ranges::count(input, '\n')) + 1;
    require(script.reports.size() <= lines + 1, "a line begins one report at most");
    require(script.notices.size() <= lines, "a line has one notice at most");
    std::size_t kept = script.title.size() + script.items.size();
    for (const ReportOrder &report : script.reports) {
        kept += report.form.size() + report.data.size();
        for (const DataSource &source : report.data) kept += source.name.size() + source.path.size();
    }
    for (const ItemText &item : script.items) kept += item.name.size() + item.text.size();
    require(kept <= 3 * input.size(), "what is kept of a script is part of it");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::runChoice(
        {checkTitledLetters, checkUntitledLetters, checkLetterList, checkRunRecord, checkCommandScript}, data, size);
}
