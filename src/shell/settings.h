#pragma once

#include "shell/app.h"

#include <string>

namespace inin {

inline constexpr const char *kSettingsFile = "Massage.ini";

enum class WarnIfMissing { no, yes };

/// The value of a key in "Massage.ini": everything behind the first "=" of the first line with that key. Key and line
/// are compared trimmed and case-sensitively. A missing key gives the empty text after a warning box, or Empty without
/// one. A missing file shows a box and ends the process. The file is read anew at each call.
[[nodiscard]] Variant vGetSystemValue(App &app, const std::string &csKey, WarnIfMissing warn);

/// Makes the folder and its drive current and gives back the current folder as the system then reports it.
[[nodiscard]] std::string csSetAppDir(App &app, const std::string &csFolder);
/// True if a directory search with normal attributes finds a name; a folder path ending in a backslash finds its
/// first file.
[[nodiscard]] bool bFileExists(App &app, const std::string &csPath);

// gcsAppPath, the key's value and a closing backslash; the key is read with the warning on.
[[nodiscard]] std::string csSysDir(App &app);  ///< "SYSTEM_SYS", the form documents
[[nodiscard]] std::string csTmpDir(App &app);  ///< "SYSTEM_TMP", the CSV and the command files
[[nodiscard]] std::string csIconDir(App &app); ///< "SYSTEM_ICON", the wallpaper
[[nodiscard]] std::string csDataDir(App &app); ///< "SYSTEM_DATA", "印刷設定.ini" and "帳票Format.ini"

} // namespace inin
