#pragma once

#include "viewer/document/letter_press.h"
#include "viewer/pdf/letters_pdf.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace inin::viewer {

/// The files that one PDF a letter would make, with their folder.
[[nodiscard]] std::vector<std::string> letterPdfPaths(const LetterSet &set, std::span<const std::size_t> which,
                                                      const std::string &folder, const std::string &pattern);
/// Writes one PDF a letter; gives how many are written, whole ones only. A RuntimeError with a sentence when one cannot
/// be written; those before it stay.
std::size_t writeLetterPdfs(const std::vector<std::string> &paths, LetterPress &press,
                            std::span<const std::size_t> which, const Progress &progress);

} // namespace inin::viewer
