#pragma once

#include "viewer/ledger/run_texts.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

// How the ledger stores texts. A letter's texts follow each other, each after its length plus one as a number of seven bits
// a byte, the lowest first. A text that equals that of the run's first letter is a single zero byte: most texts of a run,
// such as the company's, are the same in all letters.

[[nodiscard]] std::string encodedList(const std::vector<std::string> &texts);
[[nodiscard]] std::vector<std::string> decodedList(std::string_view bytes);

[[nodiscard]] std::string encodedLetter(const RunTexts &texts, std::size_t letter);
/// Appends a letter. Texts that damaged bytes do not contain are empty.
void addDecodedLetter(RunTexts &texts, std::string_view bytes);

} // namespace inin::viewer
