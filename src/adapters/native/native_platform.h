#pragma once

#include "platform/folders.h"
#include "platform/platform.h"

#include <functional>
#include <memory>
#include <string>

namespace inin {

// The ports that the system fulfils by its own calls. Each is named here once and made in adapters/posix/ and
// adapters/win32/; a program is linked with the one of the system that it is built for.

/// `applicationFolder` is what the runtime reports as the folder of the program.
[[nodiscard]] std::unique_ptr<Files> makeSystemFiles(std::string applicationFolder);
/// Windows: the drives by their letters, and folders on them or on a share. POSIX: the drives are the places that the
/// table of mounts names and a person keeps folders in.
[[nodiscard]] std::unique_ptr<Folders> makeSystemFolders();
[[nodiscard]] std::unique_ptr<Profile> makeSystemProfile();
[[nodiscard]] std::unique_ptr<Clock> makeSystemClock();
/// Windows: the user's own short date form and the system's ANSI code page. POSIX: yyyy/MM/dd whatever LANG says, code
/// page 932.
[[nodiscard]] std::unique_ptr<Locale> makeSystemLocale();
/// `end` must not come back: it is what the end statement does in this program. Without one the process exits.
[[nodiscard]] std::unique_ptr<Processes> makeSystemProcesses(std::function<void()> end);
/// Late-bound objects by the registry of Windows, on the thread that creates the first one; elsewhere there is none.
[[nodiscard]] std::unique_ptr<Automation> makeSystemAutomation();

} // namespace inin
