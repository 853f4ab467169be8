#pragma once

#include "viewer/io/file_stamp.h"

#include <cstddef>
#include <functional>
#include <string>

namespace inin::viewer {

/// Lets a moment pass before a file is looked at again.
using Pause = std::function<void()>;
void sleepBriefly();

struct ReadFile {
    std::string bytes;
    FileStamp stamp; ///< just before it was read
};

/// Whether a text file is empty or stops inside a line: it is still being written, or was cut off.
[[nodiscard]] bool isUnfinished(const std::string &bytes);

/// Reads a text file that another program may still be writing. An unfinished file is read again whenever it has changed,
/// until it is finished, has stayed the same for a second, or five seconds are over. RuntimeErrors as of readWholeFile().
[[nodiscard]] ReadFile readGrowingFile(const std::string &path, std::size_t limit, const Pause &pause);

/// Reads a file that another program, already started, is about to put in place as a whole; waits up to three seconds.
[[nodiscard]] std::string readComingFile(const std::string &path, std::size_t limit, const Pause &pause);

} // namespace inin::viewer
