#pragma once

#include "demo_site/people.h"

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

namespace inin::site {

/// Lies in every folder that `make` has made; a folder with it may be made again.
inline constexpr std::string_view kMarkerFile = ".inin-site";
inline constexpr std::string_view kDatabaseFile = "demo.db";
inline constexpr std::array<std::string_view, 4> kFolders{"SYS", "TMP", "ICON", "DATA"};

/// Everything of a site but its database. An old file of the same name is replaced. See writeStandIns for
/// `formViewer`.
void writeSiteFiles(const std::filesystem::path &folder, const SiteOrder &order,
                    const std::filesystem::path &formViewer);

/// Replaces a file; a failure is a RuntimeError with a sentence.
void writeFile(const std::filesystem::path &path, std::string_view bytes);

/// A calm sky over fields, as the bytes of a 24-bit bitmap.
[[nodiscard]] std::string wallpaper();

} // namespace inin::site
