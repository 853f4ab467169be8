#pragma once

#include "adapters/common/no_automation.h"
#include "platform/folders.h"
#include "platform/platform.h"

#include <functional>
#include <memory>
#include <string>

namespace inin {

// The ports that Windows fulfils by its own calls.

/// Turns "/" into "\"; a path beyond the classic limit of 260 becomes whole and gets the prefix that lifts the limit.
[[nodiscard]] std::string win32Path(const std::string &path);

/// `applicationFolder` is what the runtime reports as the folder of the program.
[[nodiscard]] std::unique_ptr<Files> makeWin32Files(std::string applicationFolder);
/// The drives by their letters, and folders on them or on a share.
[[nodiscard]] std::unique_ptr<Folders> makeWin32Folders();
[[nodiscard]] std::unique_ptr<Profile> makeWin32Profile();
[[nodiscard]] std::unique_ptr<Clock> makeWin32Clock();
/// The user's own short date form and the system's ANSI code page.
[[nodiscard]] std::unique_ptr<Locale> makeWin32Locale();
/// `end` must not come back: it is what the end statement does in this program. Without one the process exits.
[[nodiscard]] std::unique_ptr<Processes> makeWin32Processes(std::function<void()> end);

/// Objects by the system's own registry of program ids, on the thread that creates the first one.
[[nodiscard]] std::unique_ptr<Automation> makeWin32Automation();

} // namespace inin
