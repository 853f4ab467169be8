#pragma once

#include <string_view>

namespace inin::site {

// The names under which a print run starts the suite's menu program and the form tools.
inline constexpr std::string_view kMenu = "Main.exe";
inline constexpr std::string_view kFormTools[] = {"wfrfv10.exe", "WrVb6Viewer.exe", "wfrimg10.exe"};

} // namespace inin::site
