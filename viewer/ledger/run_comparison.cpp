#include "viewer/ledger/run_comparison.h"

#include "viewer/ledger/letter_identity.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

namespace inin::viewer {

namespace {

using PeriodTexts = std::pair<std::string_view, std::string_view>;

/// The period of most letters.
PeriodTexts usualPeriod(const RunTexts &texts)
{
    const auto start = texts.columnOf("対象開始日"), end = texts.columnOf("対象終了日");
    std::map<PeriodTexts, std::size_t> counts{{PeriodTexts(), 0}}; // the result for a run without letters
    for (std::size_t letter = 0; letter < texts.size(); ++letter)
        ++counts[{texts.value(letter, start), texts.value(letter, end)}];
    return std::ranges::max_element(counts, {}, [](const auto &entry) { return entry.second; })->first;
}

/// A column of both runs.
struct SharedColumn {
    std::size_t before = 0, now = 0;
};

std::vector<SharedColumn> comparedColumns(const RunTexts &before, const RunTexts &now)
{
    const bool isSamePeriod = usualPeriod(before) == usualPeriod(now);
    std::vector<SharedColumn> shared;
    for (std::size_t column = 0; column < now.columns().size(); ++column) {
        const std::string &name = now.columns()[column];
        const auto earlier = before.columnOf(name);
        if (earlier && (isSamePeriod || !isMonthlyColumn(name))) shared.push_back({*earlier, column});
    }
    return shared;
}

} // namespace

RunComparison compareRuns(const RunTexts &before, const RunTexts &now)
{
    RunComparison result;
    result.before = sameLettersBefore(keysOf(before), keysOf(now));
    const std::vector<SharedColumn> columns = comparedColumns(before, now);
    std::vector<bool> isFound(before.size());
    for (std::size_t letter = 0; letter < now.size(); ++letter) {
        if (!result.before[letter]) {
            result.added.push_back(letter);
            continue;
        }
        ChangedLetter change{*result.before[letter], letter, {}};
        isFound[change.before] = true;
        for (const SharedColumn &column : columns) {
            const std::string_view old = before.value(change.before, column.before),
                                   text = now.value(letter, column.now);
            if (old != text) change.fields.push_back({now.columns()[column.now], std::string(old), std::string(text)});
        }
        if (!change.fields.empty()) result.changed.push_back(std::move(change));
    }
    for (std::size_t letter = 0; letter < before.size(); ++letter)
        if (!isFound[letter]) result.gone.push_back(letter);
    return result;
}

} // namespace inin::viewer
