#pragma once

#include "platform/files.h"

#include <string>

namespace inin {

/// Checks by its first bytes that a file is a picture of a kind that the suite knows: bitmap, icon, cursor, GIF, JPEG, PNG
/// or metafile. Error 53 or 76 without the file, 75 for a folder, 481 for anything else.
void checkPictureFile(Files &files, const std::string &path);

/// False for a picture that no desktop of ours paints, so that its place stays bare: a metafile, and a file whose headers
/// are incomplete or wrong. Errors as in checkPictureFile.
[[nodiscard]] bool canBePainted(Files &files, const std::string &path);

} // namespace inin
