#include "viewer/window/pdf_output.h"

#include "viewer/document/letter_file_name.h"

namespace inin::viewer {

std::vector<PdfPart> letterParts(const LetterSet &set, std::span<const std::size_t> which, const std::string &folder,
                                 const std::string &pattern)
{
    LetterFileNames names(set, pattern, ".pdf");
    std::vector<PdfPart> parts;
    parts.reserve(which.size());
    for (const std::size_t letter : which) parts.push_back({folder + "/" + names.nameOf(letter), {letter}});
    return parts;
}

std::vector<PdfPart> bundleParts(const LetterSet &set, std::span<const LetterBundle> bundles, LetterSort sort,
                                 const std::string &folder)
{
    BundleFileNames names(set, sort, ".pdf");
    std::vector<PdfPart> parts;
    for (const LetterBundle &bundle : bundles) parts.push_back({folder + "/" + names.nameOf(bundle), bundle.sheets()});
    return parts;
}

std::size_t writePdfParts(std::span<const PdfPart> parts, LetterRenderer &renderer, const Progress &progress,
                          PdfPurpose purpose)
{
    std::size_t letters = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (progress && !progress(letters)) return i;
        writeLettersPdf(parts[i].path, renderer, parts[i].sheets, {}, {purpose});
        letters += letterCount(renderer.set(), parts[i].sheets);
    }
    return parts.size();
}

} // namespace inin::viewer
