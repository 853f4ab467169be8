#pragma once

#include <filesystem>

namespace inin::site {

/// Writes the programs that a print run starts to a site's folder: a substitute of the menu program, and as the three
/// form tools the form viewer, or substitutes if `formViewer` is empty. Raises RuntimeError with a sentence on failure.
void writeStandIns(const std::filesystem::path &folder, const std::filesystem::path &formViewer);

/// The file name of the form viewer on this system.
[[nodiscard]] std::filesystem::path formViewerName();

} // namespace inin::site
