#pragma once

#include <filesystem>

namespace inin::site {

/// Puts into a site's folder what a run starts: the stand-in of the menu program, and under the names of the three form
/// tools the form viewer, or a stand-in where `formViewer` is empty. A failure is a RuntimeError with a sentence.
void writeStandIns(const std::filesystem::path &folder, const std::filesystem::path &formViewer);

/// What the form viewer's file is called on this system.
[[nodiscard]] std::filesystem::path formViewerName();

} // namespace inin::site
