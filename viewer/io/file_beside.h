#pragma once

#include <cstddef>
#include <string>

namespace inin::viewer {

/// The path of a file that another one names by a path relative to its own folder, such as "logo.png" or
/// "pictures/logo.png". `path` is in the suite's form; the result is a system path. Throws a RuntimeError with a sentence
/// for a name that leaves the folder, also by a link, and for a missing file.
[[nodiscard]] std::string pathBeside(const std::string &path, const std::string &name);
/// The bytes of such a file. Throws for a file larger than `limit` bytes too.
[[nodiscard]] std::string readFileBeside(const std::string &path, const std::string &name, std::size_t limit);

} // namespace inin::viewer
