#pragma once

#include "platform/folders.h"

#include <string>
#include <vector>

namespace inin {

/// Refuses the path of a file to open or delete: error 52 for wildcards and other characters that the suite's file
/// system does not allow in names, which a system may accept; error 75 for a folder.
void checkFilePath(const std::string &path);

/// The folders from a drive's root down to the folder itself. Both paths are absolute.
[[nodiscard]] std::vector<FolderPlace> placesAbove(const std::string &drive, const std::string &folder, char separator);

} // namespace inin
