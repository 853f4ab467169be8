#pragma once

#include "viewer/letters/letter_table.h"

#include <string>
#include <vector>

namespace inin::viewer {

enum class TitleRow { first, none };

/// Reads a letter file: code page 932, a record a line, every field in quotes that are not doubled inside.
/// A row is split at `","` and counts as read only when this gives the title row's columns in exactly one way.
/// Without a title row the columns are called 1, 2, 3 …, and by the program's twenty titles when there are twenty.
/// A RuntimeError with a sentence when the file has no readable title row, or no row at all.
[[nodiscard]] LetterTable readLetters(std::string bytes, TitleRow titles);

/// The titles of the program's letter file, in its order.
[[nodiscard]] const std::vector<std::string> &programTitles();

} // namespace inin::viewer
