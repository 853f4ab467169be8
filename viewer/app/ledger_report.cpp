#include "viewer/app/ledger_report.h"

#include "system/local_time.h"
#include "system/program_edges.h"
#include "viewer/app/ledger_text.h"
#include "viewer/app/toolkit.h"
#include "viewer/document/letter_opener.h"
#include "viewer/ledger/ledger_place.h"

#include <algorithm>
#include <cstdio>

namespace inin::viewer {

namespace {

std::string printed(const nlohmann::ordered_json &json)
{
    constexpr int kIndent = 2;
    // A damaged text may contain invalid bytes.
    return json.dump(kIndent, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

LedgerReport statusOf(Ledger &ledger, const LedgerCommand &command)
{
    std::vector<RunSummary> runs = ledger.runs();
    if (!command.script.empty()) {
        const RunMark mark = markOf(openScript(command.script));
        std::erase_if(runs, [&](const RunSummary &run) {
            return run.csvFingerprint != mark.csvFingerprint || run.formFingerprint != mark.formFingerprint;
        });
    }
    return {command.json ? printed(statusJson(ledger, runs)) : statusText(ledger, runs), 0};
}

/// The run to compare with: the same files if they were printed, otherwise the last print of the form.
std::optional<RunSummary> comparedRun(Ledger &ledger, const RunMark &mark)
{
    std::optional<RunSummary> same = ledger.findRun(mark);
    if (same && same->printed) return same;
    const std::vector<RunSummary> earlier = ledger.earlierRuns(mark);
    return earlier.empty() ? std::nullopt : std::optional(earlier.front());
}

LedgerReport differenceOf(Ledger &ledger, const LedgerCommand &command)
{
    const LetterSet set = openScript(command.script);
    LetterDifference difference{comparedRun(ledger, markOf(set)), {}, {}, textsOf(set)};
    if (difference.earlier) {
        difference.before = ledger.texts(difference.earlier->id);
        difference.comparison = compareRuns(difference.before, difference.now);
    }
    return {command.json ? printed(differenceJson(difference)) : differenceText(difference),
            difference.comparison.isSame() ? 0 : kLettersFound};
}

LedgerReport missingOf(Ledger &ledger, const LedgerCommand &command)
{
    const std::vector<MonthRange> periods = ledger.periods();
    std::optional<MonthRange> months = command.months;
    if (!months && !periods.empty()) months = periods.front();
    std::vector<PrintedLetter> letters = months ? ledger.printedLetters(*months) : std::vector<PrintedLetter>();
    const std::size_t all = letters.size();
    std::erase_if(letters, [](const PrintedLetter &letter) { return letter.state == LetterState::returned; });
    const MissingLetters missing{months, all, std::move(letters)};
    return {command.json ? printed(missingJson(ledger, missing)) : missingText(ledger, missing),
            missing.letters.empty() ? 0 : kLettersFound};
}

} // namespace

LedgerReport reportOf(Ledger &ledger, const LedgerCommand &command)
{
    if (!ledger.isReadable()) return {{}, kLedgerUnreadable};
    switch (command.question) {
    case LedgerQuestion::status:
        return statusOf(ledger, command);
    case LedgerQuestion::diff:
        return differenceOf(ledger, command);
    case LedgerQuestion::missing:
        return missingOf(ledger, command);
    case LedgerQuestion::exportAll:
        return {command.json ? printed(exportJson(ledger)) : exportCsv(ledger), 0};
    }
    return {};
}

Ledger operatorLedger()
{
    const LedgerSettings settings = ledgerSettings();
    return {ledgerPath(environmentText("ININ_LEDGER"), settings, operatorDataFolder(environmentText)), settings.months,
            presentMoment()};
}

int printLedgerReport(const LedgerCommand &command)
{
    Ledger ledger = operatorLedger();
    const LedgerReport report = reportOf(ledger, command);
    if (ledger.fault() == LedgerFault::off)
        printLine(stderr, "台帳は使わない設定になっています。");
    else if (!ledger.notice().empty())
        printLine(stderr, ledger.notice());
    printText(stdout, report.text);
    // A query may have found damage.
    return ledger.isReadable() ? report.exitCode : kLedgerUnreadable;
}

} // namespace inin::viewer
