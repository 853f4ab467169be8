#pragma once

#include "viewer/document/letter_renderer.h"
#include "viewer/pdf/letters_pdf.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace inin::viewer {

/// The paths of the files when each letter is saved as a PDF of its own.
[[nodiscard]] std::vector<std::string> letterPdfPaths(const LetterSet &set, std::span<const std::size_t> which,
                                                      const std::string &folder, const std::string &pattern);
/// Writes one PDF per letter and returns the number of complete files. Throws a RuntimeError with a sentence when one
/// cannot be written; the files before it are kept.
std::size_t writeLetterPdfs(const std::vector<std::string> &paths, LetterRenderer &renderer,
                            std::span<const std::size_t> which, const Progress &progress,
                            PdfPurpose purpose = PdfPurpose::reading);

} // namespace inin::viewer
