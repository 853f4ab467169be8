#include "viewer/document/letter_order.h"

#include "viewer/document/folded_name.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace inin::viewer {

namespace {

std::string_view sortTextOf(const LetterNames &names, std::size_t letter, LetterSort sort)
{
    switch (sort) {
    case LetterSort::extraction:
        return {};
    case LetterSort::insurer:
        return names.insurer(letter);
    case LetterSort::district:
        return names.district(letter);
    case LetterSort::patient:
        return names.patient(letter);
    }
    return {};
}

} // namespace

const LetterSortText &textOf(LetterSort sort)
{
    return *std::ranges::find(kLetterSorts, sort, &LetterSortText::sort);
}

std::optional<LetterSort> letterSortNamed(std::string_view name)
{
    for (const LetterSortText &each : kLetterSorts)
        if (each.name == name) return each.sort;
    return std::nullopt;
}

std::u32string sortKeyOf(const LetterNames &names, std::size_t letter, LetterSort sort)
{
    return foldedName(sortTextOf(names, letter, sort));
}

std::vector<std::size_t> sortedLetters(const LetterNames &names, std::vector<std::size_t> letters, LetterSort sort)
{
    if (sort == LetterSort::extraction) return letters;
    std::vector<std::pair<std::u32string, std::size_t>> keys;
    keys.reserve(letters.size());
    for (const std::size_t letter : letters) keys.emplace_back(sortKeyOf(names, letter, sort), letter);
    std::ranges::stable_sort(keys, [](const auto &a, const auto &b) {
        if (a.first.empty() != b.first.empty()) return b.first.empty();
        return a.first < b.first;
    });
    std::ranges::transform(keys, letters.begin(), [](const auto &key) { return key.second; });
    return letters;
}

} // namespace inin::viewer
