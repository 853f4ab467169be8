#pragma once

#include "demo_site/people.h"

#include <array>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace inin::site {

/// Written to every folder that `make` creates; `make` may write to a folder that contains it.
inline constexpr std::string_view kMarkerFile = ".inin-site";
inline constexpr std::array<std::string_view, 4> kFolders{"SYS", "TMP", "ICON", "DATA"};

enum class Overwrite { onlyOwnFolder, anyFolder };

/// Makes a demo site in a new or empty folder, or again in one that this tool made; an unpacked package counts as empty. Any
/// other folder is refused unless `anyFolder` is set; files that `make` does not write are kept there. The folder of a real
/// suite is always refused: one with another maker's menu program or form tools, or with a connection to a server.
/// `formViewer` is the program to start under the form tools' names; without one they are substitutes. Failures raise
/// RuntimeError.
void makeSite(const std::filesystem::path &folder, const SiteOrder &order, Overwrite overwrite,
              const std::filesystem::path &formViewer = {});

/// A form document that is compiled into the program.
struct DemoForm {
    std::string_view name;
    std::string_view (*text)();
};
[[nodiscard]] std::span<const DemoForm> demoForms();
/// Replaces "adodb.ini", which may contain a password: afterwards only its owner can read it (on Windows the folder
/// decides).
void writeConnectionFile(const std::filesystem::path &folder, std::string_view bytes);

/// A 24-bit bitmap of sky over fields.
[[nodiscard]] std::string wallpaper();

// The names under which a print run starts the suite's menu program and the form tools.
inline constexpr std::string_view kMenu = "Main.exe";
inline constexpr std::string_view kFormTools[] = {"wfrfv10.exe", "WrVb6Viewer.exe", "wfrimg10.exe"};

/// Writes the substitute of the menu program. Raises RuntimeError with a sentence on failure.
void writeMenu(const std::filesystem::path &file);
/// Writes a form tool that starts the form viewer, or a substitute if `formViewer` is empty. Raises as writeMenu().
void writeFormTool(const std::filesystem::path &file, const std::filesystem::path &formViewer);
/// Whether a menu program or form tool was written by these, or is the form viewer itself.
[[nodiscard]] bool isOwnProgram(const std::filesystem::path &file);
/// The file name of the form viewer on this system.
[[nodiscard]] std::filesystem::path formViewerName();

} // namespace inin::site
