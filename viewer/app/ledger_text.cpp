#include "viewer/app/ledger_text.h"

#include "viewer/ledger/ledger_file.h"
#include "viewer/ledger/table_line.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace inin::viewer {

namespace {

using Json = nlohmann::ordered_json;

using StateCounts = std::array<std::size_t, std::size(kLetterStates)>;
StateCounts countStates(const std::vector<LetterState> &states)
{
    StateCounts counts{};
    for (const LetterState state : states) ++counts[static_cast<std::size_t>(state)];
    return counts;
}

Json timeJson(const std::optional<Date> &time)
{
    return time ? Json(timeText(*time)) : Json();
}

Json runJson(const RunSummary &run)
{
    return {{"id", static_cast<std::int64_t>(run.id)},
            {"title", run.title},
            {"form", run.formName},
            {"period", monthRangeText(run.period)},
            {"recorded", timeText(run.recorded)},
            {"printed", timeJson(run.printed)},
            {"letters", run.letters}};
}

std::string codeOfLetter(Ledger &ledger, const LedgerLetter &letter)
{
    const std::optional<LetterCode> code = ledger.codeOf(letter.run, letter.letter);
    return code ? codeText(*code) : std::string();
}

std::string_view nameIn(const RunTexts &texts, std::size_t letter, std::string_view column)
{
    return texts.value(letter, texts.columnOf(column));
}

/// "3番　高松市　山田太郎"
std::string titleOf(const RunTexts &texts, std::size_t letter)
{
    return fmt::format("{}番　{}　{}", letter + 1, nameIn(texts, letter, "保険者名"),
                       nameIn(texts, letter, "利用者氏名"));
}

Json letterJson(const RunTexts &texts, std::size_t letter)
{
    return {{"number", letter + 1},
            {"insurer", nameIn(texts, letter, "保険者名")},
            {"patient", nameIn(texts, letter, "利用者氏名")}};
}

Json textsJson(const RunTexts &texts, std::size_t letter)
{
    Json fields = Json::object();
    for (std::size_t i = 0; i < texts.columns().size(); ++i) fields[texts.columns()[i]] = texts.value(letter, i);
    return fields;
}

constexpr std::string_view kLetterColumns[] = {"整理番号", "帳票", "期間", "番号", "状態", "記録", "印刷", "返送"};

/// A run with all that the export writes.
struct ExportedRun {
    RunSummary summary;
    RunTexts texts;
    std::vector<LetterState> states;
    std::vector<std::optional<Date>> returns;
    std::vector<std::string> codes;
    [[nodiscard]] std::size_t size() const
    {
        return std::min({texts.size(), states.size(), returns.size(), codes.size()});
    }
};

ExportedRun exportedRun(Ledger &ledger, const RunSummary &run)
{
    return {run, ledger.texts(run.id), ledger.states(run.id), ledger.returnTimes(run.id), ledger.codes(run.id)};
}

std::string csvOf(const ExportedRun &run, const std::vector<std::string> &columns)
{
    const std::string printed = run.summary.printed ? timeText(*run.summary.printed) : std::string();
    std::string lines;
    for (std::size_t letter = 0; letter < run.size(); ++letter) {
        TableLine line;
        const std::optional<Date> &back = run.returns[letter];
        for (const std::string &text :
             {run.codes[letter], run.summary.formName, monthRangeText(run.summary.period), std::to_string(letter + 1),
              std::string(wordsOf(run.states[letter]).text), timeText(run.summary.recorded), printed,
              back ? timeText(*back) : std::string()})
            line.add(text);
        for (const std::string &column : columns) line.add(run.texts.value(letter, run.texts.columnOf(column)));
        lines += line.end();
    }
    return lines;
}

} // namespace

std::string statusText(Ledger &ledger, const std::vector<RunSummary> &runs)
{
    std::string text = fmt::format("台帳「{}」（台帳番号 {}）\n", ledger.path(), ledger.number());
    if (runs.empty()) text += "記録はありません。\n";
    for (const RunSummary &run : runs) {
        text += fmt::format("{}　{}　{}　{}通：", run.printed ? timeText(*run.printed) : "未印刷", run.formName,
                            monthRangeText(run.period), run.letters);
        const StateCounts counts = countStates(ledger.states(run.id));
        for (std::size_t i = 0; i < counts.size(); ++i)
            text += fmt::format("{}{} {}", i == 0 ? "" : "、", kLetterStates[i].text, counts[i]);
        text += '\n';
    }
    return text;
}

Json statusJson(Ledger &ledger, const std::vector<RunSummary> &runs)
{
    Json list = Json::array();
    for (const RunSummary &run : runs) {
        Json entry = runJson(run);
        const StateCounts counts = countStates(ledger.states(run.id));
        for (std::size_t i = 0; i < counts.size(); ++i) entry["states"][kLetterStates[i].name] = counts[i];
        list.push_back(std::move(entry));
    }
    return {
        {"ledger", ledger.number()}, {"path", ledger.path()}, {"notice", ledger.notice()}, {"runs", std::move(list)}};
}

std::string differenceText(const LetterDifference &difference)
{
    if (!difference.earlier) return "比べられる印刷の記録がありません。\n";
    const RunComparison &found = difference.comparison;
    const RunSummary &earlier = *difference.earlier;
    // The time of the first output, because a later one may have been of some letters only.
    if (found.isSame()) return fmt::format("{} の{}通と同じ内容です。\n", timeText(earlier.recorded), earlier.letters);
    std::string text = fmt::format("前回（{}）から：新しい {}通、変わった {}通、なくなった {}通\n",
                                   timeText(earlier.printed.value_or(earlier.recorded)), found.added.size(),
                                   found.changed.size(), found.gone.size());
    for (const std::size_t letter : found.added) text += "新しい　" + titleOf(difference.now, letter) + '\n';
    for (const ChangedLetter &letter : found.changed) {
        text += "変わった　" + titleOf(difference.now, letter.now) + '\n';
        for (const ChangedField &field : letter.fields)
            text += fmt::format("　　{}：「{}」→「{}」\n", field.column, field.before, field.now);
    }
    for (const std::size_t letter : found.gone) text += "なくなった　" + titleOf(difference.before, letter) + '\n';
    return text;
}

Json differenceJson(const LetterDifference &difference)
{
    const RunComparison &found = difference.comparison;
    Json json = {{"earlier", difference.earlier ? runJson(*difference.earlier) : Json()},
                 {"added", Json::array()},
                 {"changed", Json::array()},
                 {"gone", Json::array()}};
    for (const std::size_t letter : found.added) json["added"].push_back(letterJson(difference.now, letter));
    for (const ChangedLetter &letter : found.changed) {
        Json entry = letterJson(difference.now, letter.now);
        entry["earlierNumber"] = letter.before + 1;
        for (const ChangedField &field : letter.fields)
            entry["fields"].push_back({{"column", field.column}, {"before", field.before}, {"now", field.now}});
        json["changed"].push_back(std::move(entry));
    }
    for (const std::size_t letter : found.gone) json["gone"].push_back(letterJson(difference.before, letter));
    return json;
}

std::string missingText(Ledger &ledger, const MissingLetters &missing)
{
    if (!missing.months) return "印刷の記録がありません。\n";
    std::string text = fmt::format("{}：印刷した {}通のうち {}通が戻っていません。\n", monthRangeText(*missing.months),
                                   missing.printed, missing.letters.size());
    for (const PrintedLetter &letter : missing.letters)
        text += fmt::format("{}　{}　{}　{}　{}\n", letter.insurer, letter.district, letter.patient,
                            timeText(letter.printed), codeOfLetter(ledger, letter.copies.front()));
    return text;
}

Json missingJson(Ledger &ledger, const MissingLetters &missing)
{
    Json list = Json::array();
    for (const PrintedLetter &letter : missing.letters)
        list.push_back({{"code", codeOfLetter(ledger, letter.copies.front())},
                        {"insurer", letter.insurer},
                        {"district", letter.district},
                        {"patient", letter.patient},
                        {"period", monthRangeText(letter.period)},
                        {"printed", timeText(letter.printed)},
                        {"state", wordsOf(letter.state).name}});
    return {{"period", missing.months ? Json(monthRangeText(*missing.months)) : Json()},
            {"printed", missing.printed},
            {"missing", std::move(list)}};
}

std::string exportCsv(Ledger &ledger)
{
    std::vector<ExportedRun> runs;
    std::vector<std::string> columns;
    for (const RunSummary &run : ledger.runs()) {
        runs.push_back(exportedRun(ledger, run));
        for (const std::string &column : runs.back().texts.columns())
            if (std::ranges::find(columns, column) == columns.end()) columns.push_back(column);
    }
    TableLine titles;
    for (const std::string_view column : kLetterColumns) titles.add(column);
    for (const std::string &column : columns) titles.add(column);
    std::string csv = std::string(kTableMark) + titles.end();
    for (const ExportedRun &run : runs) csv += csvOf(run, columns);
    return csv;
}

Json exportJson(Ledger &ledger)
{
    Json list = Json::array();
    for (const RunSummary &summary : ledger.runs()) {
        const ExportedRun run = exportedRun(ledger, summary);
        Json entry = runJson(summary), letters = Json::array();
        for (std::size_t letter = 0; letter < run.size(); ++letter)
            letters.push_back({{"number", letter + 1},
                               {"code", run.codes[letter]},
                               {"state", wordsOf(run.states[letter]).name},
                               {"returned", timeJson(run.returns[letter])},
                               {"texts", textsJson(run.texts, letter)}});
        entry["content"] = std::move(letters);
        list.push_back(std::move(entry));
    }
    return {{"ledger", ledger.number()}, {"runs", std::move(list)}};
}

} // namespace inin::viewer
