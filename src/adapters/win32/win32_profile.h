#pragma once

#include "platform/platform.h"

#include <memory>
#include <optional>
#include <string>

namespace inin {

// The profile has two roads here. Where the platform's ANSI calls can be told the file, they do the work, as in the suite's
// other programs. They cut or lose a path beyond the classic limit, and put "?" for a character that the code page lacks;
// names of 8.3 would help on some disks only. Such a file is opened by the wide calls and gets the same rules on its bytes.

/// True for a file whose whole path the ANSI calls can be told.
[[nodiscard]] bool canBeTold(const std::string &file);
/// By the calls; the file must be one that they can be told.
[[nodiscard]] std::unique_ptr<Profile> makeCalledProfile();
/// By the bytes of the file, wherever it lies. A name without a folder has none: it reads as empty and refuses.
[[nodiscard]] std::unique_ptr<Profile> makeProfileByBytes();

/// An argument in the ANSI code page; one that is not given stays so.
[[nodiscard]] std::optional<std::string> ansiArgument(const Profile::Text &text);

} // namespace inin
