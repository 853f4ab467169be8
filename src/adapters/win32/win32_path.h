#pragma once

#include <string>

namespace inin {

/// The path as the wide calls take it, see win32Path.
[[nodiscard]] std::wstring widePath(const std::string &path);

} // namespace inin
