#include "viewer/window/pdf_output.h"

#include "viewer/document/letter_file_name.h"

namespace inin::viewer {

std::vector<std::string> letterPdfPaths(const LetterSet &set, std::span<const std::size_t> which,
                                        const std::string &folder, const std::string &pattern)
{
    LetterFileNames names(set, pattern, ".pdf");
    std::vector<std::string> paths;
    paths.reserve(which.size());
    for (const std::size_t letter : which) paths.push_back(folder + "/" + names.nameOf(letter));
    return paths;
}

std::size_t writeLetterPdfs(const std::vector<std::string> &paths, LetterRenderer &renderer,
                            std::span<const std::size_t> which, const Progress &progress, PdfPurpose purpose)
{
    for (std::size_t i = 0; i < which.size(); ++i) {
        if (progress && !progress(i)) return i;
        writeLettersPdf(paths[i], renderer, which.subspan(i, 1), {}, {purpose});
    }
    return which.size();
}

} // namespace inin::viewer
