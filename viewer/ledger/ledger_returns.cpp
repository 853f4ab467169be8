#include "suite_text/japanese_text.h"
#include "viewer/ledger/ledger_file.h"
#include "viewer/ledger/ledger_operations.h"
#include "viewer/ledger/ledger_rows.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace inin::viewer {

namespace {

/// A run that was printed, with what its letters became.
struct PrintedRun {
    RunSummary summary;
    RunTexts texts;
    std::vector<LetterKey> keys;
    std::vector<LetterState> states;
    std::vector<std::optional<Date>> returns;
};

PrintedRun readPrintedRun(LedgerDatabase &database, const RunSummary &run)
{
    PrintedRun printed{run, readTexts(database, run.id), readKeys(database, run.id),
                       readStates(database, run.id, run.letters), readReturns(database, run.id, run.letters)};
    const std::size_t count = std::min({run.letters, printed.texts.size(), printed.keys.size()});
    printed.states.resize(count);
    return printed;
}

/// Collects the printed letters of several runs, the run printed last first.
class PrintedLetters {
public:
    void add(const PrintedRun &run)
    {
        std::vector<std::size_t> letters, sameMonths; // numbers in the run, places in the list
        for (std::size_t letter = 0; letter < run.states.size(); ++letter)
            if (run.states[letter] != LetterState::unprinted) letters.push_back(letter);
        for (std::size_t place = 0; place < m_list.size(); ++place)
            if (m_list[place].period == run.summary.period && m_keys[place].person != 0) sameMonths.push_back(place);
        std::vector<LetterKey> keys, listed;
        for (const std::size_t letter : letters) keys.push_back(run.keys[letter]);
        for (const std::size_t place : sameMonths) listed.push_back(m_keys[place]);
        const auto copies = sameLettersBefore(listed, keys);
        for (std::size_t i = 0; i < letters.size(); ++i) {
            if (copies[i])
                addCopy(m_list[sameMonths[*copies[i]]], run, letters[i]);
            else
                addNew(run, letters[i]);
        }
    }
    [[nodiscard]] std::vector<PrintedLetter> take()
    {
        std::ranges::stable_sort(m_list, [](const PrintedLetter &a, const PrintedLetter &b) {
            const int byInsurer = compareJapanese(a.insurer, b.insurer);
            if (byInsurer != 0) return byInsurer < 0;
            const int byDistrict = compareJapanese(a.district, b.district);
            if (byDistrict != 0) return byDistrict < 0;
            return compareJapanese(a.patient, b.patient) < 0;
        });
        return std::move(m_list);
    }

private:
    static void addCopy(PrintedLetter &listed, const PrintedRun &run, std::size_t letter)
    {
        listed.copies.push_back({run.summary.id, letter});
        if (run.states[letter] != LetterState::returned || listed.state == LetterState::returned) return;
        listed.state = LetterState::returned;
        listed.returned = run.returns[letter];
    }

    void addNew(const PrintedRun &run, std::size_t letter)
    {
        const auto text = [&](std::string_view column) {
            return std::string(run.texts.value(letter, run.texts.columnOf(column)));
        };
        PrintedLetter added;
        added.copies = {{run.summary.id, letter}};
        added.insurer = text("保険者名");
        added.district = text("保険者地区名");
        added.patient = text("利用者氏名");
        added.address = text("利用者住所");
        added.period = run.summary.period;
        added.state = run.states[letter];
        added.printed = run.summary.printed.value_or(run.summary.recorded);
        added.returned = run.returns[letter];
        m_list.push_back(std::move(added));
        m_keys.push_back(run.keys[letter]);
    }

    std::vector<PrintedLetter> m_list;
    std::vector<LetterKey> m_keys; ///< of each listed letter
};

std::vector<PrintedLetter> lettersOf(LedgerDatabase &database, const MonthRange &months)
{
    PrintedLetters letters;
    for (const StoredRun &run : readRuns(database))
        if (run.summary.period.overlaps(months)) letters.add(readPrintedRun(database, run.summary));
    return letters.take();
}

/// False if the letter was ticked before.
bool markReturn(LedgerDatabase &database, const LedgerLetter &letter, Date now)
{
    const std::string time = timeText(now);
    LedgerStatement(database, "INSERT OR IGNORE INTO returned SELECT id, ?, ? FROM run WHERE id = ? AND letters > ?")
        .bind(rowNumber(letter.letter), time, rowNumber(letter.run), rowNumber(letter.letter))
        .run();
    return database.changes() > 0;
}

/// The states of letters whose copies are all returned, or none of them: that of the copy printed last.
std::vector<LetterState> statesOf(LedgerDatabase &database, std::span<const PrintedLetter> letters)
{
    std::map<RunId, std::vector<LetterState>> ofRuns;
    std::vector<LetterState> states;
    for (const PrintedLetter &letter : letters) {
        const LedgerLetter &last = letter.copies.front();
        const auto [place, isNew] = ofRuns.try_emplace(last.run);
        const std::optional<StoredRun> run = isNew ? readRun(database, last.run) : std::nullopt;
        if (run) place->second = readStates(database, last.run, run->summary.letters);
        const std::vector<LetterState> &ofRun = place->second;
        states.push_back(last.letter < ofRun.size() ? ofRun[last.letter] : LetterState::unprinted);
    }
    return states;
}

/// The letter of a number in the ledger.
std::optional<LedgerLetter> letterNumbered(LedgerDatabase &database, std::int64_t number)
{
    LedgerStatement rows(database,
                         "SELECT id, ? - first_letter FROM run WHERE ? - first_letter BETWEEN 0 AND letters - 1");
    if (!rows.bind(number, number).step()) return std::nullopt;
    return LedgerLetter{RunId{rows.integer(0)}, static_cast<std::size_t>(rows.integer(1))};
}

} // namespace

std::vector<MonthRange> Ledger::periods()
{
    std::vector<MonthRange> periods;
    for (const RunSummary &run : runs())
        if (run.printed && std::ranges::find(periods, run.period) == periods.end()) periods.push_back(run.period);
    std::ranges::sort(periods, std::greater<>(),
                      [](const MonthRange &months) { return std::tuple(months.last, months.first); });
    return periods;
}

std::vector<PrintedLetter> Ledger::printedLetters(const MonthRange &months)
{
    return query(std::vector<PrintedLetter>(), [&](LedgerDatabase &database) { return lettersOf(database, months); });
}

std::optional<std::vector<LetterState>> Ledger::setReturned(std::span<const PrintedLetter> letters, bool isReturned,
                                                            Date now)
{
    using States = std::optional<std::vector<LetterState>>;
    return change(States(), [&](LedgerDatabase &database) -> States {
        LedgerStatement unmark(database, "DELETE FROM returned WHERE run = ? AND letter = ?");
        for (const PrintedLetter &letter : letters)
            for (const LedgerLetter &copy : letter.copies) {
                if (isReturned)
                    (void)markReturn(database, copy, now);
                else
                    unmark.bind(rowNumber(copy.run), rowNumber(copy.letter)).run();
            }
        return statesOf(database, letters);
    });
}

ReturnedCode Ledger::markCoded(LedgerDatabase &database, std::string_view text, Date now) const
{
    const std::optional<LetterCode> code = readLetterCode(text);
    if (!code) return {CodeResult::unreadable, {}, {}, {}};
    if (code->ledger != m_number) return {CodeResult::otherLedger, {}, {}, {}};
    const std::optional<LedgerLetter> letter = letterNumbered(database, code->letter);
    if (!letter) return {CodeResult::unknown, {}, {}, {}};
    const bool isNew = markReturn(database, *letter, now);
    const RunTexts texts = readTexts(database, *letter);
    ReturnedCode result{isNew ? CodeResult::marked : CodeResult::already, letter, {}, {}};
    if (texts.size() == 0) return result;
    const std::size_t last = texts.size() - 1;
    result.insurer = texts.value(last, texts.columnOf("保険者名"));
    result.patient = texts.value(last, texts.columnOf("利用者氏名"));
    return result;
}

std::vector<ReturnedCode> Ledger::markReturned(std::span<const std::string> codes, Date now)
{
    const ReturnedCode lost{CodeResult::notRecorded, {}, {}, {}};
    return change(std::vector<ReturnedCode>(codes.size(), lost), [&](LedgerDatabase &database) {
        std::vector<ReturnedCode> results;
        for (const std::string &code : codes) results.push_back(markCoded(database, code, now));
        return results;
    });
}

} // namespace inin::viewer
