#pragma once

#include <cstdint>
#include <string>

namespace inin {

/// What the runtime calls an error number of the system that came of the file at `path`.
[[nodiscard]] std::int32_t fileErrorNumber(std::uint32_t systemError, const std::wstring &path);
/// Raises it.
[[noreturn]] void failFile(std::uint32_t systemError, const std::wstring &path);

/// A drive without a medium fails on this thread, instead of asking a person for one in a box of the system. Programs that
/// are started do not inherit it.
void refuseBoxesOfTheSystem();

[[nodiscard]] bool isWin32Folder(const std::wstring &path);
/// True for anything there that is no folder.
[[nodiscard]] bool isWin32File(const std::wstring &path);
[[nodiscard]] bool isReadOnlyWin32File(const std::wstring &path);
/// Removes a symbolic link of that name, so that a file is created there and none is written elsewhere. Other files of
/// that name stay; a link that cannot be removed does too.
void removeWin32Link(const std::wstring &path);

} // namespace inin
