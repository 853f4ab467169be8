#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace inin::bench {

/// The column titles of a letter file.
[[nodiscard]] const std::vector<std::string> &letterTitles();
/// The ordinary texts of one of many letters, in the order of the titles; no two letters are alike.
[[nodiscard]] std::vector<std::string> letterRow(std::size_t number);
/// PDF readers report a gap for a blank of any width, and sometimes where there is none: compare texts without blanks.
[[nodiscard]] std::string withoutBlanks(std::string text);

} // namespace inin::bench
