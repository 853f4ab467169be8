#pragma once

#include "support/temp_folder.h"
#include "viewer/document/letter_press.h"
#include "viewer/support/viewer_jobs.h"

#include <filesystem>
#include <string>
#include <vector>

namespace inin::viewer::test {

/// A path beyond the classic limit of Windows for calls that mind it.
[[nodiscard]] std::filesystem::path unlimitedPath(const std::filesystem::path &path);
[[nodiscard]] inline std::string writePrintJob(const TempFolder &folder, const std::string &form,
                                               const std::vector<Row> &rows)
{
    return writePrintJob(folder.folder(), form, rows);
}

/// A form of our own making: a page of A4 in millimetres around `elements`.
[[nodiscard]] std::string svgPage(const std::string &elements);

/// A set of letters on a form, without files.
[[nodiscard]] LetterSet lettersOn(const std::string &svg, const std::vector<Row> &rows);

/// Pages as `pdftotext -raw` gives them.
[[nodiscard]] std::vector<std::string> pagesOf(const std::string &pdf);
/// Without blanks of every width and line ends: a reader of a PDF sees a gap for any of them.
[[nodiscard]] std::string packed(const std::string &text);

/// The form viewer as a process in `folder`: its exit code, what it wrote.
struct Outcome {
    int code = -1;
    std::string output, errors;
};
[[nodiscard]] Outcome runViewer(const TempFolder &folder, const std::string &arguments,
                                const std::string &name = "formviewer");

} // namespace inin::viewer::test
