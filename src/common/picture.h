#pragma once

#include "platform/files.h"

#include <string>

namespace inin {

/// Checks by its first bytes that a file is a picture in a format known to the suite: bitmap, icon, cursor, GIF, JPEG,
/// PNG or metafile. Error 53 or 76 without the file, 75 for a folder, 481 for anything else.
void checkPictureFile(Files &files, const std::string &path);

/// False for a picture that none of our toolkits paints, so that its area stays empty: a metafile, and a file with
/// incomplete or wrong headers. Errors as in checkPictureFile.
[[nodiscard]] bool canBePainted(Files &files, const std::string &path);

} // namespace inin
