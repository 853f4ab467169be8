#pragma once

// The ports of the system that the programs are built for, under names that tell nothing of it.

#ifdef _WIN32
#include "adapters/win32/win32_platform.h"
#else
#include "adapters/posix/posix_platform.h"
#endif

namespace inin {

#ifdef _WIN32
[[nodiscard]] inline std::string systemPath(const std::string &path)
{
    return win32Path(path);
}
[[nodiscard]] inline std::unique_ptr<Files> makeSystemFiles(std::string applicationFolder)
{
    return makeWin32Files(std::move(applicationFolder));
}
[[nodiscard]] inline std::unique_ptr<Profile> makeSystemProfile()
{
    return makeWin32Profile();
}
[[nodiscard]] inline std::unique_ptr<Clock> makeSystemClock()
{
    return makeWin32Clock();
}
[[nodiscard]] inline std::unique_ptr<Locale> makeSystemLocale()
{
    return makeWin32Locale();
}
[[nodiscard]] inline std::unique_ptr<Processes> makeSystemProcesses(std::function<void()> end)
{
    return makeWin32Processes(std::move(end));
}
[[nodiscard]] inline std::unique_ptr<Automation> makeSystemAutomation()
{
    return makeWin32Automation();
}
/// True for a path that does not start at the current folder; a drive's letter counts as such.
[[nodiscard]] inline bool isAbsolutePath(const std::string &path)
{
    return path.starts_with('\\') || path.starts_with('/') || (path.size() > 1 && path[1] == ':');
}
#else
/// A path of the suite as this system's calls take it.
[[nodiscard]] inline std::string systemPath(const std::string &path)
{
    return posixPath(path);
}
/// `applicationFolder` is what the runtime reports as the folder of the program.
[[nodiscard]] inline std::unique_ptr<Files> makeSystemFiles(std::string applicationFolder)
{
    return makePosixFiles(std::move(applicationFolder));
}
[[nodiscard]] inline std::unique_ptr<Profile> makeSystemProfile()
{
    return makePosixProfile();
}
[[nodiscard]] inline std::unique_ptr<Clock> makeSystemClock()
{
    return makePosixClock();
}
[[nodiscard]] inline std::unique_ptr<Locale> makeSystemLocale()
{
    return makePosixLocale();
}
/// `end` must not come back: it is what the end statement does in this program.
[[nodiscard]] inline std::unique_ptr<Processes> makeSystemProcesses(std::function<void()> end)
{
    return makePosixProcesses(std::move(end));
}
/// Late-bound objects are a thing of Windows: elsewhere there is none.
[[nodiscard]] inline std::unique_ptr<Automation> makeSystemAutomation()
{
    return makeNoAutomation();
}
/// True for a path that does not start at the current folder.
[[nodiscard]] inline bool isAbsolutePath(const std::string &path)
{
    return path.starts_with('\\') || path.starts_with('/');
}
#endif

} // namespace inin
