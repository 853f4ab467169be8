#pragma once

#include "viewer/document/letter_order.h"
#include "viewer/document/letter_set.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace inin::viewer {

// An output consists of sheets: letters, and before each bundle of letters the pages of its cover. Letters are counted as
// in their set; the covers' pages are counted on from there, as rows of a report of their own.

/// How the letters of an output are ordered, and whether each bundle gets a cover.
struct LetterArrangement {
    LetterSort sort = LetterSort::extraction;
    bool hasCovers = false;
    friend bool operator==(const LetterArrangement &, const LetterArrangement &) = default;
};

/// Letters with the same insurer, or the same district if they are sorted by it. In the other orders all letters are one
/// bundle.
struct LetterBundle {
    std::vector<std::size_t> letters;
    std::vector<std::size_t> covers; ///< the pages of its cover
    [[nodiscard]] std::vector<std::size_t> sheets() const;
};

struct ArrangedLetters {
    std::vector<LetterBundle> bundles;
    std::optional<LetterReport> covers; ///< each row is a page
    /// All sheets in their order.
    [[nodiscard]] std::vector<std::size_t> sheets() const;
};

/// Sorts and bundles letters. The covers are filled in the site's own form if "束の表紙.wfd" is in the folder of the letters'
/// form, otherwise in the built-in one. Throws a RuntimeError with a sentence that names a form which cannot be used.
[[nodiscard]] ArrangedLetters arrangeLetters(const LetterSet &set, std::vector<std::size_t> letters,
                                             const LetterArrangement &arrangement);

/// The letters among some sheets, and their number.
[[nodiscard]] std::vector<std::size_t> lettersAmong(const LetterSet &set, std::span<const std::size_t> sheets);
[[nodiscard]] std::size_t letterCount(const LetterSet &set, std::span<const std::size_t> sheets);

/// How many of the sheets a job of at most `letters` letters prints. A cover is in the job of its bundle's first letter,
/// which comes after it, or before it in the reversed order.
[[nodiscard]] std::size_t sheetsOfJob(const LetterSet &set, std::span<const std::size_t> sheets, std::size_t letters,
                                      LetterOrder order);

/// The insurers, or the districts, of a bundle: "高松市", or "高松市 ほか2".
[[nodiscard]] std::string insurersText(const LetterNames &names, const LetterBundle &bundle);
[[nodiscard]] std::string districtsText(const LetterNames &names, const LetterBundle &bundle);

} // namespace inin::viewer
