#pragma once

#include <cstddef>

namespace inin {

/// Settings files are small: one with more bytes than this counts as unreadable, because reading it would take all memory
/// or never end.
inline constexpr std::size_t kMaxSettingsBytes = std::size_t{16} << 20;

} // namespace inin
