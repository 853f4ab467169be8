#pragma once

#include "platform/folders.h"
#include "platform/platform.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace inin {

// The ports that are implemented by system calls. Each is declared here once and defined in adapters/posix/ and
// adapters/win32/; a program links the one for its system.

/// `applicationFolder` is what the runtime reports as the folder of the program.
[[nodiscard]] std::unique_ptr<Files> makeSystemFiles(std::string applicationFolder);
/// Windows: the drives by letter, and folders on them or on a share. POSIX: the drives are those mount points that
/// contain users' folders.
[[nodiscard]] std::unique_ptr<Folders> makeSystemFolders();
[[nodiscard]] std::unique_ptr<Profile> makeSystemProfile();
[[nodiscard]] std::unique_ptr<Clock> makeSystemClock();
/// Windows: the user's short date format and the system's ANSI code page. POSIX: yyyy/MM/dd regardless of LANG, and
/// code page 932.
[[nodiscard]] std::unique_ptr<Locale> makeSystemLocale();
/// `end` implements the end statement of this program and must not return. If it is empty, the process exits.
[[nodiscard]] std::unique_ptr<Processes> makeSystemProcesses(std::function<void()> end);
/// True if a command line that begins with this name starts a program while `folder` is the current folder.
[[nodiscard]] bool canStart(const std::string &folder, const std::string &name);
/// Windows: true for a program of the folder with the setting "as administrator", which another program cannot start.
[[nodiscard]] bool startsOnlyAsAdministrator(const std::string &folder, const std::string &name);
/// A name in a connection string that a driver looks up: a data source of ODBC, an alias of a SQL Server.
enum class ServerName : std::uint8_t { dataSource, alias };
/// Windows: true if the name is defined, but not for 64-bit programs.
[[nodiscard]] bool isOnlyFor32BitPrograms(ServerName kind, const std::string &name);
/// Late-bound objects from the registry of Windows, on the thread that creates the first one; other systems have none.
[[nodiscard]] std::unique_ptr<Automation> makeSystemAutomation();

} // namespace inin
