#pragma once

#include "site_setup/form_documents.h"

#include <filesystem>
#include <vector>

namespace inin::site {

/// Lets the form viewer start under the names of the form tools: writes those that are missing and refreshes those that this
/// program wrote earlier. A tool of another maker is kept. Raises RuntimeError with a sentence when a file cannot be written
/// or the form viewer is missing.
[[nodiscard]] std::vector<FileReport> installTools(const std::filesystem::path &site,
                                                   const std::filesystem::path &formViewer);

} // namespace inin::site
