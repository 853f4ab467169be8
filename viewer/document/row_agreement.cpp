#include "viewer/document/row_agreement.h"

#include <algorithm>
#include <deque>
#include <string>
#include <unordered_map>

namespace inin::viewer {

namespace {

/// All values of a letter in one text. An unreadable row, which has no values, is compared by its text in the file.
std::string rowText(const LetterSet &set, std::size_t letter)
{
    const LetterSet::Place place = set.placeOf(letter);
    const LetterReport &report = set.reports[place.report];
    std::string text = std::to_string(place.report);
    const auto append = [&text](std::string_view value) { text.append(1, '\0').append(value); };
    append(report.letters.rawText(place.row));
    for (std::size_t column = 0; column < report.columns.size(); ++column) append(report.value(place.row, column));
    return text;
}

/// The letter of the same insurer and patient that is closest by its number.
std::optional<std::size_t> samePersonIn(const LetterSet &now, std::string_view insurer, std::string_view patient,
                                        std::size_t number)
{
    if (patient.empty()) return std::nullopt;
    const LetterNames names(now);
    const auto distance = [number](std::size_t letter) { return letter > number ? letter - number : number - letter; };
    std::optional<std::size_t> found;
    for (std::size_t letter = 0; letter < now.size(); ++letter)
        if (names.patient(letter) == patient && names.insurer(letter) == insurer &&
            (!found || distance(letter) < distance(*found)))
            found = letter;
    return found;
}

} // namespace

std::vector<std::optional<std::size_t>> sameRows(const LetterSet &before, const LetterSet &now)
{
    std::unordered_map<std::string, std::deque<std::size_t>> rows;
    for (std::size_t letter = 0; letter < before.size(); ++letter) rows[rowText(before, letter)].push_back(letter);
    std::vector<std::optional<std::size_t>> same(now.size());
    for (std::size_t letter = 0; letter < now.size(); ++letter) {
        const auto row = rows.find(rowText(now, letter));
        if (row == rows.end() || row->second.empty()) continue;
        same[letter] = row->second.front();
        row->second.pop_front();
    }
    return same;
}

KeptView keptView(const LetterSet &before, const LetterTicks &ticks, std::size_t letter, const LetterSet &now)
{
    const std::vector<std::optional<std::size_t>> same = sameRows(before, now);
    KeptView kept{LetterTicks(now.size()), 0, 0};
    for (std::size_t i = 0; i < same.size(); ++i) {
        if (same[i])
            kept.ticks.set(i, ticks.isTicked(*same[i]));
        else
            ++kept.newLetters;
    }
    const auto shown = std::ranges::find(same, std::optional(letter));
    const LetterNames names(before);
    const std::size_t nearest = std::min(letter, now.size() - 1);
    kept.letter = shown != same.end()
                      ? static_cast<std::size_t>(shown - same.begin())
                      : samePersonIn(now, names.insurer(letter), names.patient(letter), letter).value_or(nearest);
    return kept;
}

} // namespace inin::viewer
