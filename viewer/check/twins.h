#pragma once

#include "viewer/letters/letter_table.h"

#include <vector>

namespace inin::viewer {

/// Rows of one file that belong together, in rising order; always two at least.
using Twins = std::vector<std::size_t>;

/// Rows that hold the same texts in every column.
[[nodiscard]] std::vector<Twins> sameLetters(const LetterTable &table);
/// Rows of the same patient, by name and address without their blanks. Rows that are the same letter throughout are no
/// such group: they are told as that.
[[nodiscard]] std::vector<Twins> samePersons(const LetterTable &table);

} // namespace inin::viewer
