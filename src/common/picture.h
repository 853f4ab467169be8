#pragma once

#include "platform/files.h"

#include <string>

namespace inin {

/// Checks by its first bytes that a file is a picture that the suite's windows can show: bitmap, icon, GIF, JPEG, PNG
/// or metafile. Error 53 or 76 without the file, 75 for a folder, 481 for anything else.
void checkPictureFile(Files &files, const std::string &path);

} // namespace inin
