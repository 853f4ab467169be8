#pragma once

#include <string>
#include <vector>

namespace inin::viewer {

struct FontFile {
    std::string path; ///< of the system
    /// The full names of its fonts in the system's list, joined by " & "; empty for a file that is not listed.
    std::string listedAs;
};

/// The font files of a folder, sorted by name. Empty for a missing folder.
[[nodiscard]] std::vector<FontFile> fontFilesIn(const std::string &systemFolder);
/// The font files of the program's folder, then of the user, then of the machine. Only on systems that list fonts by file.
[[nodiscard]] std::vector<FontFile> installedFontFiles();

} // namespace inin::viewer
