#include "viewer/document/letter_bundles.h"

#include "viewer/document/bundle_cover.h"
#include "viewer/document/folded_name.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace inin::viewer {

namespace {

/// The different names among the letters' texts, in their order; blank texts count as no name.
std::string namesText(const LetterNames &names, const std::vector<std::size_t> &letters,
                      std::string_view (LetterNames::*textOf)(std::size_t) const)
{
    std::string_view first;
    std::vector<std::u32string> different;
    for (const std::size_t letter : letters) {
        const std::string_view text = (names.*textOf)(letter);
        std::u32string folded = foldedName(text);
        if (folded.empty() || std::ranges::find(different, folded) != different.end()) continue;
        if (different.empty()) first = text;
        different.push_back(std::move(folded));
    }
    return different.size() < 2 ? std::string(first) : fmt::format("{} ほか{}", first, different.size() - 1);
}

bool isBundled(LetterSort sort)
{
    return sort == LetterSort::insurer || sort == LetterSort::district;
}

std::vector<LetterBundle> bundlesOf(const LetterNames &names, const std::vector<std::size_t> &letters, LetterSort sort)
{
    std::vector<LetterBundle> bundles;
    std::u32string last;
    for (const std::size_t letter : letters) {
        std::u32string key = isBundled(sort) ? sortKeyOf(names, letter, sort) : std::u32string();
        if (bundles.empty() || key != last) bundles.emplace_back();
        bundles.back().letters.push_back(letter);
        last = std::move(key);
    }
    return bundles;
}

} // namespace

std::vector<std::size_t> LetterBundle::sheets() const
{
    std::vector<std::size_t> sheets = covers;
    sheets.insert(sheets.end(), letters.begin(), letters.end());
    return sheets;
}

std::vector<std::size_t> ArrangedLetters::sheets() const
{
    std::vector<std::size_t> sheets;
    for (const LetterBundle &bundle : bundles) {
        sheets.insert(sheets.end(), bundle.covers.begin(), bundle.covers.end());
        sheets.insert(sheets.end(), bundle.letters.begin(), bundle.letters.end());
    }
    return sheets;
}

ArrangedLetters arrangeLetters(const LetterSet &set, std::vector<std::size_t> letters,
                               const LetterArrangement &arrangement)
{
    const LetterNames names(set);
    ArrangedLetters arranged;
    arranged.bundles = bundlesOf(names, sortedLetters(names, std::move(letters), arrangement.sort), arrangement.sort);
    if (arrangement.hasCovers) arranged.covers = addCovers(set, names, arranged.bundles);
    return arranged;
}

std::vector<std::size_t> lettersAmong(const LetterSet &set, std::span<const std::size_t> sheets)
{
    std::vector<std::size_t> letters;
    std::ranges::copy_if(sheets, std::back_inserter(letters),
                         [end = set.size()](std::size_t sheet) { return sheet < end; });
    return letters;
}

std::size_t letterCount(const LetterSet &set, std::span<const std::size_t> sheets)
{
    const auto count = std::ranges::count_if(sheets, [end = set.size()](std::size_t sheet) { return sheet < end; });
    return static_cast<std::size_t>(count);
}

std::size_t sheetsOfJob(const LetterSet &set, std::span<const std::size_t> sheets, std::size_t letters,
                        LetterOrder order)
{
    const std::size_t end = set.size();
    std::size_t sheet = 0;
    for (std::size_t found = 0; sheet < sheets.size() && found < letters; ++sheet)
        if (sheets[sheet] < end) ++found;
    if (order == LetterOrder::reversed)
        while (sheet < sheets.size() && sheets[sheet] >= end) ++sheet;
    return sheet;
}

std::string insurersText(const LetterNames &names, const LetterBundle &bundle)
{
    return namesText(names, bundle.letters, &LetterNames::insurer);
}

std::string districtsText(const LetterNames &names, const LetterBundle &bundle)
{
    return namesText(names, bundle.letters, &LetterNames::district);
}

} // namespace inin::viewer
