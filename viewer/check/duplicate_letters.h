#pragma once

#include "viewer/letters/letter_table.h"

#include <vector>

namespace inin::viewer {

/// Rows of one file that belong together, in ascending order; at least two.
using LetterGroup = std::vector<std::size_t>;

/// Rows with the same texts in every column.
[[nodiscard]] std::vector<LetterGroup> sameLetters(const LetterTable &table);
/// Rows of the same patient: name and address differ at most in width, kind of kana and blanks. Identical rows are left to
/// sameLetters().
[[nodiscard]] std::vector<LetterGroup> samePersons(const LetterTable &table);

} // namespace inin::viewer
