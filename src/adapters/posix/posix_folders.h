#pragma once

#include "platform/folders.h"

#include <memory>
#include <string>

namespace inin::posix {

/// The folders of a system, with the mount table read from that file.
[[nodiscard]] std::unique_ptr<Folders> makeMountedFolders(std::string mounts);

} // namespace inin::posix
