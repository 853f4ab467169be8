#pragma once

#include "viewer/letters/letter_table.h"

#include <string>
#include <vector>

namespace inin::viewer {

enum class TitleRow { first, none };

/// Reads a letter file: code page 932, one record per line, every field in quotes, quotes inside a value not doubled. A
/// row is split at `","` and is valid only when exactly one split gives the number of columns of the title row. Without
/// a title row the columns are called 1, 2, 3 …, or by the program's twenty titles when there are twenty. Throws a
/// RuntimeError with a sentence when the file has no readable title row, or no row at all.
[[nodiscard]] LetterTable readLetters(std::string bytes, TitleRow titles);

/// The titles of the program's letter file, in file order.
[[nodiscard]] const std::vector<std::string> &programTitles();

} // namespace inin::viewer
