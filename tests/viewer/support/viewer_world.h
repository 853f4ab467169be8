#pragma once

#include "support/temp_folder.h"
#include "viewer/document/letter_opener.h"
#include "viewer/document/letter_renderer.h"
#include "viewer/support/viewer_jobs.h"

#include <filesystem>
#include <string>
#include <vector>

namespace inin::viewer::test {

[[nodiscard]] inline std::string writePrintJob(const TempFolder &folder, const std::string &form,
                                               const std::vector<Row> &rows)
{
    return writePrintJob(folder.folder(), form, rows);
}

/// A form with `elements` on an A4 page in millimetres.
[[nodiscard]] std::string svgPage(const std::string &elements);

/// A set of letters on a form, without any files.
[[nodiscard]] LetterSet lettersOn(const std::string &svg, const std::vector<Row> &rows);

/// The pages of a PDF as extracted by `pdftotext -raw`.
[[nodiscard]] std::vector<std::string> pagesOf(const std::string &pdf);
/// Removes blanks of all widths and line ends, because PDF readers insert them at gaps.
[[nodiscard]] std::string packed(const std::string &text);

/// The result of the form viewer as a process.
struct Outcome {
    int code = -1;
    std::string output, errors;
};
[[nodiscard]] Outcome runViewer(const TempFolder &folder, const std::string &arguments,
                                const std::string &name = "formviewer");

} // namespace inin::viewer::test
