#pragma once

#include "viewer/io/file_stamp.h"

#include <cstddef>
#include <functional>
#include <string>

namespace inin::viewer {

/// Waits a moment before a file is read again.
using Pause = std::function<void()>;
void sleepBriefly();

struct ReadFile {
    std::string bytes;
    FileStamp stamp; ///< just before it was read
};

/// Reads a file that may change at any time. Throws as readWholeFile().
[[nodiscard]] ReadFile readStampedFile(const std::string &path, std::size_t limit);

/// Whether a text file is empty or ends inside a line: it is still being written, or was truncated.
[[nodiscard]] bool isUnfinished(const std::string &bytes);

/// Reads a text file that another program may still be writing. An unfinished file is read again after each change
/// until it is finished, has not changed for a second, or five seconds have passed. Throws as readWholeFile().
[[nodiscard]] ReadFile readGrowingFile(const std::string &path, std::size_t limit, const Pause &pause);

/// Waits up to three seconds for a file that a running program is about to create in one step, and reads it.
[[nodiscard]] ReadFile waitForFile(const std::string &path, std::size_t limit, const Pause &pause);

} // namespace inin::viewer
