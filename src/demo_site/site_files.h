#pragma once

#include "demo_site/people.h"

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

namespace inin::site {

/// Written to every folder that `make` creates; `make` may write to a folder that contains it.
inline constexpr std::string_view kMarkerFile = ".inin-site";
inline constexpr std::string_view kDatabaseFile = "demo.db";
inline constexpr std::array<std::string_view, 4> kFolders{"SYS", "TMP", "ICON", "DATA"};

/// Writes all files of a site except its database; replaces existing files. See writeStandIns for `formViewer`.
void writeSiteFiles(const std::filesystem::path &folder, const SiteOrder &order,
                    const std::filesystem::path &formViewer);

/// Replaces "adodb.ini", which may contain a password: afterwards only its owner can read it (on
/// Windows the folder decides).
void writeConnectionFile(const std::filesystem::path &folder, std::string_view bytes);
/// Replaces a file; raises RuntimeError with a sentence on failure.
void writeFile(const std::filesystem::path &path, std::string_view bytes);

/// A 24-bit bitmap of sky over fields.
[[nodiscard]] std::string wallpaper();

} // namespace inin::site
