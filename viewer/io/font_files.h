#pragma once

#include <string>
#include <vector>

namespace inin::viewer {

struct FontFile {
    std::string path; ///< of the system
    /// The full names of its fonts as the system lists them, joined by " & "; empty when it does not list the file.
    std::string listedAs;
};

/// The font files of a folder, in the order of their names. A folder that is missing has none.
[[nodiscard]] std::vector<FontFile> fontFilesIn(const std::string &systemFolder);
/// Those that letters may use: beside the program, then of the user, then of the machine. Only where the system itself
/// lists fonts by files.
[[nodiscard]] std::vector<FontFile> installedFontFiles();

} // namespace inin::viewer
