#pragma once

#include <cstddef>
#include <string>

namespace inin::viewer {

/// The path, in the suite's form, of a file that another one names by a path relative to its own folder, such as
/// "logo.png" or "pictures/logo.png". Throws a RuntimeError with a sentence for a name that leaves the folder; links are not
/// followed and the file may be missing.
[[nodiscard]] std::string pathBeside(const std::string &path, const std::string &name);
/// The bytes of such a file. Throws for a missing file, one outside the folder by a link, and one larger than `limit` bytes
/// too.
[[nodiscard]] std::string readFileBeside(const std::string &path, const std::string &name, std::size_t limit);

} // namespace inin::viewer
