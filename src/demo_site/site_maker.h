#pragma once

#include "demo_site/people.h"

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

namespace inin::site {

/// Written to every folder that `make` creates; `make` may write to a folder that contains it.
inline constexpr std::string_view kMarkerFile = ".inin-site";
inline constexpr std::array<std::string_view, 4> kFolders{"SYS", "TMP", "ICON", "DATA"};

enum class Overwrite { onlyOwnFolder, anyFolder };

/// Makes a demo site in a new or empty folder, or again in one that this tool made. Any other folder is refused unless
/// `anyFolder` is set; files that `make` does not write are kept there. `formViewer` is the program to start under the
/// form tools' names; without one they are substitutes. Failures raise RuntimeError.
void makeSite(const std::filesystem::path &folder, const SiteOrder &order, Overwrite overwrite,
              const std::filesystem::path &formViewer = {});

/// Replaces a file; raises RuntimeError with a sentence on failure.
void writeFile(const std::filesystem::path &path, std::string_view bytes);

/// Replaces "adodb.ini", which may contain a password: afterwards only its owner can read it (on Windows the folder
/// decides).
void writeConnectionFile(const std::filesystem::path &folder, std::string_view bytes);

/// A 24-bit bitmap of sky over fields.
[[nodiscard]] std::string wallpaper();

// The names under which a print run starts the suite's menu program and the form tools.
inline constexpr std::string_view kMenu = "Main.exe";
inline constexpr std::string_view kFormTools[] = {"wfrfv10.exe", "WrVb6Viewer.exe", "wfrimg10.exe"};

/// Writes these programs to a site's folder: a substitute of the menu program, and as the form tools the form viewer, or
/// substitutes if `formViewer` is empty. Raises RuntimeError with a sentence on failure.
void writeStandIns(const std::filesystem::path &folder, const std::filesystem::path &formViewer);
/// The file name of the form viewer on this system.
[[nodiscard]] std::filesystem::path formViewerName();

} // namespace inin::site
