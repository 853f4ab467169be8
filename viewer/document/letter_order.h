#pragma once

#include "viewer/document/letter_names.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// The direction in which sheets are printed.
enum class LetterOrder { forward, reversed };

/// What the letters of an output are sorted by.
enum class LetterSort { extraction, insurer, district, patient };

struct LetterSortText {
    LetterSort sort;
    const char *name; ///< on the command line and in the settings
    const char *text; ///< for the user
};
inline constexpr LetterSortText kLetterSorts[] = {
    {LetterSort::extraction, "extraction", "抽出した順"},
    {LetterSort::insurer, "insurer", "保険者の順"},
    {LetterSort::district, "district", "地区の順"},
    {LetterSort::patient, "name", "利用者の氏名の順"},
};
[[nodiscard]] const LetterSortText &textOf(LetterSort sort);
[[nodiscard]] std::optional<LetterSort> letterSortNamed(std::string_view name);

/// The text that a letter is sorted by, folded as names are compared; empty for the order of extraction.
[[nodiscard]] std::u32string sortKeyOf(const LetterNames &names, std::size_t letter, LetterSort sort);
/// Sorts the letters by the code points of their keys. Letters with equal keys keep their order; letters without the text
/// and unreadable rows come last.
[[nodiscard]] std::vector<std::size_t> sortedLetters(const LetterNames &names, std::vector<std::size_t> letters,
                                                     LetterSort sort);

} // namespace inin::viewer
