#pragma once

#include "runtime/runtime_error.h"

#include <cstdint>
#include <string>

namespace inin::win32 {

/// The runtime's number for a system error that concerns the file at `path`.
[[nodiscard]] std::int32_t fileErrorNumber(std::uint32_t systemError, const std::wstring &path);
/// Raises that error.
[[noreturn]] void failFile(std::uint32_t systemError, const std::wstring &path);

/// Missing in some headers: the program has the setting "as administrator".
inline constexpr std::uint32_t kElevationRequired = 740;
/// The failure to start the program of a command line. The system starts a program with the setting "as administrator"
/// only after asking the user, which a start by another program cannot do; that error names the setting.
[[nodiscard]] RuntimeError startFailure(std::uint32_t systemError, const std::string &commandLine);

/// A drive without a medium then fails on this thread instead of showing a system box that asks the user for one.
/// Started programs do not inherit this.
void refuseBoxesOfTheSystem();

[[nodiscard]] bool isWin32Folder(const std::wstring &path);
/// True if the path exists and is not a folder.
[[nodiscard]] bool isWin32File(const std::wstring &path);
[[nodiscard]] bool isReadOnlyWin32File(const std::wstring &path);
/// Removes a symbolic link of that name, so that a new file is created there and the link's target is not overwritten.
/// Other files stay; so does a link that cannot be removed.
void removeWin32Link(const std::wstring &path);

} // namespace inin::win32
