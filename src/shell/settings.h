#pragma once

#include "shell/app.h"

#include <string>

namespace inin {

inline constexpr const char *kSettingsFile = "Massage.ini";

enum class WarnIfMissing { no, yes };

/// The value of a key in "Massage.ini": everything after the first "=" of the first line with that key. Key and line
/// are compared trimmed and case-sensitively. A missing key gives the empty text after a warning box, or Empty without
/// one. A missing file shows a box and ends the process. The file is read anew at each call.
[[nodiscard]] Variant vGetSystemValue(App &app, const std::string &csKey, WarnIfMissing warn);

/// Makes the folder and its drive current and returns the current folder as the system then reports it.
[[nodiscard]] std::string csSetAppDir(App &app, const std::string &csFolder);
/// True if a directory search with normal attributes finds a name; for a path ending in a backslash, any file in that
/// folder.
[[nodiscard]] bool bFileExists(App &app, const std::string &csPath);

// gcsAppPath, the key's value and a closing backslash; a missing key shows the warning box.
[[nodiscard]] std::string csSysDir(App &app); ///< "SYSTEM_SYS", the form documents
/// "SYSTEM_TMP", the CSV and the command files
[[nodiscard]] std::string csTmpDir(App &app, WarnIfMissing warn = WarnIfMissing::yes);
[[nodiscard]] std::string csIconDir(App &app); ///< "SYSTEM_ICON", the wallpaper
[[nodiscard]] std::string csDataDir(App &app); ///< "SYSTEM_DATA", "印刷設定.ini" and "帳票Format.ini"

} // namespace inin
