#pragma once

#include <filesystem>

namespace inin::site {

/// Writes the programs that a print run starts to a site's folder: the substitute of the menu program, and under the
/// names of the three form tools the form viewer, or a substitute if `formViewer` is empty. Raises RuntimeError with a
/// sentence on failure.
void writeStandIns(const std::filesystem::path &folder, const std::filesystem::path &formViewer);

/// The file name of the form viewer on this system.
[[nodiscard]] std::filesystem::path formViewerName();

} // namespace inin::site
