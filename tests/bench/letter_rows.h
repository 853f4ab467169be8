#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace inin::bench {

/// The titles of a letter file.
[[nodiscard]] const std::vector<std::string> &letterTitles();
/// The texts of one letter of many, in the order of the titles: ordinary ones, no two letters alike.
[[nodiscard]] std::vector<std::string> letterRow(std::size_t number);
/// A reader of a PDF sees a gap for a blank of any width, and some where none is: texts are looked for without them.
[[nodiscard]] std::string withoutBlanks(std::string text);

} // namespace inin::bench
