#pragma once

#include "viewer/document/letter_bundles.h"
#include "viewer/document/letter_renderer.h"
#include "viewer/pdf/letters_pdf.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace inin::viewer {

/// One of several PDF files.
struct PdfPart {
    std::string path;
    std::vector<std::size_t> sheets;
};

/// The files when each letter is saved as a PDF of its own.
[[nodiscard]] std::vector<PdfPart> letterParts(const LetterSet &set, std::span<const std::size_t> which,
                                               const std::string &folder, const std::string &pattern);
/// The files when each bundle is saved as a PDF of its own.
[[nodiscard]] std::vector<PdfPart> bundleParts(const LetterSet &set, std::span<const LetterBundle> bundles,
                                               LetterSort sort, const std::string &folder);
/// Writes the files and returns the number of complete ones. `progress` receives the number of letters written. Throws a
/// RuntimeError with a sentence when a file cannot be written; the files before it are kept.
std::size_t writePdfParts(std::span<const PdfPart> parts, LetterRenderer &renderer, const Progress &progress,
                          PdfPurpose purpose);

} // namespace inin::viewer
