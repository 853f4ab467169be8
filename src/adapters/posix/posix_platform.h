#pragma once

#include "adapters/common/no_automation.h"
#include "platform/folders.h"
#include "platform/platform.h"

#include <functional>
#include <memory>
#include <string>

namespace inin {

// The ports that a POSIX system fulfils by itself.

/// Turns "\" into "/" and finds each part of the path whatever its case; what does not exist is kept as it is.
[[nodiscard]] std::string posixPath(const std::string &path);

/// `applicationFolder` is what the runtime reports as the folder of the program.
[[nodiscard]] std::unique_ptr<Files> makePosixFiles(std::string applicationFolder);
/// The drives are the places that the table of mounts names and a person keeps folders in.
[[nodiscard]] std::unique_ptr<Folders> makePosixFolders(std::string mounts = "/proc/self/mounts");
[[nodiscard]] std::unique_ptr<Profile> makePosixProfile();
[[nodiscard]] std::unique_ptr<Clock> makePosixClock();
/// Short date form yyyy/MM/dd whatever LANG says, code page 932.
[[nodiscard]] std::unique_ptr<Locale> makePosixLocale();
/// `end` must not come back: it is what the end statement does in this program.
[[nodiscard]] std::unique_ptr<Processes> makePosixProcesses(std::function<void()> end);

} // namespace inin
