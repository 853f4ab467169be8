#pragma once

#include <string_view>

namespace inin {

/// The version of all programs, such as "0.1.0". CMakeLists.txt states it.
[[nodiscard]] std::string_view programVersion();

} // namespace inin
