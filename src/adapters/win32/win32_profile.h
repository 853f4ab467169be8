#pragma once

#include "platform/platform.h"

#include <memory>
#include <optional>
#include <string>

namespace inin::win32 {

// The profile port has two implementations. Usually the platform's ANSI calls do the work, as in the suite's other
// programs. They lose a path beyond the classic limit and replace a character outside the code page by "?"; 8.3 names
// would help on some disks only. Such a file is opened by the wide calls, and the same rules are applied to its bytes.

/// True for a file whose absolute path the ANSI calls can open.
[[nodiscard]] bool hasAnsiPath(const std::string &file);
/// Uses the ANSI calls; requires hasAnsiPath().
[[nodiscard]] std::unique_ptr<Profile> makeCalledProfile();
/// Works on the bytes of any file. A name without a folder is not supported: reads find nothing, writes are refused.
[[nodiscard]] std::unique_ptr<Profile> makeProfileByBytes();

/// An argument in the ANSI code page; a missing one stays missing.
[[nodiscard]] std::optional<std::string> ansiArgument(const Profile::Text &text);

} // namespace inin::win32
