#pragma once

#include "platform/folders.h"

#include <memory>
#include <string>

namespace inin {

/// The folders of a system whose table of mounts is that file.
[[nodiscard]] std::unique_ptr<Folders> makeMountedFolders(std::string mounts);

} // namespace inin
